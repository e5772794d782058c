// SPDX-License-Identifier: MIT
// The events of the platform, handed to the router.
#include <tessera/map/detail/PartProperty.h>
#include <tessera/map/detail/TesseraPrivate.h>

#include <QGestureEvent>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

namespace tessera {

void TTessera::wheelEvent(QWheelEvent *event) {
  // Leaves the message to others unless it zooms.
  QWidget::wheelEvent(event);
  if (d->input.Wheel(*event)) event->accept();
}
void TTessera::mousePressEvent(QMouseEvent *event) {
  d->input.MousePress(*event);
}
void TTessera::mouseMoveEvent(QMouseEvent *event) {
  d->input.MouseMove(*event);
}
void TTessera::mouseReleaseEvent(QMouseEvent *event) {
  d->input.MouseRelease(*event);
}
void TTessera::mouseDoubleClickEvent(QMouseEvent *event) {
  d->input.MouseDoubleClick(*event);
}
void TTessera::keyPressEvent(QKeyEvent *event) {
  d->input.KeyPress(*event);
}
void TTessera::keyReleaseEvent(QKeyEvent *event) {
  d->input.KeyRelease(*event);
}
void TTessera::inputMethodEvent(QInputMethodEvent *event) {
  d->input.InputMethod(*event);
}

bool TTessera::focusNextPrevChild(bool /*next*/) {
  // Tab belongs to the map, as all keys do.
  return false;
}

bool TTessera::event(QEvent *event) {
  // Arrow keys, Tab and plain characters come as key presses even where a window has shortcuts for them.
  if (event->type() == QEvent::ShortcutOverride) {
    const Qt::KeyboardModifiers modifiers = static_cast<QKeyEvent *>(event)->modifiers();
    if ((modifiers & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == Qt::NoModifier) event->accept();
  }
  if (event->type() == QEvent::Gesture && d->input.Gesture(*static_cast<QGestureEvent *>(event))) return true;
  if (event->type() == QEvent::NativeGesture && d->input.NativeGesture(*static_cast<QNativeGestureEvent *>(event))) {
    return true;
  }
  if (event->type() == QEvent::DynamicPropertyChange) {
    detail::SetPropertyOfPart(*this, static_cast<QDynamicPropertyChangeEvent *>(event)->propertyName());
  }
  return QWidget::event(event);
}

QVariant TTessera::inputMethodQuery(Qt::InputMethodQuery query) const {
  const TCustomMapTool *tool = d->tools->GetActiveMapTool();
  if (query == Qt::ImCursorRectangle && tool != nullptr) return tool->GetCaretRect();
  return QWidget::inputMethodQuery(query);
}

}  // namespace tessera
