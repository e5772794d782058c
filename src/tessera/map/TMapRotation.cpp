// SPDX-License-Identifier: MIT
#include <tessera/map/TMapRotation.h>

#include <cmath>
#include <numbers>

namespace tessera {

TMapRotation::TMapRotation(double x, double y, double angleDeg) : m_angleDeg(angleDeg), m_center{x, y} {
  constexpr double HalfTurnDeg = 180;
  const double angle = angleDeg * std::numbers::pi / HalfTurnDeg;
  m_forward = {std::sin(-angle), std::cos(-angle)};
  m_backward = {std::sin(angle), std::cos(angle)};
}

TMapPoint TMapRotation::Turn(const Coefficients &by, double x, double y) const {
  const double dx = x - m_center.X;
  const double dy = y - m_center.Y;
  return {dx * by.cosine - dy * by.sine + m_center.X, dx * by.sine + dy * by.cosine + m_center.Y};
}

void TMapRotation::Reset() {
  m_angleDeg = 0;
  m_center = {0, 0};
}

}  // namespace tessera
