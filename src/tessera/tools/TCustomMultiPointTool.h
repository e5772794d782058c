// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/TMapPoint.h>
#include <tessera/graphics/TCanvas.h>
#include <tessera/tools/TCustomGestureTool.h>

#include <optional>
#include <vector>

namespace tessera {

/// Base of tools that click an outline together, vertex by vertex, and end it by a double click, whose first press is
/// the last vertex. Vertices are kept in map units, so the view may move meanwhile.
class TESSERA_WIDGETS_EXPORT TCustomMultiPointTool : public TCustomGestureTool {
  Q_OBJECT

 public:
  explicit TCustomMultiPointTool(QObject *parent = nullptr);

  void MouseDown(Qt::MouseButton button, TShiftState shift, int x, int y) override;
  void MouseMove(TShiftState shift, int x, int y) override;
  void DblClick() override;
  [[nodiscard]] bool GetEnabled() const override;
  [[nodiscard]] bool GetSnaps() const override { return true; }
  /// The vertices clicked so far and the place of the mouse, in map units; empty before the first vertex.
  [[nodiscard]] std::vector<TMapPoint> GetMapOutline() const;

 Q_SIGNALS:
  /// A vertex has come, or the mouse has moved, while the outline is being clicked together: see GetMapOutline.
  void OnOutline(tessera::TCustomMultiPointTool *sender);

 protected:
  void Forget() override;
  /// The vertices clicked so far, in map units, for CreateObject; the tool has them no longer.
  [[nodiscard]] std::vector<TMapPoint> TakePoints();
  /// The vertices in client pixels, and the place of the mouse, for Draw; empty before the first vertex.
  [[nodiscard]] std::vector<TPoint> GetOutline() const;
  /// The outline back to its first vertex.
  [[nodiscard]] std::vector<TPoint> GetClosedOutline() const;

 private:
  /// Where the mouse stands for, seen from the last vertex.
  [[nodiscard]] TMapPoint MousePoint() const;
  void PlaceMouse(TShiftState shift, int x, int y);
  /// From the vertex before to the mouse; none without one, or when it lies too far off.
  [[nodiscard]] std::optional<QPoint> WayFromLast() const;

  std::vector<TMapPoint> m_points;
  TPoint m_mouse;
  bool m_isWayKept = false;  ///< Shift has bent the way from the last vertex to the mouse
  /// The press that comes next is the second one of a double click, which has been served.
  bool m_isSecondPressDue = false;
};

}  // namespace tessera
