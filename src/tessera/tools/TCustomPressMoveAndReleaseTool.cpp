// SPDX-License-Identifier: MIT
#include <tessera/map/TTessera.h>
#include <tessera/tools/TCustomPressMoveAndReleaseTool.h>
#include <tessera/tools/detail/KeptWays.h>

namespace tessera {

void TCustomPressMoveAndReleaseTool::MouseDown(Qt::MouseButton button, TShiftState /*shift*/, int x, int y) {
  if (button != Qt::LeftButton || GetTessera() == nullptr) return;
  EndGesture();
  X1 = X2 = x;
  Y1 = Y2 = y;
  m_pressSnap = m_releaseSnap = GetSnapPoint(x, y);
  m_isWayKept = false;
  BeginGesture(Qt::LeftButton);
}

void TCustomPressMoveAndReleaseTool::MouseMove(TShiftState shift, int x, int y) {
  if (!shift.testFlag(ssLeft) || !GetInGesture()) return;
  const std::optional<QPoint> kept = KeepWay(shift, {x - X1, y - Y1});
  ChangeFigure([&] {
    X2 = kept ? X1 + kept->x() : x;
    Y2 = kept ? Y1 + kept->y() : y;
    m_isWayKept = kept.has_value();
    m_releaseSnap = kept ? std::nullopt : GetSnapPoint(x, y);
  });
}

void TCustomPressMoveAndReleaseTool::MouseUp(Qt::MouseButton button, TShiftState /*shift*/, int /*x*/, int /*y*/) {
  if (button == Qt::LeftButton && GetInGesture()) Complete();
}

std::optional<QPoint> TCustomPressMoveAndReleaseTool::KeepWay(TShiftState /*shift*/, const QPoint & /*way*/) const {
  return std::nullopt;
}

TMapPoint TCustomPressMoveAndReleaseTool::GetPressPoint() const {
  return m_pressSnap ? *m_pressSnap : GetTessera()->GetViewport().ScreenToMap(X1, Y1);
}

TMapPoint TCustomPressMoveAndReleaseTool::GetReleasePoint() const {
  // Kept to its direction also from a press that was drawn to a place near by.
  if (m_isWayKept) return detail::EndOfWay(GetTessera()->GetViewport(), GetPressPoint(), {X2 - X1, Y2 - Y1});
  return m_releaseSnap ? *m_releaseSnap : GetTessera()->GetViewport().ScreenToMap(X2, Y2);
}

}  // namespace tessera
