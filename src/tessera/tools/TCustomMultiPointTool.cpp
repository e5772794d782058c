// SPDX-License-Identifier: MIT
#include <tessera/map/TTessera.h>
#include <tessera/tools/TCustomMultiPointTool.h>
#include <tessera/tools/detail/KeptWays.h>

#include <utility>

namespace tessera {

TCustomMultiPointTool::TCustomMultiPointTool(QObject *parent) : TCustomGestureTool(parent) {
  SetCursor(crCross);
}

bool TCustomMultiPointTool::GetEnabled() const {
  return TCustomGestureTool::GetEnabled() && GetEditableLayer() != nullptr;
}

std::vector<TPoint> TCustomMultiPointTool::GetOutline() const {
  std::vector<TPoint> outline;
  if (m_points.empty() || GetTessera() == nullptr) return outline;
  const TViewport &viewport = GetTessera()->GetViewport();
  outline.reserve(m_points.size() + 2);
  for (const TMapPoint &point : m_points) outline.push_back(viewport.MapToScreen(point.X, point.Y));
  outline.push_back(m_mouse);
  return outline;
}

std::vector<TMapPoint> TCustomMultiPointTool::GetMapOutline() const {
  std::vector<TMapPoint> outline = m_points;
  const bool isAtMouse = m_points.empty() || GetTessera() == nullptr;
  if (!isAtMouse) outline.push_back(MousePoint());
  return outline;
}

std::vector<TPoint> TCustomMultiPointTool::GetClosedOutline() const {
  std::vector<TPoint> ring = GetOutline();
  if (!ring.empty()) ring.push_back(ring.front());
  return ring;
}

void TCustomMultiPointTool::MouseDown(Qt::MouseButton button, TShiftState shift, int x, int y) {
  if (button != Qt::LeftButton || GetTessera() == nullptr) return;
  if (std::exchange(m_isSecondPressDue, false)) return;
  if (!GetInGesture()) {
    m_points.clear();
    BeginGesture(Qt::NoButton);
  }
  ChangeFigure([&] {
    PlaceMouse(shift, x, y);
    m_points.push_back(MousePoint());
    m_isWayKept = false;
  });
  Q_EMIT OnOutline(this);
}

void TCustomMultiPointTool::MouseMove(TShiftState shift, int x, int y) {
  m_isSecondPressDue = false;
  if (!GetInGesture()) return;
  ChangeFigure([&] { PlaceMouse(shift, x, y); });
  Q_EMIT OnOutline(this);
}

void TCustomMultiPointTool::PlaceMouse(TShiftState shift, int x, int y) {
  m_mouse = TPoint(x, y);
  const auto way = IsConstraining(shift) ? WayFromLast() : std::nullopt;
  m_isWayKept = way.has_value();
  if (way) m_mouse += detail::KeptToDirections(*way) - *way;
}

std::optional<QPoint> TCustomMultiPointTool::WayFromLast() const {
  if (m_points.empty()) return std::nullopt;
  return detail::WayTo(GetTessera()->GetViewport(), m_points.back(), m_mouse);
}

TMapPoint TCustomMultiPointTool::MousePoint() const {
  const auto way = m_isWayKept ? WayFromLast() : std::nullopt;
  if (!way) return GetMapPoint(m_mouse.x(), m_mouse.y());
  return detail::EndOfWay(GetTessera()->GetViewport(), m_points.back(), *way);
}

void TCustomMultiPointTool::DblClick() {
  m_isSecondPressDue = true;
  Complete();
}

std::vector<TMapPoint> TCustomMultiPointTool::TakePoints() {
  return std::exchange(m_points, {});
}

void TCustomMultiPointTool::Forget() {
  m_points.clear();
  m_isSecondPressDue = false;
}

}  // namespace tessera
