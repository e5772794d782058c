// SPDX-License-Identifier: MIT
#include <tessera/map/TTessera.h>
#include <tessera/tools/TCustomPressMoveAndReleaseTool.h>

namespace tessera {

void TCustomPressMoveAndReleaseTool::MouseDown(Qt::MouseButton button, TShiftState /*shift*/, int x, int y) {
  if (button != Qt::LeftButton || GetTessera() == nullptr) return;
  EndGesture();
  X1 = X2 = x;
  Y1 = Y2 = y;
  m_pressSnap = m_releaseSnap = GetSnapPoint(x, y);
  BeginGesture(Qt::LeftButton);
}

void TCustomPressMoveAndReleaseTool::MouseMove(TShiftState shift, int x, int y) {
  if (!shift.testFlag(ssLeft) || !GetInGesture()) return;
  ChangeFigure([&] {
    X2 = x;
    Y2 = y;
    m_releaseSnap = GetSnapPoint(x, y);
  });
}

void TCustomPressMoveAndReleaseTool::MouseUp(Qt::MouseButton button, TShiftState /*shift*/, int /*x*/, int /*y*/) {
  if (button == Qt::LeftButton && GetInGesture()) Complete();
}

TMapPoint TCustomPressMoveAndReleaseTool::GetPressPoint() const {
  return m_pressSnap ? *m_pressSnap : GetTessera()->GetViewport().ScreenToMap(X1, Y1);
}

TMapPoint TCustomPressMoveAndReleaseTool::GetReleasePoint() const {
  return m_releaseSnap ? *m_releaseSnap : GetTessera()->GetViewport().ScreenToMap(X2, Y2);
}

}  // namespace tessera
