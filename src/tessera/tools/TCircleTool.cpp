// SPDX-License-Identifier: MIT
#include <tessera/editing/TMapEdits.h>
#include <tessera/layers/TMapLayer.h>
#include <tessera/objects/TGeoCircle.h>
#include <tessera/tools/TCircleTool.h>

namespace tessera {

TCircleTool::TCircleTool(QObject *parent) : TCustomClickTool(parent) {
  SetDisplayName(QStringLiteral("Circle Tool"));
}

void TCircleTool::PutObject(TMapLayer &layer, const TMapPoint &at) {
  auto circle = std::make_unique<TGeoCircle>();
  circle->SetCenterX(at.X);
  circle->SetCenterY(at.Y);
  TMapEdits(layer).AddObject(layer, std::move(circle));
}

}  // namespace tessera
