// SPDX-License-Identifier: MIT
#include "MapFixture.h"

#include <tessera/map/TCustomMapTool.h>

#include <QBrush>
#include <QFont>
#include <QMetaProperty>
#include <QPen>

namespace tessera::test {
namespace {

QStringList PropertiesOf(const QMetaObject &type) {
  QStringList names;
  for (int i = type.propertyOffset(); i < type.propertyCount(); ++i) {
    names << QString::fromLatin1(type.property(i).name());
    EXPECT_TRUE(type.property(i).metaType().isValid()) << type.property(i).name();
  }
  return names;
}

TEST(PropertiesTest, StandInTheirOrder) {
  EXPECT_EQ(PropertiesOf(TTessera::staticMetaObject).join(u' '),
            QStringLiteral("Options Color Zoom WheelMouse ZoomType CenterX CenterY MinZoom MaxZoom ShowSelection "
                           "FastSelection Navigation Painting Snapping PickTolerancePx"));
  EXPECT_EQ(PropertiesOf(TCustomMapTool::staticMetaObject).join(u' '),
            QStringLiteral("Active DisplayName Cursor Tessera"));
  EXPECT_EQ(PropertiesOf(TTesseraOptions::staticMetaObject).join(u' '),
            QStringLiteral("DefaultTextFont DefaultSymbolFont DefaultSymbolShape DefaultPen DefaultPenColor "
                           "DefaultPenStyle DefaultPenWidth DefaultBrush "
                           "DefaultBGColor UseBGColor"));
}

TEST(PropertiesTest, SetWhatNewObjectsStartWith) {
  TTessera map;
  auto *options = map.property("Options").value<TTesseraOptions *>();
  ASSERT_EQ(options, map.GetOptions());
  const std::pair<const char *, QVariant> values[] = {{"DefaultTextFont", QFont(QStringLiteral("Serif"), 7)},
                                                      {"DefaultSymbolFont", QFont(QStringLiteral("Sans"), 9)},
                                                      {"DefaultSymbolShape", 35},
                                                      {"DefaultPen", QPen(Qt::red, 3, Qt::DashLine)},
                                                      {"DefaultBrush", QBrush(Qt::green, Qt::CrossPattern)},
                                                      {"DefaultBGColor", QColor(Qt::yellow)},
                                                      {"UseBGColor", true}};
  for (const auto &[name, value] : values) {
    EXPECT_NE(options->property(name), value) << name;
    EXPECT_TRUE(options->setProperty(name, value)) << name;
    EXPECT_EQ(options->property(name), value) << name;
  }
  EXPECT_EQ(options->GetDefaultSymbolFont(), TFont(QStringLiteral("Sans"), 9, clNavy)) << "a font keeps its colour";
  auto *line = map.GetLayers()->Add(QString(), QStringLiteral("layer"))->NewObject<TPolyline>();
  EXPECT_EQ(line->GetPen(), options->GetDefaultPen());
}

TEST(PropertiesTest, PutAToolOnItsMap) {
  TTessera map;
  TCustomMapTool tool;
  EXPECT_TRUE(tool.setProperty("Cursor", TCustomMapTool::crIBeam));
  EXPECT_EQ(tool.GetCursor(), TCustomMapTool::crIBeam);
  EXPECT_TRUE(tool.setProperty("Tessera", QVariant::fromValue(&map)));
  EXPECT_EQ(tool.GetTessera(), &map);
}

}  // namespace
}  // namespace tessera::test
