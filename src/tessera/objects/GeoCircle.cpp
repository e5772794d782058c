// SPDX-License-Identifier: MIT
#include <tessera/graphics/TCanvas.h>
#include <tessera/objects/GeoCircle.h>
#include <tessera/objects/TGeoCircle.h>
#include <tessera/objects/detail/GeoRing.h>
#include <tessera/objects/detail/ScreenOutliner.h>

namespace tessera::geocircle {

TGeoCircle::TGeoCircle() : m_radius(tessera::TGeoCircle::DefaultRadius) {
  TMapPoints &points = FirstPart().GetPoints();
  for (const TMapPoint &corner : {TMapPoint{0, 0}, {0, 1}, {1, 1}, {1, 0}}) points.Add(corner);
}

void TGeoCircle::SetX(double longitude) {
  m_centre.X = longitude;
  RecalculatePoints();
}

void TGeoCircle::SetY(double latitude) {
  m_centre.Y = latitude;
  RecalculatePoints();
}

void TGeoCircle::SetRadius(double radius) {
  m_radius = radius;
  RecalculatePoints();
}

void TGeoCircle::RecalculatePoints() {
  GetParts().Clear();
  GetParts().SetBounds(TBounds::Empty());
  const detail::GeoRing ring{m_centre, m_radius, tessera::TGeoCircle::DefaultPieCount};
  ring.AppendTo(FirstPart().GetPoints());
}

std::unique_ptr<TCustomMapObject> TGeoCircle::Clone() const {
  auto copy = std::make_unique<TGeoCircle>();
  copy->m_centre = m_centre;
  copy->m_radius = m_radius;
  return CloneInto(std::move(copy));
}

struct TGeoCircle::Traits : TObjectTraits {
  TMapPoint centre;
  double radius;
};

std::unique_ptr<TObjectTraits> TGeoCircle::GetTraits() const {
  auto traits = std::make_unique<Traits>();
  traits->centre = m_centre;
  traits->radius = m_radius;
  return traits;
}

void TGeoCircle::SetTraits(const TObjectTraits &traits) {
  const auto &own = static_cast<const Traits &>(traits);
  m_centre = own.centre;
  m_radius = own.radius;
}

void TGeoCircle::MoveBy(double dx, double dy) {
  m_centre = {m_centre.X + dx, m_centre.Y + dy};
  RecalculatePoints();
}

void TGeoCircle::Transform(const TMapTransform &transform) {
  m_centre = transform(m_centre);
  SetRadius(m_radius * transform.GetMeanFactor());
}

void TGeoCircle::Draw() {
  constexpr int FewestPoints = 4;
  TCustomMapObject::Draw();
  TMapHost *map = GetMapHost();
  const auto parts = std::as_const(*this).GetParts().Items();
  if (map == nullptr || parts.empty() || parts[0].GetPoints().GetCount() < FewestPoints) return;
  detail::ScreenOutliner &outliner = map->GetOutliner();
  std::vector<TPoint> &outline = outliner.Scratch();
  outline.clear();
  outliner.PartToScreen(parts[0].GetPoints().GetRuns(), GetBounds(), outline);
  TCanvas &canvas = map->GetCanvas();
  if (GetUseBGColor()) {
    const TPen pen = canvas.Pen();
    const TBrush brush = canvas.Brush();
    canvas.Pen().SetStyle(TPenStyle::psClear);
    canvas.Brush().SetStyle(TBrushStyle::bsSolid);
    canvas.Brush().SetColor(GetBGColor());
    canvas.Polygon(outline);
    canvas.Pen() = pen;
    canvas.Brush() = brush;
  }
  canvas.Polygon(outline);
}

bool TGeoCircle::ContainsPoint(double x, double y) const {
  if (!GetBounds().ContainsPoint(x, y)) return false;
  const auto parts = GetParts().Items();
  return !parts.empty() && detail::IsInRing(parts[0].GetPoints().Points(), x, y);
}

}  // namespace tessera::geocircle
