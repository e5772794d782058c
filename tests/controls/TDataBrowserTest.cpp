// SPDX-License-Identifier: MIT
#include "../support/MapInput.h"
#include "ControlFixture.h"

#include <tessera/base/Exceptions.h>
#include <tessera/controls/TDataBrowser.h>

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QDateEdit>
#include <QDialog>
#include <QFile>
#include <QHeaderView>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QMetaProperty>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTest>
#include <QUndoStack>

namespace tessera::test {
namespace {

using enum TDataType;

class TDataBrowserTest : public ControlFixture {
 protected:
  TDataBrowserTest() {
    map->resize(100, 100);
    layer->GetFields().Add(QStringLiteral("name"), dtString, 10);
    layer->GetFields().Add(QStringLiteral("count"), dtSmallInt, 0);
    layer->GetFields().Add(QStringLiteral("since"), dtDate, 0);
    layer->GetFields().Add(QStringLiteral("open"), dtBoolean, 0);
    for (const auto &[name, count] : {std::pair(u"Oslo", 30), {u"Bern", 5}, {u"Rome", 200}, {u"bonn", -1}}) {
      AddObject(QString::fromUtf16(name), count);
    }
    AddObject(QStringLiteral("Riga"), {});
    browser->resize(500, 300);
    browser->SetLayer(layer);
    browser->show();
    Settle();
  }

  TCustomMapObject *AddObject(const QString &name, const TDataValue &count) {
    TCustomMapObject *object = layer->NewObject<TRegion>();
    object->GetFields().GetFields(0).SetValue(name);
    object->GetFields().GetFields(1).SetValue(count);
    return object;
  }
  QTableView &View() { return *browser->GetView(); }
  QModelIndex At(int row, int column) { return View().model()->index(row, column); }
  QString Text(int row, int column) { return At(row, column).data(TLayerTableModel::TextRole).toString(); }
  QString Column(int column) {
    QStringList texts;
    for (int row = 0; row < View().model()->rowCount(); ++row) texts << Text(row, column);
    return texts.join(u' ');
  }
  void Select(int row, int column, int lastRow, int lastColumn) {
    View().setCurrentIndex(At(row, column));
    View().selectionModel()->select(QItemSelection(At(row, column), At(lastRow, lastColumn)),
                                    QItemSelectionModel::ClearAndSelect);
  }
  void Trigger(const char *text) {
    for (QAction *action : View().actions()) {
      if (action->text().remove(u'&').startsWith(QString::fromUtf8(text))) return action->trigger();
    }
    FAIL() << text;
  }
  static QString Clipboard() { return QGuiApplication::clipboard()->text(); }
  /// The names of the selected objects, in the order of the layer.
  QString SelectedOnMap() const {
    QStringList names;
    for (int i = 0; i < layer->GetObjectCount(); ++i) {
      if (layer->GetObjects(i)->GetSelected()) names << layer->GetObjects(i)->GetFields().GetFields(0).GetAsString();
    }
    return names.join(u' ');
  }
  QString SelectedInView() {
    Settle();
    QStringList names;
    for (int row = 0; row < View().model()->rowCount(); ++row) {
      if (View().selectionModel()->rowIntersectsSelection(row, {})) names << Text(row, 0);
    }
    return names.join(u' ');
  }
  /// Opens the editor of a cell, which the test types into.
  template <class Editor>
  Editor *Edit(int row, int column) {
    View().setCurrentIndex(At(row, column));
    View().edit(At(row, column));
    return View().findChild<Editor *>();
  }

  TMapLayer *layer = AddLayer(QStringLiteral("towns"));
  std::unique_ptr<TDataBrowser> browser = std::make_unique<TDataBrowser>();
};

TEST_F(TDataBrowserTest, PublishesItsMapItsLayerAndTheSwitch) {
  QStringList published;
  const QMetaObject &type = *browser->metaObject();
  for (int i = type.propertyOffset(); i < type.propertyCount(); ++i)
    published << QString::fromLatin1(type.property(i).name());
  EXPECT_EQ(published.join(u' '), QStringLiteral("Map Layer ReadOnly"));
  TDataBrowser other;
  EXPECT_TRUE(other.setProperty("Layer", QStringLiteral("TOWNS")));
  EXPECT_EQ(other.GetLayer(), nullptr);
  other.SetMap(map.get());
  EXPECT_EQ(other.GetLayer(), layer);
  other.SetLayerName(QStringLiteral("later"));
  EXPECT_EQ(other.GetLayer(), nullptr);
  TMapLayer *later = AddLayer(QStringLiteral("later"));
  EXPECT_EQ(other.GetLayer(), later);
  later->SetName(QStringLiteral("new"));
  EXPECT_EQ(other.GetLayerName(), QStringLiteral("new"));
  map->GetLayers()->Delete(1);
  EXPECT_EQ(other.GetLayer(), nullptr);
  layer->SetName(QStringLiteral("new"));
  EXPECT_EQ(other.GetLayer(), layer);
}

TEST_F(TDataBrowserTest, EditsACellInAnEditorThatFits) {
  auto *text = Edit<QLineEdit>(0, 0);
  ASSERT_TRUE(text);
  EXPECT_EQ(text->maxLength(), 10);
  text->clear();
  QTest::keyClicks(text, QStringLiteral("Stavanger and more"));
  QTest::keyClick(text, Qt::Key_Return);
  Settle();
  EXPECT_EQ(Text(0, 0), QStringLiteral("Stavanger "));

  auto *number = Edit<QLineEdit>(0, 1);
  ASSERT_TRUE(number);
  EXPECT_EQ(number->toolTip(), QStringLiteral("-32768 … 32767"));
  number->setText(QStringLiteral("40000"));
  QTest::keyClick(number, Qt::Key_Return);
  Settle();
  EXPECT_EQ(Text(0, 1), QStringLiteral("30"));
  EXPECT_EQ(messages, QStringList{QStringLiteral("count: 40000 does not lie between -32768 and 32767.")});

  auto *date = Edit<QDateEdit>(0, 2);
  ASSERT_TRUE(date);
  QTest::keyClick(date, Qt::Key_Return);
  Settle();
  EXPECT_EQ(Text(0, 2), QString()) << "nothing was entered";
  date = Edit<QDateEdit>(0, 2);
  date->setDate(QDate(2001, 2, 3));
  QTest::keyClick(date, Qt::Key_Return);
  Settle();
  EXPECT_EQ(At(0, 2).data(Qt::EditRole), QDate(2001, 2, 3));

  View().setCurrentIndex(At(0, 3));
  QTest::keyClick(&View(), Qt::Key_Space);
  EXPECT_EQ(Text(0, 3), QStringLiteral("True"));
  browser->SetReadOnly(true);
  QTest::keyClick(&View(), Qt::Key_Space);
  EXPECT_EQ(Text(0, 3), QStringLiteral("True"));
}

TEST_F(TDataBrowserTest, ShowsAndTakesNumbersAndDatesInItsLocaleAndExportsThemInNone) {
  browser->GetModel()->AddColumn(QStringLiteral("share"), dtFloat, 0);
  layer->First()->GetFields().GetFields(2).SetValue(45443.0);
  layer->First()->GetFields().GetFields(4).SetValue(0.5);
  browser->setLocale(QLocale(QLocale::Russian));
  Settle();
  EXPECT_EQ(Text(0, 2), u"31.05.2024");
  EXPECT_EQ(Text(0, 4), u"0,5");
  auto *editor = Edit<QLineEdit>(1, 4);
  editor->setText(QStringLiteral("2,75"));
  QTest::keyClick(editor, Qt::Key_Return);
  Settle();
  EXPECT_EQ(layer->GetObjects(1)->GetFields().GetFields(4).GetValue(), TDataValue(2.75));
  EXPECT_EQ(Edit<QDateEdit>(0, 2)->text(), u"31.05.2024");
  Select(0, 2, 0, 4);
  browser->Copy();
  EXPECT_EQ(Clipboard(), u"31.05.2024\t\t0,5\n");
  const QTemporaryDir folder;
  browser->ExportCsv(folder.filePath(QStringLiteral("towns.csv")));
  QFile file(folder.filePath(QStringLiteral("towns.csv")));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_TRUE(file.readAll().contains("2024-05-31,,0.5"));
}

TEST_F(TDataBrowserTest, SortsAndFiltersWithoutTouchingTheLayersOrder) {
  const QString inOrder = QStringLiteral("Oslo Bern Rome bonn Riga");
  EXPECT_EQ(Column(0), inOrder);
  browser->SortBy(0, Qt::AscendingOrder);
  EXPECT_EQ(Column(0), QStringLiteral("Bern bonn Oslo Riga Rome"));
  browser->SortBy(1, Qt::AscendingOrder);
  EXPECT_EQ(Column(0), QStringLiteral("bonn Bern Oslo Rome Riga")) << "unassigned values come last";
  browser->GetModel()->setData(browser->GetModel()->index(0, 1), 1000);
  EXPECT_EQ(Column(0), QStringLiteral("bonn Bern Rome Oslo Riga"));
  AddObject(QStringLiteral("Kiel"), 50);
  Settle();
  EXPECT_EQ(Column(0), QStringLiteral("bonn Bern Kiel Rome Oslo Riga"));
  layer->TakeObject(layer->Last());
  Settle();
  browser->SetFilter(QStringLiteral("O"));
  EXPECT_EQ(Column(0), QStringLiteral("bonn Rome Oslo"));
  browser->SortBy(-1, Qt::AscendingOrder);
  EXPECT_EQ(Column(0), QStringLiteral("Oslo Rome bonn"));
  auto *edit = browser->findChild<QLineEdit *>();
  edit->setText(QStringLiteral("200"));
  QTest::keyClick(edit, Qt::Key_Return);
  EXPECT_EQ(Column(0), QStringLiteral("Rome"));
  browser->SetFilter(QString());
  EXPECT_EQ(Column(0), inOrder);
  // By the header, whose third click brings the order back.
  const QPoint header(View().columnViewportPosition(0) + 20, View().horizontalHeader()->height() / 2);
  for (const auto &expected :
       {QStringLiteral("Bern bonn Oslo Riga Rome"), QStringLiteral("Rome Riga Oslo bonn Bern"), inOrder}) {
    QTest::mouseClick(View().horizontalHeader()->viewport(), Qt::LeftButton, {}, header);
    EXPECT_EQ(Column(0), expected);
  }
}

TEST_F(TDataBrowserTest, KeepsARowThatIsEditedOutOfTheFilterUntilTheEditingIsOver) {
  static QStringList warnings;
  warnings.clear();
  const auto old =
      qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &text) { warnings << text; });
  browser->SetFilter(QStringLiteral("o"));
  const auto rename = [&](Qt::Key end) {
    auto *text = Edit<QLineEdit>(0, 0);
    text->setText(QStringLiteral("Paris"));
    QTest::keyClick(text, end);
    Settle();
  };
  rename(Qt::Key_Return);
  EXPECT_EQ(Column(0), QStringLiteral("Rome bonn"));
  rename(Qt::Key_Tab);
  EXPECT_EQ(Column(0), QStringLiteral("Paris bonn")) << "its next cell is edited";
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
  Settle();
  EXPECT_EQ(Column(0), QStringLiteral("bonn"));
  browser->GetModel()->setData(browser->GetModel()->index(3, 0), QStringLiteral("Paris"));
  EXPECT_EQ(Column(0), QString());
  qInstallMessageHandler(old);
  EXPECT_EQ(warnings.join(u'\n'), QString());
}

TEST_F(TDataBrowserTest, KeepsItsSelectionInStepWithTheMap) {
  browser->SortBy(0, Qt::AscendingOrder);
  Select(0, 1, 1, 2);
  EXPECT_EQ(SelectedOnMap(), QStringLiteral("Bern bonn"));
  EXPECT_EQ(View().selectionModel()->selectedIndexes().size(), 4) << "the cells are as they were selected";
  Settle();
  EXPECT_EQ(View().selectionModel()->selectedIndexes().size(), 4);
  Select(1, 0, 1, 0);
  EXPECT_EQ(SelectedOnMap(), QStringLiteral("bonn"));
  map->GetSelection()->Add(layer->First(), false);
  EXPECT_EQ(SelectedInView(), QStringLiteral("bonn Oslo"));
  TCustomMapObject *elsewhere = AddLayer(QStringLiteral("other"))->NewObject<TRegion>();
  map->GetSelection()->Add(elsewhere, true);
  EXPECT_EQ(SelectedInView(), QString());
  View().selectAll();
  EXPECT_EQ(SelectedOnMap(), QStringLiteral("Oslo Bern Rome bonn Riga"));
  EXPECT_TRUE(elsewhere->GetSelected()) << "what is not shown here stays as it is";
  browser->SetFilter(QStringLiteral("o"));
  EXPECT_EQ(SelectedOnMap(), QStringLiteral("Oslo Bern Rome bonn Riga")) << "a filter deselects nothing";
  browser->SetFilter(QString());
  EXPECT_EQ(SelectedInView(), QStringLiteral("Bern bonn Oslo Riga Rome"));
  const auto taken = layer->TakeObject(layer->First());
  EXPECT_EQ(SelectedInView(), QStringLiteral("Bern bonn Riga Rome"));
  map->GetSelection()->Clear();
  EXPECT_EQ(SelectedInView(), QString());
  AddObject(QStringLiteral("Ulm"), 1)->Select();
  EXPECT_EQ(SelectedInView(), QStringLiteral("Ulm")) << "it had no row yet";
}

TEST_F(TDataBrowserTest, SelectsAgainWhatAHandlerDestroys) {
  QObject::connect(map.get(), &TTessera::OnAddSelection, map.get(), [this] { layer->DeleteObjects(); });
  View().selectAll();
  Settle();
  EXPECT_EQ(View().model()->rowCount(), 0);
  map->disconnect();
  AddObject(QStringLiteral("Ulm"), 1);
  Settle();
  QObject::connect(map.get(), &TTessera::OnAddSelection, map.get(), [this] { browser.reset(); });
  View().selectAll();
  EXPECT_EQ(browser, nullptr);
}

TEST_F(TDataBrowserTest, CopiesAndPastesBlocks) {
  browser->GetModel()->setData(browser->GetModel()->index(1, 0), QStringLiteral("a\t\"b\"\nc"));
  Select(0, 0, 1, 1);
  Trigger("Copy");
  const QString block = QStringLiteral("Oslo\t30\n\"a\t\"\"b\"\"\nc\"\t5\n");
  EXPECT_EQ(Clipboard(), block);
  View().selectionModel()->select(At(3, 1), QItemSelectionModel::Select);
  Trigger("Copy");
  EXPECT_EQ(Clipboard(), block + QStringLiteral("\t-1\n"));
  QGuiApplication::clipboard()->setText(block);
  Select(2, 0, 2, 0);
  Trigger("Paste");
  EXPECT_EQ(Text(2, 0), QStringLiteral("Oslo"));
  EXPECT_EQ(Text(3, 0), QStringLiteral("a\t\"b\"\nc"));
  EXPECT_EQ(Text(3, 1), QStringLiteral("5"));
  // Beyond the table, and what is refused.
  QGuiApplication::clipboard()->setText(QStringLiteral("x\ty\r\nz\tw\r\n1\t2"));
  Select(3, 1, 3, 1);
  Trigger("Paste");
  EXPECT_EQ(messages, QStringList{QStringLiteral("4 cells keep their values. count: “x” is not a whole number.")});
  // One text for all that is selected.
  QGuiApplication::clipboard()->setText(QStringLiteral("7"));
  Select(0, 0, 2, 1);
  Trigger("Paste");
  EXPECT_EQ(Column(1), QStringLiteral("7 7 7 5 "));
  EXPECT_EQ(Text(2, 0), QStringLiteral("7"));
  Trigger("Clear");
  EXPECT_EQ(Text(1, 0) + Text(1, 1), QString());
  browser->SetReadOnly(true);
  Select(3, 0, 3, 1);
  Trigger("Paste");
  Trigger("Clear");
  EXPECT_EQ(Text(3, 1), QStringLiteral("5"));
}

TEST_F(TDataBrowserTest, PastesIntoTheRowsThatStoodThereAtFirst) {
  browser->SortBy(1, Qt::AscendingOrder);
  QGuiApplication::clipboard()->setText(QStringLiteral("500\n400\n300"));
  Select(0, 1, 0, 1);
  browser->Paste();
  EXPECT_EQ(Column(0), QStringLiteral("Rome Oslo Bern bonn Riga"));
  EXPECT_EQ(Column(1), QStringLiteral("200 300 400 500 "));
}

TEST_F(TDataBrowserTest, WhatItDoesToValuesAndColumnsAreStepsThatCanBeUndone) {
  QUndoStack stack;
  map->SetUndoStack(&stack);
  const QString names = Column(0);
  browser->GetModel()->setData(browser->GetModel()->index(0, 0), QStringLiteral("Lund"));
  QGuiApplication::clipboard()->setText(QStringLiteral("x\ny\nz\n"));
  Select(1, 0, 1, 0);
  browser->Paste();
  EXPECT_EQ(Column(0), QStringLiteral("Lund x y z Riga"));
  browser->GetModel()->RemoveColumn(0);
  browser->GetModel()->RenameColumn(0, QStringLiteral("number"));
  browser->GetModel()->AddColumn(QStringLiteral("new"), dtString, 5);
  ASSERT_EQ(stack.count(), 5) << "pasting is one";
  for (int i = 0; i < 3; ++i) stack.undo();
  Settle();
  EXPECT_EQ(Column(0), QStringLiteral("Lund x y z Riga"));
  EXPECT_EQ(layer->GetFields().GetFields(1).GetName(), QStringLiteral("count"));
  stack.undo();
  stack.undo();
  EXPECT_EQ(Column(0), names);
}

TEST_F(TDataBrowserTest, FindsTheNextCell) {
  const auto found = [this](const QString &text, TDataBrowser::TFindDirection direction) {
    if (!browser->Find(text, direction)) return QStringLiteral("none");
    return QStringLiteral("%1,%2").arg(View().currentIndex().row()).arg(View().currentIndex().column());
  };
  EXPECT_EQ(found(QStringLiteral("ON"), TDataBrowser::fdForward), QStringLiteral("3,0"));
  EXPECT_EQ(found(QStringLiteral("o"), TDataBrowser::fdForward), QStringLiteral("0,0"));
  EXPECT_EQ(found(QStringLiteral("o"), TDataBrowser::fdForward), QStringLiteral("2,0"));
  EXPECT_EQ(found(QStringLiteral("o"), TDataBrowser::fdBackward), QStringLiteral("0,0"));
  EXPECT_EQ(found(QStringLiteral("o"), TDataBrowser::fdBackward), QStringLiteral("3,0"));
  EXPECT_EQ(found(QStringLiteral("30"), TDataBrowser::fdForward), QStringLiteral("0,1"));
  EXPECT_EQ(found(QStringLiteral("30"), TDataBrowser::fdForward), QStringLiteral("0,1"))
      << "the current one comes last";
  EXPECT_EQ(found(QStringLiteral("nowhere"), TDataBrowser::fdForward), QStringLiteral("none"));
  auto *edit = browser->findChildren<QLineEdit *>().at(1);
  edit->setText(QStringLiteral("Rome"));
  QTest::keyClick(edit, Qt::Key_Return);
  EXPECT_EQ(View().currentIndex(), At(2, 0));
  edit->setText(QStringLiteral("nowhere"));
  Trigger("Find");
  EXPECT_EQ(edit->toolTip(), QStringLiteral("Not found"));
}

TEST_F(TDataBrowserTest, AsksBeforeItChangesColumns) {
  Trigger("Add Column");
  auto *adding = browser->findChild<QDialog *>();
  ASSERT_TRUE(adding);
  adding->findChild<QLineEdit *>()->setText(QStringLiteral("height"));
  adding->findChild<QComboBox *>()->setCurrentIndex(int(dtFloat));
  adding->accept();
  Settle();
  EXPECT_EQ(layer->GetFields().GetFields(4).GetDataType(), dtFloat);
  View().setCurrentIndex(At(0, 4));
  Trigger("Rename");
  auto *renaming = browser->findChild<QInputDialog *>();
  ASSERT_TRUE(renaming);
  renaming->setTextValue(QStringLiteral("width"));
  renaming->accept();
  EXPECT_EQ(layer->GetFields().GetFields(4).GetName(), QStringLiteral("width"));
  for (const auto &[button, count] : {std::pair(QMessageBox::No, 5), {QMessageBox::Yes, 4}}) {
    Trigger("Remove");
    auto *box = browser->findChild<QMessageBox *>();
    ASSERT_TRUE(box);
    box->button(button)->click();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(layer->GetFieldCount(), count);
  }
}

TEST_F(TDataBrowserTest, ExportsWhatIsShown) {
  const QTemporaryDir folder;
  const QString fileName = folder.filePath(QStringLiteral("towns.csv"));
  TLayerTableModel &model = *browser->GetModel();
  model.setData(model.index(0, 0), QStringLiteral("Å, \"x\""));
  model.setData(model.index(0, 2), QDate(2024, 5, 31));
  model.setData(model.index(0, 3), true);
  model.AddColumn(QStringLiteral("a,b"), dtFloat, 0);
  model.setData(model.index(0, 4), 0.1);
  browser->SortBy(1, Qt::DescendingOrder);
  browser->SetFilter(QStringLiteral("0"));
  browser->ExportCsv(fileName);
  QFile file(fileName);
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  EXPECT_EQ(file.readAll().toStdString(),
            "name,count,since,open,\"a,b\"\r\nRome,200,,,\r\n\"Å, \"\"x\"\"\",30,2024-05-31,True,0.1\r\n");
  EXPECT_THROW(browser->ExportCsv(folder.filePath(QStringLiteral("none/towns.csv"))), EInOutError);
}

TEST_F(TDataBrowserTest, LetsLayerAndMapGo) {
  Select(0, 0, 1, 1);
  browser->SetFilter(QStringLiteral("o"));
  map->GetLayers()->Clear();
  browser->Copy();
  browser->Paste();
  EXPECT_FALSE(browser->Find(QStringLiteral("Oslo")));
  Settle();
  layer = AddLayer(QStringLiteral("towns"));
  EXPECT_EQ(browser->GetLayer(), layer) << "it has the name that is to be shown";
  map.reset();
  EXPECT_EQ(browser->GetMap(), nullptr);
  Settle();
  EXPECT_EQ(View().model()->columnCount(), 0);
  browser->SetLayerName(QStringLiteral("x"));
  TTessera other;
  browser->SetMap(&other);
  browser.reset();
  EXPECT_EQ(other.GetDataLinks()->GetCount(), 0);
}

}  // namespace
}  // namespace tessera::test
