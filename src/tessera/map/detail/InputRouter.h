// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/map/detail/MapNavigator.h>
#include <tessera/map/detail/SnapMark.h>

#include <functional>

class QGestureEvent;
class QInputMethodEvent;
class QKeyEvent;

namespace tessera {

class TCustomMapTool;

namespace detail {

/// Turns what the person in front of a map does into the map's events, hands it to the active tool, and leaves the rest
/// to the navigator.
///
/// Everything goes through Deliver: what a handler or a tool throws ends there as a message, and it may take anything
/// away, the map itself included. Mouse events reach the handlers of the program first and then the tool; keys reach
/// the tool first and the handlers as the tool left them.
class InputRouter {
 public:
  explicit InputRouter(TTessera &map) : m_map(map), m_navigator(map), m_snapMark(map) {}

  void MousePress(const QMouseEvent &event);
  void MouseMove(const QMouseEvent &event);
  void MouseRelease(const QMouseEvent &event);
  /// The second press of a double click: a double click, if it is the left button's, then a press.
  void MouseDoubleClick(const QMouseEvent &event);
  /// False for a message without vertical movement and with the map's WheelMouse off.
  bool Wheel(const QWheelEvent &event);
  /// Two fingers on a touch screen, and on a touchpad. False for anything else.
  bool Gesture(QGestureEvent &event);
  bool NativeGesture(const QNativeGestureEvent &event);

  /// The key, then the text that it types, unless it was taken.
  void KeyPress(const QKeyEvent &event);
  /// Releases of a key that repeats while it is held are none.
  void KeyRelease(const QKeyEvent &event);
  void InputMethod(const QInputMethodEvent &event);

 private:
  /// Runs what an event leads to. False when the map, and this router with it, is gone.
  bool Deliver(const std::function<void()> &body);
  /// The same for the tool that is active then, if there is one. False, too, only when the map is gone.
  bool DeliverToTool(const std::function<void(TCustomMapTool &)> &body);
  void Press(const QMouseEvent &event, bool isSecondPress);
  void Type(const QString &text);
  /// What a tool has begun with one finger is given up when a second one comes.
  bool CancelToolGesture();

  TTessera &m_map;
  MapNavigator m_navigator;
  SnapMark m_snapMark;
};

}  // namespace detail
}  // namespace tessera
