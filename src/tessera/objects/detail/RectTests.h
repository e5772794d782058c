// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>
#include <tessera/base/TBounds.h>

namespace tessera::detail {

/// Whether the bounds of an object and a rectangle meet: a corner of one lies in the other, or their sides cross.
/// Borders count. For two rectangles whose corners are in order this is a plain test of overlap; one that was passed
/// the wrong way round is put through the corners and sides as they are. An object without vertices meets nothing.
[[nodiscard]] TESSERA_CORE_EXPORT bool BoundsMeetRect(const TBounds &bounds, const TBounds &rect);

/// The same by corners and sides alone, whatever the order of the corners. Slow; the yardstick of the above.
[[nodiscard]] TESSERA_CORE_EXPORT bool CornersOrSidesMeet(const TBounds &bounds, const TBounds &rect);

}  // namespace tessera::detail
