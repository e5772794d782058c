// SPDX-License-Identifier: MIT
#include <tessera/map/TTessera.h>
#include <tessera/tools/TPolygonSelectionTool.h>
#include <tessera/tools/detail/AreaSelection.h>

#include <utility>

namespace tessera {

TPolygonSelectionTool::TPolygonSelectionTool(QObject *parent) : TCustomMultiPointTool(parent) {
  SetDisplayName(QStringLiteral("Polygon Selection Tool"));
}

void TPolygonSelectionTool::MouseDown(Qt::MouseButton button, TShiftState shift, int x, int y) {
  if (button == Qt::LeftButton) m_keys = shift;
  TCustomMultiPointTool::MouseDown(button, shift, x, y);
}

bool TPolygonSelectionTool::GetEnabled() const {
  // NOLINTNEXTLINE(bugprone-parent-virtual-call): it makes no object, so it needs no layer to put one into
  return TCustomGestureTool::GetEnabled();
}

void TPolygonSelectionTool::Draw() {
  DrawInverted([ring = GetClosedOutline()](TCanvas &canvas) { canvas.Polyline(ring); });
}

bool TPolygonSelectionTool::CreateObject() {
  TTessera *map = GetTessera();
  std::vector<TMapPoint> corners = TakePoints();
  if (map == nullptr || corners.empty()) return false;
  const detail::SelectionArea area(std::move(corners));
  detail::SelectInArea(*map, area, m_isWithin ? detail::AreaRule::Within : detail::AreaRule::Meeting, m_keys);
  return false;
}

}  // namespace tessera
