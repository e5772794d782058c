// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/objects/TCustomMapObject.h>

namespace tessera::detail {

/// What an object takes up on its map: of a text there, which stands on a point, the bounds of its turned box. Inverted
/// where it has no vertex.
[[nodiscard]] TESSERA_CORE_EXPORT TBounds ShownBounds(const TCustomMapObject &object);

}  // namespace tessera::detail
