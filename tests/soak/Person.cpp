// SPDX-License-Identifier: MIT
#include "Person.h"

#include <apps/editor/LayerFiles.h>
#include <apps/editor/MessageBar.h>
#include <tessera/formats/detail/MitabLibrary.h>

#include <QAbstractEventDispatcher>
#include <QAbstractSpinBox>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QDrag>
#include <QFile>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPushButton>
#include <QRegularExpression>
#include <QTest>

#include <algorithm>

namespace tessera::soak {
namespace {

constexpr int NotesKept = 80;
constexpr int LookIntervalMs = 10;

/// What may be said to somebody who works like this.
const QRegularExpression &UsualMessages() {
  static const QRegularExpression usual(QStringLiteral(
      "^There is no layer|no editable layer|their layer is not editable|^A line is split|^No ends of "
      "selected|lost: |” is (not|no) |” is neither | cells? keeps? |^A column needs a name|^The columns cannot be|"
      "^Opposite sides must|” is longer than the |^There is a column "));
  return usual;
}

}  // namespace

Person::Person(apps::TEditorWindow &editor, QString folder, unsigned seed, QFile *log)
    : window(editor), map(editor.GetMap()), m_folder(std::move(folder)), m_chance(seed), m_log(log) {
  // A dialog may ask a question of its own: the timer does not fire again while it waits for something.
  QObject::connect(
      &m_look, &QTimer::timeout, &m_look, [this] { LookForDialogs(); }, Qt::QueuedConnection);
  m_look.start(LookIntervalMs);
}

QString Person::Word() {
  static const QStringList words = {
      QStringLiteral("Oak Street"), QStringLiteral("Река"),       QStringLiteral("12"), QStringLiteral("-7.5"),
      QStringLiteral("a,b\"c\""),   QStringLiteral("2024-02-29"), QStringLiteral("T")};
  return OneOf(words);
}

QPoint Person::Place() {
  const auto shown = map.GetDisplayed()->Items();
  if (!shown.empty() && OneIn(2)) {
    const TCustomMapObject *object = OneOf(shown);
    const auto &parts = object->GetParts();
    if (parts.GetCount() > 0 && parts.GetFirst().GetPoints().GetCount() > 0) {
      const TMapPoint &at = OneOf(parts.GetFirst().GetPoints().Points());
      const QPointF pixel = map.GetViewport().MapToScreen(at.X, at.Y);
      if (map.rect().contains(pixel.toPoint())) return pixel.toPoint();
    }
  }
  return {Whole(1, std::max(1, map.width() - 2)), Whole(1, std::max(1, map.height() - 2))};
}

void Person::Press(const QPoint &at, Qt::KeyboardModifiers modifiers, Qt::MouseButton button) {
  QTest::mousePress(window.windowHandle(), button, modifiers, map.mapTo(&window, at));
}

void Person::Move(const QPoint &at) {
  QTest::mouseMove(window.windowHandle(), map.mapTo(&window, at));
}

void Person::Release(const QPoint &at, Qt::MouseButton button) {
  QTest::mouseRelease(window.windowHandle(), button, {}, map.mapTo(&window, at));
}

void Person::Click(const QPoint &at, Qt::KeyboardModifiers modifiers, Qt::MouseButton button) {
  Press(at, modifiers, button);
  Release(at, button);
}

void Person::DoubleClick(const QPoint &at) {
  QTest::mouseDClick(window.windowHandle(), Qt::LeftButton, {}, map.mapTo(&window, at));
}

void Person::Wheel(const QPoint &at, int delta) {
  QWheelEvent event(at, map.mapToGlobal(at), {}, {0, delta}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(&map, &event);
}

void Person::Key(Qt::Key key, Qt::KeyboardModifiers modifiers) {
  QTest::keyClick(window.windowHandle(), key, modifiers);
}

void Person::Type(const QString &text) {
  for (const QChar letter : text) QTest::sendKeyEvent(QTest::Click, window.windowHandle(), Qt::Key_unknown, letter, {});
}

void Person::ClickOn(QWidget &widget, const QPoint &at) {
  const QPoint inWindow = widget.mapTo(&window, at);
  if (widget.isVisible() && window.rect().contains(inWindow))
    QTest::mouseClick(window.windowHandle(), Qt::LeftButton, {}, inWindow);
}

bool Person::Choose(const QString &text) {
  const auto actions = window.findChildren<QAction *>();
  const auto found = std::find_if(actions.begin(), actions.end(), [&text](const QAction *action) {
    return action->isEnabled() && action->text().startsWith(text);
  });
  if (found == actions.end()) return false;
  Choose(**found);
  return true;
}

void Person::Choose(QAction &action) {
  Note(action.text());
  action.trigger();
}

void Person::Settle() {
  // Nothing to do three times in a row: what one event asks for, another may have been left to do.
  for (int idle = 0; idle < 3;) {
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    idle = QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents) ? 0 : idle + 1;
    if (QApplication::activeModalWidget() == nullptr && QApplication::activePopupWidget() == nullptr) continue;
    idle = 0;
    LookForDialogs();
  }
}

void Person::WaitForFiles() {
  while (window.GetFiles().IsOpening()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  Settle();
}

void Person::ReadMessages() {
  apps::MessageBar &bar = window.GetMessageBar();
  while (bar.GetCount() > 0) {
    const QString text = bar.GetText();
    Note(QStringLiteral("message: ") + text);
    if (!UsualMessages().match(text).hasMatch()) Fail(QStringLiteral("An unexpected message: ") + text);
    bar.Dismiss();
  }
}

void Person::Note(const QString &text) {
  m_notes.append(text);
  if (m_notes.size() > NotesKept) m_notes.removeFirst();
  if (m_log == nullptr) return;
  m_log->write(text.toUtf8() + '\n');
  m_log->flush();
}

void Person::Fail(const QString &text) {
  Note(QStringLiteral("FAILURE: ") + text);
  m_failures.append(text);
}

QString Person::FileToWrite() {
  const bool isTab = detail::EnsureMitab() && OneIn(3);
  return FileNamed(
      QStringLiteral("saved%1.%2").arg(Whole(1, 5)).arg(isTab ? QStringLiteral("tab") : QStringLiteral("mif")));
}

void Person::LookForDialogs() {
  // Selected text that is dragged off its label waits for the button, which would only be released after that.
  QDrag::cancel();
  if (QWidget *popup = QApplication::activePopupWidget()) {
    popup->close();
  } else if (QWidget *dialog = QApplication::activeModalWidget()) {
    Answer(*dialog);
  }
}

void Person::Answer(QWidget &dialog) {
  Note(QStringLiteral("dialog: ") + dialog.windowTitle());
  if (auto *file = qobject_cast<QFileDialog *>(&dialog)) return AnswerFile(*file);
  const QPointer<QDialog> asked(qobject_cast<QDialog *>(&dialog));
  if (!asked) return Fail(QStringLiteral("Something blocks the window: ") + dialog.windowTitle());
  const bool isPrinting = qobject_cast<QAbstractPrintDialog *>(&dialog) || qobject_cast<QPrintPreviewDialog *>(&dialog);
  if (isPrinting || OneIn(5)) return asked->reject();
  if (qobject_cast<QMessageBox *>(&dialog) == nullptr) FillIn(dialog);
  if (!asked) return;
  const auto *box = asked->findChild<QDialogButtonBox *>(QString(), Qt::FindDirectChildrenOnly);
  const auto buttons = box == nullptr ? QList<QAbstractButton *>() : box->buttons();
  if (buttons.isEmpty() || (OneIn(2) && qobject_cast<QMessageBox *>(&dialog) == nullptr)) return asked->accept();
  QAbstractButton *button = OneOf(buttons);
  Note(QStringLiteral("button: ") + button->text());
  button->click();
}

void Person::AnswerFile(QFileDialog &dialog) {
  if (OneIn(4)) return static_cast<QDialog &>(dialog).reject();
  QString name = FileToWrite();
  if (dialog.acceptMode() == QFileDialog::AcceptOpen) {
    const QStringList files = QDir(m_folder).entryList({QStringLiteral("*.mif"), QStringLiteral("*.tab")});
    name = FileNamed(OneOf(files));
  } else if (dialog.nameFilters().value(0).contains(QStringLiteral("png"))) {
    static const QStringList endings = {QStringLiteral("png"), QStringLiteral("jpg"), QStringLiteral("svg"),
                                        QStringLiteral("pdf")};
    name = FileNamed(QStringLiteral("picture.") + OneOf(endings));
  } else if (dialog.nameFilters().value(0).contains(QStringLiteral("csv"))) {
    name = FileNamed(QStringLiteral("table.csv"));
  }
  Note(QStringLiteral("file: ") + name);
  dialog.findChild<QLineEdit *>(QStringLiteral("fileNameEdit"))->setText(name);
  static_cast<QDialog &>(dialog).accept();
}

void Person::FillIn(QWidget &dialog) {
  for (QSpinBox *spin : dialog.findChildren<QSpinBox *>()) {
    if (OneIn(3)) spin->setValue(Whole(0, 20));
  }
  for (QDoubleSpinBox *spin : dialog.findChildren<QDoubleSpinBox *>()) spin->setValue(OneIn(4) ? 0 : Real(-90, 90));
  for (QComboBox *choice : dialog.findChildren<QComboBox *>()) {
    if (OneIn(3) && choice->count() > 0) choice->setCurrentIndex(Whole(0, choice->count() - 1));
  }
  for (QLineEdit *line : dialog.findChildren<QLineEdit *>()) {
    const bool isNumber = qobject_cast<QAbstractSpinBox *>(line->parentWidget()) != nullptr;
    if (!isNumber && OneIn(2)) line->setText(Word());
  }
  const QPointer<QWidget> kept(&dialog);
  const auto buttons = dialog.findChildren<QPushButton *>();
  const auto *box = dialog.findChild<QDialogButtonBox *>(QString(), Qt::FindDirectChildrenOnly);
  QPushButton *button = buttons.isEmpty() ? nullptr : OneOf(buttons);
  // Some buttons ask in a dialog of their own.
  if (button != nullptr && button->isVisible() && (box == nullptr || !box->isAncestorOf(button)) && kept)
    button->click();
}

}  // namespace tessera::soak
