// SPDX-License-Identifier: MIT
#include <tessera/map/detail/MapRotation.h>

#include <cmath>
#include <numbers>

namespace tessera::detail {

MapRotation::MapRotation(double x, double y, double angleDeg) : m_angleDeg(angleDeg), m_center{x, y} {
  constexpr double HalfTurnDeg = 180;
  const double angle = angleDeg * std::numbers::pi / HalfTurnDeg;
  m_forward = {std::sin(-angle), std::cos(-angle)};
  m_backward = {std::sin(angle), std::cos(angle)};
}

TMapPoint MapRotation::Turn(const Coefficients &by, double x, double y) const {
  const double dx = x - m_center.X;
  const double dy = y - m_center.Y;
  return {dx * by.cosine - dy * by.sine + m_center.X, dx * by.sine + dy * by.cosine + m_center.Y};
}

void MapRotation::Reset() {
  m_angleDeg = 0;
  m_center = {0, 0};
}

}  // namespace tessera::detail
