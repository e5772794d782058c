// SPDX-License-Identifier: MIT
#include <tessera/base/detail/FarPixels.h>
#include <tessera/graphics/TCanvas.h>
#include <tessera/graphics/detail/SymbolFont.h>
#include <tessera/objects/TSymbol.h>

#include <algorithm>
#include <limits>

namespace tessera {

TSymbol::TSymbol() {
  MoveAnchor(0, 0);
}

void TSymbol::SetShape(int shape) {
  m_shape = std::max(shape, NoShape);
}

std::unique_ptr<TCustomMapObject> TSymbol::Clone() const {
  auto copy = std::make_unique<TSymbol>();
  copy->m_shape = m_shape;
  return CloneInto(std::move(copy));
}

struct TSymbol::Traits : TObjectTraits {
  int shape;
};

std::unique_ptr<TObjectTraits> TSymbol::GetTraits() const {
  auto traits = std::make_unique<Traits>();
  traits->shape = m_shape;
  return traits;
}

void TSymbol::SetTraits(const TObjectTraits &traits) {
  const auto &own = static_cast<const Traits &>(traits);
  m_shape = own.shape;
}

void TSymbol::Draw() {
  TCustomMapObject::Draw();
  TMapHost *map = GetMapHost();
  if (map == nullptr || m_shape == NoShape) return;
  TCanvas &canvas = map->GetCanvas();
  const detail::SymbolGlyph &glyph = detail::ResolveSymbol(GetFont(), m_shape);
  if (!(canvas.Font() == glyph.font)) canvas.Font() = glyph.font;
  const QSize extent = canvas.TextExtent(glyph.text);
  const int halfWidth = extent.width() / 2;
  const int halfHeight = extent.height() / 2;
  const TPoint at = GetPixels(0, 0);
  const TPoint corner = detail::MovedBy(at, -halfWidth, -halfHeight);
  if (!map->GetViewFlags().FastSelection && GetSelected()) {
    canvas.Brush().SetBitmap(map->GetSelectionPattern());
    canvas.FillRect(QRect(corner, detail::MovedBy(at, halfWidth - 1, halfHeight - 1)));
  }
  canvas.Brush().SetStyle(TBrushStyle::bsClear);
  canvas.TextOut(corner.x(), corner.y(), glyph.text);
  canvas.Brush().SetStyle(TBrushStyle::bsSolid);
}

void TSymbol::DrawSelection() {
  TMapHost *map = GetMapHost();
  if (map == nullptr || !map->GetViewFlags().ShowSelection) return;
  TCustomMapObject::DrawSelection();
  TCanvas &canvas = map->GetCanvas();
  const detail::SymbolGlyph &glyph = detail::ResolveSymbol(GetFont(), m_shape);
  canvas.Font() = glyph.font;
  canvas.Brush().SetStyle(TBrushStyle::bsSolid);
  canvas.Pen().SetMode(TPenMode::pmXor);
  canvas.Pen().SetColor(GetFont().GetColor());
  const QSize extent = canvas.TextExtent(glyph.text);
  const TPoint at = GetPixels(0, 0);
  const TPoint upperLeft = detail::MovedBy(at, -(extent.width() / 2), -(extent.height() / 2));
  const TPoint lowerRight = detail::MovedBy(at, extent.width() / 2, extent.height() / 2);
  canvas.Rectangle(upperLeft.x(), upperLeft.y(), lowerRight.x(), lowerRight.y());
  canvas.Brush().SetStyle(TBrushStyle::bsSolid);
  canvas.Pen().SetMode(TPenMode::pmCopy);
}

std::int64_t TSymbol::GetReachPx() const {
  constexpr int MarginPx = 2;
  return GetFont().GetSize() / 2 + MarginPx;
}

std::optional<int> TSymbol::GetPickReachPx() const {
  constexpr int RoundingPx = 1;  // of two points to pixels
  return int(std::clamp<std::int64_t>(GetReachPx() + RoundingPx, 0, std::numeric_limits<int>::max()));
}

bool TSymbol::ContainsPoint(double x, double y) const {
  if (GetMapHost() == nullptr) return true;
  const TViewport &viewport = GetMapHost()->GetViewport();
  const TMapPoint position = GetAnchor();
  const TPoint own = viewport.MapToScreen(position.X, position.Y);
  const TPoint asked = viewport.MapToScreen(x, y);
  const std::int64_t reach = GetReachPx();
  return std::abs(std::int64_t(asked.x()) - own.x()) <= reach && std::abs(std::int64_t(asked.y()) - own.y()) <= reach;
}

bool TSymbol::Intersects(const TCustomMapObject &object) const {
  const TMapPoint position = GetAnchor();
  return object.ContainsPoint(position.X, position.Y);
}

bool TSymbol::Contains(const TCustomMapObject & /*object*/) const {
  return false;
}

bool TSymbol::IntersectsRect(double x1, double y1, double x2, double y2) const {
  const TMapPoint position = GetAnchor();
  return TBounds{x1, y1, x2, y2}.ContainsPoint(position.X, position.Y);
}

bool TSymbol::WithinRect(double x1, double y1, double x2, double y2) const {
  return IntersectsRect(x1, y1, x2, y2);
}

std::optional<TBounds> TSymbol::GetExtent() const {
  const TMapPoint position = GetAnchor();
  return TBounds{position.X, position.Y, position.X, position.Y};
}

bool TSymbol::ContainsRect(double /*x1*/, double /*y1*/, double /*x2*/, double /*y2*/) const {
  return false;
}

}  // namespace tessera
