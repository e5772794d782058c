// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/objects/TCustomMapObject.h>

namespace tessera {

/// A circle about the first vertex, with a radius in map units. It is round on the screen whatever the view, for its
/// radius is measured along x.
///
/// Its bounds are those of the circle, and follow every setter here. A negative radius counts by its square: only
/// the distance between two circles takes its sign.
class TESSERA_CORE_EXPORT TCircle : public TCustomMapObject {
 public:
  /// Without extent, at (0, 0).
  TCircle();

  /// The bounds become the square about the centre.
  void UpdateBounds() override;
  void Draw() override;
  [[nodiscard]] std::unique_ptr<TCustomMapObject> Clone() const override;
  [[nodiscard]] std::unique_ptr<TObjectTraits> GetTraits() const override;
  void SetTraits(const TObjectTraits &traits) override;
  /// The centre goes along; the radius grows by the mean factor.
  void Transform(const TMapTransform &transform) override;
  void DrawSelection() override { DrawFigureAsSelection(); }
  /// The rim counts as inside.
  bool ContainsPoint(double x, double y) const override;
  /// Whether some vertex of `object` lies in the circle: not all of them need to, which is intended.
  bool Contains(const TCustomMapObject &object) const override;
  /// For two circles, whether they overlap: touching is not enough. Otherwise whether some vertex of `object` lies in
  /// the circle.
  bool Intersects(const TCustomMapObject &object) const override;
  /// Whether some corner of the rectangle lies in the circle. One that crosses the circle without a corner inside does
  /// not intersect it, which is intended; a layer then draws the circle only with TMapPainting::ShowCutObjects.
  bool IntersectsRect(double x1, double y1, double x2, double y2) const override;
  /// Whether the square about the circle lies in the rectangle, borders included.
  bool WithinRect(double x1, double y1, double x2, double y2) const override;
  [[nodiscard]] std::optional<TBounds> GetExtent() const override;
  [[nodiscard]] std::optional<int> GetPickReachPx() const override { return 0; }

  /// Reading the centre of a circle without a vertex gives it one at (0, 0).
  [[nodiscard]] double GetX() { return GetAnchor().X; }
  [[nodiscard]] double GetY() { return GetAnchor().Y; }
  void SetX(double x);
  void SetY(double y);
  [[nodiscard]] double GetRadius() const { return m_radius; }
  void SetRadius(double radius);

 private:
  struct Traits;
  double m_radius = 0;
};

}  // namespace tessera
