// SPDX-License-Identifier: MIT
// What the person in front of the map does. The handlers of the program come first; keys come to them as they are.
#include <tessera/map/detail/TesseraPrivate.h>

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>

namespace tessera {
namespace {

/// Ends the batch of updates it began, with a new picture, however the block is left.
class UpdateScope {
 public:
  explicit UpdateScope(TTessera &map) : m_map(map) { m_map.BeginUpdate(); }
  ~UpdateScope() { m_map.EndUpdate(true); }
  UpdateScope(const UpdateScope &) = delete;
  UpdateScope &operator=(const UpdateScope &) = delete;

 private:
  TTessera &m_map;
};

}  // namespace

void TTessera::ZoomByWheel(const QPoint &position, int delta) {
  constexpr double Step = 2;
  const UpdateScope update(*this);
  if (d->zoomType == wmCursor) {
    double x = 0;
    double y = 0;
    ScreenToMap(position.x(), position.y(), x, y);
    SetCenterX(x);
    SetCenterY(y);
  } else if (d->zoomType == wmSelected && d->selection->GetCount() > 0) {
    const TBounds bounds = d->selection->GetItem(0)->GetBounds();
    SetCenterX((bounds.MaxX - bounds.MinX) / 2 + bounds.MinX);
    SetCenterY((bounds.MaxY - bounds.MinY) / 2 + bounds.MinY);
  }
  SetZoom(delta > 0 ? std::min(d->maxZoom, GetZoom() * Step) : std::max(d->minZoom, GetZoom() / Step));
}

void TTessera::wheelEvent(QWheelEvent *event) {
  QWidget::wheelEvent(event);
  if (!d->wheelMouse) return;
  event->accept();
  // The position is taken as the platform gives it, in coordinates of the desktop; this is intended.
  GuardedEvent([&] { ZoomByWheel(event->globalPosition().toPoint(), event->angleDelta().y()); });
}

void TTessera::mousePressEvent(QMouseEvent *event) {
  const QPoint at = event->position().toPoint();
  GuardedEvent([&] { Q_EMIT OnMouseDown(this, event->button(), event->modifiers(), at.x(), at.y()); });
  setFocus(Qt::MouseFocusReason);
}

void TTessera::mouseMoveEvent(QMouseEvent *event) {
  const QPoint at = event->position().toPoint();
  GuardedEvent([&] { Q_EMIT OnMouseMove(this, event->modifiers(), at.x(), at.y()); });
}

void TTessera::mouseReleaseEvent(QMouseEvent *event) {
  const QPoint at = event->position().toPoint();
  GuardedEvent([&] { Q_EMIT OnMouseUp(this, event->button(), event->modifiers(), at.x(), at.y()); });
}

void TTessera::mouseDoubleClickEvent(QMouseEvent * /*event*/) {
  GuardedEvent([this] { Q_EMIT OnDblClick(this); });
}

void TTessera::keyPressEvent(QKeyEvent *event) {
  GuardedEvent([&] {
    int key = event->key();
    Q_EMIT OnKeyDown(this, key, event->modifiers());
    if (key == 0 || event->text().isEmpty()) return;
    QChar character = event->text().at(0);
    Q_EMIT OnKeyPress(this, character);
  });
}

void TTessera::keyReleaseEvent(QKeyEvent *event) {
  GuardedEvent([&] {
    int key = event->key();
    Q_EMIT OnKeyUp(this, key, event->modifiers());
  });
}

bool TTessera::focusNextPrevChild(bool /*next*/) {
  // Tab belongs to the map, as all keys do.
  return false;
}

bool TTessera::event(QEvent *event) {
  // Arrow keys, Tab and plain characters come as key presses even where a window has shortcuts for them.
  if (event->type() == QEvent::ShortcutOverride) {
    const auto *key = static_cast<QKeyEvent *>(event);
    if (key->modifiers() == Qt::NoModifier || key->modifiers() == Qt::ShiftModifier) event->accept();
  }
  return QWidget::event(event);
}

}  // namespace tessera
