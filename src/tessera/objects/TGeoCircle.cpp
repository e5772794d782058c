// SPDX-License-Identifier: MIT
#include <tessera/objects/TGeoCircle.h>
#include <tessera/objects/detail/GeoRing.h>

namespace tessera {

TGeoCircle::TGeoCircle() {
  GeneratePoints();
}

std::unique_ptr<TCustomMapObject> TGeoCircle::Clone() const {
  auto copy = std::make_unique<TGeoCircle>();
  copy->m_centerX = m_centerX;
  copy->m_centerY = m_centerY;
  copy->m_radius = m_radius;
  copy->m_pieCount = m_pieCount;
  return CloneInto(std::move(copy));
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
