// SPDX-License-Identifier: MIT
#include <tessera/base/GuardedCall.h>
#include <tessera/map/TTessera.h>
#include <tessera/map/detail/InputRouter.h>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <QWheelEvent>

#include <algorithm>

namespace tessera::detail {
namespace {

/// Ends the batch of updates it began, with a new picture, however the block is left; the map may be gone by then.
class UpdateScope {
 public:
  explicit UpdateScope(TTessera &map) : m_map(&map) { map.BeginUpdate(); }
  ~UpdateScope() {
    if (m_map) m_map->EndUpdate(true);
  }
  UpdateScope(const UpdateScope &) = delete;
  UpdateScope &operator=(const UpdateScope &) = delete;

 private:
  QPointer<TTessera> m_map;
};

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

void InputRouter::Press(const QMouseEvent &event, bool isSecondPress) {
  const QPoint at = PositionOf(event);
  const TShiftState shift = ShiftState(event).setFlag(ssDouble, isSecondPress);
  if (!Deliver([&] { Q_EMIT m_map.OnMouseDown(&m_map, event.button(), shift, at.x(), at.y()); })) return;
  m_map.setFocus(Qt::MouseFocusReason);
}

void InputRouter::MousePress(const QMouseEvent &event) {
  Press(event, false);
}

void InputRouter::MouseMove(const QMouseEvent &event) {
  const QPoint at = PositionOf(event);
  Deliver([&] { Q_EMIT m_map.OnMouseMove(&m_map, ShiftState(event), at.x(), at.y()); });
}

void InputRouter::MouseRelease(const QMouseEvent &event) {
  const QPoint at = PositionOf(event);
  Deliver([&] { Q_EMIT m_map.OnMouseUp(&m_map, event.button(), ShiftState(event), at.x(), at.y()); });
}

void InputRouter::MouseDoubleClick(const QMouseEvent &event) {
  if (Deliver([this] { Q_EMIT m_map.OnDblClick(&m_map); })) Press(event, true);
}

void InputRouter::Zoom(const QPoint &position, int delta) {
  constexpr double Step = 2;
  const UpdateScope update(m_map);
  if (m_map.GetZoomType() == TTessera::wmCursor) {
    double x = 0;
    double y = 0;
    m_map.ScreenToMap(position.x(), position.y(), x, y);
    m_map.SetCenterX(x);
    m_map.SetCenterY(y);
  } else if (m_map.GetZoomType() == TTessera::wmSelected && m_map.GetSelection()->GetCount() > 0) {
    const TBounds bounds = m_map.GetSelection()->GetItem(0)->GetBounds();
    m_map.SetCenterX((bounds.MaxX - bounds.MinX) / 2 + bounds.MinX);
    m_map.SetCenterY((bounds.MaxY - bounds.MinY) / 2 + bounds.MinY);
  }
  const double zoom = m_map.GetZoom();
  m_map.SetZoom(delta > 0 ? std::min(m_map.GetMaxZoom(), zoom * Step) : std::max(m_map.GetMinZoom(), zoom / Step));
}

bool InputRouter::Wheel(const QWheelEvent &event) {
  const int delta = event.angleDelta().y();
  if (!m_map.GetWheelMouse() || delta == 0) return false;
  // The position is taken as the platform gives it, in coordinates of the desktop; this is intended.
  Deliver([&] { Zoom(event.globalPosition().toPoint(), delta); });
  return true;
}

void InputRouter::KeyPress(const QKeyEvent &event) {
  int key = event.key();
  const TShiftState shift = ShiftState(event.modifiers());
  if (Deliver([&] { Q_EMIT m_map.OnKeyDown(&m_map, key, shift); }) && key != 0) Type(event.text());
}

void InputRouter::KeyRelease(const QKeyEvent &event) {
  if (event.isAutoRepeat()) return;
  int key = event.key();
  Deliver([&] { Q_EMIT m_map.OnKeyUp(&m_map, key, ShiftState(event.modifiers())); });
}

void InputRouter::Type(const QString &text) {
  for (const QChar character : text) {
    QChar key = character;
    if (!Deliver([&] { Q_EMIT m_map.OnKeyPress(&m_map, key); })) return;
  }
}

void InputRouter::InputMethod(const QInputMethodEvent &event) {
  Type(event.commitString());
}

}  // namespace tessera::detail
