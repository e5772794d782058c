// SPDX-License-Identifier: MIT
#include <tessera/editing/TMapEdits.h>
#include <tessera/map/TTessera.h>
#include <tessera/objects/TRectangle.h>
#include <tessera/tools/TRectTool.h>
#include <tessera/tools/detail/KeptWays.h>

namespace tessera {

TRectTool::TRectTool(QObject *parent) : TCustomRectTool(parent) {
  SetDisplayName(QStringLiteral("Rectangle Tool"));
  SetCursor(crCross);
}

bool TRectTool::GetEnabled() const {
  return TCustomRectTool::GetEnabled() && GetEditableLayer() != nullptr;
}

std::optional<QPoint> TRectTool::KeepWay(TShiftState shift, const QPoint &way) const {
  return IsConstraining(shift) ? std::optional(detail::KeptToSquare(way)) : std::nullopt;
}

bool TRectTool::CreateObject() {
  TMapLayer *layer = GetEditableLayer();
  if (layer == nullptr || (X1 == X2 && Y1 == Y2)) return false;
  const TMapPoint press = GetPressPoint();
  const TMapPoint release = GetReleasePoint();
  auto rectangle = std::make_unique<TRectangle>();
  rectangle->SetX0(press.X);
  rectangle->SetY0(press.Y);
  rectangle->SetX1(release.X);
  rectangle->SetY1(release.Y);
  TMapEdits(*layer).AddObject(*layer, std::move(rectangle));
  return true;
}

}  // namespace tessera
