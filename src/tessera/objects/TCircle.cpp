// SPDX-License-Identifier: MIT
#include <tessera/graphics/TCanvas.h>
#include <tessera/objects/TCircle.h>

#include <cmath>
#include <cstdint>
#include <limits>

namespace tessera {
TCircle::TCircle() {
  SetAnchorX(0);
}

void TCircle::UpdateBounds() {
  const TMapPoint centre = std::as_const(*this).GetAnchor();
  const double reach = std::abs(m_radius);
  GetParts().SetBounds({centre.X - reach, centre.Y - reach, centre.X + reach, centre.Y + reach});
}

void TCircle::SetX(double x) {
  SetAnchorX(x);
  UpdateBounds();
}

void TCircle::SetY(double y) {
  SetAnchorY(y);
  UpdateBounds();
}

void TCircle::SetRadius(double radius) {
  m_radius = radius;
  UpdateBounds();
}

std::unique_ptr<TCustomMapObject> TCircle::Clone() const {
  auto copy = std::make_unique<TCircle>();
  copy->m_radius = m_radius;
  return CloneInto(std::move(copy));
}

void TCircle::Transform(const TMapTransform &transform) {
  TCustomMapObject::Transform(transform);
  SetRadius(m_radius * transform.GetMeanFactor());
}

struct TCircle::Traits : TObjectTraits {
  double radius;
};

std::unique_ptr<TObjectTraits> TCircle::GetTraits() const {
  auto traits = std::make_unique<Traits>();
  traits->radius = m_radius;
  return traits;
}

void TCircle::SetTraits(const TObjectTraits &traits) {
  const auto &own = static_cast<const Traits &>(traits);
  m_radius = own.radius;
}

void TCircle::Draw() {
  TCustomMapObject::Draw();
  TMapHost *map = GetMapHost();
  if (map == nullptr || GetParts().GetCount() == 0) return;
  const TMapPoint centre = GetAnchor();
  // The rim may run through the view though the centre does not fit 32 bits.
  const TViewport::FarPixel at = map->GetViewport().MapToFarScreen(centre.X, centre.Y);
  const TViewport::FarPixel rim = map->GetViewport().MapToFarScreen(centre.X + m_radius, centre.Y);
  map->GetCanvas().Circle(at.x, at.y, rim.x - at.x);
}

bool TCircle::ContainsPoint(double x, double y) const {
  const TMapPoint centre = GetAnchor();
  const double dx = x - centre.X;
  const double dy = y - centre.Y;
  return dx * dx + dy * dy <= m_radius * m_radius;
}

bool TCircle::Contains(const TCustomMapObject &object) const {
  return TCustomMapObject::Intersects(object);
}

bool TCircle::Intersects(const TCustomMapObject &object) const {
  const auto *circle = dynamic_cast<const TCircle *>(&object);
  if (circle == nullptr) return TCustomMapObject::Intersects(object);
  const TMapPoint centre = GetAnchor();
  const TMapPoint other = circle->GetAnchor();
  return m_radius + circle->m_radius > std::hypot(other.X - centre.X, other.Y - centre.Y);
}

bool TCircle::IntersectsRect(double x1, double y1, double x2, double y2) const {
  return ContainsSomeCorner(x1, y1, x2, y2);
}

bool TCircle::WithinRect(double x1, double y1, double x2, double y2) const {
  const TBounds rect{x1, y1, x2, y2};
  const TMapPoint centre = GetAnchor();
  return rect.ContainsPoint(centre.X - m_radius, centre.Y - m_radius) &&
         rect.ContainsPoint(centre.X + m_radius, centre.Y + m_radius);
}

std::optional<TBounds> TCircle::GetExtent() const {
  // ContainsPoint rounds, and takes points in that lie just outside the square. Below Smallest squares vanish; beyond
  // the largest number every point would be inside.
  constexpr double Rounding = 1e-14;
  constexpr double Smallest = 1e-150;
  const TMapPoint centre = GetAnchor();
  if (!std::isfinite(m_radius * m_radius) || !std::isfinite(centre.X) || !std::isfinite(centre.Y)) return std::nullopt;
  const double reach = std::abs(m_radius) * (1 + Rounding) + Smallest;
  constexpr double Infinity = std::numeric_limits<double>::infinity();
  return TBounds{std::nextafter(centre.X - reach, -Infinity), std::nextafter(centre.Y - reach, -Infinity),
                 std::nextafter(centre.X + reach, Infinity), std::nextafter(centre.Y + reach, Infinity)};
}

}  // namespace tessera
