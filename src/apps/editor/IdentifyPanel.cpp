// SPDX-License-Identifier: MIT
#include <apps/editor/IdentifyPanel.h>
#include <tessera/layers/TMapLayer.h>
#include <tessera/map/ObjectWords.h>

namespace tessera::apps {

IdentifyPanel::IdentifyPanel(QWidget *parent) : QTreeWidget(parent) {
  setColumnCount(2);
  setHeaderLabels({tr("Object"), tr("Value")});
  setEditTriggers(NoEditTriggers);
}

void IdentifyPanel::Show(const TIdentifyTool::Objects &objects) {
  clear();
  for (const auto &object : objects) {
    if (object) Add(*object.Get());
  }
  if (topLevelItemCount() == 0) addTopLevelItem(new QTreeWidgetItem({tr("Nothing here")}));
  expandAll();
  resizeColumnToContents(0);
}

void IdentifyPanel::Add(const TCustomMapObject &object) {
  const TMapLayer *layer = object.GetLayer();
  auto *item = new QTreeWidgetItem(this, {layer ? layer->GetName() : QString(), KindName(object)});
  const TDataFields &fields = object.GetFields();
  for (int i = 0; i < fields.GetCount(); ++i) {
    new QTreeWidgetItem(item, {fields.GetFields(i).GetName(), ShownText(fields.GetFields(i), locale())});
  }
}

}  // namespace tessera::apps
