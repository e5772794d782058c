// SPDX-License-Identifier: MIT
#include <apps/editor/IdentifyPanel.h>
#include <apps/editor/LayerDocks.h>
#include <tessera/controls/LayerCtrl.h>
#include <tessera/controls/LayersComboBox.h>
#include <tessera/controls/TDataBrowser.h>
#include <tessera/controls/TObjectProperties.h>
#include <tessera/editing/TMapEdits.h>

#include <QDockWidget>
#include <QItemSelectionModel>

namespace tessera::apps {

LayerDocks::LayerDocks(QMainWindow &window, TTessera &map)
    : QObject(&window),
      m_map(map),
      m_layers(new TLayerControl),
      m_browser(new TDataBrowser),
      m_identified(new IdentifyPanel),
      m_follower(map, [this](TMapDataLinkEvent event, TObject *) { Follow(event); }) {
  m_layers->SetMap(&map);
  m_browser->SetMap(&map);
  AddDock(window, Qt::LeftDockWidgetArea, tr("&Layers"), "layers", m_layers);
  AddDock(window, Qt::BottomDockWidgetArea, tr("&Attributes"), "attributes", m_browser);
  m_browser->parentWidget()->hide();
  AddDock(window, Qt::RightDockWidgetArea, tr("&Identified"), "identified", m_identified);
  m_identified->parentWidget()->hide();
  auto *properties = new TObjectProperties;
  properties->SetMap(&map);
  AddDock(window, Qt::RightDockWidgetArea, tr("&Properties"), "properties", properties);
  properties->parentWidget()->hide();
  connect(m_layers->selectionModel(), &QItemSelectionModel::selectionChanged, m_browser,
          [this] { m_browser->SetLayer(GetCurrentLayer()); });
}

void LayerDocks::AddDock(QMainWindow &window, Qt::DockWidgetArea area, const QString &title, const char *name,
                         QWidget *panel) {
  auto *dock = new QDockWidget(QString(title).remove(u'&'), &window);
  dock->setObjectName(QString::fromLatin1(name));
  dock->setWidget(panel);
  window.addDockWidget(area, dock);
  dock->toggleViewAction()->setText(title);
  m_actions.append(dock->toggleViewAction());
}

void LayerDocks::Follow(TIdentifyTool &tool) {
  connect(&tool, &TIdentifyTool::OnIdentify, m_identified, [this](TIdentifyTool *, const auto &objects) {
    m_identified->Show(objects);
    m_identified->parentWidget()->show();
  });
}

TMapLayer *LayerDocks::GetCurrentLayer() const {
  if (TMapLayer *layer = m_layers->GetCurrentLayer()) return layer;
  const TMapLayers &layers = *m_map.GetLayers();
  return layers.GetCount() == 0 ? nullptr : layers.Last();
}

QWidget *LayerDocks::MakeEditableLayerChoice() {
  m_editable = new TLayersComboBox;
  m_editable->setToolTip(tr("The layer that is drawn into"));
  m_editable->setPlaceholderText(tr("Nothing editable"));
  m_editable->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  m_editable->SetMap(&m_map);
  connect(m_editable, &QComboBox::activated, this, [this](int index) {
    // Not by its place: items keep theirs when layers are moved.
    if (TMapLayer *layer = m_editable->GetItemLayer(index)) {
      TMapEdits(&m_map).ChangeLayers(tr("edit layer"), [layer] { layer->SetEditable(true); });
    }
    ShowEditableLayer();
  });
  ShowEditableLayer();
  return m_editable;
}

void LayerDocks::Follow(TMapDataLinkEvent event) {
  // When all links have been told, the list among them.
  if (event == mdlAfterAddLayer) QMetaObject::invokeMethod(this, &LayerDocks::ChooseTopLayer, Qt::QueuedConnection);
  const bool isAboutEditing = event == mdlAfterAddLayer || event == mdlAfterDelLayer ||
                              event == mdlLayerEditableChanged || event == mdlLayerVisibleChanged;
  if (isAboutEditing) QMetaObject::invokeMethod(this, &LayerDocks::ShowEditableLayer, Qt::QueuedConnection);
}

void LayerDocks::ChooseTopLayer() {
  m_layers->SetItemIndex(m_map.GetLayers()->GetCount() - 1);
}

void LayerDocks::ShowEditableLayer() {
  if (m_editable == nullptr) return;
  const TMapLayer *layer = m_map.GetLayers()->GetEditableLayer();
  int index = m_editable->count() - 1;
  while (index >= 0 && m_editable->GetItemLayer(index) != layer) --index;
  m_editable->setCurrentIndex(layer == nullptr ? -1 : index);
}

}  // namespace tessera::apps
