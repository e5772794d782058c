// SPDX-License-Identifier: MIT
#include <tessera/base/GuardedCall.h>
#include <tessera/map/TTessera.h>
#include <tessera/map/detail/MapGesture.h>

#include <QMouseEvent>

#include <utility>

namespace tessera::detail {

MapGesture::MapGesture(std::function<void()> onRepainted, std::function<void()> onLost)
    : m_onRepainted(std::move(onRepainted)), m_onLost(std::move(onLost)) {}

void MapGesture::Begin(TTessera &map, Qt::MouseButton heldBy) {
  End();
  m_map = &map;
  m_heldBy = heldBy;
  m_repaints = connect(&map, &TTessera::OnScreenRepainted, this, [this] { m_onRepainted(); });
  if (heldBy != Qt::NoButton) map.installEventFilter(this);
}

void MapGesture::End() {
  if (m_map) m_map->removeEventFilter(this);
  disconnect(m_repaints);
  m_map = nullptr;
}

bool MapGesture::IsLossOfMouse(const QEvent &event) const {
  switch (event.type()) {
    case QEvent::MouseMove:
      return !static_cast<const QMouseEvent &>(event).buttons().testFlag(m_heldBy);
    case QEvent::Hide:
    case QEvent::UngrabMouse:
    case QEvent::WindowBlocked:
      return true;
    case QEvent::EnabledChange:
      return !m_map->isEnabled();
    default:
      return false;
  }
}

bool MapGesture::eventFilter(QObject *watched, QEvent *event) {
  if (watched == m_map && IsLossOfMouse(*event)) GuardedCall(m_onLost);
  return false;
}

}  // namespace tessera::detail
