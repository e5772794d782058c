// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/objects/TRegion.h>

namespace tessera {

/// A circle on the ground, for maps whose x is the longitude and whose y the latitude, in degrees: a region whose only
/// part is a closed ring about the centre, wider in longitude the further from the equator. It draws and answers hit
/// tests as a region does.
///
/// Every setter lays the ring anew, and the bounds become those of the ring. For the limits of the ring, which lies in
/// one zone of the Gauss-Krueger projection, see CoordConvertorU.h: with the default radius it is good anywhere.
class TESSERA_CORE_EXPORT TGeoCircle : public TRegion {
 public:
  static constexpr double DefaultRadius = 100000;
  static constexpr int DefaultPieCount = 90;

  /// A ring about (0, 0).
  TGeoCircle();
  [[nodiscard]] std::unique_ptr<TCustomMapObject> Clone() const override;
  [[nodiscard]] std::unique_ptr<TObjectTraits> GetTraits() const override;
  void SetTraits(const TObjectTraits &traits) override;
  void MoveBy(double dx, double dy) override;
  /// The centre goes along; the radius grows by the mean factor.
  void Transform(const TMapTransform &transform) override;

  /// Longitude of the centre, in degrees.
  [[nodiscard]] double GetCenterX() const { return m_centerX; }
  void SetCenterX(double longitude);
  /// Latitude of the centre, in degrees.
  [[nodiscard]] double GetCenterY() const { return m_centerY; }
  void SetCenterY(double latitude);
  /// In metres.
  [[nodiscard]] double GetRadius() const { return m_radius; }
  void SetRadius(double radius);
  /// The points of the ring, not counting the last, which repeats the first.
  [[nodiscard]] int GetPieCount() const { return m_pieCount; }
  /// @throws EZeroDivide for 0 and ERangeError below; the ring is then empty.
  void SetPieCount(int count);

  /// Lays the ring anew.
  void GeneratePoints();

 private:
  struct Traits;
  double m_centerX = 0;
  double m_centerY = 0;
  double m_radius = DefaultRadius;
  int m_pieCount = DefaultPieCount;
};

}  // namespace tessera
