// SPDX-License-Identifier: MIT
#include <tessera/editing/TMapEdits.h>
#include <tessera/layers/TMapLayer.h>
#include <tessera/objects/TRegion.h>
#include <tessera/tools/TRegionTool.h>

namespace tessera {

TRegionTool::TRegionTool(QObject *parent) : TCustomMultiPointTool(parent) {
  SetDisplayName(QStringLiteral("Region Tool"));
}

void TRegionTool::Draw() {
  DrawInverted([ring = GetClosedOutline()](TCanvas &canvas) { canvas.Polyline(ring); });
}

bool TRegionTool::CreateObject() {
  constexpr std::size_t FewestPoints = 3;
  const std::vector<TMapPoint> points = TakePoints();
  TMapLayer *layer = GetEditableLayer();
  if (layer == nullptr || points.size() < FewestPoints) return false;
  auto region = std::make_unique<TRegion>();
  TMapPoints &ring = region->GetParts().Add().GetPoints();
  for (const TMapPoint &point : points) ring.Add(point.X, point.Y);
  ring.Add(points.front().X, points.front().Y);
  TMapEdits(*layer).AddObject(*layer, std::move(region));
  return true;
}

}  // namespace tessera
