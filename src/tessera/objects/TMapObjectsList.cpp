// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/objects/TMapObjectsList.h>

#include <algorithm>

namespace tessera {
namespace {

constexpr char ObjectIndex[] = "Object";

}  // namespace

TMapObjectsList::~TMapObjectsList() = default;

TCustomMapObject *TMapObjectsList::GetItem(int index) const {
  return index < 0 || index >= GetCount() ? nullptr : m_items[std::size_t(index)];
}

void TMapObjectsList::SetItem(int index, TCustomMapObject *object) {
  m_items[CheckedIndex(index, m_items.size(), ObjectIndex)] = object;
}

int TMapObjectsList::IndexOf(const TCustomMapObject *object) const {
  const auto found = std::find(m_items.begin(), m_items.end(), object);
  return found == m_items.end() ? -1 : int(found - m_items.begin());
}

bool TDisplayedObjects::Holds(const TCustomMapObject &object) const {
  return object.m_displayedAt < m_items.size() && m_items[object.m_displayedAt] == &object;
}

void TDisplayedObjects::Add(TCustomMapObject &object) {
  if (Holds(object)) return;
  object.m_displayedAt = std::uint32_t(m_items.size());
  m_items.push_back(&object);
}

void TDisplayedObjects::Remove(TCustomMapObject &object) {
  if (!Holds(object)) return;
  m_items[object.m_displayedAt] = nullptr;
  m_hasGaps = true;
}

void TDisplayedObjects::Clear() {
  m_items.clear();
  m_hasGaps = false;
}

void TDisplayedObjects::CloseGaps() const {
  std::erase(m_items, nullptr);
  for (std::size_t i = 0; i < m_items.size(); ++i) m_items[i]->m_displayedAt = std::uint32_t(i);
  m_hasGaps = false;
}

std::span<TCustomMapObject *const> TDisplayedObjects::Items() const {
  if (m_hasGaps) CloseGaps();
  return m_items;
}

TCustomMapObject *TDisplayedObjects::GetItem(int index) const {
  const auto items = Items();
  return index < 0 || std::size_t(index) >= items.size() ? nullptr : items[std::size_t(index)];
}

}  // namespace tessera
