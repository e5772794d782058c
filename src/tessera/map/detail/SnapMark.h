// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/TMapPoint.h>
#include <tessera/map/detail/MapGesture.h>
#include <tessera/map/detail/ScreenFigure.h>

#include <QPoint>

#include <optional>

namespace tessera {

class TCustomMapTool;

namespace detail {

/// The place that the map's Snapping draws a client pixel to for a tool; none where it stays, and for a tool that does
/// not snap.
[[nodiscard]] std::optional<TMapPoint> FindSnapPlace(const TTessera &map, const TCustomMapTool &tool, int x, int y);

/// The mark on the place that the mouse is drawn to, until the mouse moves on or the picture changes.
class SnapMark {
 public:
  explicit SnapMark(TTessera &map);

  /// Marks the place for the mouse at a client pixel and the tool that is active, or none.
  void Follow(int x, int y);
  void Hide();

 private:
  void Draw();

  TTessera &m_map;
  std::optional<QPoint> m_at;
  ScreenFigure m_figure;
  MapGesture m_repaints;
};

}  // namespace detail
}  // namespace tessera
