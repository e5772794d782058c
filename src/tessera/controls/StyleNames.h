// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <QStringList>

namespace tessera {

/// What people are told of the styles, in the order of TPenStyle and TBrushStyle, in the language of the program.
[[nodiscard]] TESSERA_WIDGETS_EXPORT QStringList PenStyleNames();
[[nodiscard]] TESSERA_WIDGETS_EXPORT QStringList BrushStyleNames();

}  // namespace tessera
