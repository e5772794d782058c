// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/objects/TMapObjectsList.h>

#include <algorithm>
#include <utility>

namespace tessera {
namespace {

constexpr char ObjectIndex[] = "Object";

}  // namespace

TMapObjectsList::~TMapObjectsList() = default;

void TMapObjectsList::CloseGaps() const {
  if (m_gaps == 0) return;
  const auto gap = std::find(m_items.begin(), m_items.end(), nullptr);
  const auto first = std::size_t(gap - m_items.begin());
  m_items.erase(std::remove(gap, m_items.end(), nullptr), m_items.end());
  m_gaps = 0;
  NoteSlotsFrom(first);
}

std::span<TCustomMapObject *const> TMapObjectsList::Items() const {
  Settle();
  CloseGaps();
  return m_items;
}

std::size_t TMapObjectsList::Checked(int index) const {
  return CheckedIndex(index, Items().size(), ObjectIndex);
}

TCustomMapObject *TMapObjectsList::GetItem(int index) const {
  const auto items = Items();
  return index < 0 || std::size_t(index) >= items.size() ? nullptr : items[std::size_t(index)];
}

TCustomMapObject *TMapObjectsList::First() const {
  return Items()[Checked(0)];
}
TCustomMapObject *TMapObjectsList::Last() const {
  return Items()[Checked(GetCount() - 1)];
}

void TMapObjectsList::SetItem(int index, TCustomMapObject *object) {
  const std::size_t at = Checked(index);
  m_items[at] = object;
  NoteSlot(object, at);
}

int TMapObjectsList::IndexOf(const TCustomMapObject *object) const {
  static_cast<void>(Items());
  const std::size_t slot = SlotOf(object);
  return slot == NoSlot ? -1 : int(slot);
}

std::size_t TMapObjectsList::SlotOf(const TCustomMapObject *object) const {
  const auto found = std::find(m_items.begin(), m_items.end(), object);
  return object == nullptr || found == m_items.end() ? NoSlot : std::size_t(found - m_items.begin());
}

void TMapObjectsList::NoteSlot(TCustomMapObject * /*object*/, std::size_t /*slot*/) const {}

void TMapObjectsList::NoteSlotsFrom(std::size_t slot) const {
  for (; slot < m_items.size(); ++slot) NoteSlot(m_items[slot], slot);
}

void TMapObjectsList::Add(TCustomMapObject *object) {
  m_items.push_back(object);
  NoteSlot(object, m_items.size() - 1);
}

void TMapObjectsList::Insert(int index, TCustomMapObject *object) {
  const std::size_t at = CheckedIndex(index, Items().size() + 1, ObjectIndex);
  m_items.insert(m_items.begin() + std::ptrdiff_t(at), object);
  NoteSlotsFrom(at);
}

void TMapObjectsList::Vacate(std::size_t slot) {
  m_items[slot] = nullptr;
  ++m_gaps;
  // Gaps at the end, where most entries leave, close at once.
  while (!m_items.empty() && m_items.back() == nullptr) {
    m_items.pop_back();
    --m_gaps;
  }
}

void TMapObjectsList::Delete(int index) {
  Vacate(Checked(index));
}

void TMapObjectsList::Remove(TCustomMapObject *object) {
  const std::size_t slot = SlotOf(object);
  if (slot != NoSlot) Vacate(slot);
}

void TMapObjectsList::Exchange(int i, int j) {
  const std::size_t first = Checked(i);
  const std::size_t second = Checked(j);
  std::swap(m_items[first], m_items[second]);
  NoteSlot(m_items[first], first);
  NoteSlot(m_items[second], second);
}

void TMapObjectsList::Move(int curIndex, int newIndex) {
  const auto from = m_items.begin() + std::ptrdiff_t(Checked(curIndex));
  const auto to = m_items.begin() + std::ptrdiff_t(Checked(newIndex));
  if (from < to) {
    std::rotate(from, from + 1, to + 1);
  } else {
    std::rotate(to, from, from + 1);
  }
  NoteSlotsFrom(std::size_t(std::min(curIndex, newIndex)));
}

void TMapObjectsList::Clear() {
  Empty();
}

void TMapObjectsList::Empty() {
  m_items.clear();
  m_gaps = 0;
}

std::size_t TDisplayedObjects::SlotOf(const TCustomMapObject *object) const {
  Settle();
  return object && AtSlot(object->m_displayedAt) == object ? object->m_displayedAt : NoSlot;
}

void TDisplayedObjects::NoteSlot(TCustomMapObject *object, std::size_t slot) const {
  object->m_displayedAt = std::uint32_t(slot);
}

void TDisplayedObjects::Settle() const {
  if (m_noted.empty()) return;
  const std::vector<TCustomMapObject *> noted = std::exchange(m_noted, {});
  auto &self = const_cast<TDisplayedObjects &>(*this);
  for (TCustomMapObject *object : noted) {
    if (AtSlot(object->m_displayedAt) != object) self.TMapObjectsList::Add(object);
  }
}

void TDisplayedObjects::Add(TCustomMapObject *object) {
  m_noted.push_back(object);
  // Else a highlight that is drawn again and again would be noted without end.
  if (GetMapHost() == nullptr || !GetMapHost()->GetIsBusy()) Settle();
}

void TDisplayedObjects::Insert(int index, TCustomMapObject *object) {
  if (!Holds(object)) TMapObjectsList::Insert(index, object);
}

void TDisplayedObjects::Clear() {
  m_noted.clear();
  TMapObjectsList::Clear();
}

}  // namespace tessera
