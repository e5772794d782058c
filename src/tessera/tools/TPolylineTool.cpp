// SPDX-License-Identifier: MIT
#include <tessera/editing/TMapEdits.h>
#include <tessera/layers/TMapLayer.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/tools/TPolylineTool.h>

namespace tessera {

TPolylineTool::TPolylineTool(QObject *parent) : TCustomMultiPointTool(parent) {
  SetDisplayName(QStringLiteral("Polyline Tool"));
}

void TPolylineTool::Draw() {
  DrawInverted([this](TCanvas &canvas) { canvas.Polyline(GetOutline()); });
}

bool TPolylineTool::CreateObject() {
  constexpr std::size_t FewestPoints = 2;
  const std::vector<TMapPoint> points = TakePoints();
  TMapLayer *layer = GetEditableLayer();
  if (layer == nullptr || points.size() < FewestPoints) return false;
  auto line = std::make_unique<TPolyline>();
  TMapPoints &vertices = line->GetParts().Add().GetPoints();
  for (const TMapPoint &point : points) vertices.Add(point.X, point.Y);
  TMapEdits(*layer).AddObject(*layer, std::move(line));
  return true;
}

}  // namespace tessera
