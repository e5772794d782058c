// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/graphics/detail/RasterOps.h>

namespace tessera::detail {

enum class LineEnd { Drawn, Omitted };

/// Draws the pixels of a one-pixel line, always the same ones in either direction: in each column of a flat line (row
/// of a steep one) that whose centre is nearest to it, the one of higher coordinate where two are. Any 32-bit
/// coordinates; time is bounded by the surface.
void DrawThinLine(const Surface &surface, TPoint from, TPoint to, LineEnd end, Ink ink);

/// The lines that lie side by side in a line of a few pixels' width.
struct NarrowPen {
  int widthPx = 1;
  int offsetPx = 0;
};

/// Draws a line of a few pixels' width along all points: in each column of a flat piece (row of a steep one) `widthPx`
/// pixels, the first of them `offsetPx` from the thin line. `end` is for the last piece.
void DrawNarrowPolyline(const Surface &surface, std::span<const TPoint> points, NarrowPen pen, LineEnd end, Ink ink);

}  // namespace tessera::detail
