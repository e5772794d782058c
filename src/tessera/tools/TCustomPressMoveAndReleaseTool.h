// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/tools/TCustomGestureTool.h>

#include <QPoint>

namespace tessera {

/// Base of tools that act on a drag with the left button, from the press to the release.
class TESSERA_WIDGETS_EXPORT TCustomPressMoveAndReleaseTool : public TCustomGestureTool {
  Q_OBJECT

 public:
  using TCustomGestureTool::TCustomGestureTool;

  void MouseDown(Qt::MouseButton button, TShiftState shift, int x, int y) override;
  void MouseMove(TShiftState shift, int x, int y) override;
  /// Without a press before, nothing.
  void MouseUp(Qt::MouseButton button, TShiftState shift, int x, int y) override;

 protected:
  /// Client pixels: where the button went down, and where the mouse is now.
  int X1 = 0;
  int Y1 = 0;
  int X2 = 0;
  int Y2 = 0;
};

}  // namespace tessera
