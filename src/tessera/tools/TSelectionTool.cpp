// SPDX-License-Identifier: MIT
#include <tessera/map/TTessera.h>
#include <tessera/tools/TSelectionTool.h>
#include <tessera/tools/detail/AreaSelection.h>

namespace tessera {

TSelectionTool::TSelectionTool(QObject *parent) : TCustomMapTool(parent) {
  SetDisplayName(QStringLiteral("Selection Tool"));
}

void TSelectionTool::MouseDown(Qt::MouseButton button, TShiftState shift, int x, int y) {
  TTessera *map = GetTessera();
  if (button != Qt::LeftButton || map == nullptr) return;
  const TMapPoint at = map->GetViewport().ScreenToMap(x, y);
  const QPointer<TSelectionTool> self(this);
  detail::SelectByClick(*map, at, shift);
  if (self) Complete();
}

}  // namespace tessera
