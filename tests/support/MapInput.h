// SPDX-License-Identifier: MIT
#pragma once

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QWidget>

namespace tessera::test {

/// Input as the platform sends it to a control that is on the screen or not.
class MapInput {
 public:
  explicit MapInput(QWidget &target) : m_target(target) {}

  void Press(const QPoint &at, Qt::KeyboardModifiers modifiers = {}, Qt::MouseButton button = Qt::LeftButton) {
    Send(QEvent::MouseButtonPress, at, button, button, modifiers);
  }
  void MoveTo(const QPoint &at, Qt::MouseButtons held = Qt::LeftButton, Qt::KeyboardModifiers modifiers = {}) {
    Send(QEvent::MouseMove, at, Qt::NoButton, held, modifiers);
  }
  void Release(const QPoint &at, Qt::MouseButton button = Qt::LeftButton) {
    Send(QEvent::MouseButtonRelease, at, button, Qt::NoButton);
  }
  void Click(const QPoint &at, Qt::KeyboardModifiers modifiers = {}, Qt::MouseButton button = Qt::LeftButton) {
    Press(at, modifiers, button);
    Release(at, button);
  }
  void DoubleClick(const QPoint &at, Qt::MouseButton button = Qt::LeftButton, Qt::KeyboardModifiers modifiers = {}) {
    Click(at, modifiers, button);
    Send(QEvent::MouseButtonDblClick, at, button, button);
    Release(at, button);
  }
  void Drag(const QPoint &from, const QPoint &to, Qt::MouseButton button = Qt::LeftButton,
            Qt::KeyboardModifiers modifiers = {}) {
    Press(from, modifiers, button);
    MoveTo((from + to) / 2, button);
    MoveTo(to, button);
    Release(to, button);
  }
  void Wheel(int delta, const QPoint &at = {30, 40}) {
    QWheelEvent event(at, at, {}, {0, delta}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&m_target, &event);
  }
  void Key(int key, const QString &text = {}) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent event(type, key, Qt::NoModifier, text);
      QApplication::sendEvent(&m_target, &event);
    }
  }
  /// What a keyboard, or an input method, types: one event for it all.
  void Type(const QString &text) { Key(Qt::Key_A, text); }
  void Compose(const QString &preedit, const QString &commit = {}) {
    QInputMethodEvent event(preedit, {});
    event.setCommitString(commit);
    QApplication::sendEvent(&m_target, &event);
  }

 private:
  void Send(QEvent::Type type, const QPoint &at, Qt::MouseButton button, Qt::MouseButtons held,
            Qt::KeyboardModifiers modifiers = {}) {
    QMouseEvent event(type, at, m_target.mapToGlobal(at), button, held, modifiers);
    QApplication::sendEvent(&m_target, &event);
  }

  QWidget &m_target;
};

}  // namespace tessera::test
