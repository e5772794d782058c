// SPDX-License-Identifier: MIT
#include <tessera/geometry/TMapTransform.h>

#include <cmath>
#include <numbers>

namespace tessera {

TMapTransform TMapTransform::Scaling(double factorX, double factorY, const TMapPoint &about) {
  const TMapPoint fixed{factorX == 1 ? 0 : about.X, factorY == 1 ? 0 : about.Y};
  return {.From = fixed, .To = fixed, .XX = factorX, .YY = factorY};
}

TMapTransform TMapTransform::Rotation(double angleDeg, const TMapPoint &about) {
  constexpr double QuarterDeg = 90;
  const double angle = angleDeg * std::numbers::pi / 180;
  double cosine = std::cos(angle);
  double sine = std::sin(angle);
  if (std::fmod(angleDeg, QuarterDeg) == 0) {
    cosine = std::round(cosine);
    sine = std::round(sine);
  }
  return {.From = about, .To = about, .XX = cosine, .XY = -sine, .YX = sine, .YY = cosine};
}

double TMapTransform::GetMeanFactor() const {
  return std::sqrt(std::abs(GetDeterminant()));
}

}  // namespace tessera
