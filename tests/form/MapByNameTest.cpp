// SPDX-License-Identifier: MIT
#include <tessera/controls/LayersComboBox.h>
#include <tessera/controls/TDataBrowser.h>
#include <tessera/form/TFormTools.h>

#include <QDialog>
#include <QDockWidget>
#include <QMainWindow>
#include <QTabWidget>
#include <gtest/gtest.h>

namespace tessera::test {
namespace {

template <class Widget>
Widget *Put(QWidget *parent, const char *name) {
  auto *widget = new Widget(parent);
  widget->setObjectName(QString::fromLatin1(name));
  return widget;
}

form::TPanTool *PutTool(QWidget *parent, const char *map = "map") {
  auto *tool = Put<form::TPanTool>(parent, "tool");
  tool->setProperty("Tessera", QByteArray(map));
  return tool;
}

TEST(MapByNameTest, IsFoundWhicheverComesFirst) {
  QWidget form;
  auto *before = PutTool(&form);
  auto *map = Put<TTessera>(&form, "map");
  auto *after = PutTool(Put<QWidget>(&form, "container"));
  for (const auto *tool : {before, after}) {
    EXPECT_EQ(tool->Get()->GetTessera(), map);
    EXPECT_EQ(tool->property("Tessera"), QByteArray("map"));
  }
  map->setObjectName(QStringLiteral("other"));
  EXPECT_EQ(before->property("Tessera"), QByteArray("other")) << "the map is followed, not the name";
  delete map;
  EXPECT_EQ(before->Get()->GetTessera(), nullptr);
  EXPECT_EQ(before->property("Tessera"), QByteArray());
}

TEST(MapByNameTest, WaitsForItsMap) {
  QWidget form;
  auto *box = Put<TLayersComboBox>(&form, "box");
  EXPECT_TRUE(box->setProperty("Map", QByteArray("map")));
  Put<TTessera>(&form, "another");
  EXPECT_EQ(box->GetMap(), nullptr);
  EXPECT_EQ(box->property("Map"), QByteArray("map"));
  auto *map = Put<TTessera>(&form, "map");
  EXPECT_EQ(box->GetMap(), map);
  map->GetLayers()->Add(QString(), QStringLiteral("layer"));
  EXPECT_EQ(box->count(), 1) << "from the first layer on";
}

TEST(MapByNameTest, WaitsNoLongerWhenAMapIsSetInAnotherWay) {
  QWidget form;
  TTessera chosen;
  auto *browser = Put<TDataBrowser>(&form, "browser");
  browser->SetMapName("map");
  browser->SetMap(&chosen);
  Put<TTessera>(&form, "map");
  EXPECT_EQ(browser->GetMap(), &chosen);
}

TEST(MapByNameTest, IsFoundWhenPagesComeTogether) {
  // As uic makes tabs: each page is filled before it is put in.
  QTabWidget form;
  auto *first = new QWidget;
  auto *tool = PutTool(first);
  auto *second = new QWidget;
  auto *map = Put<TTessera>(Put<QWidget>(second, "inner"), "map");
  form.addTab(second, QString());
  EXPECT_EQ(tool->Get()->GetTessera(), nullptr);
  form.addTab(first, QString());
  EXPECT_EQ(tool->Get()->GetTessera(), map);

  auto *third = new QWidget;
  auto *later = Put<TTessera>(third, "later");
  tool->SetMapName("later");
  EXPECT_EQ(tool->Get()->GetTessera(), nullptr);
  form.addTab(third, QString());
  EXPECT_EQ(tool->Get()->GetTessera(), later);
}

TEST(MapByNameTest, IsTheNearestOnTheForm) {
  QMainWindow window;
  auto *outer = Put<TTessera>(&window, "map");
  auto *part = Put<QWidget>(&window, "part");
  auto *inner = Put<TTessera>(part, "map");
  EXPECT_EQ(PutTool(part)->Get()->GetTessera(), inner);
  EXPECT_EQ(PutTool(Put<QWidget>(&window, "otherPart"))->Get()->GetTessera(), outer);

  QDialog dialog(&window);
  EXPECT_EQ(PutTool(&dialog)->Get()->GetTessera(), nullptr) << "a window is a form of its own";
  auto *dock = Put<QDockWidget>(&window, "dock");
  dock->setFloating(true);
  ASSERT_TRUE(dock->isWindow());
  EXPECT_EQ(PutTool(dock)->Get()->GetTessera(), outer) << "but not a dock that floats";
}

TEST(MapByNameTest, LosesNothingWithAToolThatWasDeleted) {
  QWidget form;
  auto *tool = PutTool(&form);
  delete tool->Get();
  Put<TTessera>(&form, "map");
  EXPECT_TRUE(tool->setProperty("Active", true));
  EXPECT_FALSE(tool->GetActive());
  EXPECT_EQ(tool->GetMapName(), QByteArray());
}

}  // namespace
}  // namespace tessera::test
