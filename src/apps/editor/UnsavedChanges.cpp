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
    case mdlObjectStyleChanged:
    case mdlObjectFieldsChanged:
    case mdlObjectGeometryChanged:
    case mdlMoveObject:
      return NoteObject(dynamic_cast<TCustomMapObject *>(sender));
    case mdlAddObject:
    case mdlLayerFieldsChanged:
      if (auto *layer = dynamic_cast<TMapLayer *>(sender)) Note(*layer);
      return;
    case mdlAfterAddLayer:
    case mdlAfterDelLayer:
      // A layer that an undo step holds may come back.
      std::erase_if(m_changed, [](const auto &changed) { return !changed.second; });
      Q_EMIT Changed();
      return;
    default:
      return;
  }
}

void UnsavedChanges::NoteObject(const TCustomMapObject *object) {
  if (object != nullptr && object->GetLayer() != nullptr) Note(*object->GetLayer());
}

bool UnsavedChanges::Has(const TMapLayer &layer) const {
  const auto found = m_changed.find(&layer);
  return found != m_changed.end() && found->second;
}

void UnsavedChanges::Note(TMapLayer &layer) {
  if (m_map.GetIsLoading() || Has(layer)) return;
  m_changed.insert_or_assign(&layer, THandle<TMapLayer>(&layer));
  Q_EMIT Changed();
}

void UnsavedChanges::NoteAllSaved() {
  for (const TMapLayer *layer : GetLayers()) m_changed.erase(layer);
  Q_EMIT Changed();
}

void UnsavedChanges::NoteSaved(const TMapLayer &layer) {
  if (m_changed.erase(&layer) > 0) Q_EMIT Changed();
  Q_EMIT Saved();
}

std::vector<TMapLayer *> UnsavedChanges::GetLayers() const {
  std::vector<TMapLayer *> layers;
  for (const auto &layer : m_map.GetLayers()->Items()) {
    if (Has(*layer)) layers.push_back(layer.get());
  }
  return layers;
}

}  // namespace tessera::apps
