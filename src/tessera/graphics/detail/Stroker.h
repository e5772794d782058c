// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/graphics/detail/PaintStage.h>

#include <span>

namespace tessera::detail {

/// A pen in device pixels.
struct DevicePen {
  TPenStyle style = TPenStyle::psSolid;
  int widthPx = 1;  ///< At least 1.
  int unitPx = 1;   ///< The width of a pen that is one client pixel wide, at least 1.
  Ink ink;

  [[nodiscard]] bool IsClear() const { return style == TPenStyle::psClear; }
  [[nodiscard]] bool IsDashed() const {
    return style != TPenStyle::psSolid && style != TPenStyle::psInsideFrame && style != TPenStyle::psClear;
  }
  /// How far the figure's first device pixel lies from that of a one-pixel pen: the pen is centred on the client pixel.
  [[nodiscard]] int OffsetPx() const { return -((widthPx - unitPx) / 2); }
  /// Whether a single line with this pen is drawn without touching a pixel twice.
  [[nodiscard]] bool IsThin() const { return widthPx == 1 && !IsDashed(); }
};

/// Lengths of dashes and gaps in turn, in pen widths; empty for a style without gaps.
[[nodiscard]] std::span<const double> DashPattern(TPenStyle style);

/// Draws lines along `points` with a pen that is not clear. `phasePx` is how far into its dashes the pen is, and is
/// moved on by the length of the lines. Time is bounded by the points and the size of the surface.
/// An ink that toggles is honoured only by a thin pen; the pixels of other lines may be touched more than once.
void StrokePolyline(PaintStage &stage, std::span<const TPoint> points, const DevicePen &pen, double &phasePx);

}  // namespace tessera::detail
