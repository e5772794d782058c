// SPDX-License-Identifier: MIT
#include <tessera/map/TTessera.h>
#include <tessera/tools/TRectSelectionTool.h>
#include <tessera/tools/detail/AreaSelection.h>

namespace tessera {

TRectSelectionTool::TRectSelectionTool(QObject *parent) : TCustomRectTool(parent) {
  SetDisplayName(QStringLiteral("Rectangle Selection Tool"));
  SetCursor(crCross);
}

void TRectSelectionTool::MouseDown(Qt::MouseButton button, TShiftState shift, int x, int y) {
  if (button == Qt::LeftButton) m_keys = shift;
  TCustomRectTool::MouseDown(button, shift, x, y);
}

bool TRectSelectionTool::CreateObject() {
  TTessera *map = GetTessera();
  if (map == nullptr) return false;
  const TMapPoint press = map->GetViewport().ScreenToMap(X1, Y1);
  const TMapPoint release = map->GetViewport().ScreenToMap(X2, Y2);
  const auto area = detail::SelectionArea::Rectangle(press, release);
  detail::SelectInArea(*map, area, m_isWithin ? detail::AreaRule::Within : detail::AreaRule::Meeting, m_keys);
  return false;
}

}  // namespace tessera
