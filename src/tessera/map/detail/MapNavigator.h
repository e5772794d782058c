// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/TShiftState.h>
#include <tessera/map/detail/MapGesture.h>
#include <tessera/map/detail/PanPicture.h>

#include <QPointF>

class QMouseEvent;
class QNativeGestureEvent;
class QPinchGesture;
class QWheelEvent;

namespace tessera::detail {

/// Moves the view of a map as the wheel, the keys, the middle button and two fingers ask for it, as far as the map's
/// TMapNavigation lets them. Exceptions, and the end of the map, may come out of everything here.
class MapNavigator {
 public:
  explicit MapNavigator(TTessera &map);

  /// What one message of the wheel does: one step of the zoom for any vertical movement, whatever its length, unless
  /// movements add up.
  void Wheel(const QWheelEvent &event);
  /// What the map does with a key that nobody has taken.
  void Key(int key);

  /// The middle button's drag. Each of them is false when there is none.
  bool Press(const QMouseEvent &event);
  bool Move(const QMouseEvent &event);
  bool Release(const QMouseEvent &event);

  void Pinch(const QPinchGesture &gesture);
  void Magnify(const QNativeGestureEvent &event);

 private:
  [[nodiscard]] int StepsOf(const QWheelEvent &event);
  void ZoomAsTheWheel(const QPoint &desktopPosition, double factor);
  /// Zooms within the limits of the wheel, and leaves the map point under `client` where it is.
  void ZoomAbout(const QPointF &client, double factor);
  void PanBy(const QPoint &way);
  void Stop();

  TTessera &m_map;
  MapGesture m_drag;
  PanPicture m_picture;
  QPoint m_from;
  QPoint m_to;
  int m_wheelRest = 0;
};

}  // namespace tessera::detail
