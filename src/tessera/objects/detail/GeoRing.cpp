// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/geometry/CoordConvertorU.h>
#include <tessera/objects/detail/GeoRing.h>

#include <cmath>
#include <numbers>

namespace tessera::detail {

void GeoRing::AppendTo(TMapPoints &points) const {
  if (pieCount == 0) throw EZeroDivide(QStringLiteral("A ring of no points"));
  if (pieCount < 0) throw ERangeError(QStringLiteral("A ring of %1 points").arg(pieCount));
  double northing = 0;
  double easting = 0;
  BL2XY(centre.Y, centre.X, northing, easting, 0);
  const double step = 360.0 / pieCount;
  points.Reserve(std::size_t(pieCount) + 1);
  const int first = points.GetCount();
  for (int i = 1; i <= pieCount; ++i) {
    const double angle = std::numbers::pi * (i * step) / 180;
    TMapPoint point{};
    XY2BL(northing + std::cos(angle) * radius, easting + std::sin(angle) * radius, point.Y, point.X);
    if (point.X >= 180) point.X -= 360;
    points.Add(point);
  }
  points.Add(TMapPoint(points.GetPoint(first)));
}

bool IsInRing(std::span<const TMapPoint> ring, double x, double y) {
  bool isInside = false;
  for (std::size_t i = 0; i < ring.size(); ++i) {
    const TMapPoint &from = ring[i];
    const TMapPoint &to = ring[(i + 1) % ring.size()];
    const auto [left, right] = std::minmax(from.X, to.X);
    const auto [low, high] = std::minmax(from.Y, to.Y);
    if (y < low || y > high || x > right) continue;
    const long double turn = (static_cast<long double>(to.X) - from.X) * (static_cast<long double>(y) - from.Y) -
                             (static_cast<long double>(to.Y) - from.Y) * (static_cast<long double>(x) - from.X);
    if (turn == 0 && x >= left) return true;
    // A side takes its lower end but not its upper one, so that a ray through a corner crosses once.
    const bool isToTheRight = x < left || (from.Y < to.Y) == (turn > 0);
    if (y != high && isToTheRight) isInside = !isInside;
  }
  return isInside;
}

}  // namespace tessera::detail
