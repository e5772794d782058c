// SPDX-License-Identifier: MIT
#include <tessera/graphics/TCanvas.h>
#include <tessera/map/TTessera.h>
#include <tessera/tools/TCircleSelectionTool.h>
#include <tessera/tools/detail/AreaSelection.h>

#include <cmath>

namespace tessera {

TCircleSelectionTool::TCircleSelectionTool(QObject *parent) : TCustomRectTool(parent) {
  SetDisplayName(QStringLiteral("Circle Selection Tool"));
  SetCursor(crCross);
}

void TCircleSelectionTool::MouseDown(Qt::MouseButton button, TShiftState shift, int x, int y) {
  if (button == Qt::LeftButton) m_keys = shift;
  TCustomRectTool::MouseDown(button, shift, x, y);
}

void TCircleSelectionTool::Draw() {
  const auto radius = std::int64_t(std::llround(std::hypot(double(X2) - X1, double(Y2) - Y1)));
  DrawInverted([&](TCanvas &canvas) { canvas.Circle(X1, Y1, radius); });
}

bool TCircleSelectionTool::CreateObject() {
  TTessera *map = GetTessera();
  if (map == nullptr) return false;
  const TMapPoint press = map->GetViewport().ScreenToMap(X1, Y1);
  const TMapPoint release = map->GetViewport().ScreenToMap(X2, Y2);
  const auto area = detail::SelectionArea::Circle(press, std::hypot(release.X - press.X, release.Y - press.Y));
  detail::SelectInArea(*map, area, m_isWithin ? detail::AreaRule::Within : detail::AreaRule::Meeting, m_keys);
  return false;
}

}  // namespace tessera
