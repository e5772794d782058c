// SPDX-License-Identifier: MIT
#include <apps/editor/LayerPanel.h>
#include <apps/editor/UnsavedChanges.h>

#include <QSignalBlocker>

#include <utility>

namespace tessera::apps {

LayerPanel::LayerPanel(TTessera &map, const UnsavedChanges &unsaved, QWidget *parent)
    : QListWidget(parent), m_map(map), m_unsaved(unsaved), m_follower(map, [this](TMapDataLinkEvent event, TObject *) {
        m_isLayerNew = m_isLayerNew || event == mdlAfterAddLayer;
        m_refresh.start();
      }) {
  // Many notices, of many objects say, are one change here.
  m_refresh.setSingleShot(true);
  connect(&m_refresh, &QTimer::timeout, this, &LayerPanel::Fill);
  connect(&unsaved, &UnsavedChanges::Changed, this, [this] { m_refresh.start(); });
  connect(this, &QListWidget::itemChanged, this, &LayerPanel::TakeOver);
}

TMapLayer *LayerPanel::GetCurrentLayer() const {
  const TMapLayers &layers = *m_map.GetLayers();
  const int index = currentRow() < 0 ? layers.GetCount() - 1 : LayerIndexOf(currentRow());
  return index >= 0 && index < layers.GetCount() ? layers.GetLayer(index) : nullptr;
}

void LayerPanel::ShowLayer(QListWidgetItem &item, const TMapLayer &layer) const {
  item.setText(m_unsaved.Has(layer) ? layer.GetName() + QStringLiteral(" *") : layer.GetName());
  item.setCheckState(layer.GetVisible() ? Qt::Checked : Qt::Unchecked);
  item.setToolTip(layer.GetFileName());
  QFont font = this->font();
  font.setBold(layer.GetEditable());
  item.setFont(font);
}

void LayerPanel::Fill() {
  const QSignalBlocker blocker(this);
  const TMapLayers &layers = *m_map.GetLayers();
  const int chosen = currentRow() < 0 ? -1 : LayerIndexOf(currentRow());
  while (count() > layers.GetCount()) delete takeItem(count() - 1);
  while (count() < layers.GetCount()) addItem(QString());
  for (int row = 0; row < count(); ++row) ShowLayer(*item(row), *layers.GetLayer(LayerIndexOf(row)));
  const bool keepsChoice = !std::exchange(m_isLayerNew, false) && chosen >= 0 && chosen < count();
  setCurrentRow(keepsChoice ? LayerIndexOf(chosen) : 0);
}

void LayerPanel::TakeOver(const QListWidgetItem *item) {
  const int index = LayerIndexOf(row(item));
  if (index < m_map.GetLayers()->GetCount()) {
    m_map.GetLayers()->GetLayer(index)->SetVisible(item->checkState() == Qt::Checked);
  }
}

}  // namespace tessera::apps
