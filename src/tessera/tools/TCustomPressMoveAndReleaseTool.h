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
  /// The map points of the press and of the mouse now, drawn to what they snap to. @pre on a map
  [[nodiscard]] TMapPoint GetPressPoint() const;
  [[nodiscard]] TMapPoint GetReleasePoint() const;
  /// What the mouse is drawn to now, if anything.
  [[nodiscard]] const std::optional<TMapPoint> &GetReleaseSnap() const { return m_releaseSnap; }
  /// What the keys held make of the way of the mouse from the press, in client pixels; none, as here, where they leave
  /// it alone. A way that is kept to something is not drawn to a place near by.
  [[nodiscard]] virtual std::optional<QPoint> KeepWay(TShiftState shift, const QPoint &way) const;
  /// Client pixels: where the button went down, and where the mouse is now.
  int X1 = 0;
  int Y1 = 0;
  int X2 = 0;
  int Y2 = 0;

 private:
  std::optional<TMapPoint> m_pressSnap;
  std::optional<TMapPoint> m_releaseSnap;
  bool m_isWayKept = false;
};

}  // namespace tessera
