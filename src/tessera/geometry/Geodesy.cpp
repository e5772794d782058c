// SPDX-License-Identifier: MIT
#include <tessera/geometry/Geodesy.h>

#include <GeographicLib/Ellipsoid.hpp>
#include <GeographicLib/Geodesic.hpp>
#include <GeographicLib/PolygonArea.hpp>
#include <cmath>
#include <limits>
#include <numbers>

namespace tessera {
namespace {

/// The sum of what the library makes of the vertices in order; not a number where one of them is.
GeographicLib::PolygonArea Walk(std::span<const TMapPoint> points, bool isChain) {
  GeographicLib::PolygonArea walk(GeographicLib::Geodesic::WGS84(), isChain);
  for (const TMapPoint &point : points) walk.AddPoint(point.Y, point.X);
  return walk;
}

}  // namespace

double GeodesicLength(std::span<const TMapPoint> chain) {
  double length = 0;
  double none = 0;
  Walk(chain, true).Compute(false, true, length, none);
  return length;
}

double GeodesicArea(std::span<const TMapPoint> ring) {
  double length = 0;
  double area = 0;
  // What cannot be told from the area is told by the length.
  Walk(ring, false).Compute(false, true, length, area);
  return std::isnan(length) ? std::numeric_limits<double>::quiet_NaN() : std::abs(area);
}

double LengthOfDegree(double latitude) {
  constexpr double RadiansPerDegree = std::numbers::pi / 180;
  return GeographicLib::Ellipsoid::WGS84().CircleRadius(latitude) * RadiansPerDegree;
}

}  // namespace tessera
