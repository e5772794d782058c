// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/objects/TCustomMapObject.h>

/// What the unit GeoCircle holds. It has a namespace of its own because its class shares the name of
/// tessera::TGeoCircle, which is a region; both stay usable side by side.
namespace tessera::geocircle {

/// A circle on the ground that stands alone instead of being a region: one outline, filled by the brush and closed,
/// that is hit where it is filled and not in the corners of its bounds. The map's x is the longitude and its y the
/// latitude, in degrees.
///
/// It starts as the square from (0, 0) to (1, 1), and becomes a circle with the first setter. The other tests are the
/// base's, by bounds and vertices, with this hit test.
class TESSERA_CORE_EXPORT TGeoCircle : public TCustomMapObject {
 public:
  TGeoCircle();

  /// Nothing as long as the first part has fewer than 4 points.
  void Draw() override;
  [[nodiscard]] std::unique_ptr<TCustomMapObject> Clone() const override;
  [[nodiscard]] std::unique_ptr<TObjectTraits> GetTraits() const override;
  void SetTraits(const TObjectTraits &traits) override;
  void MoveBy(double dx, double dy) override;
  /// The centre goes along; the radius grows by the mean factor.
  void Transform(const TMapTransform &transform) override;
  void DrawSelection() override { DrawFigureAsSelection(); }
  /// Whether the point lies within the outline or on it.
  bool ContainsPoint(double x, double y) const override;
  [[nodiscard]] std::optional<TBounds> GetExtent() const override { return GetVertexExtent(); }

  /// Longitude of the centre, in degrees.
  [[nodiscard]] double GetX() const { return m_centre.X; }
  void SetX(double longitude);
  /// Latitude of the centre, in degrees.
  [[nodiscard]] double GetY() const { return m_centre.Y; }
  void SetY(double latitude);
  /// In metres; 100000 at first.
  [[nodiscard]] double GetRadius() const { return m_radius; }
  void SetRadius(double radius);

  /// Lays the outline anew about the centre, as tessera::TGeoCircle does with its default number of points.
  void RecalculatePoints();

 private:
  struct Traits;
  TMapPoint m_centre{0, 0};
  double m_radius;
};

}  // namespace tessera::geocircle
