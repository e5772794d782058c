// SPDX-License-Identifier: MIT
#include <designer/ComponentSheet.h>
#include <designer/Components.h>
#include <designer/FormFollower.h>
#include <designer/PropertyChoices.h>

#include <QAction>
#include <QApplication>
#include <QCompleter>
#include <QDesignerPropertyEditorInterface>
#include <QLineEdit>
#include <QStyle>

namespace tessera::designer {
namespace {

void OfferChoices(QLineEdit &field, const QStringList &choices) {
  auto *completer = new QCompleter(choices, &field);
  completer->setCompletionMode(QCompleter::UnfilteredPopupCompletion);
  field.setCompleter(completer);
  const auto dropDown = [&field] {
    if (field.completer()) field.completer()->complete();
  };
  const QIcon arrow = field.style()->standardIcon(QStyle::SP_ArrowDown);
  QObject::connect(field.addAction(arrow, QLineEdit::TrailingPosition), &QAction::triggered, &field, dropDown);
  QMetaObject::invokeMethod(&field, dropDown, Qt::QueuedConnection);
}

}  // namespace

PropertyChoices::PropertyChoices(QDesignerFormEditorInterface &core) : QObject(&core), m_core(core) {
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget * /*from*/, QWidget *to) { FocusMoved(to); });
}

void PropertyChoices::FocusMoved(QWidget *to) {
  auto *field = qobject_cast<QLineEdit *>(to);
  const QDesignerPropertyEditorInterface *editor = m_core.propertyEditor();
  if (field == nullptr || field->completer() || editor == nullptr || !editor->isAncestorOf(field)) return;
  const QStringList choices = GetChoices();
  if (!choices.isEmpty()) OfferChoices(*field, choices);
}

QStringList PropertyChoices::GetChoices() const {
  const QDesignerPropertyEditorInterface *editor = m_core.propertyEditor();
  QObject *object = editor->object();
  const Component *component = object ? FindComponent(*object) : nullptr;
  if (component == nullptr) return {};
  const QString property = editor->currentPropertyName();
  if (component->mapProperty && property == QLatin1String(component->mapProperty)) {
    QDesignerFormWindowInterface *form = QDesignerFormWindowInterface::findFormWindow(object);
    return form ? GetMapNames(*form) : QStringList();
  }
  const auto *parts = ComponentSheet::Find(*object);
  return parts ? parts->GetChoices(property) : QStringList();
}

}  // namespace tessera::designer
