// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/objects/TCustomMapObject.h>

namespace tessera {

/// A rectangle with sides along the axes, given by two opposite corners: the first two vertices. Its bounds follow
/// every setter here.
///
/// The corners may be set in any order; a getter sorts, a setter does not. Hence X0 = 5 and X1 = 1 read back as X0 = 1
/// and X1 = 5, and setting X0 to 3 then leaves the corners at 1 and 3. That is intended.
class TESSERA_CORE_EXPORT TRectangle : public TCustomMapObject {
 public:
  /// Without extent, at (0, 0).
  TRectangle();

  /// Draws with the object's own pen and brush whatever the canvas holds, so that without FastSelection a selected one
  /// looks like the others, which is intended. With UseBGColor the background colour is laid under it with the canvas's
  /// pen mode.
  void Draw() override;
  [[nodiscard]] std::unique_ptr<TCustomMapObject> Clone() const override;
  /// With the canvas's tools as every kind, so that it can be seen, and goes when it is drawn once more.
  void DrawSelection() override;
  /// The corners go along where axes stay axes, as when it is scaled or turned by 90 degrees. Otherwise, since it
  /// cannot be turned, its centre goes along, and width and height grow as what lies along the axes does.
  void Transform(const TMapTransform &transform) override;
  /// Whether all corners of the bounds of `object` lie in the rectangle.
  bool Contains(const TCustomMapObject &object) const override;
  /// Whether some corner of the other rectangle lies in this one. One that crosses it without a corner inside does not
  /// intersect it, which is intended; a layer then draws the rectangle only with TMapPainting::ShowCutObjects.
  bool IntersectsRect(double x1, double y1, double x2, double y2) const override;
  [[nodiscard]] std::optional<TBounds> GetExtent() const override { return GetVertexExtent(); }
  [[nodiscard]] std::optional<int> GetPickReachPx() const override { return 0; }

  /// The smaller and the larger coordinate of the two corners. Reading or setting one gives a rectangle without corners
  /// the missing ones, at (0, 0).
  [[nodiscard]] double GetX0() { return MakeCorners().MinX; }
  [[nodiscard]] double GetY0() { return MakeCorners().MinY; }
  [[nodiscard]] double GetX1() { return MakeCorners().MaxX; }
  [[nodiscard]] double GetY1() { return MakeCorners().MaxY; }
  /// The four of them, (0, 0) for a corner that is missing.
  [[nodiscard]] TBounds GetCorners() const;
  /// Coordinates of the first corner.
  void SetX0(double x) { SetCorner(0, &TMapPoint::X, x); }
  void SetY0(double y) { SetCorner(0, &TMapPoint::Y, y); }
  /// Coordinates of the second corner.
  void SetX1(double x) { SetCorner(1, &TMapPoint::X, x); }
  void SetY1(double y) { SetCorner(1, &TMapPoint::Y, y); }

 private:
  TBounds MakeCorners();
  void DrawFigure();
  void SetCorner(int corner, double TMapPoint::*coordinate, double value);
};

}  // namespace tessera
