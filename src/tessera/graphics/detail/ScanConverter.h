// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/graphics/TRgn.h>

namespace tessera::detail {

/// Appends the pixels inside a polygon of at least three points, as TRgn describes them, to runs that end above it.
/// `clip` is not empty. Storage is kept from one polygon to the next.
void ConvertPolygon(std::span<const TPoint> points, TFillMode mode, const QRect &clip, std::vector<TRgn::Run> &runs);

/// Appends [left, right) of row `y`, joined with the last run where they touch.
inline void AppendRun(std::vector<TRgn::Run> &runs, std::int32_t y, std::int32_t left, std::int32_t right) {
  if (left >= right) return;
  if (!runs.empty() && runs.back().y == y && runs.back().right == left) {
    runs.back().right = right;
  } else {
    runs.push_back({y, left, right});
  }
}

}  // namespace tessera::detail
