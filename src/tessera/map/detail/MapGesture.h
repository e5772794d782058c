// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <QObject>
#include <QPointer>

#include <functional>

namespace tessera {

class TTessera;

namespace detail {

/// What goes on on a map from a press, or a click, until something ends it, and has something standing on the screen
/// picture meanwhile: tells when that has to be drawn again, and when the mouse is lost on the way.
class TESSERA_WIDGETS_EXPORT MapGesture : public QObject {
 public:
  /// `onRepainted` runs after each repaint of the screen picture; `onLost` when the button that holds the gesture is no
  /// longer held although no release came: it was released elsewhere, or the map was hidden, disabled or blocked by a
  /// modal window. The gesture is still running then.
  MapGesture(std::function<void()> onRepainted, std::function<void()> onLost);

  /// Begins, with the button that must stay held, or Qt::NoButton. One that is running ends first.
  void Begin(TTessera &map, Qt::MouseButton heldBy);
  void End();
  [[nodiscard]] bool IsRunning() const { return !m_map.isNull(); }

  bool eventFilter(QObject *watched, QEvent *event) override;

 private:
  [[nodiscard]] bool IsLossOfMouse(const QEvent &event) const;

  std::function<void()> m_onRepainted;
  std::function<void()> m_onLost;
  QPointer<TTessera> m_map;
  QMetaObject::Connection m_repaints;
  Qt::MouseButton m_heldBy = Qt::NoButton;
};

}  // namespace detail
}  // namespace tessera
