// SPDX-License-Identifier: MIT
#include "Deeds.h"
#include "Person.h"

#include <apps/editor/FindBar.h>
#include <apps/editor/LayerDocks.h>
#include <apps/editor/MapDecorations.h>
#include <apps/editor/UnitsMenu.h>
#include <tessera/controls/LayerCtrl.h>
#include <tessera/controls/LayersComboBox.h>
#include <tessera/controls/TDataBrowser.h>
#include <tessera/controls/TObjectProperties.h>

#include <QAbstractItemModel>
#include <QGuiApplication>
#include <QHeaderView>
#include <QLineEdit>

namespace tessera::soak {
namespace {

void ShowOrHide(Person &person) {
  auto actions = person.window.GetDocks().GetActions() + person.window.GetDecorations().GetActions();
  person.Choose(*person.OneOf(actions));
}

/// A cell of a table that is shown; none of an empty one.
QModelIndex ClickOnCell(Person &person, QTableView &table) {
  const QAbstractItemModel &model = *table.model();
  if (!table.isVisible() || model.rowCount() == 0 || model.columnCount() == 0) return {};
  const QModelIndex cell = model.index(person.Whole(0, model.rowCount() - 1), person.Whole(0, model.columnCount() - 1));
  table.scrollTo(cell);
  person.ClickOn(*table.viewport(), table.visualRect(cell).center());
  return cell;
}

void WorkInLayerList(Person &person) {
  auto &list = *person.window.findChild<TLayerControl *>();
  const QModelIndex cell = ClickOnCell(person, list);
  constexpr Qt::Key Keys[] = {Qt::Key_Space, Qt::Key_Down, Qt::Key_Up, Qt::Key_Right, Qt::Key_Escape, Qt::Key_Delete};
  if (!cell.isValid() || person.OneIn(2)) return;
  list.setFocus();
  person.Key(person.OneOf(Keys), person.OneIn(3) ? Qt::ControlModifier : Qt::NoModifier);
}

void ChooseEditableLayer(Person &person) {
  auto &choice = *person.window.findChild<TLayersComboBox *>();
  if (choice.count() == 0) return;
  choice.setFocus();
  constexpr Qt::Key Keys[] = {Qt::Key_Down, Qt::Key_Up, Qt::Key_Home, Qt::Key_End};
  person.Key(person.OneOf(Keys));
}

void EditCell(Person &person, QTableView &table) {
  if (!ClickOnCell(person, table).isValid()) return;
  table.setFocus();
  person.Key(Qt::Key_F2);
  person.Type(person.Word());
  constexpr Qt::Key Ends[] = {Qt::Key_Return, Qt::Key_Return, Qt::Key_Tab, Qt::Key_Escape};
  person.Key(person.OneOf(Ends));
}

void WorkInGrid(Person &person) {
  auto &browser = *person.window.findChild<TDataBrowser *>();
  QTableView &grid = *browser.GetView();
  if (!browser.isVisible()) return person.Choose(*person.window.GetDocks().GetActions().at(1));
  const auto edits = browser.findChildren<QLineEdit *>(QString(), Qt::FindDirectChildrenOnly);
  switch (person.Whole(0, 3)) {
    case 0:
      return person.ClickOn(*grid.horizontalHeader()->viewport(), {person.Whole(5, 300), 8});
    case 1:
      ClickOnCell(person, grid);
      return person.Choose(*person.OneOf(grid.actions()));
    case 2:
      if (edits.isEmpty()) return person.Fail(QStringLiteral("The grid has no bar"));
      person.OneOf(edits)->setFocus();
      person.Key(Qt::Key_A, Qt::ControlModifier);
      person.OneIn(2) ? person.Type(person.Word()) : person.Key(Qt::Key_Backspace);
      return person.Key(Qt::Key_Return);
    default:
      return EditCell(person, grid);
  }
}

void WorkOnProperties(Person &person) {
  auto &panel = *person.window.findChild<TObjectProperties *>();
  if (!panel.isVisible()) return person.Choose(*person.window.GetDocks().GetActions().at(3));
  EditCell(person, *panel.GetView());
}

void Find(Person &person) {
  static const QString conditions[] = {QStringLiteral("Name LIKE 'B%'"), QStringLiteral("Size > 10 AND Size < 50"),
                                       QStringLiteral("Name ="), QStringLiteral("1 = 1"), QStringLiteral("Nobody = 3")};
  person.Choose(QStringLiteral("Fi&nd…"));
  QLineEdit &edit = person.window.GetFindBar().GetEdit();
  edit.setText(person.OneOf(conditions));
  person.Key(Qt::Key_Return);
  if (person.OneIn(2)) person.window.GetFindBar().hide();
}

void ChooseUnits(Person &person) {
  person.Choose(*person.OneOf(person.window.GetUnits().actions()));
}

void Resize(Person &person) {
  if (person.OneIn(6)) {
    person.window.hide();
    person.Settle();
    person.window.show();
  }
  person.window.resize(person.Whole(500, 1200), person.Whole(400, 900));
}

void SwitchPalette(Person &person) {
  QPalette palette;
  if (person.OneIn(2)) palette = QPalette(QColor(45, 45, 48));
  QGuiApplication::setPalette(palette);
}

}  // namespace

std::span<const Deed> PanelDeeds() {
  static constexpr Deed Deeds[] = {{"panels", 2, ShowOrHide},
                                   {"layer list", 6, WorkInLayerList},
                                   {"editable layer", 3, ChooseEditableLayer},
                                   {"grid", 8, WorkInGrid},
                                   {"properties", 6, WorkOnProperties},
                                   {"find", 3, Find},
                                   {"units", 1, ChooseUnits},
                                   {"resize", 2, Resize},
                                   {"palette", 1, SwitchPalette}};
  return Deeds;
}

}  // namespace tessera::soak
