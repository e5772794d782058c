// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/geometry/detail/VertexRuns.h>

#include <algorithm>

namespace tessera::detail {

/// The sides of a box that all of something lies beyond, as bits; 0 for what may meet it, and for what is no number.
template <typename Extent>
[[nodiscard]] unsigned SidesBeyond(const Extent &low, const Extent &high, const TBounds &box) {
  return (high.X < box.MinX ? 1U : 0U) | (low.X > box.MaxX ? 2U : 0U) | (high.Y < box.MinY ? 4U : 0U) |
         (low.Y > box.MaxY ? 8U : 0U);
}
[[nodiscard]] inline unsigned SidesBeyond(const TMapPoint &point, const TBounds &box) {
  return SidesBeyond(point, point, box);
}
[[nodiscard]] inline unsigned SidesBeyond(const RoundedBox &run, const TBounds &box) {
  return SidesBeyond(TMapPoint{run.minX, run.minY}, TMapPoint{run.maxX, run.maxY}, box);
}

/// Calls `onEdge` with the first vertex of each edge of a part that may meet a box: all that do, and few others. What
/// lies beyond one side of the box as a whole is passed over without a look at each vertex.
template <typename OnEdge>
void ForEdgesNear(const VertexRuns &runs, const TBounds &box, OnEdge onEdge) {
  const auto points = runs.Points();
  for (std::size_t at = 0; at + 1 < points.size();) {
    const unsigned sides = SidesBeyond(points[at], box);
    if (sides == 0) {
      onEdge(at++);
      continue;
    }
    // Only one side counts: from beyond one to beyond another an edge may cross the box.
    const unsigned side = sides & (~sides + 1);
    const auto isBeyond = [&](const auto &what) { return (SidesBeyond(what, box) & side) != 0; };
    at = runs.FirstNot(at + 1, points.size(), isBeyond, isBeyond);
    if (at < points.size() && (SidesBeyond(points[at - 1], box) & SidesBeyond(points[at], box)) == 0) onEdge(at - 1);
  }
}

/// The point of an edge that is nearest to another point.
[[nodiscard]] inline TMapPoint NearestOnEdge(const TMapPoint &from, const TMapPoint &to, const TMapPoint &point) {
  const TMapPoint way{to.X - from.X, to.Y - from.Y};
  const double square = way.X * way.X + way.Y * way.Y;
  if (!(square > 0)) return from;
  const double share = std::clamp(((point.X - from.X) * way.X + (point.Y - from.Y) * way.Y) / square, 0., 1.);
  return {from.X + share * way.X, from.Y + share * way.Y};
}

[[nodiscard]] inline double SquareOfDistance(const TMapPoint &a, const TMapPoint &b) {
  return (a.X - b.X) * (a.X - b.X) + (a.Y - b.Y) * (a.Y - b.Y);
}

}  // namespace tessera::detail
