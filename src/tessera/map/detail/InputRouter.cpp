// SPDX-License-Identifier: MIT
#include <tessera/base/GuardedCall.h>
#include <tessera/map/TMapToolsManager.h>
#include <tessera/map/TTessera.h>
#include <tessera/map/detail/InputRouter.h>

#include <QGestureEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QWheelEvent>

namespace tessera::detail {
namespace {

TShiftState ShiftState(Qt::KeyboardModifiers modifiers, Qt::MouseButtons buttons = Qt::NoButton) {
  TShiftState state;
  state.setFlag(ssShift, modifiers.testFlag(Qt::ShiftModifier));
  state.setFlag(ssAlt, modifiers.testFlag(Qt::AltModifier));
  state.setFlag(ssCtrl, modifiers.testFlag(Qt::ControlModifier));
  state.setFlag(ssLeft, buttons.testFlag(Qt::LeftButton));
  state.setFlag(ssRight, buttons.testFlag(Qt::RightButton));
  state.setFlag(ssMiddle, buttons.testFlag(Qt::MiddleButton));
  return state;
}

TShiftState ShiftState(const QMouseEvent &event) {
  return ShiftState(event.modifiers(), event.buttons());
}

QPoint PositionOf(const QMouseEvent &event) {
  return event.position().toPoint();
}

}  // namespace

bool InputRouter::Deliver(const std::function<void()> &body) {
  const QPointer<TTessera> map = &m_map;
  GuardedCall(body);
  return !map.isNull();
}

bool InputRouter::DeliverToTool(const std::function<void(TCustomMapTool &)> &body) {
  return Deliver([&] {
    if (TCustomMapTool *tool = m_map.GetMapToolsManager()->GetActiveMapTool()) body(*tool);
  });
}

void InputRouter::Press(const QMouseEvent &event, bool isSecondPress) {
  const QPoint at = PositionOf(event);
  const TShiftState shift = ShiftState(event).setFlag(ssDouble, isSecondPress);
  const auto tell = [&] { Q_EMIT m_map.OnMouseDown(&m_map, event.button(), shift, at.x(), at.y()); };
  // Whoever loses the focus may do anything as well.
  if (!Deliver(tell) || !Deliver([&] { m_map.setFocus(Qt::MouseFocusReason); })) return;
  if (m_navigator.Press(event)) return;
  DeliverToTool([&](TCustomMapTool &tool) { tool.MouseDown(event.button(), shift, at.x(), at.y()); });
}

void InputRouter::MousePress(const QMouseEvent &event) {
  Press(event, false);
}

void InputRouter::MouseMove(const QMouseEvent &event) {
  const QPoint at = PositionOf(event);
  const TShiftState shift = ShiftState(event);
  if (!Deliver([&] { Q_EMIT m_map.OnMouseMove(&m_map, shift, at.x(), at.y()); })) return;
  if (m_navigator.Move(event)) return;
  if (!DeliverToTool([&](TCustomMapTool &tool) { tool.MouseMove(shift, at.x(), at.y()); })) return;
  Deliver([&] { m_snapMark.Follow(at.x(), at.y()); });
}

void InputRouter::MouseRelease(const QMouseEvent &event) {
  const QPoint at = PositionOf(event);
  const TShiftState shift = ShiftState(event);
  if (!Deliver([&] { Q_EMIT m_map.OnMouseUp(&m_map, event.button(), shift, at.x(), at.y()); })) return;
  bool isDragEnd = false;
  if (!Deliver([&] { isDragEnd = m_navigator.Release(event); }) || isDragEnd) return;
  DeliverToTool([&](TCustomMapTool &tool) { tool.MouseUp(event.button(), shift, at.x(), at.y()); });
}

void InputRouter::MouseDoubleClick(const QMouseEvent &event) {
  if (event.button() == Qt::LeftButton) {
    if (!Deliver([this] { Q_EMIT m_map.OnDblClick(&m_map); })) return;
    if (!DeliverToTool([](TCustomMapTool &tool) { tool.DblClick(); })) return;
  }
  Press(event, true);
}

bool InputRouter::Wheel(const QWheelEvent &event) {
  if (!m_map.GetWheelMouse() || event.angleDelta().y() == 0) return false;
  Deliver([&] { m_navigator.Wheel(event); });
  return true;
}

bool InputRouter::CancelToolGesture() {
  return DeliverToTool([](TCustomMapTool &tool) {
    if (tool.GetInGesture()) tool.Cancel();
  });
}

bool InputRouter::Gesture(QGestureEvent &event) {
  auto *pinch = static_cast<QPinchGesture *>(event.gesture(Qt::PinchGesture));
  if (pinch == nullptr || !m_map.GetNavigation()->GetTouch()) return false;
  event.accept(pinch);
  if (CancelToolGesture()) Deliver([&] { m_navigator.Pinch(*pinch); });
  return true;
}

bool InputRouter::NativeGesture(const QNativeGestureEvent &event) {
  if (event.gestureType() != Qt::ZoomNativeGesture || !m_map.GetNavigation()->GetTouch()) return false;
  Deliver([&] { m_navigator.Magnify(event); });
  return true;
}

void InputRouter::KeyPress(const QKeyEvent &event) {
  int key = event.key();
  const TShiftState shift = ShiftState(event.modifiers());
  bool isToolsKey = false;
  if (!DeliverToTool([&](TCustomMapTool &tool) {
        isToolsKey = tool.GetWantsKeys();
        tool.KeyDown(key, shift);
      })) {
    return;
  }
  if (!Deliver([&] { Q_EMIT m_map.OnKeyDown(&m_map, key, shift); }) || key == 0) return;
  if (!isToolsKey && !Deliver([&] { m_navigator.Key(key); })) return;
  Type(event.text());
}

void InputRouter::KeyRelease(const QKeyEvent &event) {
  if (event.isAutoRepeat()) return;
  int key = event.key();
  const TShiftState shift = ShiftState(event.modifiers());
  if (!DeliverToTool([&](TCustomMapTool &tool) { tool.KeyUp(key, shift); })) return;
  Deliver([&] { Q_EMIT m_map.OnKeyUp(&m_map, key, shift); });
}

void InputRouter::Type(const QString &text) {
  for (const QChar character : text) {
    QChar key = character;
    if (!DeliverToTool([&](TCustomMapTool &tool) { tool.KeyPress(key); })) return;
    if (!Deliver([&] { Q_EMIT m_map.OnKeyPress(&m_map, key); })) return;
  }
}

void InputRouter::InputMethod(const QInputMethodEvent &event) {
  const QString &preedit = event.preeditString();
  int cursor = int(preedit.size());
  for (const auto &attribute : event.attributes()) {
    if (attribute.type == QInputMethodEvent::Cursor) cursor = attribute.start;
  }
  const QPointer<TTessera> map = &m_map;
  Type(event.commitString());
  if (map) DeliverToTool([&](TCustomMapTool &tool) { tool.Preedit(preedit, cursor); });
}

}  // namespace tessera::detail
