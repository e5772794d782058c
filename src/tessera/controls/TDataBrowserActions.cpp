// SPDX-License-Identifier: MIT
// What a person does with the browser: the bar above the grid, the actions, and what they ask. Nothing here waits for
// an answer, so that nobody is stuck in a dialog while the map changes.
#include <tessera/base/GuardedCall.h>
#include <tessera/controls/TDataBrowser.h>
#include <tessera/controls/detail/ColumnDialog.h>

#include <QAction>
#include <QFileDialog>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTimer>

namespace tessera {
namespace {

/// How long typing pauses before the rows are filtered.
constexpr int TypingPauseMs = 250;

QLineEdit *MakeEdit(QWidget *parent, const QString &name) {
  auto *edit = new QLineEdit(parent);
  edit->setPlaceholderText(name);
  edit->setAccessibleName(name);
  edit->setClearButtonEnabled(true);
  return edit;
}

}  // namespace

void TDataBrowser::MakeBar() {
  m_filterEdit = MakeEdit(this, tr("Filter"));
  m_findEdit = MakeEdit(this, tr("Find"));
  auto *bar = new QHBoxLayout;
  bar->addWidget(m_filterEdit);
  bar->addWidget(m_findEdit);
  static_cast<QBoxLayout *>(layout())->addLayout(bar);

  auto *pause = new QTimer(this);
  pause->setSingleShot(true);
  pause->setInterval(TypingPauseMs);
  connect(m_filterEdit, &QLineEdit::textChanged, pause, qOverload<>(&QTimer::start));
  const auto filter = [this, pause] {
    pause->stop();
    SetFilter(m_filterEdit->text());
  };
  connect(pause, &QTimer::timeout, this, filter);
  connect(m_filterEdit, &QLineEdit::returnPressed, this, filter);
  connect(m_findEdit, &QLineEdit::returnPressed, this, &TDataBrowser::FindTyped);
}

void TDataBrowser::AddAction(const QString &text, const QKeySequence &key, void (TDataBrowser::*run)()) {
  auto *action = new QAction(text, m_view);
  action->setShortcut(key);
  action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  connect(action, &QAction::triggered, this, [this, run] { GuardedCall([&] { (this->*run)(); }); });
  m_view->addAction(action);
}

void TDataBrowser::MakeActions() {
  AddAction(tr("&Copy"), QKeySequence::Copy, &TDataBrowser::Copy);
  AddAction(tr("&Paste"), QKeySequence::Paste, &TDataBrowser::Paste);
  AddAction(tr("C&lear"), QKeySequence::Delete, &TDataBrowser::ClearCells);
  AddAction(tr("&Find Next"), QKeySequence::FindNext, &TDataBrowser::FindTyped);
  AddAction(tr("&Add Column…"), {}, &TDataBrowser::AskForNewColumn);
  AddAction(tr("Re&name Column…"), {}, &TDataBrowser::AskForName);
  AddAction(tr("&Remove Column…"), {}, &TDataBrowser::AskToRemoveColumn);
  AddAction(tr("&Export…"), {}, &TDataBrowser::AskForFile);
  m_view->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void TDataBrowser::FindTyped() {
  const bool isFound = m_findEdit->text().isEmpty() || Find(m_findEdit->text());
  m_findEdit->setToolTip(isFound ? QString() : tr("Not found"));
  QPalette look = palette();
  if (!isFound) look.setColor(QPalette::Text, Qt::red);
  m_findEdit->setPalette(look);
}

void TDataBrowser::AskForNewColumn() {
  auto *dialog = new detail::ColumnDialog(this);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  connect(dialog, &QDialog::accepted, this,
          [this, dialog] { m_model->AddColumn(dialog->GetName(), dialog->GetType(), dialog->GetSize()); });
  dialog->open();
}

void TDataBrowser::AskForName() {
  const int column = m_view->currentIndex().column();
  if (column < 0) return;
  const QString name = m_model->headerData(column, Qt::Horizontal, TLayerTableModel::TextRole).toString();
  auto *dialog = new QInputDialog(this);
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setWindowTitle(tr("Rename Column"));
  dialog->setLabelText(tr("New name of the column “%1”:").arg(name));
  dialog->setTextValue(name);
  connect(dialog, &QInputDialog::textValueSelected, this,
          [this, name](const QString &newName) { m_model->RenameColumn(m_model->ColumnNamed(name), newName); });
  dialog->open();
}

void TDataBrowser::AskToRemoveColumn() {
  const int column = m_view->currentIndex().column();
  if (column < 0) return;
  const QString name = m_model->headerData(column, Qt::Horizontal, TLayerTableModel::TextRole).toString();
  auto *box = new QMessageBox(QMessageBox::Question, tr("Remove Column"),
                              tr("Remove the column “%1” and its values from all objects?").arg(name),
                              QMessageBox::Yes | QMessageBox::No, this);
  box->setAttribute(Qt::WA_DeleteOnClose);
  connect(box, &QDialog::finished, this, [this, name](int answer) {
    if (answer == QMessageBox::Yes) m_model->RemoveColumn(m_model->ColumnNamed(name));
  });
  box->open();
}

void TDataBrowser::AskForFile() {
  auto *dialog = new QFileDialog(this, tr("Export"), QString(), tr("Comma-separated values (*.csv)"));
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setDefaultSuffix(QStringLiteral("csv"));
  connect(dialog, &QFileDialog::fileSelected, this,
          [this](const QString &fileName) { GuardedCall([&] { ExportCsv(fileName); }); });
  dialog->open();
}

}  // namespace tessera
