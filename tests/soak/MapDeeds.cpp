// SPDX-License-Identifier: MIT
#include "Deeds.h"
#include "Person.h"

#include <apps/editor/EditorTools.h>

#include <QMenuBar>
#include <QUndoStack>

namespace tessera::soak {
namespace {

constexpr int WheelStep = 120;

Qt::KeyboardModifiers SomeModifiers(Person &person) {
  constexpr Qt::KeyboardModifiers Kinds[] = {Qt::NoModifier, Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier};
  return person.OneOf(Kinds);
}

bool ChooseTool(Person &person) {
  QAction *tool = person.OneOf(person.window.GetTools().GetActions());
  if (!tool->isEnabled()) return false;
  person.Choose(*tool);
  return true;
}

/// What a person does in the middle of something, on second thoughts.
void ThinkBetter(Person &person) {
  switch (person.Whole(0, 4)) {
    case 0:
      return person.Key(Qt::Key_Escape);
    case 1:
      ChooseTool(person);
      return;
    case 2:
      return person.Click(person.Place(), {}, Qt::RightButton);
    case 3:
      return person.Key(Qt::Key_Delete);
    default:
      person.window.GetUndoStack().index() > person.firstStep &&person.Choose(QStringLiteral("&Undo"));
  }
}

void Drag(Person &person) {
  const QPoint from = person.Place();
  QPoint to = person.Place();
  if (person.OneIn(2)) to = from + QPoint(person.Whole(-30, 30), person.Whole(-30, 30));
  const auto button = person.OneIn(8) ? Qt::MiddleButton : Qt::LeftButton;
  person.Press(from, SomeModifiers(person), button);
  person.Move((from + to) / 2);
  person.Move(to);
  if (person.OneIn(6)) ThinkBetter(person);
  person.Release(to, button);
}

void ClickAlong(Person &person) {
  for (int n = person.Whole(1, 5); n > 0; --n) {
    const QPoint at = person.Place();
    person.Move(at);
    person.Click(at, SomeModifiers(person));
    if (person.OneIn(10)) person.Wheel(at, person.OneIn(2) ? WheelStep : -WheelStep);
  }
  if (person.OneIn(3)) return ThinkBetter(person);
  person.DoubleClick(person.Place());
}

void TypeText(Person &person) {
  person.Click(person.Place());
  person.Type(person.Word());
  constexpr Qt::Key Ends[] = {Qt::Key_Return, Qt::Key_Return, Qt::Key_Backspace, Qt::Key_Left, Qt::Key_Escape};
  person.Key(person.OneOf(Ends));
}

/// One or a few gestures with any tool; the tool stays.
void UseTool(Person &person) {
  if (!ChooseTool(person)) return;
  constexpr void (*Gestures[])(Person &) = {Drag, Drag, ClickAlong, ClickAlong, TypeText};
  for (int n = person.Whole(1, 3); n > 0; --n) person.OneOf(Gestures)(person);
}

void SelectSome(Person &person) {
  static const QString tools[] = {QStringLiteral("&Select"), QStringLiteral("Select by r&ectangle"),
                                  QStringLiteral("Select &by circle")};
  if (!person.Choose(person.OneOf(tools))) return;
  person.OneIn(2) ? Drag(person) : person.Click(person.Place(), SomeModifiers(person));
}

/// What there is to do with selected objects.
void WorkOnSelection(Person &person) {
  static const QString texts[] = {
      QStringLiteral("Cu&t obj"),       QStringLiteral("&Copy obj"),    QStringLiteral("&Paste obj"),
      QStringLiteral("&Paste obj"),     QStringLiteral("Dup&licate"),   QStringLiteral("Bring to"),
      QStringLiteral("Send to"),        QStringLiteral("&Delete sel"),  QStringLiteral("&Split line"),
      QStringLiteral("&Join lines"),    QStringLiteral("Re&verse"),     QStringLiteral("Align &left"),
      QStringLiteral("Align &bottom"),  QStringLiteral("Center &hori"), QStringLiteral("Fit &selection"),
      QStringLiteral("Select &nothing")};
  SelectSome(person);
  person.Choose(person.OneOf(texts));
}

void UndoAndRedo(Person &person) {
  const QUndoStack &steps = person.window.GetUndoStack();
  for (int n = person.Whole(0, 5); n > 0 && steps.index() > person.firstStep; --n)
    person.Choose(QStringLiteral("&Undo"));
  for (int n = person.Whole(0, 5); n > 0 && steps.canRedo(); --n) person.Choose(QStringLiteral("&Redo"));
}

void LookAround(Person &person) {
  constexpr Qt::Key Keys[] = {Qt::Key_Left, Qt::Key_Right, Qt::Key_Up,   Qt::Key_Down,
                              Qt::Key_Plus, Qt::Key_Minus, Qt::Key_Home, Qt::Key_Escape};
  person.map.setFocus();
  for (int n = person.Whole(1, 4); n > 0; --n) {
    person.OneIn(2) ? person.Wheel(person.Place(), WheelStep * person.Whole(-2, 2)) : person.Key(person.OneOf(Keys));
  }
  if (person.OneIn(3)) person.Choose(person.OneIn(2) ? QStringLiteral("Fit &all") : QStringLiteral("Fit &layer"));
}

void Rotate(Person &person) {
  person.Choose(person.OneIn(2) ? QStringLiteral("&Rotate…") : QStringLiteral("Rotate &back"));
}

void ChangeEditing(Person &person) {
  person.Choose(QStringLiteral("Edit or"));
}

void EditSomething(Person &person) {
  if (person.map.GetLayers()->GetEditableLayer() == nullptr) ChangeEditing(person);
}

void CollectActions(const QMenu &menu, QList<QAction *> &actions) {
  for (QAction *action : menu.actions()) {
    if (action->menu() != nullptr) {
      CollectActions(*action->menu(), actions);
    } else if (!action->isSeparator() && action->isEnabled()) {
      actions.append(action);
    }
  }
}

void ChooseFromMenus(Person &person) {
  QList<QAction *> actions;
  for (const QAction *top : person.window.menuBar()->actions()) CollectActions(*top->menu(), actions);
  QAction *action = person.OneOf(actions);
  // The work is not over yet, and only a few steps may be undone.
  for (const char *left : {"&Quit", "&Undo"}) {
    if (action->text().startsWith(QLatin1String(left))) return;
  }
  person.Choose(*action);
}

/// So short that pictures take several steps.
void PaintInShortSteps(Person &person) {
  person.map.GetPainting()->SetStepMs(person.OneIn(2) ? 50 : person.Whole(0, 3));
}

}  // namespace

std::span<const Deed> MapDeeds() {
  static constexpr Deed Deeds[] = {{"tool", 40, UseTool},
                                   {"text", 2, TypeText},
                                   {"select", 8, SelectSome},
                                   {"selection", 20, WorkOnSelection},
                                   {"undo and redo", 6, UndoAndRedo},
                                   {"look around", 8, LookAround},
                                   {"rotate", 2, Rotate},
                                   {"editing", 1, ChangeEditing},
                                   {"edit something", 12, EditSomething},
                                   {"menus", 8, ChooseFromMenus},
                                   {"short steps", 2, PaintInShortSteps}};
  return Deeds;
}

}  // namespace tessera::soak
