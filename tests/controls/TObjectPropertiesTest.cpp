// SPDX-License-Identifier: MIT
#include "ControlFixture.h"

#include <tessera/controls/TObjectProperties.h>
#include <tessera/objects/TCircle.h>
#include <tessera/objects/TGeoCircle.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TText.h>

#include <QComboBox>
#include <QLineEdit>
#include <QTableView>
#include <QTest>
#include <QUndoStack>

namespace tessera::test {
namespace {

class TObjectPropertiesTest : public ControlFixture {
 protected:
  TObjectPropertiesTest() {
    layer->GetFields().Add(QStringLiteral("Name"), TDataType::dtString, 5);
    layer->GetFields().Add(QStringLiteral("Count"), TDataType::dtInteger, 0);
    panel->SetMap(map.get());
    panel->show();
  }
  template <class Kind>
  Kind *Add(double x, double y) {
    auto *object = layer->NewObject<Kind>();
    TMapPoints &points = object->GetParts().GetCount() == 0 ? object->GetParts().Add().GetPoints()
                                                            : object->GetParts().GetFirst().GetPoints();
    points.Restart();
    for (const TMapPoint &corner : {TMapPoint{0, 0}, {10, 0}, {10, 10}}) points.Add(x + corner.X, y + corner.Y);
    object->UpdateBounds();
    return object;
  }
  void Select(const std::vector<TCustomMapObject *> &objects) {
    map->GetSelection()->Clear();
    for (TCustomMapObject *object : objects) map->GetSelection()->Add(object);
    Settle();
  }
  QAbstractItemModel &Model() const { return *panel->GetView()->model(); }
  QModelIndex ValueOf(const QString &name) const {
    for (int row = 0; row < Model().rowCount(); ++row) {
      if (Model().index(row, 0).data().toString() == name) return Model().index(row, 1);
    }
    return {};
  }
  QString Text(const QString &name) const { return ValueOf(name).data().toString(); }
  bool Set(const QString &name, const QVariant &value) { return Model().setData(ValueOf(name), value); }

  TMapLayer *layer = AddLayer(QStringLiteral("layer"));
  std::unique_ptr<TObjectProperties> panel = std::make_unique<TObjectProperties>();
};

TEST_F(TObjectPropertiesTest, TellsViewsOfValuesOnlyWhereTheyKnowTheRows) {
  auto *region = Add<TRegion>(0, 0);
  auto *text = Add<TText>(0, 0);
  bool isInReset = false;
  int told = 0;
  QObject::connect(&Model(), &QAbstractItemModel::modelAboutToBeReset, panel.get(), [&] { isInReset = true; });
  QObject::connect(&Model(), &QAbstractItemModel::modelReset, panel.get(), [&] { isInReset = false; });
  QObject::connect(&Model(), &QAbstractItemModel::dataChanged, panel.get(), [&] {
    EXPECT_FALSE(isInReset);
    ++told;
  });
  Select({region});
  Select({text});
  EXPECT_EQ(told, 0);
  Select({Add<TText>(5, 5)});
  EXPECT_EQ(told, 1);
}

TEST_F(TObjectPropertiesTest, ShowsAndTakesNumbersInTheLocaleOfTheWidget) {
  layer->GetFields().Add(QStringLiteral("Share"), TDataType::dtFloat, 0);
  panel->setLocale(QLocale(QLocale::Russian));
  auto *region = Add<TRegion>(0.5, 0);
  region->GetFields().GetFields(2).SetValue(0.25);
  Select({region});
  EXPECT_EQ(Text(QStringLiteral("Left")), u"0,5");
  EXPECT_EQ(Text(QStringLiteral("Share")), u"0,25");
  layer->SetEditable(true);
  Select({region});
  EXPECT_TRUE(Set(QStringLiteral("Centre x"), QStringLiteral("7,5")));
  EXPECT_TRUE(Set(QStringLiteral("Share"), QStringLiteral("1,75")));
  EXPECT_EQ(region->GetBounds().MinX, 2.5);
  EXPECT_EQ(region->GetFields().GetFields(2).GetAsFloat(), 1.75);
}

TEST_F(TObjectPropertiesTest, ShowsWhatAllSelectedObjectsHaveAndWhereTheyDiffer) {
  EXPECT_EQ(Model().rowCount(), 0);
  auto *region = Add<TRegion>(0, 0);
  auto *other = Add<TRegion>(100, 0);
  TPen pen;
  pen.SetWidth(3);
  pen.SetColor(clRed);
  region->SetPen(pen);
  region->GetFields().GetFields(1).SetValue(7);
  Select({region});
  const std::pair<const char *, const char *> ofOne[] = {
      {"Kind", "Region"}, {"Line colour", "#ff0000"}, {"Line width", "3"}, {"Line style", "Solid"}, {"Left", "0"},
      {"Right", "10"},    {"Centre x", "5"},          {"Centre y", "5"},   {"Vertices", "3"},       {"Count", "7"},
      {"Name", ""},       {"Background", "No"}};
  for (const auto &[name, value] : ofOne) EXPECT_EQ(Text(QLatin1String(name)), QLatin1String(value)) << name;
  Select({region, other});
  for (const char *name : {"Line colour", "Line width", "Left", "Centre x", "Count"}) {
    EXPECT_EQ(Text(QLatin1String(name)), QStringLiteral("(different)")) << name;
  }
  EXPECT_EQ(Text(QStringLiteral("Top")), QStringLiteral("10"));
  EXPECT_EQ(Text(QStringLiteral("Kind")), QStringLiteral("Region"));
  auto *text = Add<TText>(0, 0);
  text->SetText(QStringLiteral("words"));
  Select({text});
  EXPECT_EQ(Text(QStringLiteral("Text")), QStringLiteral("words"));
  EXPECT_FALSE(ValueOf(QStringLiteral("Line width")).isValid());
  Select({text, region});
  EXPECT_FALSE(ValueOf(QStringLiteral("Font")).isValid() || ValueOf(QStringLiteral("Line width")).isValid());
  auto *circle = Add<TCircle>(0, 0);
  circle->SetRadius(4);
  Select({circle});
  EXPECT_EQ(Text(QStringLiteral("Radius")), QStringLiteral("4"));
}

TEST_F(TObjectPropertiesTest, GivesAValueToAllObjectsInOneStep) {
  layer->SetEditable(true);
  QUndoStack stack;
  auto *one = Add<TCircle>(0, 0);
  auto *two = Add<TCircle>(50, 0);
  two->SetRadius(2);
  two->GetFields().GetFields(0).SetValue(QStringLiteral("two"));
  const struct {
    const char *name;
    QVariant input;
    const char *shown;
  } rows[] = {
      {"Line colour", QColor(Qt::blue), "#0000ff"},
      {"Line width", QStringLiteral("5"), "5"},
      {"Line style", 2, "Dots"},
      {"Area colour", QStringLiteral("#00ff00"), "#00ff00"},
      {"Area style", 6, "Squares"},
      {"Background", 1, "Yes"},
      {"Background colour", QColor(Qt::red), "#ff0000"},
      {"Centre x", QStringLiteral("20.5"), "20.5"},
      {"Centre y", QStringLiteral("-3"), "-3"},
      {"Radius", QStringLiteral("7"), "7"},
      {"Name", QStringLiteral("both"), "both"},
      {"Count", QStringLiteral("12"), "12"},
  };
  for (const bool isRecorded : {false, true}) {
    map->SetUndoStack(isRecorded ? &stack : nullptr);
    for (const auto &row : rows) {
      one->SetStyle(two->GetStyle());
      Select({one, two});
      const QString name = QLatin1String(row.name);
      const QString before = Text(name);
      EXPECT_TRUE(Set(name, row.input)) << row.name;
      EXPECT_EQ(Text(name), QLatin1String(row.shown));
      EXPECT_EQ(one->GetStyle(), two->GetStyle()) << "tools stay shared";
      EXPECT_EQ(stack.count(), isRecorded ? 1 : 0);
      if (!isRecorded) continue;
      EXPECT_EQ(stack.undoText(), QStringLiteral("change ") + name.toLower());
      stack.undo();
      Settle();
      EXPECT_EQ(Text(name), before) << row.name;
      stack.clear();
    }
  }
  auto *text = Add<TText>(0, 0);
  auto *symbol = Add<TSymbol>(0, 0);
  Select({text});
  EXPECT_TRUE(Set(QStringLiteral("Text"), QStringLiteral("new")));
  EXPECT_EQ(text->GetText(), QStringLiteral("new"));
  EXPECT_TRUE(Set(QStringLiteral("Font"), QStringLiteral("Arial")));
  Select({symbol});
  EXPECT_TRUE(Set(QStringLiteral("Symbol"), QStringLiteral("41")));
  EXPECT_EQ(symbol->GetShape(), 41);
  EXPECT_TRUE(Set(QStringLiteral("Font size"), 30));
  EXPECT_EQ(symbol->GetFont().GetSize(), 30);
  EXPECT_EQ(stack.count(), 4);
  EXPECT_TRUE(messages.isEmpty());
}

TEST_F(TObjectPropertiesTest, MovesASideOfEachObjectWhoseOppositeSideStays) {
  layer->SetEditable(true);
  QUndoStack stack;
  map->SetUndoStack(&stack);
  auto *region = Add<TRegion>(0, 0);
  auto *circle = Add<TCircle>(8, 5);
  circle->SetRadius(2);
  const TBounds regionBefore = region->GetBounds();
  const TBounds circleBefore = circle->GetBounds();
  Select({region, circle});
  const struct {
    const char *side;
    double place;
    TBounds region;
    TBounds circle;  // which stays one
  } rows[] = {{"Left", 2, {2, 0, 10, 10}, {2, 1, 10, 9}},
              {"Right", 14, {0, 0, 14, 10}, {6, 1, 14, 9}},
              {"Bottom", -1, {0, -1, 10, 10}, {4, -1, 12, 7}},
              {"Top", 11, {0, 0, 10, 11}, {4, 3, 12, 11}}};
  for (const auto &row : rows) {
    EXPECT_TRUE(Set(QLatin1String(row.side), row.place)) << row.side;
    EXPECT_EQ(region->GetBounds(), row.region) << row.side;
    EXPECT_EQ(circle->GetBounds(), row.circle) << row.side;
    stack.undo();
    EXPECT_EQ(region->GetBounds(), regionBefore);
    EXPECT_EQ(circle->GetBounds(), circleBefore);
  }
  stack.clear();
  auto *flat = Add<TPolyline>(0, 0);
  flat->GetParts().GetFirst().GetPoints().Delete(2);
  flat->UpdateBounds();
  const std::tuple<TCustomMapObject *, const char *, double> refused[] = {
      {region, "Left", 10}, {region, "Left", 12}, {circle, "Top", -7}, {flat, "Top", 1}};
  for (const auto &[object, side, place] : refused) {
    Select({object, Add<TRegion>(0, 0)});
    EXPECT_FALSE(Set(QLatin1String(side), place)) << side << ' ' << place;
    EXPECT_EQ(messages.size(), 1);
    messages.clear();
  }
  for (TCustomMapObject *object : {static_cast<TCustomMapObject *>(Add<TSymbol>(0, 0)),
                                   static_cast<TCustomMapObject *>(layer->NewObject<TGeoCircle>())}) {
    Select({object, region});
    EXPECT_FALSE(Set(QStringLiteral("Left"), -5)) << "its size is not one of the map";
  }
  EXPECT_TRUE(messages.isEmpty());
  EXPECT_EQ(stack.count(), 0);
}

TEST_F(TObjectPropertiesTest, RefusesWhatIsNoValueAndWhatCannotBeChanged) {
  auto *region = Add<TRegion>(0, 0);
  TMapLayer *second = AddLayer(QStringLiteral("second"));
  second->SetEditable(true);
  auto *changeable = second->NewObject<TRegion>();
  Select({region});
  EXPECT_FALSE(Set(QStringLiteral("Line width"), 3)) << "its layer is not editable";
  Select({region, changeable});
  EXPECT_EQ(Text(QStringLiteral("Left")), QString()) << "only what can be changed is shown, which has no vertex";
  EXPECT_TRUE(Set(QStringLiteral("Line width"), 3));
  EXPECT_EQ(region->GetPen().GetWidth(), 1);
  layer->SetEditable(true);
  Select({region});
  const std::pair<const char *, QVariant> refused[] = {{"Line width", -1},
                                                       {"Line width", QStringLiteral("x")},
                                                       {"Line style", 7},
                                                       {"Line colour", QStringLiteral("no colour")},
                                                       {"Centre x", QStringLiteral("here")},
                                                       {"Vertices", 3},
                                                       {"Left", QStringLiteral("there")},
                                                       {"Kind", QStringLiteral("Text")}};
  for (const auto &[name, value] : refused) EXPECT_FALSE(Set(QLatin1String(name), value)) << name;
  EXPECT_TRUE(messages.isEmpty());
  EXPECT_FALSE(Set(QStringLiteral("Count"), QStringLiteral("many")));
  EXPECT_FALSE(Set(QStringLiteral("Name"), QStringLiteral("too long")));
  EXPECT_EQ(messages.size(), 2);
  panel->SetReadOnly(true);
  EXPECT_FALSE(Set(QStringLiteral("Line width"), 3));
}

TEST_F(TObjectPropertiesTest, HasAnEditorForEachKindOfValueWhichChangesNothingUntouched) {
  layer->SetEditable(true);
  QUndoStack stack;
  map->SetUndoStack(&stack);
  auto *region = Add<TRegion>(0, 0);
  auto *other = Add<TRegion>(3, 0);
  other->GetFields().GetFields(0).SetValue(QStringLiteral("b"));
  Select({region, other});
  QTableView &view = *panel->GetView();
  const auto editor = [&](const char *name) {
    view.setCurrentIndex(ValueOf(QLatin1String(name)));
    view.edit(view.currentIndex());
    return view.indexWidget(view.currentIndex());
  };
  auto *line = qobject_cast<QLineEdit *>(editor("Name"));
  ASSERT_NE(line, nullptr);
  EXPECT_EQ(line->text(), QString());
  QTest::keyClick(line, Qt::Key_Return);
  Settle();
  EXPECT_EQ(stack.count(), 0);
  line = qobject_cast<QLineEdit *>(editor("Name"));
  ASSERT_NE(line, nullptr);
  QTest::keyClicks(line, QStringLiteral("a"));
  QTest::keyClick(line, Qt::Key_Return);
  Settle();
  EXPECT_EQ(stack.count(), 1);
  EXPECT_EQ(Text(QStringLiteral("Name")), QStringLiteral("a"));
  auto *list = qobject_cast<QComboBox *>(editor("Line style"));
  ASSERT_NE(list, nullptr);
  list->setCurrentIndex(1);
  Q_EMIT list->activated(1);
  EXPECT_EQ(region->GetPen().GetStyle(), TPenStyle::psDash);
  EXPECT_EQ(stack.count(), 2);
}

TEST_F(TObjectPropertiesTest, FollowsTheSelectionToTheEndOfObjectsLayersAndMap) {
  layer->SetEditable(true);
  auto *one = Add<TRegion>(0, 0);
  auto *two = Add<TRegion>(20, 0);
  Select({one, two});
  two->SetPen(one->GetPen());
  TPen wide;
  wide.SetWidth(9);
  one->SetPen(wide);
  Settle();
  EXPECT_EQ(Text(QStringLiteral("Line width")), QStringLiteral("(different)"));
  const auto taken = layer->TakeObject(two);
  EXPECT_TRUE(Set(QStringLiteral("Line width"), 4)) << "before the panel has heard of it";
  EXPECT_EQ(taken->GetPen().GetWidth(), 1);
  Settle();
  EXPECT_EQ(Text(QStringLiteral("Line width")), QStringLiteral("4"));
  map->GetLayers()->Clear();
  Settle();
  EXPECT_EQ(Model().rowCount(), 0);
  layer = AddLayer(QStringLiteral("again"));
  layer->SetEditable(true);
  one = Add<TRegion>(0, 0);
  Select({one});
  class Ender : public TMapDataLink {
   public:
    explicit Ender(std::unique_ptr<TObjectProperties> &panel) : m_panel(panel) {}
    void MapEvent(TMapDataLinkEvent event, TObject * /*sender*/, int /*info*/) override {
      if (event == mdlObjectStyleChanged) m_panel.reset();
    }

   private:
    std::unique_ptr<TObjectProperties> &m_panel;
  } ender(panel);
  ender.SetMap(map.get());
  EXPECT_TRUE(Set(QStringLiteral("Line width"), 6)) << "by a handler that destroys the panel";
  EXPECT_EQ(panel, nullptr);
  panel = std::make_unique<TObjectProperties>();
  panel->SetMap(map.get());
  Settle();
  EXPECT_EQ(Text(QStringLiteral("Line width")), QStringLiteral("6"));
  ender.SetMap(nullptr);
  map.reset();
  Settle();
  EXPECT_EQ(Model().rowCount(), 0);
}

}  // namespace
}  // namespace tessera::test
