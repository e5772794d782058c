// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/layers/TSelection.h>

#include <algorithm>

namespace tessera {
namespace {

constexpr char MemberIndex[] = "Selection";

}  // namespace

bool TSelection::IsFast() const {
  return GetMapHost()->GetViewFlags().FastSelection && !GetMapHost()->GetInUpdate();
}

void TSelection::Leave(const TCustomMapObject *object) {
  const auto found = m_members.find(object);
  if (--found->second == 0) m_members.erase(found);
}

int TSelection::PositionOf(const TCustomMapObject *object) const {
  if (m_members.at(object) > 1) return IndexOf(object);
  // Most objects that leave have come last, as all do when the selection is cleared.
  return int(std::find(m_items.rbegin(), m_items.rend(), object).base() - m_items.begin()) - 1;
}

void TSelection::SetItem(int index, TCustomMapObject *object) {
  Leave(m_items[CheckedIndex(index, m_items.size(), MemberIndex)]);
  TMapObjectsList::SetItem(index, object);
  Enter(object);
}

void TSelection::Add(TCustomMapObject *object, bool clearFirst) {
  if (Holds(object)) return;
  if (clearFirst) Clear();
  m_items.push_back(object);
  Enter(object);
  if (IsFast()) {
    object->DrawSelection();
  } else {
    GetMapHost()->DoUpdate(true);
  }
  GetMapHost()->FireAddSelection(*object);
  GetMapHost()->TraceMapEvent(mdlAddSelection, object);
}

void TSelection::Insert(TCustomMapObject *object, int index, bool clearFirst) {
  if (clearFirst) Clear();
  const std::size_t at = CheckedIndex(index, m_items.size() + 1, MemberIndex);
  m_items.insert(m_items.begin() + std::ptrdiff_t(at), object);
  Enter(object);
  if (GetMapHost()->GetViewFlags().FastSelection) object->DrawSelection();
}

void TSelection::Delete(int index) {
  const std::size_t at = CheckedIndex(index, m_items.size(), MemberIndex);
  TCustomMapObject *object = m_items[at];
  m_items.erase(m_items.begin() + std::ptrdiff_t(at));
  Leave(object);
  GetMapHost()->FireDelSelection(*object);
  if (IsFast()) {
    object->DrawSelection();
  } else if (!GetMapHost()->GetInUpdate()) {
    GetMapHost()->DoUpdate(true);
  }
}

void TSelection::Remove(TCustomMapObject *object) {
  if (!Holds(object)) return;
  Delete(PositionOf(object));
  GetMapHost()->FireDelSelection(*object);
  GetMapHost()->TraceMapEvent(mdlDelSelection, object);
  if (GetMapHost()->GetViewFlags().FastSelection) GetMapHost()->FireUpdate();
}

void TSelection::Clear() {
  if (GetMapHost() && GetMapHost()->IsReadyToPaint()) {
    // A handler may deselect others meanwhile.
    while (!m_items.empty()) Remove(m_items.back());
  }
  m_items.clear();
  m_members.clear();
}

void TSelection::RemoveLayer(const TObjectLayer *layer) {
  const bool isOneUpdate = !GetMapHost()->GetViewFlags().FastSelection;
  if (isOneUpdate) GetMapHost()->BeginUpdate();
  for (int i = GetCount() - 1; i >= 0; --i) {
    TCustomMapObject *object = GetItem(i);
    if (object && object->GetObjectLayer() == layer) Remove(object);
  }
  if (isOneUpdate) GetMapHost()->EndUpdate(true);
}

void TSelection::Paint() {
  if (!GetMapHost()->GetViewFlags().FastSelection) return;
  for (TCustomMapObject *object : m_items) object->DrawSelection();
}

void TSelection::Zoom() {
  const TBounds bounds = GetVertexBounds();
  if (!bounds.IsInverted()) GetMapHost()->ShowBounds(bounds);
}

TBounds TSelection::GetVertexBounds() const {
  TBounds bounds = TBounds::Empty();
  for (const TCustomMapObject *object : m_items) {
    for (const TPart &part : object->GetParts().Items()) {
      for (const TMapPoint &point : part.GetPoints().Points()) bounds.Widen(point.X, point.Y);
    }
  }
  return bounds;
}

}  // namespace tessera
