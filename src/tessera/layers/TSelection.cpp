// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/base/GuardedCall.h>
#include <tessera/base/THandle.h>
#include <tessera/layers/TSelection.h>
#include <tessera/objects/TMapScopes.h>

#include <optional>

namespace tessera {

bool TSelection::IsFast() const {
  return GetMapHost()->GetViewFlags().FastSelection && !GetMapHost()->GetInUpdate();
}

void TSelection::Left(const TCustomMapObject *object) {
  const auto found = m_members.find(object);
  const int entries = --found->second.entries;
  if (entries == 0) {
    m_members.erase(found);
  } else if (entries == 1) {
    found->second.slot = TMapObjectsList::SlotOf(object);
  }
}

std::size_t TSelection::SlotOf(const TCustomMapObject *object) const {
  const auto found = m_members.find(object);
  if (found == m_members.end()) return NoSlot;
  return found->second.entries == 1 ? found->second.slot : TMapObjectsList::SlotOf(object);
}

void TSelection::NoteSlot(TCustomMapObject *object, std::size_t slot) const {
  const auto found = m_members.find(object);
  if (found != m_members.end()) found->second.slot = slot;
}

void TSelection::SetItem(int index, TCustomMapObject *object) {
  TCustomMapObject *before = GetItem(index);
  TMapObjectsList::SetItem(index, object);
  Left(before);
  ++m_members[object].entries;
  m_members[object].slot = std::size_t(index);
}

void TSelection::DrawOrUpdate(TCustomMapObject &object) {
  if (IsFast()) {
    object.DrawSelection();
  } else if (!GetMapHost()->GetInUpdate()) {
    GetMapHost()->DoUpdate(true);
  }
}

void TSelection::Add(TCustomMapObject *object, bool clearFirst) {
  if (Holds(object)) return;
  const THandle<TSelection> self(this);
  const THandle<TCustomMapObject> added(object);
  if (clearFirst) Clear();
  if (!self || !added || Holds(object)) return;  // the handlers of Clear have done otherwise
  ++m_members[object].entries;
  TMapObjectsList::Add(object);
  TMapHost *map = GetMapHost();
  if (map == nullptr) return;
  if (IsFast()) {
    object->DrawSelection();
  } else {
    map->DoUpdate(true);
  }
  AllSteps steps;
  steps.Try([&] { map->FireAddSelection(*object); });
  if (self && added && Holds(object)) steps.Try([&] { map->TraceMapEvent(mdlAddSelection, object); });
  steps.Rethrow();
}

void TSelection::Insert(TCustomMapObject *object, int index, bool clearFirst) {
  const THandle<TSelection> self(this);
  const THandle<TCustomMapObject> inserted(object);
  if (clearFirst) Clear();
  if (!self || !inserted) return;
  CheckedIndex(index, std::size_t(GetCount()) + 1, "Selection");
  ++m_members[object].entries;
  TMapObjectsList::Insert(index, object);
  if (GetMapHost() && GetMapHost()->GetViewFlags().FastSelection) object->DrawSelection();
}

void TSelection::TakeOut(std::size_t slot) {
  TCustomMapObject *object = AtSlot(slot);
  Vacate(slot);
  Left(object);
  TMapHost *map = GetMapHost();
  if (map == nullptr) return;
  const THandle<TSelection> self(this);
  const THandle<TCustomMapObject> taken(object);
  AllSteps steps;
  steps.Try([&] { map->FireDelSelection(*object); });
  if (self && taken) {
    DrawOrUpdate(*object);
  } else {
    map->DoUpdate(true);  // the highlight went without being erased
  }
  steps.Rethrow();
}

void TSelection::Delete(int index) {
  CloseGaps();
  TakeOut(CheckedIndex(index, std::size_t(GetCount()), "Selection"));
}

void TSelection::Remove(TCustomMapObject *object) {
  const std::size_t slot = SlotOf(object);
  if (slot == NoSlot) return;
  const THandle<TCustomMapObject> removed(object);
  TMapHost *map = GetMapHost();
  AllSteps steps;
  steps.Try([&] { TakeOut(slot); });
  if (map) {
    if (removed) steps.Try([&] { map->FireDelSelection(*object); });
    if (removed) steps.Try([&] { map->TraceMapEvent(mdlDelSelection, object); });
    if (map->GetViewFlags().FastSelection) steps.Try([&] { map->FireUpdate(); });
  }
  steps.Rethrow();
}

std::vector<TCustomMapObject *> TSelection::Backwards() const {
  const auto items = Items();
  return {items.rbegin(), items.rend()};
}

void TSelection::Clear() {
  const THandle<TSelection> self(this);
  AllSteps steps;
  if (GetMapHost() && GetMapHost()->IsReadyToPaint()) {
    // Handlers may take out others meanwhile, and enter some.
    for (TCustomMapObject *object : Backwards()) {
      if (self && Holds(object)) steps.Try([&] { Remove(object); });
    }
    if (self && GetCount() > 0) GetMapHost()->DoUpdate(true);
  }
  if (self) ForgetAll();
  steps.Rethrow();
}

void TSelection::ForgetAll() {
  Empty();
  m_members.clear();
}

void TSelection::RemoveLayer(const TObjectLayer *layer) {
  TMapHost *map = GetMapHost();
  std::optional<TUpdateScope> oneUpdate;
  if (map && !map->GetViewFlags().FastSelection) oneUpdate.emplace(*map);
  const THandle<TSelection> self(this);
  AllSteps steps;
  for (TCustomMapObject *object : Backwards()) {
    if (self && Holds(object) && object->GetObjectLayer() == layer) steps.Try([&] { Remove(object); });
  }
  steps.Rethrow();
}

void TSelection::Leave(TCustomMapObject &object) {
  const auto found = m_members.find(&object);
  if (found == m_members.end()) return;
  const THandle<TSelection> self(this);
  const THandle<TCustomMapObject> leaving(&object);
  AllSteps steps;
  // A handler may enter it again, but not for ever.
  for (int i = found->second.entries; i > 0 && self && leaving && Holds(&object); --i) {
    steps.Try([&] { Remove(&object); });
  }
  if (self && leaving) Forget(object);
  steps.Rethrow();
}

void TSelection::Forget(const TCustomMapObject &object) {
  const bool isThere = Holds(&object);
  while (Holds(&object)) {
    Vacate(SlotOf(&object));
    Left(&object);
  }
  if (isThere && GetMapHost()) GetMapHost()->DoUpdate(true);
}

void TSelection::Paint() {
  if (GetMapHost() == nullptr || !GetMapHost()->GetViewFlags().FastSelection) return;
  for (TCustomMapObject *object : Items()) object->DrawSelection();
}

void TSelection::Zoom() {
  const TBounds bounds = GetVertexBounds();
  if (!bounds.IsInverted() && GetMapHost()) GetMapHost()->ShowBounds(bounds);
}

TBounds TSelection::GetVertexBounds() const {
  TBounds bounds = TBounds::Empty();
  for (const TCustomMapObject *object : Items()) {
    for (const TPart &part : object->GetParts().Items()) {
      for (const TMapPoint &point : part.GetPoints().Points()) bounds.Widen(point.X, point.Y);
    }
  }
  return bounds;
}

}  // namespace tessera
