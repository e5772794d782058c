// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/geometry/detail/VertexRuns.h>
#include <tessera/objects/TMapPoints.h>
#include <tessera/objects/TParts.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

namespace tessera {

/// What precedes the vertices, in slots of the size of a vertex: the address of the boxes around runs, where the list
/// may be long enough for them, and the bounds, where they are stored.
struct TMapPoints::Block {
  TParts *owner;
  std::uint32_t count;
  std::uint32_t capacity : 30;
  std::uint32_t storesBounds : 1;
  std::uint32_t hasRunsSlot : 1;

  static constexpr std::size_t BoundsSlots = sizeof(TBounds) / sizeof(TMapPoint);

  [[nodiscard]] TMapPoint *Slots() { return reinterpret_cast<TMapPoint *>(this + 1); }
  [[nodiscard]] detail::RoundedBox *&Runs() { return *reinterpret_cast<detail::RoundedBox **>(Slots()); }
  [[nodiscard]] TBounds &StoredBounds() { return *reinterpret_cast<TBounds *>(Slots() + hasRunsSlot); }
  [[nodiscard]] std::size_t SlotsBefore() const { return hasRunsSlot + (storesBounds ? BoundsSlots : 0); }
  [[nodiscard]] TMapPoint *Vertices() { return Slots() + SlotsBefore(); }
  /// The boxes; none before they are made.
  [[nodiscard]] detail::RoundedBox *KeptRuns() { return hasRunsSlot ? Runs() : nullptr; }
};

namespace {

constexpr char PointIndex[] = "Point";
constexpr std::size_t MaxCount = (std::size_t(1) << 30) - 1;

TBounds BoundsOf(std::span<const TMapPoint> points) {
  TBounds bounds = TBounds::Empty();
  for (const TMapPoint &point : points) bounds.Widen(point.X, point.Y);
  return bounds;
}

}  // namespace

TMapPoints &TMapPoints::operator=(TMapPoints &&other) noexcept {
  std::swap(m_block, other.m_block);
  return *this;
}

TMapPoints::~TMapPoints() {
  DropRuns();
  std::free(m_block);  // NOLINT(cppcoreguidelines-no-malloc): see Reallocate
}

void TMapPoints::DropRuns() {
  if (m_block == nullptr || m_block->KeptRuns() == nullptr) return;
  std::default_delete<detail::RoundedBox[]>()(std::exchange(m_block->Runs(), nullptr));
}

void TMapPoints::Reallocate(std::size_t capacity, bool keepsBounds) {
  if (capacity > MaxCount) throw ERangeError(QStringLiteral("A part cannot hold that many points"));
  const bool hasRunsSlot = capacity >= detail::VertexRuns::LeastVertices || (m_block && m_block->hasRunsSlot);
  const std::size_t slots = capacity + (keepsBounds ? Block::BoundsSlots : 0) + (hasRunsSlot ? 1 : 0);
  // Blocks grow in place where the allocator can, which is what makes one pass over a file enough.
  // NOLINTNEXTLINE(cppcoreguidelines-no-malloc)
  void *memory = std::realloc(m_block, sizeof(Block) + slots * sizeof(TMapPoint));
  if (memory == nullptr) throw std::bad_alloc();
  if (m_block == nullptr) new (memory) Block{nullptr, 0, 0, keepsBounds, hasRunsSlot};
  const bool isNew = std::exchange(m_block, static_cast<Block *>(memory)) == nullptr;
  m_block->capacity = std::uint32_t(capacity) & 0x3FFFFFFFU;
  if (!isNew && hasRunsSlot == bool(m_block->hasRunsSlot)) return;
  if (!isNew) {
    // What stood in the slots, bounds and vertices, moves behind the new one.
    std::memmove(m_block->Slots() + 1, m_block->Slots(), (m_block->SlotsBefore() + m_block->count) * sizeof(TMapPoint));
    m_block->hasRunsSlot = 1;
  }
  if (hasRunsSlot) m_block->Runs() = nullptr;
}

TParts *TMapPoints::GetOwner() const {
  return m_block ? m_block->owner : nullptr;
}

void TMapPoints::SetOwner(TParts *owner) {
  if (m_block == nullptr) Reallocate(0, false);
  m_block->owner = owner;
}

void TMapPoints::Reserve(std::size_t count) {
  const std::size_t used = m_block ? m_block->count : 0;
  if (m_block == nullptr || used + count > m_block->capacity)
    Reallocate(used + count, m_block && m_block->storesBounds);
}

TMapPoint *TMapPoints::BeginAppend(std::size_t count) {
  Reserve(count);
  return m_block->Vertices() + m_block->count;
}

void TMapPoints::EndAppend(std::size_t count, const TBounds &bounds) {
  if (count == 0) return;
  DropRuns();
  m_block->count += std::uint32_t(count);
  // Of many at once, while they are at hand.
  if (count >= detail::VertexRuns::LeastVertices) static_cast<void>(GetRuns());
  if (m_block->storesBounds) m_block->StoredBounds().Widen(bounds);
  if (m_block->owner) m_block->owner->AddBounds(bounds);
}

const TMapPoint &TMapPoints::Add(double x, double y) {
  const std::size_t used = m_block ? m_block->count : 0;
  if (m_block == nullptr || used == m_block->capacity) {
    // The first vertex gets room for itself alone, since most objects by number are points.
    Reallocate(used == 0 ? 1 : used + std::max<std::size_t>(used / 2, 2), m_block && m_block->storesBounds);
  }
  DropRuns();
  TMapPoint &point = m_block->Vertices()[used];
  point = {x, y};
  ++m_block->count;
  if (m_block->storesBounds) m_block->StoredBounds().Widen(x, y);
  if (m_block->owner) m_block->owner->AddPoint(x, y, 0.0);
  return point;
}

int TMapPoints::GetCount() const {
  return m_block ? int(m_block->count) : 0;
}

std::span<const TMapPoint> TMapPoints::Points() const {
  if (m_block == nullptr) return {};
  return {m_block->Vertices(), m_block->count};
}

detail::VertexRuns TMapPoints::GetRuns() const {
  const auto points = Points();
  if (points.size() < detail::VertexRuns::LeastVertices) return detail::VertexRuns(points);
  if (m_block->Runs() == nullptr) m_block->Runs() = detail::VertexRuns::MakeBoxes(points).release();
  return {points, m_block->Runs()};
}

const TMapPoint &TMapPoints::GetPoint(int index) const {
  const auto points = Points();
  return points[CheckedIndex(index, points.size(), PointIndex)];
}

TBounds TMapPoints::GetBounds() const {
  return m_block && m_block->storesBounds ? m_block->StoredBounds() : BoundsOf(Points());
}

void TMapPoints::NoteChange() {
  if (m_block->owner) m_block->owner->NoteChange();
}

void TMapPoints::KeepBounds() {
  if (m_block && m_block->storesBounds) return;
  const TBounds bounds = GetBounds();
  const auto count = std::size_t(GetCount());
  Reallocate(std::max<std::size_t>(count, 1), true);
  TMapPoint *vertices = m_block->Vertices();
  std::memmove(vertices + Block::BoundsSlots, vertices, count * sizeof(TMapPoint));
  m_block->storesBounds = 1;
  m_block->StoredBounds() = bounds;
}

void TMapPoints::SetPoint(int index, const TMapPoint &point) {
  const std::size_t at = CheckedIndex(index, std::size_t(GetCount()), PointIndex);
  KeepBounds();
  m_block->Vertices()[at] = point;
  if (auto *boxes = m_block->KeptRuns()) detail::VertexRuns::Widen(boxes, std::size_t(GetCount()), at, point);
  NoteChange();
}

void TMapPoints::Delete(int index) {
  const std::size_t at = CheckedIndex(index, std::size_t(GetCount()), PointIndex);
  KeepBounds();
  DropRuns();
  TMapPoint *vertices = m_block->Vertices();
  std::copy(vertices + at + 1, vertices + m_block->count, vertices + at);
  --m_block->count;
  NoteChange();
}

void TMapPoints::Restart() {
  if (m_block == nullptr) return;
  DropRuns();
  m_block->count = 0;
  m_block->storesBounds = 0;
  NoteChange();
}

void TMapPoints::UpdateBounds(const TMapPoint &point) {
  KeepBounds();
  m_block->StoredBounds().Widen(point.X, point.Y);
}

TMapPoints TMapPoints::Clone() const {
  TMapPoints clone;
  const auto points = Points();
  clone.AppendInPlace(points.size(), [&](TMapPoint *first, TBounds &) {
    std::copy(points.begin(), points.end(), first);
    return points.size();
  });
  return clone;
}

}  // namespace tessera
