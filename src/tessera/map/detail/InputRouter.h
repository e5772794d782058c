// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>

#include <functional>

class QInputMethodEvent;
class QKeyEvent;
class QMouseEvent;
class QString;
class QWheelEvent;

namespace tessera {

class TTessera;

namespace detail {

/// Turns what the person in front of a map does into the map's events.
///
/// Everything goes through Deliver: what a handler throws ends there as a message, and a handler may take anything
/// away, the map itself included. Mouse events reach the handlers of the program first; keys reach them last, as
/// whoever had them before left them.
class InputRouter {
 public:
  explicit InputRouter(TTessera &map) : m_map(map) {}

  void MousePress(const QMouseEvent &event);
  void MouseMove(const QMouseEvent &event);
  void MouseRelease(const QMouseEvent &event);
  /// The second press of a double click: a double click, then a press.
  void MouseDoubleClick(const QMouseEvent &event);
  /// One step of the zoom for a message with vertical movement, whatever its length. False when it was none.
  bool Wheel(const QWheelEvent &event);

  /// The key, then the text that it types, unless a handler took the key.
  void KeyPress(const QKeyEvent &event);
  /// Releases of a key that repeats while it is held are none.
  void KeyRelease(const QKeyEvent &event);
  void InputMethod(const QInputMethodEvent &event);

 private:
  /// Runs what an event leads to. False when the map, and this router with it, is gone.
  bool Deliver(const std::function<void()> &body);
  void Press(const QMouseEvent &event, bool isSecondPress);
  void Type(const QString &text);
  void Zoom(const QPoint &position, int delta);

  TTessera &m_map;
};

}  // namespace detail
}  // namespace tessera
