// SPDX-License-Identifier: MIT
#pragma once

#include <apps/editor/TEditorWindow.h>

#include <QTimer>

#include <random>

class QFileDialog;
class QFile;

namespace tessera::soak {

/// Who works with the editor's window: chance decides what is done, and everything goes through the window's events and
/// actions. Dialogs that come up are filled in and answered, messages are read and dismissed, and what is done is
/// noted.
class Person {
 public:
  /// With a folder for files; the notes also go to a file, if there is one.
  Person(apps::TEditorWindow &editor, QString folder, unsigned seed, QFile *log);

  // Chance.

  /// Begins anew, so that what one deed comes to leaves the next ones alone as far as can be.
  void BeginDeed(unsigned seed) { m_chance.seed(seed); }
  int Whole(int low, int high) { return std::uniform_int_distribution<int>(low, high)(m_chance); }
  double Real(double low, double high) { return std::uniform_real_distribution<double>(low, high)(m_chance); }
  bool OneIn(int n) { return Whole(1, n) == 1; }
  template <class List>
  decltype(auto) OneOf(const List &list) {
    return list[std::size_t(Whole(0, int(std::size(list)) - 1))];
  }
  QString Word();
  /// A pixel of the map, often one where a vertex of a displayed object is.
  QPoint Place();

  // Hands.

  void Press(const QPoint &at, Qt::KeyboardModifiers modifiers = {}, Qt::MouseButton button = Qt::LeftButton);
  void Move(const QPoint &at);
  void Release(const QPoint &at, Qt::MouseButton button = Qt::LeftButton);
  void Click(const QPoint &at, Qt::KeyboardModifiers modifiers = {}, Qt::MouseButton button = Qt::LeftButton);
  void DoubleClick(const QPoint &at);
  void Wheel(const QPoint &at, int delta);
  /// To what has the focus.
  void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {});
  void Type(const QString &text);
  /// A click on some other part of the window.
  void ClickOn(QWidget &widget, const QPoint &at);
  /// Triggers the action whose text begins so. False when it is not to be had.
  bool Choose(const QString &text);
  void Choose(QAction &action);

  // Eyes.

  /// Lets the window do all that it has to do at once.
  void Settle();
  void WaitForFiles();
  /// Reads and dismisses messages; those that nothing in the work explains are failures.
  void ReadMessages();

  void Note(const QString &text);
  void Fail(const QString &text);
  [[nodiscard]] const QStringList &GetNotes() const { return m_notes; }
  [[nodiscard]] const QStringList &GetFailures() const { return m_failures; }

  [[nodiscard]] QString FileNamed(const QString &name) const { return m_folder + u'/' + name; }
  /// A file to write a layer to: of few names, so that files are replaced.
  QString FileToWrite();
  /// Until this step nothing is undone by itself.
  int firstStep = 0;

  apps::TEditorWindow &window;
  TTessera &map;

 private:
  void LookForDialogs();
  void Answer(QWidget &dialog);
  void AnswerFile(QFileDialog &dialog);
  void FillIn(QWidget &dialog);

  QString m_folder;
  std::mt19937 m_chance;
  QFile *m_log;
  QStringList m_notes;
  QStringList m_failures;
  QTimer m_look;
};

}  // namespace tessera::soak
