// SPDX-License-Identifier: MIT
#include <tessera/editing/TMapEdits.h>
#include <tessera/graphics/TCanvas.h>
#include <tessera/map/TTessera.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/tools/TLineTool.h>
#include <tessera/tools/detail/KeptWays.h>

#include <array>

namespace tessera {

TLineTool::TLineTool(QObject *parent) : TCustomPressMoveAndReleaseTool(parent) {
  SetDisplayName(QStringLiteral("Line Tool"));
  SetCursor(crCross);
}

bool TLineTool::GetEnabled() const {
  return TCustomPressMoveAndReleaseTool::GetEnabled() && GetEditableLayer() != nullptr;
}

void TLineTool::Draw() {
  const std::array line{TPoint(X1, Y1), TPoint(X2, Y2)};
  DrawInverted([&line](TCanvas &canvas) { canvas.Polyline(line); });
}

std::optional<QPoint> TLineTool::KeepWay(TShiftState shift, const QPoint &way) const {
  return IsConstraining(shift) ? std::optional(detail::KeptToDirections(way)) : std::nullopt;
}

bool TLineTool::CreateObject() {
  TMapLayer *layer = GetEditableLayer();
  if (layer == nullptr || (X1 == X2 && Y1 == Y2)) return false;
  auto line = std::make_unique<TPolyline>();
  TMapPoints &points = line->GetParts().Add().GetPoints();
  for (const TMapPoint &end : {GetPressPoint(), GetReleasePoint()}) points.Add(end.X, end.Y);
  TMapEdits(*layer).AddObject(*layer, std::move(line));
  return true;
}

}  // namespace tessera
