// SPDX-License-Identifier: MIT
#include <tessera/layers/detail/ObjectStore.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace tessera::detail {
namespace {

constexpr float Infinity = std::numeric_limits<float>::infinity();

float RoundDown(double value) {
  const auto rounded = float(value);
  return double(rounded) > value ? std::nextafter(rounded, -Infinity) : rounded;
}

float RoundUp(double value) {
  const auto rounded = float(value);
  return double(rounded) < value ? std::nextafter(rounded, Infinity) : rounded;
}

template <typename List>
void MoveEntry(List &list, std::size_t from, std::size_t to) {
  const auto first = list.begin();
  if (from < to) {
    std::rotate(first + std::ptrdiff_t(from), first + std::ptrdiff_t(from) + 1, first + std::ptrdiff_t(to) + 1);
  } else {
    std::rotate(first + std::ptrdiff_t(to), first + std::ptrdiff_t(from), first + std::ptrdiff_t(from) + 1);
  }
}

}  // namespace

void ObjectStore::NoteSlot(const TCustomMapObject &object, std::size_t slot) {
  constexpr std::size_t MostSlots = std::size_t(1) << 29;
  Q_ASSERT(slot < MostSlots);
  object.m_layerAt = slot & (MostSlots - 1);
}

void ObjectStore::CloseGaps() const {
  if (m_gaps == 0) return;
  std::size_t to = 0;
  std::size_t boxesTo = 0;
  for (std::size_t from = 0; from < m_objects.size(); ++from) {
    if (!m_objects[from]) continue;
    if (from < m_boxes.size()) m_boxes[boxesTo++] = m_boxes[from];
    if (from != to) m_objects[to] = std::move(m_objects[from]);
    ++to;
  }
  m_boxes.resize(boxesTo);
  m_objects.resize(to);
  m_gaps = 0;
}

void ObjectStore::DropGapsAtTheEnd() {
  while (!m_objects.empty() && !m_objects.back()) {
    m_objects.pop_back();
    --m_gaps;
  }
  m_boxes.resize(std::min(m_boxes.size(), m_objects.size()));
}

std::span<const ObjectStore::Owned> ObjectStore::Items() const {
  CloseGaps();
  return m_objects;
}

std::size_t ObjectStore::SlotOf(const TCustomMapObject &object) const {
  if (object.GetObjectLayer() != &m_layer) return NoSlot;
  const std::size_t size = m_objects.size();
  // Objects that stood near to each other have moved by about the same.
  const std::size_t start = std::min<std::size_t>(object.m_layerAt + m_shift, size);
  // Away from where it was last, in both directions at once.
  for (std::size_t away = 0; away <= std::max(start, size); ++away) {
    for (const std::size_t slot : {start - away, start + away}) {
      if (slot >= size || m_objects[slot].get() != &object) continue;
      m_shift = slot - object.m_layerAt;
      NoteSlot(object, slot);
      return slot;
    }
  }
  return NoSlot;
}

std::size_t ObjectStore::IndexOf(const TCustomMapObject &object) const {
  CloseGaps();
  return std::min(SlotOf(object), m_objects.size());
}

std::vector<TCustomMapObject *> ObjectStore::InOrder(std::span<TCustomMapObject *const> objects) const {
  std::vector<std::pair<std::size_t, TCustomMapObject *>> places;
  for (TCustomMapObject *object : objects) {
    if (object && object->GetObjectLayer() == &m_layer) places.emplace_back(std::size_t(object->m_layerAt), object);
  }
  std::sort(places.begin(), places.end());
  places.erase(std::unique(places.begin(), places.end()), places.end());
  std::vector<TCustomMapObject *> inOrder;
  inOrder.reserve(places.size());
  for (const auto &[place, object] : places) inOrder.push_back(object);
  return inOrder;
}

void ObjectStore::Append(Owned object) {
  NoteSlot(*object, m_objects.size());
  m_objects.push_back(std::move(object));
}

void ObjectStore::Insert(std::size_t index, Owned object) {
  CloseGaps();
  NoteSlot(*object, index);
  if (index < m_boxes.size()) m_boxes.insert(m_boxes.begin() + std::ptrdiff_t(index), BoxOf(*object));
  m_objects.insert(m_objects.begin() + std::ptrdiff_t(index), std::move(object));
}

ObjectStore::Owned ObjectStore::Replace(std::size_t index, Owned object) {
  CloseGaps();
  NoteSlot(*object, index);
  if (index < m_boxes.size()) m_boxes[index] = BoxOf(*object);
  m_objects[index].swap(object);
  return object;
}

ObjectStore::Owned ObjectStore::Take(const TCustomMapObject &object) {
  const std::size_t slot = SlotOf(object);
  if (slot == NoSlot) return nullptr;
  Owned taken = std::move(m_objects[slot]);
  ++m_gaps;
  DropGapsAtTheEnd();
  return taken;
}

void ObjectStore::Move(std::size_t from, std::size_t to) {
  CloseGaps();
  MoveEntry(m_objects, from, to);
  if (std::max(from, to) < m_boxes.size()) {
    MoveEntry(m_boxes, from, to);
  } else {
    m_boxes.resize(std::min({m_boxes.size(), from, to}));
  }
}

void ObjectStore::Merge(std::vector<std::pair<std::size_t, Owned>> &&objects) {
  CloseGaps();
  std::vector<Owned> merged;
  std::vector<Box> boxes;
  merged.reserve(m_objects.size() + objects.size());
  boxes.reserve(merged.capacity());
  std::size_t next = 0;
  const auto takeOldUpTo = [&](std::size_t size) {
    for (; next < m_objects.size() && merged.size() < size; ++next) {
      if (next < m_boxes.size()) boxes.push_back(m_boxes[next]);
      merged.push_back(std::move(m_objects[next]));
    }
  };
  for (auto &[index, object] : objects) {
    takeOldUpTo(index);
    NoteSlot(*object, merged.size());
    if (next < m_boxes.size()) boxes.push_back(BoxOf(*object));
    merged.push_back(std::move(object));
  }
  takeOldUpTo(merged.capacity());
  m_objects = std::move(merged);
  m_boxes = std::move(boxes);
}

void ObjectStore::NoteStyle(const TCustomMapObject &object) {
  const std::optional<int> reachPx = object.GetPickReachPx();
  m_pickReachPx = reachPx && m_pickReachPx ? std::optional(std::max(*reachPx, *m_pickReachPx)) : std::nullopt;
}

ObjectStore::Box ObjectStore::BoxOf(TCustomMapObject &object) {
  object.m_isExtentKnown = true;
  NoteStyle(object);
  const std::optional<TBounds> extent = object.GetExtent();
  if (!extent) return {-Infinity, -Infinity, Infinity, Infinity};
  return {RoundDown(extent->MinX), RoundDown(extent->MinY), RoundUp(extent->MaxX), RoundUp(extent->MaxY)};
}

void ObjectStore::FindMeeting(const TBounds &rect, TCardinalArray &places) const {
  const Box probe{RoundDown(rect.MinX), RoundDown(rect.MinY), RoundUp(rect.MaxX), RoundUp(rect.MaxY)};
  for (std::size_t place = 0; place < m_boxes.size(); ++place) {
    const Box &box = m_boxes[place];
    // Without branches but one, for nearly all are apart.
    const bool meets = bool(int(box.minX <= probe.maxX) & int(probe.minX <= box.maxX) & int(box.minY <= probe.maxY) &
                            int(probe.minY <= box.maxY));
    if (meets) places.Add(std::uint32_t(place));
  }
}

void ObjectStore::NoteGeometry(TCustomMapObject &object) {
  constexpr std::size_t FewAmong = 4;
  if (m_boxes.empty()) return;
  if (m_changed.size() >= m_boxes.size() / FewAmong + 1) {
    // Most have changed, so all are worked out anew.
    m_boxes.clear();
    m_changed.clear();
    return;
  }
  m_changed.emplace_back(&object);
}

void ObjectStore::UpdateExtents() {
  CloseGaps();
  for (const THandle<TCustomMapObject> &handle : m_changed) {
    TCustomMapObject *object = handle.Get();
    if (object == nullptr || object->m_isExtentKnown) continue;
    const std::size_t slot = SlotOf(*object);
    if (slot < m_boxes.size()) m_boxes[slot] = BoxOf(*object);
  }
  m_changed.clear();
  m_boxes.reserve(m_objects.size());
  for (std::size_t slot = m_boxes.size(); slot < m_objects.size(); ++slot) m_boxes.push_back(BoxOf(*m_objects[slot]));
}

}  // namespace tessera::detail
