// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>
#include <tessera/base/TMapPoint.h>

namespace tessera {

/// An affine map of the plane: what lies at `From` comes to lie at `To`, and the way from there is turned and scaled by
/// the matrix. Places far from the origin so keep their digits. The identity by default.
struct TESSERA_CORE_EXPORT TMapTransform {
  TMapPoint From{0, 0};
  TMapPoint To{0, 0};
  /// (x, y) becomes (XX x + XY y, YX x + YY y).
  double XX = 1;
  double XY = 0;
  double YX = 0;
  double YY = 1;

  static TMapTransform Translation(double dx, double dy) { return {.To = {dx, dy}}; }
  /// Scales about a point. Coordinates whose factor is 1 stay to the bit.
  static TMapTransform Scaling(double factorX, double factorY, const TMapPoint &about);
  /// Turns about a point, counter-clockwise; by multiples of 90 degrees exactly.
  static TMapTransform Rotation(double angleDeg, const TMapPoint &about);

  [[nodiscard]] TMapPoint operator()(const TMapPoint &point) const {
    const TMapPoint way = Turned({point.X - From.X, point.Y - From.Y});
    return {To.X + way.X, To.Y + way.Y};
  }
  /// What becomes of a way from one point to another.
  [[nodiscard]] TMapPoint Turned(const TMapPoint &way) const {
    return {XX * way.X + XY * way.Y, YX * way.X + YY * way.Y};
  }
  [[nodiscard]] double GetDeterminant() const { return XX * YY - XY * YX; }
  /// The geometric mean of what lengths are multiplied by, whatever their direction.
  [[nodiscard]] double GetMeanFactor() const;
  /// Whether what lies along an axis comes to lie along an axis.
  [[nodiscard]] bool KeepsAxes() const { return (XY == 0 && YX == 0) || (XX == 0 && YY == 0); }

  bool operator==(const TMapTransform &) const = default;
};

}  // namespace tessera
