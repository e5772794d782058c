// SPDX-License-Identifier: MIT
#include "Shapes.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tessera::mitab {
namespace {

constexpr std::size_t EllipsePoints = 180;
constexpr double DegreesOfStep = 2;

bool AreSame(const OGRRawPoint &one, const OGRRawPoint &other) {
  return one.x == other.x && one.y == other.y;
}

/// `count` points from one angle to another, both included.
Points Sample(const Arc &arc, double startDeg, double endDeg, std::size_t count) {
  constexpr double Degree = std::numbers::pi / 180;
  Points points(count);
  for (std::size_t i = 0; i < count; ++i) {
    const double angle = (startDeg + (endDeg - startDeg) * double(i) / double(count - 1)) * Degree;
    points[i] = {arc.center.x + arc.radiusX * std::cos(angle), arc.center.y + arc.radiusY * std::sin(angle)};
  }
  return points;
}

double AngleOfStep(std::size_t step) {
  return 2 * std::numbers::pi * double(step) / double(EllipsePoints - 1);
}

/// The ellipse of which the ring holds the samples, if it is one at all.
Arc EllipseThrough(std::span<const OGRRawPoint> ring) {
  constexpr std::size_t Left = EllipsePoints / 2;
  constexpr std::size_t Top = EllipsePoints / 4;
  constexpr std::size_t Bottom = EllipsePoints - 1 - Top;
  Arc arc;
  arc.radiusX = (ring[0].x - ring[Left].x) / (1 - std::cos(AngleOfStep(Left)));
  arc.radiusY = (ring[Top].y - ring[Bottom].y) / (std::sin(AngleOfStep(Top)) - std::sin(AngleOfStep(Bottom)));
  arc.center = {ring[0].x - arc.radiusX, (ring[Top].y + ring[Bottom].y) / 2};
  return arc;
}

}  // namespace

bool IsRectangle(std::span<const OGRRawPoint> ring) {
  constexpr std::size_t Count = 5;
  if (ring.size() != Count || !AreSame(ring[0], ring[4])) return false;
  const bool isUpFirst =
      ring[0].x == ring[1].x && ring[1].y == ring[2].y && ring[2].x == ring[3].x && ring[3].y == ring[0].y;
  const bool isAlongFirst =
      ring[0].y == ring[1].y && ring[1].x == ring[2].x && ring[2].y == ring[3].y && ring[3].x == ring[0].x;
  return (isUpFirst || isAlongFirst) && ring[0].x != ring[2].x && ring[0].y != ring[2].y;
}

bool IsSampledEllipse(std::span<const OGRRawPoint> ring) {
  constexpr double RelativeRounding = 1e-6;    // of the radius
  constexpr double CoordinateRounding = 2e-8;  // of the coordinates, which a TAB file keeps as integers of 32 bits
  if (ring.size() != EllipsePoints) return false;
  const Arc arc = EllipseThrough(ring);
  if (!(arc.radiusX > 0) || !(arc.radiusY > 0)) return false;
  const auto tolerance = [&](double center, double radius) {
    return RelativeRounding * radius + CoordinateRounding * (std::abs(center) + radius);
  };
  const double toleranceX = tolerance(arc.center.x, arc.radiusX);
  const double toleranceY = tolerance(arc.center.y, arc.radiusY);
  // A figure that rounding alone could make anything of is no ellipse.
  if (toleranceX > arc.radiusX / 100 || toleranceY > arc.radiusY / 100) return false;
  const Points expected = SampleEllipse(arc);
  return std::equal(ring.begin(), ring.end(), expected.begin(), [&](const OGRRawPoint &one, const OGRRawPoint &other) {
    return std::abs(one.x - other.x) <= toleranceX && std::abs(one.y - other.y) <= toleranceY;
  });
}

Kind KindOfRings(std::span<const Part> rings) {
  if (rings.size() != 1) return Kind::Region;
  const std::span<const OGRRawPoint> ring = rings.front().points;
  if (IsRectangle(ring)) return Kind::Rectangle;
  return IsSampledEllipse(ring) ? Kind::Ellipse : Kind::Region;
}

Points SampleEllipse(const Arc &arc) {
  Points points = Sample(arc, 0, 360, EllipsePoints);
  points.back() = points.front();
  return points;
}

Points SampleArc(const Arc &arc) {
  const double endDeg = arc.endDeg < arc.startDeg ? arc.endDeg + 360 : arc.endDeg;
  const double steps = std::clamp(std::abs(endDeg - arc.startDeg) / DegreesOfStep, 1.0, 360.0);
  return Sample(arc, arc.startDeg, endDeg, std::size_t(steps) + 1);
}

Points RectangleAround(std::span<const OGRRawPoint> points) {
  if (points.empty()) return {};
  OGRRawPoint low = points[0];
  OGRRawPoint high = points[0];
  for (const OGRRawPoint &point : points) {
    low = {std::min(low.x, point.x), std::min(low.y, point.y)};
    high = {std::max(high.x, point.x), std::max(high.y, point.y)};
  }
  return {low, {high.x, low.y}, high, {low.x, high.y}, low};
}

}  // namespace tessera::mitab
