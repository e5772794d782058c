// SPDX-License-Identifier: MIT
#include <tessera/tools/TCustomPressMoveAndReleaseTool.h>

namespace tessera {

void TCustomPressMoveAndReleaseTool::MouseDown(Qt::MouseButton button, TShiftState /*shift*/, int x, int y) {
  if (button != Qt::LeftButton || GetTessera() == nullptr) return;
  EndGesture();
  X1 = X2 = x;
  Y1 = Y2 = y;
  BeginGesture(Qt::LeftButton);
}

void TCustomPressMoveAndReleaseTool::MouseMove(TShiftState shift, int x, int y) {
  if (!shift.testFlag(ssLeft) || !GetInGesture()) return;
  ChangeFigure([&] {
    X2 = x;
    Y2 = y;
  });
}

void TCustomPressMoveAndReleaseTool::MouseUp(Qt::MouseButton button, TShiftState /*shift*/, int /*x*/, int /*y*/) {
  if (button == Qt::LeftButton && GetInGesture()) Complete();
}

}  // namespace tessera
