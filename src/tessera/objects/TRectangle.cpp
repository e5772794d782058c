// SPDX-License-Identifier: MIT
#include <tessera/graphics/TCanvas.h>
#include <tessera/objects/TRectangle.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace tessera {
namespace {

constexpr int CornerCount = 2;

}  // namespace

TRectangle::TRectangle() {
  MakeCorners();
}

TBounds TRectangle::MakeCorners() {
  TMapPoints &points = FirstPart().GetPoints();
  if (points.GetCount() == 0) points.Reserve(CornerCount);
  while (points.GetCount() < CornerCount) points.Add(0, 0);
  return GetCorners();
}

TBounds TRectangle::GetCorners() const {
  std::array<TMapPoint, CornerCount> corners{};
  const auto parts = GetParts().Items();
  if (!parts.empty()) {
    const auto points = parts[0].GetPoints().Points();
    std::copy_n(points.begin(), std::min(points.size(), corners.size()), corners.begin());
  }
  const auto [minX, maxX] = std::minmax(corners[0].X, corners[1].X);
  const auto [minY, maxY] = std::minmax(corners[0].Y, corners[1].Y);
  return {minX, minY, maxX, maxY};
}

void TRectangle::SetCorner(int corner, double TMapPoint::*coordinate, double value) {
  MakeCorners();
  TMapPoints &points = FirstPart().GetPoints();
  TMapPoint moved = points.GetPoint(corner);
  moved.*coordinate = value;
  points.SetPoint(corner, moved);
  UpdateBounds();
}

std::unique_ptr<TCustomMapObject> TRectangle::Clone() const {
  return CloneInto(std::make_unique<TRectangle>());
}

void TRectangle::Transform(const TMapTransform &transform) {
  if (transform.KeepsAxes()) return TCustomMapObject::Transform(transform);
  const TBounds corners = GetCorners();
  const TMapPoint centre{std::midpoint(corners.MinX, corners.MaxX), std::midpoint(corners.MinY, corners.MaxY)};
  TCustomMapObject::Transform({.From = centre,
                               .To = transform(centre),
                               .XX = std::hypot(transform.XX, transform.YX),
                               .YY = std::hypot(transform.XY, transform.YY)});
}

void TRectangle::Draw() {
  TCustomMapObject::Draw();
  TMapHost *map = GetMapHost();
  if (map == nullptr || GetParts().GetCount() == 0) return;
  TCanvas &canvas = map->GetCanvas();
  if (GetUseBGColor()) {
    canvas.Pen().SetStyle(TPenStyle::psClear);
    canvas.Brush().SetStyle(TBrushStyle::bsSolid);
    canvas.Brush().SetColor(GetBGColor());
    DrawFigure();
  }
  canvas.Pen() = GetPen();
  canvas.Brush() = GetBrush();
  DrawFigure();
}

void TRectangle::DrawSelection() {
  const TMapHost *map = GetMapHost();
  if (map == nullptr || !map->GetViewFlags().ShowSelection) return;
  TCustomMapObject::DrawSelection();
  TCustomMapObject::Draw();
  if (GetParts().GetCount() > 0) DrawFigure();
}

void TRectangle::DrawFigure() {
  TMapHost *map = GetMapHost();
  const TBounds corners = MakeCorners();
  const TPoint first = map->GetViewport().MapToScreen(corners.MinX, corners.MinY);
  const TPoint second = map->GetViewport().MapToScreen(corners.MaxX, corners.MaxY);
  map->GetCanvas().Rectangle(first.x(), first.y(), second.x(), second.y());
}

bool TRectangle::Contains(const TCustomMapObject &object) const {
  const TBounds bounds = object.GetBounds();
  return ContainsRect(bounds.MinX, bounds.MinY, bounds.MaxX, bounds.MaxY);
}

bool TRectangle::IntersectsRect(double x1, double y1, double x2, double y2) const {
  return ContainsSomeCorner(x1, y1, x2, y2);
}

}  // namespace tessera
