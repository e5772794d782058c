// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/base/detail/Pool.h>
#include <tessera/geometry/detail/VertexRuns.h>
#include <tessera/objects/TMapPoints.h>
#include <tessera/objects/TParts.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <new>

namespace tessera {

/// What precedes the vertices. Behind it stand, in slots of the size of a vertex and only where they are needed, the
/// links and the bounds.
struct TMapPoints::Block {
  std::uint32_t count : 30;
  std::uint32_t isPooled : 1;  // a piece of a pool, not of the heap
  std::uint32_t isOnly : 1;    // the only part: its owner lies around it
  std::uint32_t capacity : 30;
  std::uint32_t storesBounds : 1;
  std::uint32_t hasLinks : 1;

  /// Of a part among several, or one that may be long enough for boxes around runs.
  struct Links {
    TParts *owner;
    detail::RoundedBox *runs;
  };
  static_assert(sizeof(Links) == sizeof(TMapPoint));
  static constexpr std::size_t BoundsSlots = sizeof(TBounds) / sizeof(TMapPoint);
  static constexpr std::uint32_t CountMask = (1U << 30) - 1;

  static constexpr std::size_t SlotsBefore(bool links, bool bounds) {
    return (links ? 1 : 0) + (bounds ? BoundsSlots : 0);
  }
  static constexpr std::size_t SizeFor(std::size_t capacity, bool links, bool bounds) {
    return sizeof(Block) + (capacity + SlotsBefore(links, bounds)) * sizeof(TMapPoint);
  }
  [[nodiscard]] std::size_t Size() const { return SizeFor(capacity, hasLinks, storesBounds); }
  [[nodiscard]] TMapPoint *Slots() { return reinterpret_cast<TMapPoint *>(this + 1); }
  [[nodiscard]] Links &GetLinks() { return *reinterpret_cast<Links *>(Slots()); }
  [[nodiscard]] TBounds &StoredBounds() { return *reinterpret_cast<TBounds *>(Slots() + hasLinks); }
  [[nodiscard]] TMapPoint *Vertices() { return Slots() + SlotsBefore(hasLinks, storesBounds); }
  /// The boxes; none before they are made.
  [[nodiscard]] detail::RoundedBox *KeptRuns() { return hasLinks ? GetLinks().runs : nullptr; }
};

namespace {

constexpr char PointIndex[] = "Point";

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
  if (m_block == nullptr) return;
  DropRuns();
  Free(m_block);
}

void TMapPoints::Free(Block *block) {
  if (block->isPooled) {
    detail::Pool::Release(block);
  } else {
    std::free(block);  // NOLINT(cppcoreguidelines-no-malloc): see Resize
  }
}

void TMapPoints::DropRuns() {
  if (m_block->KeptRuns() == nullptr) return;
  std::default_delete<detail::RoundedBox[]>()(std::exchange(m_block->GetLinks().runs, nullptr));
}

void TMapPoints::Resize(std::size_t size) {
  const std::size_t present = m_block ? m_block->Size() : 0;
  const bool isPooled = m_block && m_block->isPooled;
  // NOLINTNEXTLINE(readability-suspicious-call-argument): from the present size to this one
  if (isPooled && (size <= present || detail::Pool::ExtendFigure(m_block, present, size))) return;
  const bool isOfHeap = m_block && !isPooled;
  void *pooled = isOfHeap ? nullptr : detail::Pool::Take(size, detail::Pool::Shelf::Figures);
  // Blocks of the heap grow in place where the allocator can, which is what makes one pass over a file enough.
  // NOLINTNEXTLINE(cppcoreguidelines-no-malloc)
  void *memory = pooled ? pooled : std::realloc(isOfHeap ? m_block : nullptr, size);
  if (memory == nullptr) throw std::bad_alloc();
  if (isPooled) {
    std::memcpy(memory, m_block, std::min(size, present));
    Free(m_block);
  }
  const bool isNew = std::exchange(m_block, static_cast<Block *>(memory)) == nullptr;
  if (isNew) new (memory) Block{};
  m_block->isPooled = pooled != nullptr;
}

void TMapPoints::Reallocate(std::size_t capacity, Extras extras) {
  if (capacity > Block::CountMask) throw ERangeError(QStringLiteral("A part cannot hold that many points"));
  const bool hadLinks = m_block && m_block->hasLinks;
  const bool hadBounds = m_block && m_block->storesBounds;
  const bool links = hadLinks || extras == Extras::Links || capacity >= detail::VertexRuns::LeastVertices;
  const bool bounds = hadBounds || extras == Extras::Bounds;
  Resize(Block::SizeFor(capacity, links, bounds));
  // What stands behind new slots makes room for them, from the last on.
  TMapPoint *slots = m_block->Slots();
  const auto move = [slots](std::size_t from, std::size_t to, std::size_t count) {
    if (from != to) std::memmove(slots + to, slots + from, count * sizeof(TMapPoint));
  };
  move(Block::SlotsBefore(hadLinks, hadBounds), Block::SlotsBefore(links, bounds), m_block->count);
  if (hadBounds) move(hadLinks, links, Block::BoundsSlots);
  m_block->capacity = std::uint32_t(capacity) & Block::CountMask;
  m_block->hasLinks = links;
  m_block->storesBounds = bounds;
  if (links && !hadLinks) m_block->GetLinks() = {nullptr, nullptr};
}

TParts *TMapPoints::GetOwner() const {
  if (m_block == nullptr) return nullptr;
  if (m_block->isOnly) return &TParts::Around(const_cast<TMapPoints &>(*this));
  return m_block->hasLinks ? m_block->GetLinks().owner : nullptr;
}

void TMapPoints::SetOwner(TParts *owner) {
  if (m_block == nullptr) Reallocate(0, Extras::None);
  if (owner && !m_block->hasLinks) Reallocate(m_block->capacity, Extras::Links);
  m_block->isOnly = 0;
  if (m_block->hasLinks) m_block->GetLinks().owner = owner;
}

void TMapPoints::SetOnly() {
  SetOwner(nullptr);
  m_block->isOnly = 1;
}

void TMapPoints::SwapVertices(TMapPoints &other) {
  std::array<TMapPoints *, 2> lists = {this, &other};
  std::array<bool, 2> areOnly{};
  std::array<TParts *, 2> owners{};
  for (std::size_t i = 0; i < lists.size(); ++i) {
    areOnly[i] = lists[i]->m_block && lists[i]->m_block->isOnly;
    owners[i] = areOnly[i] ? nullptr : lists[i]->GetOwner();
  }
  std::swap(m_block, other.m_block);
  for (std::size_t i = 0; i < lists.size(); ++i) {
    if (areOnly[i]) {
      lists[i]->SetOnly();
    } else {
      lists[i]->SetOwner(owners[i]);
    }
  }
}

void TMapPoints::Reserve(std::size_t count) {
  const std::size_t used = m_block ? m_block->count : 0;
  if (m_block == nullptr || used + count > m_block->capacity) Reallocate(used + count, Extras::None);
}

TMapPoint *TMapPoints::BeginAppend(std::size_t count) {
  Reserve(count);
  return m_block->Vertices() + m_block->count;
}

void TMapPoints::EndAppend(std::size_t count, const TBounds &bounds) {
  if (count == 0) return;
  DropRuns();
  if (TParts *owner = GetOwner()) owner->NoteAppended({m_block->Vertices() + m_block->count, count}, bounds);
  m_block->count = (m_block->count + std::uint32_t(count)) & Block::CountMask;
  // Of many at once, while they are at hand.
  if (count >= detail::VertexRuns::LeastVertices) static_cast<void>(GetRuns());
  if (m_block->storesBounds) m_block->StoredBounds().Widen(bounds);
}

const TMapPoint &TMapPoints::Add(double x, double y) {
  const std::size_t used = m_block ? m_block->count : 0;
  if (m_block == nullptr || used == m_block->capacity) {
    // The first vertex gets room for itself alone, since most objects by number are points.
    Reallocate(used == 0 ? 1 : used + std::max<std::size_t>(used / 2, 2), Extras::None);
  }
  TMapPoint &point = m_block->Vertices()[used];
  point = {x, y};
  EndAppend(1, {x, y, x, y});
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
  detail::RoundedBox *&runs = m_block->GetLinks().runs;
  if (runs == nullptr) runs = detail::VertexRuns::MakeBoxes(points).release();
  return {points, runs};
}

const TMapPoint &TMapPoints::GetPoint(int index) const {
  const auto points = Points();
  return points[CheckedIndex(index, points.size(), PointIndex)];
}

TBounds TMapPoints::GetBounds() const {
  return m_block && m_block->storesBounds ? m_block->StoredBounds() : BoundsOf(Points());
}

template <typename Change>
void TMapPoints::ChangeVertices(Change change) {
  TParts *owner = GetOwner();
  if (owner) owner->KeepBounds();
  change();
  if (owner) owner->NoteChange();
}

void TMapPoints::KeepBounds() {
  if (m_block && m_block->storesBounds) return;
  const TBounds bounds = GetBounds();
  Reallocate(std::size_t(std::max(GetCount(), 1)), Extras::Bounds);
  m_block->StoredBounds() = bounds;
}

void TMapPoints::SetPoint(int index, const TMapPoint &point) {
  const std::size_t at = CheckedIndex(index, std::size_t(GetCount()), PointIndex);
  KeepBounds();
  ChangeVertices([&] {
    m_block->Vertices()[at] = point;
    if (auto *boxes = m_block->KeptRuns()) detail::VertexRuns::Widen(boxes, std::size_t(GetCount()), at, point);
  });
}

void TMapPoints::Delete(int index) {
  const std::size_t at = CheckedIndex(index, std::size_t(GetCount()), PointIndex);
  KeepBounds();
  ChangeVertices([&] {
    DropRuns();
    TMapPoint *vertices = m_block->Vertices();
    std::copy(vertices + at + 1, vertices + m_block->count, vertices + at);
    --m_block->count;
  });
}

void TMapPoints::Restart() {
  if (m_block) ChangeVertices([this] { Forget(); });
}

void TMapPoints::Forget() {
  DropRuns();
  m_block->count = 0;
  m_block->storesBounds = 0;
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
