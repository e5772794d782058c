// SPDX-License-Identifier: MIT
#include <QImage>
#include <QPluginLoader>
#include <QtUiPlugin/QDesignerCustomWidgetCollectionInterface>
#include <gtest/gtest.h>

namespace tessera::test {
namespace {

using Entries = QList<QDesignerCustomWidgetInterface *>;

Entries LoadEntries() {
  QPluginLoader loader(QStringLiteral(TESSERA_PLUGIN));
  auto *plugin = qobject_cast<QDesignerCustomWidgetCollectionInterface *>(loader.instance());
  EXPECT_NE(plugin, nullptr) << loader.errorString().toStdString();
  return plugin ? plugin->customWidgets() : Entries();
}

QString ClassOf(const QDesignerCustomWidgetInterface &entry) {
  return entry.name().section(QStringLiteral("::"), -1);
}

TEST(PluginTest, OffersItsClassesOnThreePages) {
  const std::pair<QString, QString> pages[] = {
      {QStringLiteral("Tessera - Basic"),
       QStringLiteral("TTessera TLayerControl TLayersComboBox TDataBrowser TObjectProperties TScaleBar TMapLegend")},
      {QStringLiteral("Tessera - Map Tools"),
       QStringLiteral(
           "TSelectionTool TRectSelectionTool TCircleSelectionTool TPolygonSelectionTool TZoomInTool TZoomOutTool "
           "TPanTool TMoveTool TTransformTool TVertexTool TLineTool TPolylineTool TRectTool TRegionTool "
           "TCircleTool TSymbolTool TTextTool TIdentifyTool TMeasureTool")},
      {QStringLiteral("Tessera - Format Providers"),
       QStringLiteral("TSimpleMIFFormatProvider TMapInfoFormatProvider")}};
  QStringList expected;
  for (const auto &[page, classes] : pages) {
    for (const QString &name : classes.split(u' ')) expected << page + u'/' + name;
  }
  QStringList offered;
  for (const auto *entry : LoadEntries()) {
    offered << entry->group() + u'/' + ClassOf(*entry);
    EXPECT_TRUE(entry->domXml().contains(QStringLiteral("displayname=\"%1\"").arg(ClassOf(*entry))));
    QImage blank(24, 24, QImage::Format_ARGB32_Premultiplied);
    blank.fill(Qt::transparent);
    EXPECT_NE(entry->icon().pixmap(24).toImage(), blank) << entry->name().toStdString();
  }
  EXPECT_EQ(offered.join(u'\n').toStdString(), expected.join(u'\n').toStdString());
}

}  // namespace
}  // namespace tessera::test
