// SPDX-License-Identifier: MIT
#include <apps/editor/MessageBar.h>

#include <QHBoxLayout>
#include <QLabel>
#include <QStyle>
#include <QToolButton>

namespace tessera::apps {
namespace {

/// Further messages are dropped: who has so many to read learns nothing from one more.
constexpr int MaxMessages = 100;
/// A longer text would cover the map.
constexpr int MaxLength = 500;

}  // namespace

MessageBar::MessageBar(QWidget *parent)
    : QFrame(parent), m_text(new QLabel(this)), m_waiting(new QLabel(this)), m_dismiss(new QToolButton(this)) {
  setFrameShape(QFrame::StyledPanel);
  setAutoFillBackground(true);
  setBackgroundRole(QPalette::ToolTipBase);
  setForegroundRole(QPalette::ToolTipText);
  for (QLabel *label : {m_text, m_waiting}) label->setForegroundRole(QPalette::ToolTipText);
  auto *icon = new QLabel(this);
  const int iconPx = style()->pixelMetric(QStyle::PM_SmallIconSize);
  icon->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(iconPx));
  m_text->setTextFormat(Qt::PlainText);
  m_text->setTextInteractionFlags(Qt::TextSelectableByMouse);
  m_text->setWordWrap(true);
  m_dismiss->setText(tr("Dismiss"));
  m_dismiss->setAutoRaise(true);
  connect(m_dismiss, &QToolButton::clicked, this, &MessageBar::Dismiss);

  auto *row = new QHBoxLayout(this);
  row->addWidget(icon);
  row->addWidget(m_text, 1);
  row->addWidget(m_waiting);
  row->addWidget(m_dismiss);
  hide();
}

void MessageBar::Post(const QString &text) {
  QMetaObject::invokeMethod(
      this, [this, text] { Add(text); }, Qt::QueuedConnection);
}

void MessageBar::Add(const QString &text) {
  const QString shown = text.size() > MaxLength ? QString(text.left(MaxLength) + u'…') : text;
  if (m_messages.size() >= MaxMessages || m_messages.contains(shown)) return;
  m_messages.append(shown);
  ShowFirst();
}

void MessageBar::Dismiss() {
  if (!m_messages.isEmpty()) m_messages.removeFirst();
  ShowFirst();
}

QString MessageBar::GetText() const {
  return m_messages.value(0);
}

void MessageBar::ShowFirst() {
  m_text->setText(GetText());
  const int waiting = GetCount() - 1;
  m_waiting->setText(waiting > 0 ? tr("%1 more").arg(waiting) : QString());
  setVisible(!m_messages.isEmpty());
}

}  // namespace tessera::apps
