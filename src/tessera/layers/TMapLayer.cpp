// SPDX-License-Identifier: MIT
// The layer's objects and switches. Handlers may do anything: after each event the layer and the object that the event
// was about are looked for by their handles.
#include <tessera/base/Exceptions.h>
#include <tessera/base/GuardedCall.h>
#include <tessera/layers/TMapLayers.h>
#include <tessera/layers/detail/ObjectStore.h>
#include <tessera/objects/TMapObjectsList.h>

#include <QScopeGuard>

#include <algorithm>

namespace tessera {
namespace {

constexpr char ObjectIndex[] = "Object";

}  // namespace

TMapLayer::TMapLayer() : m_objects(std::make_unique<detail::ObjectStore>(*this)) {}

TMapLayer::~TMapLayer() {
  DestroySilently();
}

void TMapLayer::BeforeDestruction() {
  AnnounceEnd();
}

void TMapLayer::AnnounceEnd() {
  if (m_isEnding || GetMapHost() == nullptr) return;
  m_isEnding = true;
  const THandle<TMapLayer> self(this);
  AllSteps steps;
  bool allowDelete = false;
  steps.Try([&] { GetMapHost()->FireBeforeDelLayer(*this, false, allowDelete); });
  if (self && GetMapHost() && !GetMapHost()->IsBeingDestroyed()) steps.Try([this] { DeleteObjects(); });
  steps.Rethrow();
}

void TMapLayer::SetMap(TMapHost *map) {
  TMapHost *present = GetMapHost();
  if (present == map) return;
  if (present && !present->IsBeingDestroyed()) {
    const THandle<TMapLayer> self(this);
    GuardedCall([&] { present->GetSelection()->RemoveLayer(this); });
    if (!self) return;
    for (const auto &object : m_objects->Items()) present->GetDisplayed()->Remove(object.get());
  }
  StoreMap(map);
}

TCustomMapObject *TMapLayer::AddObject(std::unique_ptr<TCustomMapObject> object, bool paintNow) {
  TCustomMapObject *added = object.get();
  added->SetLayer(this);
  m_objects->Append(std::move(object));
  TMapHost *map = GetMapHost();
  {
    const auto loud = qScopeGuard([this, wasQuiet = IsQuiet()] { SetQuiet(wasQuiet); });
    SetQuiet(true);
    added->GetFields().Assign(m_fields);
    if (map) added->SetStyle(map->GetDefaultStyle(added->GetFontKind()));
  }
  if (map == nullptr) return added;
  map->SetModified(true);
  // Nearly all objects are added by a reader, with nobody to tell.
  if ((paintNow || map->IsFollowed()) && !TellOfNew(*added, paintNow)) return nullptr;
  map = added->GetMapHost();
  if (map && !map->GetInUpdate() && map->IsReadyToPaint()) added->Paint();
  return added;
}

bool TMapLayer::TellOfNew(TCustomMapObject &object, bool paintNow) {
  const THandle<TMapLayer> self(this);
  const THandle<TCustomMapObject> handle(&object);
  AllSteps steps;
  if (paintNow) steps.Try([&] { GetMapHost()->FireAddObject(object); });
  if (self) steps.Try([this] { TraceToMap(mdlAddObject); });
  steps.Rethrow();
  return bool(handle);
}

std::unique_ptr<TCustomMapObject> TMapLayer::RemoveObject(TCustomMapObject *object) {
  if (IndexOf(object) < 0) return nullptr;
  auto removed = m_objects->Take(*object);
  removed->SetLayer(nullptr);
  return removed;
}

std::unique_ptr<TCustomMapObject> TMapLayer::TakeSilently(TCustomMapObject &object) {
  auto taken = m_objects->Take(object);
  if (taken) taken->Detach();
  return taken;
}

void TMapLayer::ForgetObject(TCustomMapObject &object) {
  // The object is being destroyed already, by whoever owns it now.
  static_cast<void>(m_objects->Take(object).release());
}

void TMapLayer::NoteGeometry(TCustomMapObject &object) {
  m_objects->NoteGeometry(object);
}

void TMapLayer::NoteChange(TCustomMapObject &object, TMapDataLinkEvent event) {
  if (event == mdlObjectStyleChanged) m_objects->NoteStyle(object);
  TMapHost *map = GetMapHost();
  if (map && !map->GetIsLoading()) map->TraceMapEvent(event, &object);
}

void TMapLayer::FieldsChanged() {
  if (GetMapHost() && !GetMapHost()->GetIsLoading()) TraceToMap(mdlLayerFieldsChanged);
}

void TMapLayer::Destroy(TCustomMapObject &object) {
  const THandle<TMapLayer> self(this);
  const THandle<TCustomMapObject> doomed(&object);
  AllSteps steps;
  steps.Try([&] { object.AnnounceEnd(); });
  if (self && doomed) TakeSilently(object).reset();
  steps.Rethrow();
}

void TMapLayer::DestroySilently() {
  while (m_objects->GetCount() > 0) TakeSilently(*m_objects->Last()).reset();
}

void TMapLayer::DeleteObject(int index) {
  const THandle<TMapLayer> self(this);
  AllSteps steps;
  if (index != -1) {
    steps.Try([&] { Destroy(*GetObjects(index)); });
    steps.Rethrow();
    if (!self) return;
    // Dropped, but not destroyed.
    TCustomMapObject *next = GetObjects(index);
    static_cast<void>(m_objects->Take(*next).release());
    next->SetLayer(nullptr);
  }
  UpdateMap();
}

void TMapLayer::DeleteObjects() {
  const THandle<TMapLayer> self(this);
  AllSteps steps;
  // So often, and not as long as there are any: handlers may add some.
  for (int i = GetObjectCount(); i > 0 && self && GetObjectCount() > 0; --i) {
    steps.Try([this] { Destroy(*m_objects->Last()); });
  }
  if (self) {
    DestroySilently();
    UpdateMap();
  }
  steps.Rethrow();
}

int TMapLayer::GetObjectCount() const {
  return int(m_objects->GetCount());
}

TCustomMapObject *TMapLayer::GetObjects(int index) const {
  return m_objects->Items()[CheckedIndex(index, m_objects->GetCount(), ObjectIndex)].get();
}

std::unique_ptr<TCustomMapObject> TMapLayer::SetObjects(int index, std::unique_ptr<TCustomMapObject> object) {
  const std::size_t at = CheckedIndex(index, m_objects->GetCount(), ObjectIndex);
  object->SetLayer(this);
  auto replaced = m_objects->Replace(at, std::move(object));
  replaced->Detach();
  return replaced;
}

void TMapLayer::ReserveObjects(std::size_t count) {
  m_objects->Reserve(count);
}

int TMapLayer::IndexOf(const TCustomMapObject *object) const {
  if (object == nullptr || object->GetObjectLayer() != this) return -1;
  const std::size_t index = m_objects->IndexOf(*object);
  return index == m_objects->GetCount() ? -1 : int(index);
}

void TMapLayer::UpdateMap() {
  if (GetMapHost()) GetMapHost()->DoUpdate(true);
}

void TMapLayer::TraceToMap(TMapDataLinkEvent event) {
  if (GetMapHost()) GetMapHost()->TraceMapEvent(event, this);
}

void TMapLayer::SetVisible(bool visible) {
  const THandle<TMapLayer> self(this);
  AllSteps steps;
  m_isVisible = visible;
  if (!visible) {
    m_isEditable = false;
    if (GetMapHost()) steps.Try([this] { GetMapHost()->GetSelection()->RemoveLayer(this); });
  }
  if (self) UpdateMap();
  if (self) steps.Try([this] { TraceToMap(mdlLayerVisibleChanged); });
  steps.Rethrow();
}

void TMapLayer::SetSelectable(bool selectable) {
  const THandle<TMapLayer> self(this);
  AllSteps steps;
  m_isSelectable = m_isEditable || (selectable && m_isVisible);
  if (!m_isSelectable && GetMapHost()) steps.Try([this] { GetMapHost()->GetSelection()->RemoveLayer(this); });
  if (self) steps.Try([this] { TraceToMap(mdlLayerSelectableChanged); });
  steps.Rethrow();
}

void TMapLayer::SetEditable(bool editable) {
  const THandle<TMapLayer> self(this);
  AllSteps steps;
  m_isEditable = editable && m_isVisible;
  if (m_isEditable) {
    m_isSelectable = true;
    if (GetMapHost()) steps.Try([this] { GetMapHost()->GetLayers()->EndEditingBut(*this); });
  }
  if (self) steps.Try([this] { TraceToMap(mdlLayerEditableChanged); });
  steps.Rethrow();
}

void TMapLayer::SetAutoLabel(bool autoLabel) {
  if (m_autoLabel == autoLabel) return;
  const THandle<TMapLayer> self(this);
  AllSteps steps;
  m_autoLabel = autoLabel;
  steps.Try([this] { TraceToMap(mdlLayerAutolabelChanged); });
  if (self) UpdateMap();
  steps.Rethrow();
}

bool TMapLayer::ValidZoom() const {
  const double zoom = GetMapHost() ? GetMapHost()->GetViewport().Zoom : 0;
  if (m_minZoom == 0 && m_maxZoom == 0) return true;
  if (m_minZoom == 0 || zoom < m_minZoom || m_maxZoom == 0) return false;
  return zoom <= m_maxZoom;
}

}  // namespace tessera
