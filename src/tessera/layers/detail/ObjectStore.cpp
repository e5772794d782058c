// SPDX-License-Identifier: MIT
#include <tessera/base/detail/Prefetch.h>
#include <tessera/layers/detail/ObjectStore.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRegion.h>
#include <tessera/objects/TSymbol.h>
#include <tessera/objects/detail/SmallObject.h>

#include <algorithm>
#include <typeinfo>

namespace tessera::detail {
namespace {

using Look = ObjectStore::Look;

constexpr float NaN = std::numeric_limits<float>::quiet_NaN();

/// The box with the look of an object that has it for its extent. Of these very kinds only: what is derived from them
/// may draw itself anyhow.
ObjectStore::Extent WithLook(const TCustomMapObject &object, const RoundedBox &box) {
  const std::type_info &kind = typeid(object);
  if (kind == typeid(TSymbol)) return {box, Look::Sign};
  const bool isArea = kind == typeid(TRegion);
  if (!isArea && kind != typeid(TPolyline)) return {box, Look::Own};
  const TPen &pen = object.GetPen();
  const auto color = ColorOfSmall(object, isArea ? ObjectFigure::Area : ObjectFigure::Line, pen, object.GetBrush());
  if (!color || pen.GetMode() != TPenMode::pmCopy) return {box, Look::OddOutline};
  const QRgb dot = ToRgb(*color);
  return {box, Look::Outline, {std::uint8_t(qRed(dot)), std::uint8_t(qGreen(dot)), std::uint8_t(qBlue(dot))}};
}

bool IsOrdered(const RoundedBox &box) {
  return box.minX <= box.maxX && box.minY <= box.maxY;
}

/// Without a branch, for nearly all are apart.
bool Meet(const RoundedBox &a, const RoundedBox &b) {
  return bool(int(a.minX <= b.maxX) & int(b.minX <= a.maxX) & int(a.minY <= b.maxY) & int(b.minY <= a.maxY));
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
  constexpr std::size_t MostSlots = std::size_t(1) << 28;
  Q_ASSERT(slot < MostSlots);
  object.m_layerAt = slot & (MostSlots - 1);
}

void ObjectStore::CloseGaps() const {
  if (m_gaps == 0) return;
  std::size_t to = 0;
  std::size_t extentsTo = 0;
  for (std::size_t from = 0; from < m_objects.size(); ++from) {
    if (!m_objects[from]) continue;
    if (from < m_extents.size()) m_extents[extentsTo++] = m_extents[from];
    if (from != to) m_objects[to] = std::move(m_objects[from]);
    ++to;
  }
  m_extents.resize(extentsTo);
  m_objects.resize(to);
  m_gaps = 0;
  ForgetRows();
}

void ObjectStore::DropGapsAtTheEnd() {
  while (!m_objects.empty() && !m_objects.back()) {
    m_objects.pop_back();
    --m_gaps;
  }
  m_extents.resize(std::min(m_extents.size(), m_objects.size()));
  m_inRows = std::min(m_inRows, m_extents.size());
}

void ObjectStore::ForgetRows() const {
  m_rows.clear();
  m_inRows = 0;
}

void ObjectStore::WidenRow(std::size_t slot) {
  const std::size_t row = slot / RowLength;
  if (row == m_rows.size()) m_rows.push_back(NoBox);
  const RoundedBox &box = m_extents[slot].box;
  m_rows[row].Widen(IsOrdered(box) ? box : RoundedBox::Everywhere());
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
  ++m_order;
  NoteSlot(*object, index);
  if (index < m_extents.size()) {
    m_extents.insert(m_extents.begin() + std::ptrdiff_t(index), MeasureExtent(*object));
    ForgetRows();
  }
  m_objects.insert(m_objects.begin() + std::ptrdiff_t(index), std::move(object));
}

ObjectStore::Owned ObjectStore::Replace(std::size_t index, Owned object) {
  CloseGaps();
  NoteSlot(*object, index);
  SetExtent(index, *object);
  m_objects[index].swap(object);
  return object;
}

ObjectStore::Owned ObjectStore::Take(const TCustomMapObject &object) {
  const std::size_t slot = SlotOf(object);
  if (slot == NoSlot) return nullptr;
  Owned taken = std::move(m_objects[slot]);
  ++m_gaps;
  ++m_order;
  DropGapsAtTheEnd();
  return taken;
}

void ObjectStore::Move(std::size_t from, std::size_t to) {
  CloseGaps();
  ++m_order;
  ForgetRows();
  MoveEntry(m_objects, from, to);
  if (std::max(from, to) < m_extents.size()) {
    MoveEntry(m_extents, from, to);
  } else {
    m_extents.resize(std::min({m_extents.size(), from, to}));
  }
}

void ObjectStore::Merge(std::vector<std::pair<std::size_t, Owned>> &&objects) {
  CloseGaps();
  ++m_order;
  std::vector<Owned> merged;
  std::vector<Extent> extents;
  merged.reserve(m_objects.size() + objects.size());
  extents.reserve(merged.capacity());
  std::size_t next = 0;
  const auto takeOldUpTo = [&](std::size_t size) {
    for (; next < m_objects.size() && merged.size() < size; ++next) {
      if (next < m_extents.size()) extents.push_back(m_extents[next]);
      merged.push_back(std::move(m_objects[next]));
    }
  };
  for (auto &[index, object] : objects) {
    takeOldUpTo(index);
    NoteSlot(*object, merged.size());
    if (next < m_extents.size()) extents.push_back(MeasureExtent(*object));
    merged.push_back(std::move(object));
  }
  takeOldUpTo(merged.capacity());
  m_objects = std::move(merged);
  m_extents = std::move(extents);
  ForgetRows();
}

void ObjectStore::NoteStyle(const TCustomMapObject &object) {
  NoteReach(object);
  const std::size_t slot = m_extents.empty() ? NoSlot : SlotOf(object);
  if (slot >= m_extents.size()) return;
  Extent &extent = m_extents[slot];
  if (extent.look == Look::Outline || extent.look == Look::OddOutline) extent = WithLook(object, extent.box);
}

void ObjectStore::NoteReach(const TCustomMapObject &object) {
  const std::optional<int> reachPx = object.GetPickReachPx();
  m_pickReachPx = reachPx && m_pickReachPx ? std::optional(std::max(*reachPx, *m_pickReachPx)) : std::nullopt;
}

ObjectStore::Extent ObjectStore::MeasureExtent(TCustomMapObject &object) {
  object.m_isExtentKnown = true;
  NoteReach(object);
  const std::optional<TBounds> extent = object.GetExtent();
  const RoundedBox box = extent ? RoundedBox::Of(*extent) : RoundedBox::Everywhere();
  m_common.Widen(box);
  // With a side that is no number it lies nowhere, and neither do all together from now on.
  if (!IsOrdered(box)) m_common = {NaN, NaN, NaN, NaN};
  return extent ? WithLook(object, box) : Extent{box, Look::Own};
}

void ObjectStore::SetExtent(std::size_t slot, TCustomMapObject &object) {
  if (slot >= m_extents.size()) return;
  m_extents[slot] = MeasureExtent(object);
  if (slot < m_inRows) WidenRow(slot);
}

void ObjectStore::ExpectPlace(std::size_t index) const {
  if (index < m_objects.size()) Prefetch(&m_objects[index]);
  ExpectExtent(index);
}

void ObjectStore::ExpectObject(std::size_t index) const {
  if (index >= m_objects.size()) return;
  constexpr std::size_t LineLength = 64;
  const auto *object = reinterpret_cast<const std::byte *>(m_objects[index].get());
  for (std::size_t at = 0; at < sizeof(TCustomMapObject); at += LineLength) Prefetch(object + at);
}

void ObjectStore::ExpectVertices(std::size_t index) const {
  if (index < m_objects.size() && m_objects[index]) Prefetch(m_objects[index]->m_parts.GetStore());
}

void ObjectStore::ExpectExtent(std::size_t index) const {
  if (index < m_extents.size()) Prefetch(&m_extents[index]);
}

void ObjectStore::FindMeeting(const TBounds &rect, TCardinalArray &places) const {
  const RoundedBox probe = RoundedBox::Of(rect);
  for (std::size_t row = 0; row < m_rows.size(); ++row) {
    if (!Meet(m_rows[row], probe)) continue;
    const std::size_t end = std::min((row + 1) * RowLength, m_extents.size());
    for (std::size_t place = row * RowLength; place < end; ++place) {
      if (Meet(m_extents[place].box, probe)) places.Add(std::uint32_t(place));
    }
  }
}

void ObjectStore::NoteGeometry(TCustomMapObject &object) {
  constexpr std::size_t FewAmong = 4;
  if (m_extents.empty()) return;
  if (m_changed.size() >= m_extents.size() / FewAmong + 1) {
    // Most have changed, so all are worked out anew.
    m_extents.clear();
    ForgetRows();
    m_common = NoBox;
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
    SetExtent(slot, *object);
  }
  m_changed.clear();
  m_extents.reserve(m_objects.size());
  for (std::size_t slot = m_extents.size(); slot < m_objects.size(); ++slot)
    m_extents.push_back(MeasureExtent(*m_objects[slot]));
  for (; m_inRows < m_extents.size(); ++m_inRows) WidenRow(m_inRows);
}

}  // namespace tessera::detail
