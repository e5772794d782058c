// SPDX-License-Identifier: MIT
#include <tessera/objects/TGeoCircle.h>
#include <tessera/objects/detail/GeoRing.h>

namespace tessera {

TGeoCircle::TGeoCircle() {
  GeneratePoints();
}

std::unique_ptr<TCustomMapObject> TGeoCircle::Clone() const {
  auto copy = std::make_unique<TGeoCircle>();
  copy->SetTraits(*GetTraits());
  return CloneInto(std::move(copy));
}

struct TGeoCircle::Traits : TObjectTraits {
  double centerX;
  double centerY;
  double radius;
  int pieCount;
};

std::unique_ptr<TObjectTraits> TGeoCircle::GetTraits() const {
  auto traits = std::make_unique<Traits>();
  traits->centerX = m_centerX;
  traits->centerY = m_centerY;
  traits->radius = m_radius;
  traits->pieCount = m_pieCount;
  return traits;
}

void TGeoCircle::SetTraits(const TObjectTraits &traits) {
  const auto &own = static_cast<const Traits &>(traits);
  m_centerX = own.centerX;
  m_centerY = own.centerY;
  m_radius = own.radius;
  m_pieCount = own.pieCount;
}

void TGeoCircle::MoveBy(double dx, double dy) {
  m_centerX += dx;
  m_centerY += dy;
  GeneratePoints();
}

void TGeoCircle::Transform(const TMapTransform &transform) {
  const TMapPoint centre = transform({m_centerX, m_centerY});
  m_centerX = centre.X;
  m_centerY = centre.Y;
  SetRadius(m_radius * transform.GetMeanFactor());
}

void TGeoCircle::SetCenterX(double longitude) {
  m_centerX = longitude;
  GeneratePoints();
}

void TGeoCircle::SetCenterY(double latitude) {
  m_centerY = latitude;
  GeneratePoints();
}

void TGeoCircle::SetRadius(double radius) {
  m_radius = radius;
  GeneratePoints();
}

void TGeoCircle::SetPieCount(int count) {
  m_pieCount = count;
  GeneratePoints();
}

void TGeoCircle::GeneratePoints() {
  TParts &parts = GetParts();
  parts.Clear();
  parts.SetBounds(TBounds::Empty());
  const detail::GeoRing ring{{m_centerX, m_centerY}, m_radius, m_pieCount};
  ring.AppendTo(parts.Add().GetPoints());
}

}  // namespace tessera
