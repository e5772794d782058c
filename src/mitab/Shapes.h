// SPDX-License-Identifier: MIT
#pragma once

#include "Feature.h"

#include <span>

namespace tessera::mitab {

using Points = std::vector<OGRRawPoint>;

struct Arc {
  OGRRawPoint center;
  double radiusX = 0;
  double radiusY = 0;
  double startDeg = 0;
  double endDeg = 0;
};

/// Whether the ring is a rectangle along the axes, with an area, from any corner and in either direction.
[[nodiscard]] bool IsRectangle(std::span<const OGRRawPoint> ring);

/// Whether the ring is an ellipse in just the steps in which MapInfo's readers lay one out, which SampleEllipse takes:
/// 180 points counter-clockwise from the right, the last on the first. Coordinates may be rounded as a TAB file does.
[[nodiscard]] bool IsSampledEllipse(std::span<const OGRRawPoint> ring);

/// What an area is by its shape: a rectangle, an ellipse, or a region.
[[nodiscard]] Kind KindOfRings(std::span<const Part> rings);

[[nodiscard]] Points SampleEllipse(const Arc &arc);
/// In steps of two degrees, counter-clockwise.
[[nodiscard]] Points SampleArc(const Arc &arc);
/// The five points of the rectangle around the points; none around none.
[[nodiscard]] Points RectangleAround(std::span<const OGRRawPoint> points);

}  // namespace tessera::mitab
