// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/objects/TCustomMapObject.h>

namespace tessera {

/// One character of the object's font, centred on a point: with a symbol font, a map sign.
class TESSERA_CORE_EXPORT TSymbol : public TCustomMapObject {
 public:
  /// The shape that draws nothing; lower ones do not exist.
  static constexpr int NoShape = 31;

  /// No shape, at (0, 0).
  TSymbol();

  void Draw() override;
  [[nodiscard]] std::unique_ptr<TCustomMapObject> Clone() const override;
  [[nodiscard]] std::unique_ptr<TObjectTraits> GetTraits() const override;
  void SetTraits(const TObjectTraits &traits) override;
  /// A frame around the character.
  void DrawSelection() override;
  /// Whether the point lies, on the screen, within half the font's size and two pixels of the symbol along both axes. A
  /// symbol without a map claims every point, which is intended.
  bool ContainsPoint(double x, double y) const override;
  bool Intersects(const TCustomMapObject &object) const override;
  /// Always false, as is ContainsRect: a point contains nothing.
  bool Contains(const TCustomMapObject &object) const override;
  bool IntersectsRect(double x1, double y1, double x2, double y2) const override;
  bool WithinRect(double x1, double y1, double x2, double y2) const override;
  bool ContainsRect(double x1, double y1, double x2, double y2) const override;
  [[nodiscard]] std::optional<TBounds> GetExtent() const override;
  [[nodiscard]] std::optional<int> GetPickReachPx() const override;
  [[nodiscard]] TBoxContainment GetBoxContainment() const override { return TBoxContainment::Never; }

  /// Moves the symbol; its bounds stay until UpdateBounds.
  virtual void SetX(double x) { SetAnchorX(x); }
  virtual void SetY(double y) { SetAnchorY(y); }
  /// Moves the symbol and its bounds with it.
  void MoveTo(double x, double y) { MoveAnchor(x, y); }
  /// Reading the position of a symbol without a vertex gives it one at (0, 0).
  [[nodiscard]] double GetX() { return GetAnchor().X; }
  [[nodiscard]] double GetY() { return GetAnchor().Y; }
  /// Both of them, (0, 0) for a symbol without a vertex.
  [[nodiscard]] TMapPoint GetPosition() const { return GetAnchor(); }
  /// The character's code.
  [[nodiscard]] int GetShape() const { return m_shape; }
  /// A code below NoShape becomes NoShape.
  void SetShape(int shape);

 private:
  struct Traits;
  /// How far from the point a click still hits.
  [[nodiscard]] std::int64_t GetReachPx() const;

  int m_shape = NoShape;
};

}  // namespace tessera
