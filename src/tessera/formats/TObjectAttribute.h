// SPDX-License-Identifier: MIT
#pragma once

namespace tessera {

/// What a line that follows an object's geometry in a MIF file tells of.
enum class TObjectAttribute { oaNone, oaPen, oaBrush, oaCenter, oaFont, oaSymbol };

}  // namespace tessera
