// SPDX-License-Identifier: MIT
#include <tessera/map/TTessera.h>
#include <tessera/tools/TSelectionTool.h>

namespace tessera {

TSelectionTool::TSelectionTool(QObject *parent) : TCustomMapTool(parent) {
  SetDisplayName(QStringLiteral("Selection Tool"));
}

void TSelectionTool::MouseDown(Qt::MouseButton button, TShiftState shift, int x, int y) {
  TTessera *map = GetTessera();
  if (button != Qt::LeftButton || map == nullptr) return;
  const TMapPoint at = map->GetViewport().ScreenToMap(x, y);
  const int count = map->GetCtrlClickCount();
  const bool goesDeeper = shift.testFlag(ssCtrl) && count < map->GetLayers()->GetCount() - 1;
  map->SetCtrlClickCount(goesDeeper ? count + 1 : 0);
  const QPointer<TSelectionTool> self(this);
  map->SelectObjectAt(at.X, at.Y, !shift.testFlag(ssShift));
  if (self) Complete();
}

}  // namespace tessera
