// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/TBounds.h>

#include <QSize>

namespace tessera::detail {

/// A view that shows a box of the map whole: every point of the box lies within the client area, with a margin.
struct ViewFit {
  double centerX;
  double centerY;
  /// The width in map units that the client area has to show; 0 for a box without extent.
  long double width;
};

/// The closest such view for an area of at least one pixel. The margin keeps outlines on the border of the box, and
/// half of most symbols, inside the picture; areas of a few pixels have narrower ones. The box may have any finite
/// corners.
[[nodiscard]] ViewFit FitToClient(const TBounds &box, const QSize &clientPx);

}  // namespace tessera::detail
