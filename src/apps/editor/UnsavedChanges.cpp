// SPDX-License-Identifier: MIT
#include <apps/editor/UnsavedChanges.h>

namespace tessera::apps {

UnsavedChanges::UnsavedChanges(TTessera &map, QObject *parent)
    : QObject(parent),
      m_map(map),
      m_follower(map, [this](TMapDataLinkEvent event, TObject *sender) { Follow(event, sender); }) {
  // When the links are told of an object that goes, it has left its layer already.
  connect(&map, &TTessera::OnBeforeRemoveObject, this,
          [this](TTessera *, const TCustomMapObject *object) { NoteObject(object); });
  connect(&map, &TTessera::OnDeleteObject, this, [this](const TCustomMapObject *object) { NoteObject(object); });
}

void UnsavedChanges::Follow(TMapDataLinkEvent event, TObject *sender) {
  switch (event) {
    case mdlAddObject:
    case mdlObjectStyleChanged:
    case mdlObjectFieldsChanged:
    case mdlMoveObject:
      return NoteObject(dynamic_cast<TCustomMapObject *>(sender));
    case mdlLayerFieldsChanged:
      if (const auto *layer = dynamic_cast<TMapLayer *>(sender)) Note(*layer);
      return;
    case mdlAfterDelLayer:
      std::erase_if(m_changed, [this](const TMapLayer *layer) { return m_map.GetLayers()->IndexOf(layer) < 0; });
      Q_EMIT Changed();
      return;
    default:
      return;
  }
}

void UnsavedChanges::NoteObject(const TCustomMapObject *object) {
  if (object != nullptr && object->GetLayer() != nullptr) Note(*object->GetLayer());
}

void UnsavedChanges::Note(const TMapLayer &layer) {
  if (!m_map.GetIsLoading() && m_changed.insert(&layer).second) Q_EMIT Changed();
}

void UnsavedChanges::NoteSaved(const TMapLayer &layer) {
  if (m_changed.erase(&layer) > 0) Q_EMIT Changed();
}

std::vector<TMapLayer *> UnsavedChanges::GetLayers() const {
  std::vector<TMapLayer *> layers;
  for (const auto &layer : m_map.GetLayers()->Items()) {
    if (Has(*layer)) layers.push_back(layer.get());
  }
  return layers;
}

}  // namespace tessera::apps
