// SPDX-License-Identifier: MIT
#include <tessera/controls/LayersComboBox.h>
#include <tessera/map/detail/MapByName.h>

namespace tessera {

void TLayersComboBoxDataLink::MapEvent(TMapDataLinkEvent event, TObject *sender, int info) {
  TMapDataLink::MapEvent(event, sender, info);
  if (m_comboBox == nullptr) return;
  switch (event) {
    case mdlAfterAddLayer:
      m_comboBox->AddLayer(*static_cast<TMapLayer *>(sender));
      break;
    case mdlDelLayer:
      m_comboBox->DeleteLayer(sender);
      break;
    case mdlMoveLayer:
    case mdlExchangeLayer:
      m_comboBox->update();
      break;
    default:
      break;
  }
}

TLayersComboBox::TLayersComboBox(QWidget *parent)
    : QComboBox(parent),
      m_dataLink(std::make_unique<TLayersComboBoxDataLink>()),
      m_mapByName(new detail::MapByName(
          *this, [this](TTessera *map) { SetMap(map); }, [this] { return GetMap(); })) {
  m_dataLink->SetLayersComboBox(this);
}

TLayersComboBox::~TLayersComboBox() = default;

QByteArray TLayersComboBox::GetMapName() const {
  return m_mapByName->GetName();
}

void TLayersComboBox::SetMapName(const QByteArray &name) {
  m_mapByName->SetName(name);
}

void TLayersComboBox::SetMap(TTessera *map) {
  if (map == nullptr) return;
  m_mapByName->Forget();
  m_dataLink->SetMap(map);
}

TMapLayer *TLayersComboBox::GetCurrentLayer() const {
  const TTessera *map = GetMap();
  const TMapLayers *layers = map ? map->GetLayers() : nullptr;
  const int index = currentIndex();
  return layers && index >= 0 && index < layers->GetCount() ? layers->GetLayer(index) : nullptr;
}

TMapLayer *TLayersComboBox::GetItemLayer(int index) const {
  return itemData(index).value<THandle<TMapLayer>>().Get();
}

void TLayersComboBox::AddLayer(TMapLayer &layer) {
  addItem(layer.GetName(), QVariant::fromValue(THandle<TMapLayer>(&layer)));
}

void TLayersComboBox::DeleteLayer(const TObject *layer) {
  for (int i = 0; i < count(); ++i) {
    if (GetItemLayer(i) != layer) continue;
    removeItem(i);
    break;
  }
  update();
}

}  // namespace tessera
