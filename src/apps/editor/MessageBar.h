// SPDX-License-Identifier: MIT
#pragma once

#include <QFrame>
#include <QStringList>

class QLabel;
class QToolButton;

namespace tessera::apps {

/// Shows messages one after the other above the map until the person dismisses each; nothing ever waits for that.
/// Hidden while there is none.
class MessageBar : public QFrame {
  Q_OBJECT

 public:
  explicit MessageBar(QWidget *parent = nullptr);

  /// Puts a message at the end of the queue, once the present event is done: messages also come up while the map is
  /// being painted, when no widget may be shown. A text that is in the queue already is not put there again.
  void Post(const QString &text);
  /// Goes on to the next message.
  void Dismiss();

  /// The message that is shown; empty when there is none.
  [[nodiscard]] QString GetText() const;
  /// Messages that have not been dismissed.
  [[nodiscard]] int GetCount() const { return int(m_messages.size()); }

 private:
  void Add(const QString &text);
  void ShowFirst();

  QStringList m_messages;
  QLabel *m_text;
  QLabel *m_waiting;
  QToolButton *m_dismiss;
};

}  // namespace tessera::apps
