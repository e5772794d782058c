// SPDX-License-Identifier: MIT
#include "MapFixture.h"

#include <tessera/base/Exceptions.h>
#include <tessera/objects/TSymbol.h>
#include <tessera/providers/CustomFormatProvider.h>

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

namespace tessera::test {
namespace {

/// Reads one symbol from any table, and fails with those that are empty.
class TableProvider : public TCustomFormatProvider {
 public:
  QString GetDescription() const override { return QStringLiteral("tables"); }
  QString GetFilter() const override { return QStringLiteral("Tables|*.tab"); }
  QUuid GetGUID() const override { return QUuid::createUuidV5(QUuid(), QStringLiteral("tables")); }
  bool CanProcessFile(const QString &name) const override { return name.endsWith(u".tab", Qt::CaseInsensitive); }
  bool Load(TMapLayer *layer, const QString &name) override {
    layer->NewObject<TSymbol>();
    return QFile(name).size() > 0;
  }
  bool Save(TMapLayer * /*layer*/, const QString & /*name*/) override { return false; }
};

class WorkspaceTest : public MapFixture {
 protected:
  void MakeTable(const QString &name, const QByteArray &content = "table") {
    const QString path = folder.filePath(name);
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(content);
  }
  TWorkspaceReport Load(const QByteArray &text) {
    QFile file(folder.filePath(QStringLiteral("map.wor")));
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(text);
    file.close();
    return map.LoadWOR(file.fileName());
  }
  QString Names() const {
    QStringList names;
    for (const auto &layer : map.GetLayers()->Items()) names << layer->GetName();
    return names.join(u' ');
  }
  TMapLayer &Layer(int index) const { return *map.GetLayers()->GetLayer(index); }

  const QTemporaryDir folder;
  TableProvider provider;
};

TEST_F(WorkspaceTest, OpensTheTablesOfTheMapFromTheBottomUp) {
  for (const char *name : {"roads.tab", "Lakes.TAB", "deep/towns.tab", "unused.tab"}) {
    MakeTable(QString::fromLatin1(name));
  }
  const TWorkspaceReport report = Load(
      "!Workspace\n!Version 300\n"
      "Open Table \"roads\" As roads Interactive\n"
      "OPEN TABLE \"LAKES\" As lakes\n"
      "open table \"Deep\\..\\deep\\towns\" as towns interactive\n"
      "Open Table \"unused\" As unused\n"
      "Open Table \"nowhere\" As nowhere\n"
      "Browse * From roads\n"
      "Map From towns,\n  nowhere , lakes,roads\n  Width 5 units \"in\"\n"
      "Set Map\n  CoordSys Earth Projection 1, 0\n  Center (37.5,-12.25)\n"
      "  Layer 1 Display Off Label Auto On\n"
      "  Layer 2 Display Graphic Label Auto Off\n"
      "  Layer 3 Display Graphic Label Auto Off\n"
      "  Layer 4 Display Global Global Line (1,2,0) Pen (20,14,255) Brush (5,16711680,65280)\n"
      "    Font (\"Arial\",3,11,255) Label Auto On\n"
      "Set Map Layer 3 Editable On\n");
  EXPECT_TRUE(report.isRead);
  EXPECT_EQ(Names(), QStringLiteral("roads LAKES towns"));
  EXPECT_EQ(report.missingTables, QStringList{QStringLiteral("nowhere")});
  EXPECT_TRUE(report.unreadTables.isEmpty());
  EXPECT_EQ(map.GetCenterX(), 37.5);
  EXPECT_EQ(map.GetCenterY(), -12.25);
  EXPECT_EQ(map.GetZoom(), 1);
  EXPECT_FALSE(Layer(2).GetVisible());
  EXPECT_TRUE(Layer(2).GetAutoLabel());
  EXPECT_TRUE(Layer(1).GetEditable());
  EXPECT_FALSE(Layer(1).GetAutoLabel());
  EXPECT_EQ(Layer(1).GetObjectCount(), 1);
  EXPECT_TRUE(Layer(0).GetAutoLabel());
  EXPECT_EQ(Layer(0).GetDefaultBrush().GetStyle(), TBrushStyle::bsBDiagonal);
  EXPECT_EQ(Layer(0).GetDefaultBrush().GetColor(), clRed);
  EXPECT_EQ(Layer(0).GetDefaultPen().GetWidth(), 1) << "of 20";
  EXPECT_EQ(Layer(0).GetDefaultPen().GetStyle(), TPenStyle::psDashDot);
  EXPECT_EQ(Layer(0).GetDefaultPen().GetColor(), clBlue);
  EXPECT_EQ(Layer(0).GetDefaultFont().GetName(), QStringLiteral("Arial"));
  EXPECT_EQ(Layer(0).GetDefaultFont().GetSize(), 11);
  EXPECT_EQ(report.honoured.size(), 8U);
  ASSERT_EQ(report.skipped.size(), 1U);
  EXPECT_EQ(report.skipped[0].line, 8);
  EXPECT_EQ(report.skipped[0].words, QStringLiteral("Browse * From roads"));
}

TEST_F(WorkspaceTest, ReadsCyrillicNamesByTheWorkspacesCharacterSet) {
  MakeTable(QStringLiteral("Река.tab"));
  MakeTable(QStringLiteral("bad.tab"), QByteArray());
  const TWorkspaceReport report = Load(
      "!Workspace\n!Charset WindowsCyrillic\nOpen Table \"\xD0\xE5\xEA\xE0\" As _1\nOpen Table \"bad\" As bad\n"
      "Open Table \"without end\nOpen Table \"\" As x");
  EXPECT_EQ(Names(), QStringLiteral("bad Река")) << "as they are opened, when the map does not tell";
  EXPECT_EQ(report.unreadTables.size(), 1);
  EXPECT_EQ(map.GetCenterX(), 100) << "without a centre the view stays";
}

TEST_F(WorkspaceTest, ThrowsAtNumbersThatAreNone) {
  MakeTable(QStringLiteral("roads.tab"));
  const QByteArray open("Open Table \"roads\" As roads\n");
  EXPECT_THROW(Load(open + "Set Map Center (a,5)\n"), EConvertError);
  EXPECT_EQ(map.GetLayers()->GetCount(), 1) << "what was added stays";
  EXPECT_THROW(Load(open + "Set Map Layer one Editable On\n"), EConvertError);
  EXPECT_THROW(Load(open + "Set Map Center (5)\n"), EConvertError);
  EXPECT_FALSE(map.LoadWOR(folder.filePath(QStringLiteral("none.wor"))).isRead);
}

TEST_F(WorkspaceTest, SurvivesWorkspacesThatAreCutAnywhere) {
  MakeTable(QStringLiteral("roads.tab"));
  const QByteArray whole(
      "!Charset \"WindowsLatin2\"\nOpen Table \"roads\" As roads\nMap From roads\nSet Map Center (1,2)\n Layer 1 "
      "Display "
      "Global Pen (1,2,3) Brush (1,2) Font (\"a\",1) Label Auto On\nSet Map Layer 1 Editable On\n");
  for (qsizetype size = 0; size <= whole.size(); ++size) {
    try {
      Load(whole.left(size));
    } catch (const EConvertError &) {
      EXPECT_GT(size, 80) << "within numbers only";
    }
    map.GetLayers()->Clear();
  }
}

}  // namespace
}  // namespace tessera::test
