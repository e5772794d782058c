// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/graphics/TBitmap.h>
#include <tessera/graphics/TImageList.h>
#include <tessera/objects/TCustomMapObject.h>

namespace tessera {

/// A picture centred on a point that moves over the map without a repaint: it keeps the pixels under it and puts them
/// back when it goes.
///
/// Every change of place or picture draws on the map's canvas at once and shows. What lies under the sprite must have
/// been drawn before it: sprites belong into the topmost layer, and a highlight drawn over one goes when it moves. Of
/// sprites that overlap, the later shown keeps pixels of the earlier one; hide them in reverse order to get the map
/// back, or ask the map for an update. TTessera::Invalidate brings back the last picture of the map, in which the
/// sprite stands where it was then.
class TESSERA_CORE_EXPORT TSprite : public TCustomMapObject {
 public:
  /// A visible sprite without a picture, at (0, 0).
  TSprite();

  /// Shows a visible sprite whose position is in view.
  void Draw() override;
  [[nodiscard]] std::unique_ptr<TCustomMapObject> Clone() const override;
  /// As Move; what the sprite shows is not undone.
  void MoveBy(double dx, double dy) override;
  /// Moves it; the picture stays upright and as large as it is.
  void Transform(const TMapTransform &transform) override;
  /// Whether the point lies, on the screen, within half the picture's size of the position along both axes. False
  /// without a map.
  bool ContainsPoint(double x, double y) const override;
  /// Always false, as are Contains and ContainsRect.
  bool Intersects(const TCustomMapObject &object) const override;
  bool Contains(const TCustomMapObject &object) const override;
  /// Whether a corner of the picture's box lies in the rectangle. False without a map.
  bool IntersectsRect(double x1, double y1, double x2, double y2) const override;
  /// Whether the position lies in the rectangle.
  bool WithinRect(double x1, double y1, double x2, double y2) const override;
  bool ContainsRect(double x1, double y1, double x2, double y2) const override;

  /// Keeps the pixels and draws the picture, whatever Visible says. Shown twice, it does not keep itself.
  void Show();
  void Hide();
  /// Hides the sprite, moves it, and shows it; one that is not Visible only moves.
  void Move(double x, double y);
  /// Keeps the pixels of the map's canvas that the picture covers.
  void SaveBackground();
  /// Puts the kept pixels back where they came from, once. Does nothing when the view has changed since: then the map
  /// paints a new picture.
  void RestoreBackground();
  /// To be called when the picture has been changed in place.
  void GlyphChanged(TObject *sender = nullptr);

  /// Reading the position of a sprite without a vertex gives it one at (0, 0).
  [[nodiscard]] double GetX() { return GetAnchor().X; }
  [[nodiscard]] double GetY() { return GetAnchor().Y; }
  /// Show the sprite at its new place even when it is not Visible, which is intended.
  void SetX(double x);
  void SetY(double y);

  /// Transparent at first: the colour of its bottom left pixel does not show.
  [[nodiscard]] TBitmap &GetGlyph() { return m_glyph; }
  [[nodiscard]] const TBitmap &GetGlyph() const { return m_glyph; }
  /// Takes over the picture, not its transparency, and shows it.
  void SetGlyph(const TBitmap &glyph);
  [[nodiscard]] const TBitmap &GetBackground() const { return m_background; }
  /// Whether Move is at work; Show and Hide then do nothing.
  [[nodiscard]] bool GetMoving() const { return m_moving; }
  [[nodiscard]] bool GetVisible() const { return m_visible; }
  void SetVisible(bool visible);
  /// Where pictures come from; none or a list that outlives its use here.
  [[nodiscard]] const TImageList *GetImageList() const { return m_imageList; }
  void SetImageList(const TImageList *images);
  [[nodiscard]] int GetImageIndex() const { return m_imageIndex; }
  /// Takes the picture of this number from the list, if there is one, and makes the sprite visible.
  void SetImageIndex(int index);

 private:
  [[nodiscard]] TPoint GetScreenPosition() const;
  /// What the picture covers, in client pixels.
  [[nodiscard]] QRect GetBox() const;

  TBitmap m_glyph;
  TBitmap m_background;
  QRect m_savedBox;       ///< Where the background belongs; empty when it has been put back.
  TViewport m_savedView;  ///< The view it was taken from.
  const TImageList *m_imageList = nullptr;
  int m_imageIndex = 0;
  bool m_moving = false;
  bool m_visible = true;
};

}  // namespace tessera
