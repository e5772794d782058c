// SPDX-License-Identifier: MIT
#include <tessera/base/detail/FarPixels.h>
#include <tessera/graphics/TCanvas.h>
#include <tessera/objects/TSprite.h>

#include <algorithm>
#include <array>
#include <utility>

namespace tessera {

TSprite::TSprite() {
  m_glyph.SetTransparent(true);
  SetAnchorX(0);
  SetAnchorY(0);
}

TPoint TSprite::GetScreenPosition() const {
  const TMapPoint position = GetAnchor();
  return GetMapHost()->GetViewport().MapToScreen(position.X, position.Y);
}

QRect TSprite::GetBox() const {
  const int width = m_glyph.GetWidth();
  const int height = m_glyph.GetHeight();
  const TPoint corner = detail::MovedBy(GetScreenPosition(), -(width / 2), -(height / 2));
  return {corner, detail::MovedBy(corner, width - 1, height - 1)};
}

void TSprite::SaveBackground() {
  TMapHost *map = GetMapHost();
  if (map == nullptr) return;
  // The whole picture, not twice its half: sizes may be odd.
  m_savedBox = GetBox();
  m_savedView = map->GetViewport();
  m_background = map->GetCanvas().CopyOf(m_savedBox);
}

void TSprite::RestoreBackground() {
  TMapHost *map = GetMapHost();
  if (map == nullptr || m_savedBox.isEmpty()) return;
  const QRect box = std::exchange(m_savedBox, QRect());
  if (map->GetViewport() == m_savedView) map->GetCanvas().StretchDraw(box, m_background);
}

void TSprite::Show() {
  if (m_moving || GetMapHost() == nullptr) return;
  RestoreBackground();
  SaveBackground();
  GetMapHost()->GetCanvas().Draw(m_savedBox.x(), m_savedBox.y(), m_glyph);
}

void TSprite::Hide() {
  if (!m_moving) RestoreBackground();
}

void TSprite::Move(double x, double y) {
  if (m_visible) Hide();
  m_moving = true;
  SetX(x);
  SetY(y);
  m_moving = false;
  if (m_visible) Show();
}

void TSprite::SetX(double x) {
  Hide();
  SetAnchorX(x);
  Show();
}

void TSprite::SetY(double y) {
  Hide();
  SetAnchorY(y);
  Show();
}

void TSprite::SetVisible(bool visible) {
  if (visible == m_visible) return;
  m_visible = visible;
  if (visible) {
    Show();
  } else {
    Hide();
  }
}

void TSprite::SetGlyph(const TBitmap &glyph) {
  Hide();
  m_glyph.GetImage() = glyph.GetImage();
  Show();
}

void TSprite::SetImageList(const TImageList *images) {
  m_imageList = images;
  GlyphChanged();
}

void TSprite::SetImageIndex(int index) {
  SetVisible(false);
  m_imageIndex = index;
  if (m_imageList) m_imageList->GetBitmap(index, m_glyph);
  GlyphChanged();
  SetVisible(true);
}

void TSprite::GlyphChanged(TObject * /*sender*/) {
  if (!m_visible) return;
  Hide();
  Show();
}

std::unique_ptr<TCustomMapObject> TSprite::Clone() const {
  auto copy = std::make_unique<TSprite>();
  copy->m_glyph = m_glyph;
  copy->m_imageList = m_imageList;
  copy->m_imageIndex = m_imageIndex;
  copy->m_visible = m_visible;
  return CloneInto(std::move(copy));
}

void TSprite::MoveBy(double dx, double dy) {
  const TMapPoint at = std::as_const(*this).GetAnchor();
  Move(at.X + dx, at.Y + dy);
}

void TSprite::Transform(const TMapTransform &transform) {
  const TMapPoint to = transform(std::as_const(*this).GetAnchor());
  Move(to.X, to.Y);
}

void TSprite::Draw() {
  TCustomMapObject::Draw();
  TMapHost *map = GetMapHost();
  if (map == nullptr) return;
  // A picture that is being rebuilt has nothing of the sprite in it that would have to go.
  if (map->GetIsBusy()) m_savedBox = QRect();
  if (!m_visible) return;
  const TBounds view = map->GetViewport().GetViewBounds();
  if (WithinRect(view.MinX, view.MinY, view.MaxX, view.MaxY)) Show();
}

bool TSprite::ContainsPoint(double x, double y) const {
  if (GetMapHost() == nullptr) return false;
  const TPoint at = GetScreenPosition();
  const TPoint asked = GetMapHost()->GetViewport().MapToScreen(x, y);
  return std::abs(std::int64_t(asked.x()) - at.x()) <= m_glyph.GetWidth() / 2 &&
         std::abs(std::int64_t(asked.y()) - at.y()) <= m_glyph.GetHeight() / 2;
}

bool TSprite::Intersects(const TCustomMapObject & /*object*/) const {
  return false;
}

bool TSprite::Contains(const TCustomMapObject & /*object*/) const {
  return false;
}

bool TSprite::IntersectsRect(double x1, double y1, double x2, double y2) const {
  if (GetMapHost() == nullptr) return false;
  const TPoint at = GetScreenPosition();
  const int halfWidth = m_glyph.GetWidth() / 2;
  const int halfHeight = m_glyph.GetHeight() / 2;
  const std::array<TPoint, 4> corners{TPoint(-halfWidth, -halfHeight), TPoint(halfWidth, -halfHeight),
                                      TPoint(halfWidth, halfHeight), TPoint(-halfWidth, halfHeight)};
  const TBounds rect{x1, y1, x2, y2};
  return std::any_of(corners.begin(), corners.end(), [&](const TPoint &corner) {
    const TPoint pixel = detail::MovedBy(at, corner.x(), corner.y());
    const TMapPoint point = GetMapHost()->GetViewport().ScreenToMap(pixel.x(), pixel.y());
    return rect.ContainsPoint(point.X, point.Y);
  });
}

bool TSprite::WithinRect(double x1, double y1, double x2, double y2) const {
  const TMapPoint position = GetAnchor();
  return TBounds{x1, y1, x2, y2}.ContainsPoint(position.X, position.Y);
}

bool TSprite::ContainsRect(double /*x1*/, double /*y1*/, double /*x2*/, double /*y2*/) const {
  return false;
}

}  // namespace tessera
