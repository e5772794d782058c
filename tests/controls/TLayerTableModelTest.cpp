// SPDX-License-Identifier: MIT
#include "../support/RandomShapes.h"
#include "ControlFixture.h"

#include <tessera/controls/TLayerTableModel.h>

#include <QAbstractItemModelTester>
#include <QDateTime>
#include <QSignalSpy>

#include <functional>
#include <stdexcept>

namespace tessera::test {
namespace {

using enum TDataType;

class TLayerTableModelTest : public ControlFixture {
 protected:
  TLayerTableModelTest() {
    const std::tuple<const char16_t *, TDataType, int> columns[] = {
        {u"name", dtString, 8},   {u"area", dtFloat, 0},   {u"count", dtInteger, 0}, {u"rank", dtSmallInt, 0},
        {u"since", dtDate, 0},    {u"opens", dtTime, 0},   {u"seen", dtDateTime, 0}, {u"open", dtBoolean, 0},
        {u"hidden", dtString, 0}, {u"price", dtDecimal, 0}};
    for (const auto &[name, type, size] : columns) {
      layer->GetFields().Add(QString::fromUtf16(name), type, size);
    }
    layer->GetFields().GetFields(8).SetVisible(false);
    for (int i = 0; i < 3; ++i) AddObject();
    model.SetLayer(layer);
    QObject::connect(&model, &TLayerTableModel::OnRefused, &model, [this](const QString &why) { refusals << why; });
  }

  TRegion *AddObject() { return layer->NewObject<TRegion>(); }
  QModelIndex At(int row, int column) const { return model.index(row, column); }
  bool Set(int row, int column, const QVariant &value) { return model.setData(At(row, column), value); }
  QString Text(int row, int column) const { return At(row, column).data(TLayerTableModel::TextRole).toString(); }
  /// The objects of the rows are those of the layer, and so are the columns.
  void ExpectInStep() {
    ASSERT_EQ(model.rowCount(), layer->GetObjectCount());
    for (int row = 0; row < model.rowCount(); ++row) ASSERT_EQ(model.ObjectAt(row), layer->GetObjects(row));
    ASSERT_EQ(model.columnCount(), layer->GetFields().GetVisibleFieldCount());
    for (int i = 0; i < model.columnCount(); ++i) {
      EXPECT_EQ(model.headerData(i, Qt::Horizontal, TLayerTableModel::TextRole).toString(),
                layer->GetFields().GetDisplayed(i).GetName());
    }
  }

  TMapLayer *layer = AddLayer(QStringLiteral("layer"));
  TLayerTableModel model;
  QAbstractItemModelTester tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
  QStringList refusals;
};

TEST_F(TLayerTableModelTest, HasARowForEachObjectAndAColumnForEachVisibleField) {
  ExpectInStep();
  QStringList headers;
  for (int i = 0; i < model.columnCount(); ++i)
    headers << model.headerData(i, Qt::Horizontal, Qt::DisplayRole).toString();
  EXPECT_EQ(headers.join(u' ').replace(u'\n', u':'),
            QStringLiteral("name:Char(8) area:Float count:Integer rank:SmallInt since:Date opens:Time seen:DateTime "
                           "open:Boolean price:Decimal"));
  EXPECT_EQ(model.ColumnOf(9), 8);
  EXPECT_EQ(model.ColumnOf(8), -1);
  EXPECT_EQ(model.RowOf(layer->GetObjects(2)), 2);
}

TEST_F(TLayerTableModelTest, TakesWhatFitsTheColumn) {
  const std::tuple<int, QVariant, QVariant, QString> cases[] = {
      {0, QStringLiteral("12345678"), QStringLiteral("12345678"), QStringLiteral("12345678")},
      {0, QStringLiteral(" x "), QStringLiteral(" x "), QStringLiteral(" x ")},
      {1, QStringLiteral(" 2.5e3 "), 2500.0, QStringLiteral("2500")},
      {1, 0.1, 0.1, QStringLiteral("0.1")},
      {2, QStringLiteral("-2147483648"), -2147483647 - 1, QStringLiteral("-2147483648")},
      {3, 32767, 32767, QStringLiteral("32767")},
      {4, QStringLiteral("2024-02-29"), QDate(2024, 2, 29), QStringLiteral("29 Feb 2024")},
      {4, QStringLiteral("1 Mar 1850"), QDate(1850, 3, 1), QStringLiteral("1 Mar 1850")},
      {4, QDate(1899, 12, 29), QDate(1899, 12, 29), QStringLiteral("29 Dec 1899")},
      {5, QStringLiteral("9:05:30"), QTime(9, 5, 30), QStringLiteral("09:05:30")},
      {5, QTime(23, 59), QTime(23, 59), QStringLiteral("23:59:00")},
      {6, QStringLiteral("2024-02-29 12:30"), QDateTime(QDate(2024, 2, 29), QTime(12, 30)),
       QStringLiteral("29 Feb 2024 12:30:00")},
      {6, QStringLiteral("2024-02-29T12:30:01"), QDateTime(QDate(2024, 2, 29), QTime(12, 30, 1)),
       QStringLiteral("29 Feb 2024 12:30:01")},
      {6, QDateTime(QDate(1850, 1, 2), QTime(6, 0)), QDateTime(QDate(1850, 1, 2), QTime(6, 0)),
       QStringLiteral("2 Jan 1850 06:00:00")},
      {7, QStringLiteral("no"), false, QStringLiteral("False")},
      {7, true, true, QStringLiteral("True")},
      {8, QStringLiteral("1.25"), 1.25, QStringLiteral("1.25")},
      {8, QString(), QVariant(), QString()},
      {1, QVariant(), QVariant(), QString()},
  };
  QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
  for (const auto &[column, input, value, text] : cases) {
    const auto what = input.toString().toStdString();
    EXPECT_TRUE(Set(1, column, input)) << what;
    EXPECT_EQ(At(1, column).data(Qt::EditRole), value) << what;
    EXPECT_EQ(Text(1, column), text) << what;
    EXPECT_TRUE(Set(1, column, At(1, column).data(Qt::EditRole)));
    EXPECT_TRUE(Set(2, column, Text(1, column))) << what;
    EXPECT_EQ(At(2, column).data(Qt::EditRole), value) << what << ": the text reads back";
    EXPECT_TRUE(Set(2, column, At(1, column).data(TLayerTableModel::NeutralRole))) << what;
    EXPECT_EQ(At(2, column).data(Qt::EditRole), value) << what << ": the neutral text reads back";
  }
  EXPECT_EQ(std::size_t(changes.size()), 4 * std::size(cases)) << "each is told of once";
  EXPECT_EQ(refusals, QStringList());
}

TEST_F(TLayerTableModelTest, RefusesWhatDoesNotAndKeepsTheOldValue) {
  const std::tuple<int, QVariant, QString> cases[] = {
      {0, QStringLiteral("123456789"), QStringLiteral("longer than the 8 characters")},
      {1, QStringLiteral("2,5"), QStringLiteral("not a number")},
      {1, QStringLiteral("nan"), QStringLiteral("not a number")},
      {2, QStringLiteral("1.5"), QStringLiteral("not a whole number")},
      {2, QStringLiteral("2147483648"), QStringLiteral("between -2147483648 and 2147483647")},
      {3, 32768, QStringLiteral("between -32768 and 32767")},
      {4, QStringLiteral("2023-02-29"), QStringLiteral("not a date")},
      {5, QStringLiteral("25:00"), QStringLiteral("not a time")},
      {6, QStringLiteral("2024-02-29 25:00"), QStringLiteral("not a date and time")},
      {7, QStringLiteral("maybe"), QStringLiteral("neither True nor False")},
  };
  const QVariant old[] = {QStringLiteral("old"),
                          1.5,
                          7,
                          8,
                          QDate(2000, 1, 1),
                          QTime(1, 2),
                          QDateTime(QDate(2000, 1, 1), QTime(3, 4)),
                          true};
  for (int column = 0; column < 8; ++column) EXPECT_TRUE(Set(0, column, old[column]));
  for (const auto &[column, input, why] : cases) {
    EXPECT_FALSE(Set(0, column, input));
    ASSERT_EQ(refusals.size(), 1) << input.toString().toStdString();
    EXPECT_TRUE(refusals.takeFirst().contains(why)) << input.toString().toStdString();
    EXPECT_EQ(At(0, column).data(Qt::EditRole), old[column]);
  }
  model.SetReadOnly(true);
  EXPECT_FALSE(Set(0, 0, QStringLiteral("new")));
  EXPECT_FALSE(model.AddColumn(QStringLiteral("new"), dtFloat, 0));
  EXPECT_FALSE(model.RemoveColumn(0));
  EXPECT_FALSE(At(0, 0).flags().testFlag(Qt::ItemIsEditable));
  EXPECT_FALSE(At(0, 7).flags().testFlag(Qt::ItemIsUserCheckable));
}

TEST_F(TLayerTableModelTest, ShowsValuesThatDoNotFitTheirColumnAsTheyAre) {
  for (const int field : {1, 2, 4, 7})
    layer->GetObjects(0)->GetFields().GetFields(field).SetAsString(QStringLiteral("?"));
  for (const int column : {1, 2, 4, 7}) {
    EXPECT_EQ(At(0, column).data(Qt::EditRole), QStringLiteral("?"));
    EXPECT_EQ(Text(0, column), QStringLiteral("?"));
    EXPECT_FALSE(At(0, column).data(TLayerTableModel::SortRole).isValid());
  }
  layer->GetObjects(1)->GetFields().Clear();
  EXPECT_FALSE(At(1, 0).data().isValid());
  EXPECT_FALSE(Set(1, 0, QStringLiteral("x")));
  EXPECT_EQ(refusals.size(), 1);
}

TEST_F(TLayerTableModelTest, TicksABooleanColumn) {
  EXPECT_EQ(At(0, 7).data(Qt::CheckStateRole).toInt(), Qt::PartiallyChecked);
  EXPECT_TRUE(model.setData(At(0, 7), Qt::Checked, Qt::CheckStateRole));
  EXPECT_EQ(At(0, 7).data(Qt::CheckStateRole).toInt(), Qt::Checked);
  EXPECT_FALSE(At(0, 7).data(Qt::DisplayRole).isValid());
  EXPECT_FALSE(model.setData(At(0, 0), Qt::Checked, Qt::CheckStateRole));
}

TEST_F(TLayerTableModelTest, FollowsItsLayerWithoutBeingReset) {
  QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
  TRandomShapes random(20);
  std::vector<std::unique_ptr<TCustomMapObject>> taken;
  for (int round = 0; round < 200; ++round) {
    std::vector<std::pair<THandle<TCustomMapObject>, QPersistentModelIndex>> rows;
    for (int row = 0; row < model.rowCount(); ++row) rows.emplace_back(model.ObjectAt(row), At(row, 0));
    bool isSilent = false;
    for (int step = random.Whole(1, 4); step > 0; --step) {
      const int count = layer->GetObjectCount();
      const int at = random.Whole(0, std::max(0, count - 1));
      switch (random.Whole(0, 6)) {
        case 0:
        case 1:
          AddObject();
          break;
        case 2:
          if (!taken.empty()) layer->PutObject(random.Whole(0, count), std::move(taken.back()));
          if (!taken.empty()) taken.pop_back();
          break;
        case 3:
          if (count > 0) taken.push_back(layer->TakeObject(layer->GetObjects(at)));
          break;
        case 4:
          if (count > 0) layer->MoveObject(at, random.Whole(0, count - 1));
          break;
        case 5:
          if (count < 2) break;
          taken.push_back(layer->SetObjects(at, std::make_unique<TRegion>()));
          isSilent = true;
          break;
        default:
          layer->GetFields().Insert(random.Whole(1, layer->GetFieldCount()), QStringLiteral("x"), dtFloat, 0);
          layer->GetFields().Delete(random.Whole(1, layer->GetFieldCount() - 1));
      }
    }
    Settle();
    // Nobody tells of an object that is replaced.
    if (isSilent) model.Refresh();
    ExpectInStep();
    for (const auto &[object, row] : rows) {
      EXPECT_EQ(row.isValid() ? row.row() : -1, model.RowOf(object.Get()));
    }
  }
  EXPECT_EQ(resets.size(), 0);
}

TEST_F(TLayerTableModelTest, TellsOfValuesThatOthersChange) {
  QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
  layer->GetObjects(1)->GetFields().GetFields(0).SetAsString(QStringLiteral("new"));
  AddLayer(QStringLiteral("other"))->NewObject<TRegion>()->GetFields().Add(QStringLiteral("x"), dtFloat, 0);
  ASSERT_EQ(changes.size(), 1);
  EXPECT_EQ(changes.front()[0].toModelIndex(), At(1, 0));
  EXPECT_EQ(changes.front()[1].toModelIndex(), At(1, 8));
  // Of an object whose row is out of date.
  const auto taken = layer->TakeObject(layer->First());
  EXPECT_FALSE(At(0, 0).data().isValid());
  EXPECT_FALSE(Set(0, 0, QStringLiteral("x")));
  layer->First()->GetFields().GetFields(0).SetAsString(QStringLiteral("newer"));
  Settle();
  EXPECT_EQ(changes.size(), 2);
  EXPECT_EQ(Text(0, 0), QStringLiteral("newer"));
}

TEST_F(TLayerTableModelTest, IsResetWhenObjectsGoInVeryManyPlaces) {
  for (int i = 0; i < 1000; ++i) AddObject();
  Settle();
  QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
  std::vector<TCustomMapObject *> odd;
  for (int i = 1; i < 1000; i += 2) odd.push_back(layer->GetObjects(i));
  layer->DeleteObjects(odd);
  Settle();
  EXPECT_EQ(resets.size(), 1);
  ExpectInStep();
}

TEST_F(TLayerTableModelTest, ChangesTheColumnsOfLayerAndObjects) {
  Set(0, 0, QStringLiteral("first"));
  Set(0, 1, 2.5);
  Set(0, 8, 9.5);
  auto *own = AddObject();
  own->GetFields().Clear();
  layer->SetLabelFieldIndex(1);
  Settle();
  EXPECT_TRUE(model.AddColumn(QStringLiteral(" note "), dtString, 3));
  EXPECT_TRUE(Set(0, 9, QStringLiteral("abc")));
  EXPECT_FALSE(Set(0, 9, QStringLiteral("abcd")));
  EXPECT_TRUE(model.RenameColumn(9, QStringLiteral("Note")));
  EXPECT_TRUE(model.RemoveColumn(0));
  ExpectInStep();
  EXPECT_EQ(layer->GetLabelFieldIndex(), 0);
  EXPECT_EQ(Text(0, 0), QStringLiteral("2.5"));
  EXPECT_EQ(Text(0, 7), QStringLiteral("9.5"));
  EXPECT_EQ(Text(0, 8), QStringLiteral("abc"));
  for (int i = 0; i < 3; ++i) {
    const TDataFields &fields = layer->GetObjects(i)->GetFields();
    ASSERT_EQ(fields.GetCount(), layer->GetFieldCount());
    EXPECT_EQ(fields.GetFields(9).GetName(), QStringLiteral("Note"));
  }
  EXPECT_EQ(own->GetFields().GetCount(), 0);
  refusals.clear();
  EXPECT_FALSE(model.AddColumn(QStringLiteral("AREA"), dtFloat, 0));
  EXPECT_FALSE(model.AddColumn(QStringLiteral("hidden"), dtFloat, 0)) << "that it is not shown does not matter";
  EXPECT_FALSE(model.AddColumn(QStringLiteral(" "), dtFloat, 0));
  EXPECT_FALSE(model.RenameColumn(1, QStringLiteral("area")));
  EXPECT_EQ(refusals.size(), 4);
  EXPECT_FALSE(model.RemoveColumn(20));
  EXPECT_FALSE(model.RenameColumn(-1, QStringLiteral("x")));
  EXPECT_TRUE(model.RenameColumn(0, QStringLiteral("Area")));
}

/// Calls `handle` on every event that links are told of.
class Link : public TMapDataLink {
 public:
  std::function<void(TMapDataLinkEvent event)> handle;
  void MapEvent(TMapDataLinkEvent event, TObject * /*sender*/, int /*info*/) override { handle(event); }
};

TEST_F(TLayerTableModelTest, SurvivesWhatHandlersDo) {
  Link link;
  link.SetMap(map.get());
  link.handle = [](TMapDataLinkEvent) { throw std::runtime_error("no"); };
  EXPECT_TRUE(Set(0, 0, QStringLiteral("set")));
  EXPECT_EQ(Text(0, 0), QStringLiteral("set"));
  EXPECT_TRUE(model.AddColumn(QStringLiteral("new"), dtFloat, 0));
  EXPECT_EQ(layer->GetObjects(2)->GetFields().GetCount(), 11) << "each object follows";
  EXPECT_EQ(messages, QStringList({QStringLiteral("no"), QStringLiteral("no")}));
  link.handle = [this](TMapDataLinkEvent event) {
    if (event == mdlObjectFieldsChanged) layer->DeleteObjects();
  };
  EXPECT_TRUE(Set(0, 0, QStringLiteral("gone")));
  Settle();
  EXPECT_EQ(model.rowCount(), 0);
  AddObject();
  Settle();
  auto own = std::make_unique<TLayerTableModel>();
  own->SetLayer(layer);
  link.handle = [&](TMapDataLinkEvent event) {
    if (event == mdlLayerFieldsChanged) map->GetLayers()->Clear();
    own.reset();
  };
  own->RemoveColumn(0);
  Settle();
  EXPECT_EQ(model.columnCount(), 0);
}

TEST_F(TLayerTableModelTest, LetsLayerAndMapGo) {
  const auto expectNone = [this] {
    Settle();
    EXPECT_EQ(model.GetLayer(), nullptr);
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_EQ(model.columnCount(), 0);
  };
  const auto again = [this] {
    layer = AddLayer(QStringLiteral("again"));
    layer->GetFields().Add(QStringLiteral("x"), dtFloat, 0);
    model.SetLayer(layer);
    EXPECT_EQ(model.columnCount(), 1);
  };
  map->GetLayers()->Delete(0);
  expectNone();
  again();
  map->GetLayers()->Clear();
  EXPECT_FALSE(model.AddColumn(QStringLiteral("y"), dtFloat, 0));
  expectNone();
  again();
  map.reset();
  expectNone();
  TMapLayer alone;
  model.SetLayer(&alone);
  alone.NewObject<TRegion>();
  model.Refresh();
  EXPECT_EQ(model.rowCount(), 1);
}

}  // namespace
}  // namespace tessera::test
