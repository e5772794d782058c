// SPDX-License-Identifier: MIT
#include "MapFixture.h"

#include <tessera/objects/GeoCircle.h>
#include <tessera/objects/TCircle.h>
#include <tessera/objects/TGeoCircle.h>
#include <tessera/objects/TRectangle.h>
#include <tessera/objects/TSprite.h>
#include <tessera/objects/TText.h>

#include <QAccessible>
#include <QLineEdit>

#include <stdexcept>

namespace tessera::test {
namespace {

class AccessibleMapTest : public MapFixture {
 protected:
  AccessibleMapTest() {
    layer->SetName(QStringLiteral("towns"));
    layer->GetFields().Add(QStringLiteral("name"), TDataType::dtString, 20);
    layer->GetFields().Add(QStringLiteral("since"), TDataType::dtDate, 0);
    layer->SetLabelFieldIndex(0);
    west = AddSquare(layer, 20, 20, 40, clRed);
    west->GetFields().GetFields(0).SetAsString(QStringLiteral("West"));
    east = AddSquare(layer, 100, 20, 40, clNavy);
    top->SetName(QStringLiteral("top"));
    map.show();
    Shown();
  }

  QAccessibleInterface *Map() { return QAccessible::queryAccessibleInterface(&map); }
  QAccessibleInterface *At(int layerIndex, int index) { return Map()->child(layerIndex)->child(index); }
  static QString Name(QAccessibleInterface *of) { return of->text(QAccessible::Name); }
  static QString Kind(QAccessibleInterface *of) { return of->text(QAccessible::Description); }
  static void Do(QAccessibleInterface *to, const QString &action) { to->actionInterface()->doAction(action); }

  TMapLayer *layer = AddLayer();
  TMapLayer *top = AddLayer();
  TRegion *west = nullptr;
  TRegion *east = nullptr;
};

TEST_F(AccessibleMapTest, TellsLayersAndObjectsThatAreShown) {
  EXPECT_EQ(Map()->role(), QAccessible::Canvas);
  EXPECT_EQ(Name(Map()), QStringLiteral("Map"));
  ASSERT_EQ(Map()->childCount(), 2);
  QAccessibleInterface *towns = Map()->child(0);
  EXPECT_EQ(Name(towns), QStringLiteral("towns"));
  EXPECT_EQ(towns->rect(), Map()->rect());
  EXPECT_EQ(towns->parent(), Map());
  EXPECT_EQ(Map()->indexOfChild(Map()->child(1)), 1);
  ASSERT_EQ(towns->childCount(), 2);
  QAccessibleInterface *object = towns->child(0);
  EXPECT_EQ(Name(object), QStringLiteral("West"));
  EXPECT_EQ(Kind(object), QStringLiteral("Region"));
  EXPECT_EQ(Name(towns->child(1)), QStringLiteral("Region")) << "without a label it is called by its kind";
  EXPECT_EQ(object->rect(), QRect(map.mapToGlobal(QPoint(20, 40)), map.mapToGlobal(QPoint(60, 80))));
  EXPECT_EQ(object->parent(), towns);
  EXPECT_EQ(towns->indexOfChild(towns->child(1)), 1);
  EXPECT_EQ(towns->child(2), nullptr);
  EXPECT_EQ(Map()->child(-1), nullptr);
  const QPoint at = map.mapToGlobal(QPoint(30, 50));
  EXPECT_EQ(Map()->childAt(at.x(), at.y()), object);
  EXPECT_EQ(towns->childAt(at.x(), at.y()), object);
  EXPECT_EQ(Map()->child(1)->childAt(at.x(), at.y()), nullptr);
  EXPECT_EQ(Map()->childAt(at.x() + 50, at.y()), nullptr);
}

TEST_F(AccessibleMapTest, FollowsWhatTheMapShows) {
  QAccessibleInterface *western = At(0, 0);
  QAccessibleInterface *eastern = At(0, 1);
  LookAt(30, 50, 4);
  Shown();
  ASSERT_EQ(Map()->child(0)->childCount(), 1);
  EXPECT_EQ(At(0, 0), western);
  LookAt(140, 50, 4);
  Shown();
  ASSERT_EQ(Map()->child(0)->childCount(), 1);
  EXPECT_EQ(At(0, 0), eastern);
  EXPECT_TRUE(Map()->rect().contains(eastern->rect())) << "the part that is shown";
  LookAt(100, 50);
  layer->SetVisible(false);
  Shown();
  EXPECT_EQ(Map()->child(0)->childCount(), 0);
  EXPECT_TRUE(Map()->child(0)->state().invisible);
  layer->SetVisible(true);
  AddSquare(top, 0, 0, 200, clBlue);
  Shown();
  const QPoint at = map.mapToGlobal(QPoint(110, 50));
  EXPECT_EQ(Map()->childAt(at.x(), at.y()), At(1, 0)) << "the topmost";
  map.GetLayers()->Exchange(0, 1);
  EXPECT_EQ(Name(Map()->child(0)), QStringLiteral("top"));
  QLineEdit child(&map);
  EXPECT_EQ(Map()->childCount(), 3) << "widgets on the map are told as well";
  EXPECT_EQ(Map()->indexOfChild(Map()->child(2)), 2);
  east->GetFields().GetFields(1).SetAsString(QStringLiteral("?"));
  layer->SetLabelFieldIndex(1);
  EXPECT_EQ(Name(eastern), QStringLiteral("?")) << "no date, but that is what it says";
}

TEST_F(AccessibleMapTest, NamesEveryKind) {
  const std::pair<TMapObjectClass, QString> kinds[] = {
      {CreateMapObject<TRegion>, QStringLiteral("Region")},
      {CreateMapObject<TPolyline>, QStringLiteral("Polyline")},
      {CreateMapObject<TSymbol>, QStringLiteral("Symbol")},
      {CreateMapObject<TText>, QStringLiteral("Text")},
      {CreateMapObject<TRectangle>, QStringLiteral("Rectangle")},
      {CreateMapObject<TCircle>, QStringLiteral("Circle")},
      {CreateMapObject<TGeoCircle>, QStringLiteral("Circle")},
      {CreateMapObject<geocircle::TGeoCircle>, QStringLiteral("Circle")},
      {CreateMapObject<TSprite>, QStringLiteral("Sprite")},
      {CreateMapObject<TCustomMapObject>, QStringLiteral("Object")}};
  for (const auto &[make, name] : kinds) {
    map.GetDisplayed()->Add(top->NewObject(make));
    QAccessibleInterface *last = At(1, Map()->child(1)->childCount() - 1);
    EXPECT_EQ(Kind(last), name);
  }
}

TEST_F(AccessibleMapTest, LetsAScreenReaderSelect) {
  QAccessibleInterface *western = At(0, 0);
  QAccessibleInterface *eastern = At(0, 1);
  ASSERT_EQ(western->actionInterface()->actionNames().size(), 2);
  EXPECT_TRUE(western->state().selectable);
  Do(western, QAccessibleActionInterface::pressAction());
  EXPECT_TRUE(west->GetSelected());
  EXPECT_TRUE(western->state().selected);
  Do(eastern, QAccessibleActionInterface::toggleAction());
  EXPECT_EQ(map.GetSelection()->GetCount(), 2);
  Do(eastern, QAccessibleActionInterface::pressAction());
  EXPECT_FALSE(western->state().selected);
  EXPECT_TRUE(eastern->state().selected);
  Do(eastern, QAccessibleActionInterface::toggleAction());
  EXPECT_EQ(map.GetSelection()->GetCount(), 0);
  layer->SetSelectable(false);
  EXPECT_FALSE(western->state().selectable);
  Do(western, QAccessibleActionInterface::pressAction());
  EXPECT_FALSE(west->GetSelected());
}

TEST_F(AccessibleMapTest, LetsEverythingGo) {
  QAccessibleInterface *western = At(0, 0);
  QAccessibleInterface *eastern = At(0, 1);
  QAccessibleInterface *towns = Map()->child(0);
  const auto taken = layer->TakeObject(west);
  EXPECT_FALSE(western->isValid());
  EXPECT_TRUE(western->state().invalid);
  EXPECT_EQ(Name(western) + Kind(western), QString());
  EXPECT_EQ(western->rect(), QRect());
  EXPECT_EQ(western->parent(), nullptr);
  EXPECT_TRUE(western->actionInterface()->actionNames().isEmpty());
  QObject::connect(&map, &TTessera::OnAddSelection, &map, [this] {
    layer->DeleteObjects();
    throw std::runtime_error("gone");
  });
  Do(eastern, QAccessibleActionInterface::pressAction());
  EXPECT_EQ(messages, QStringList{QStringLiteral("gone")});
  EXPECT_FALSE(eastern->isValid());
  map.GetLayers()->Clear();
  EXPECT_FALSE(towns->isValid());
  EXPECT_EQ(towns->childCount(), 0);
  EXPECT_EQ(Map()->childCount(), 0);
  map.disconnect();
}

TEST_F(AccessibleMapTest, AnswersUntilTheMapIsGone) {
  auto closing = std::make_unique<TTessera>();
  closing->GetLayers()->Add(QString(), QStringLiteral("layer"))->NewObject<TRegion>();
  closing->show();
  closing->grab();
  QAccessibleInterface *interface = QAccessible::queryAccessibleInterface(closing.get());
  ASSERT_EQ(interface->childCount(), 1);
  const QAccessible::Id layerId = QAccessible::uniqueId(interface->child(0));
  const QPoint at = closing->mapToGlobal(QPoint(5, 5));
  int childCount = -1;
  QObject::connect(closing->GetNavigation(), &QObject::destroyed, qApp, [&] {
    childCount = interface->childCount();
    EXPECT_EQ(interface->childAt(at.x(), at.y()), nullptr);
  });
  closing.reset();
  EXPECT_EQ(childCount, 0);
  EXPECT_EQ(QAccessible::accessibleInterface(layerId), nullptr) << "what was made for it goes with it";
}

TEST_F(AccessibleMapTest, LeavesOtherWidgetsAlone) {
  QWidget plain;
  EXPECT_NE(QAccessible::queryAccessibleInterface(&plain)->role(), QAccessible::Canvas);
  struct DerivedMap : TTessera {
  } derived;
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&derived)->role(), QAccessible::Canvas);
}

}  // namespace
}  // namespace tessera::test
