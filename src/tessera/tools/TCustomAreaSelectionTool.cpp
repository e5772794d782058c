// SPDX-License-Identifier: MIT
#include <tessera/map/TTessera.h>
#include <tessera/tools/TCustomAreaSelectionTool.h>
#include <tessera/tools/detail/AreaSelection.h>

namespace tessera {

TCustomAreaSelectionTool::TCustomAreaSelectionTool(QObject *parent) : TCustomRectTool(parent) {
  SetCursor(crCross);
}

void TCustomAreaSelectionTool::MouseDown(Qt::MouseButton button, TShiftState shift, int x, int y) {
  if (button == Qt::LeftButton) m_keys = shift;
  TCustomRectTool::MouseDown(button, shift, x, y);
}

bool TCustomAreaSelectionTool::CreateObject() {
  TTessera *map = GetTessera();
  if (map == nullptr) return false;
  const TViewport &viewport = map->GetViewport();
  const detail::SelectionArea area = AreaOf(viewport.ScreenToMap(X1, Y1), viewport.ScreenToMap(X2, Y2));
  detail::SelectInArea(*map, area, m_isWithin ? detail::AreaRule::Within : detail::AreaRule::Meeting, m_keys);
  return false;
}

}  // namespace tessera
