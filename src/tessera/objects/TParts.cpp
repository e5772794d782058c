// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/base/detail/Pool.h>
#include <tessera/objects/TCustomMapObject.h>
#include <tessera/objects/TParts.h>

#include <cstring>
#include <memory>
#include <new>

namespace tessera {
namespace {

constexpr std::uintptr_t ManyFlag = 1;
constexpr char PartIndex[] = "Part";

}  // namespace

// A single part lives in the word that otherwise holds the address of the array; a part is one pointer to a block that
// is never empty and, like every allocation, lies at an even address.
// NOLINTNEXTLINE(misc-redundant-expression): size and alignment happen to be the same
static_assert(sizeof(TPart) == sizeof(std::uintptr_t) && alignof(TPart) == alignof(std::uintptr_t));

// Bounds that do not follow from the vertices, in a pool or in the heap.
struct TParts::KeptBounds {
  TBounds box;
  bool isPooled;
};

void TPart::SetPoints(TMapPoints &&points) {
  TParts *owner = m_points.GetOwner();
  TParts *otherOwner = points.GetOwner();
  for (TParts *each : {owner, otherOwner}) {
    if (each) each->KeepBounds();
  }
  m_points.SwapVertices(points);
  for (TParts *each : {owner, otherOwner}) {
    if (each) each->NoteChange();
  }
}

void TPart::Assign(const TPart &source) {
  SetPoints(source.GetPoints().Clone());
}

TParts::~TParts() {
  FreeParts();
  DropBounds();
}

TParts &TParts::Around(TMapPoints &points) {
  // A part is its list of vertices, and the only one stands in m_store.
  static_assert(sizeof(TPart) == sizeof(TMapPoints) && offsetof(TParts, m_store) == 0);
  return *reinterpret_cast<TParts *>(&points);
}

std::uintptr_t TParts::GetWord() const {
  std::uintptr_t word = 0;
  std::memcpy(&word, m_store, sizeof word);
  return word;
}

void TParts::SetWord(std::uintptr_t word) {
  std::memcpy(m_store, &word, sizeof word);
}

TParts::Many *TParts::GetMany() const {
  const std::uintptr_t word = GetWord();
  // NOLINTNEXTLINE(performance-no-int-to-ptr): the word is the address, with a flag in its lowest bit
  return (word & ManyFlag) != 0 ? reinterpret_cast<Many *>(word & ~ManyFlag) : nullptr;
}

const void *TParts::GetStore() const {
  // NOLINTNEXTLINE(performance-no-int-to-ptr): as above
  return reinterpret_cast<const void *>(GetWord() & ~ManyFlag);
}

std::span<TPart> TParts::Items() {
  if (GetWord() == 0) return {};
  if (Many *many = GetMany()) return *many;
  return {std::launder(reinterpret_cast<TPart *>(m_store)), 1};
}

std::span<const TPart> TParts::Items() const {
  const auto items = const_cast<TParts *>(this)->Items();
  return {items.data(), items.size()};
}

TPart &TParts::GetItems(int index) {
  const auto items = Items();
  return items[CheckedIndex(index, items.size(), PartIndex)];
}

const TPart &TParts::GetItems(int index) const {
  return const_cast<TParts *>(this)->GetItems(index);
}

TParts::Many &TParts::MakeMany() {
  if (Many *many = GetMany()) return *many;
  auto many = std::make_unique<Many>();
  for (TPart &only : Items()) {
    only.m_points.SetOwner(this);
    many->push_back(std::move(only));
    std::destroy_at(&only);
  }
  SetWord(reinterpret_cast<std::uintptr_t>(many.get()) | ManyFlag);
  return *many.release();
}

TPart &TParts::Add() {
  if (GetWord() == 0) return *new (m_store) TPart;
  Many &many = MakeMany();
  many.push_back(TPart(this));
  return many.back();
}

TPart &TParts::Insert(int index) {
  if (index == GetCount()) return Add();
  const std::size_t at = CheckedIndex(index, std::size_t(GetCount()), PartIndex);
  Many &many = MakeMany();
  return *many.insert(many.begin() + std::ptrdiff_t(at), TPart(this));
}

void TParts::Delete(int index) {
  const std::size_t at = CheckedIndex(index, std::size_t(GetCount()), PartIndex);
  if (Many *many = GetMany()) {
    KeepBounds();
    many->erase(many->begin() + std::ptrdiff_t(at));
    NoteChange();
  } else {
    Clear();
  }
}

void TParts::Clear() {
  KeepBounds();
  FreeParts();
  NoteChange();
}

void TParts::FreeParts() {
  if (Many *many = GetMany()) {
    std::default_delete<Many>()(many);
  } else {
    for (TPart &only : Items()) std::destroy_at(&only);
  }
  SetWord(0);
}

void TParts::Assign(const TParts &source) {
  if (this == &source) return;
  FreeParts();
  DropBounds();
  for (const TPart &part : source.Items()) {
    auto clone = part.GetPoints().Clone();
    Add().m_points.SwapVertices(clone);
  }
  SetBounds(source.GetBounds());
}

void TParts::Own() {
  if (Many *many = GetMany()) {
    for (TPart &part : *many) part.m_points.SetOwner(this);
  }
}

void TParts::Swap(TParts &other) {
  std::swap(m_store, other.m_store);
  std::swap(m_bounds, other.m_bounds);
  Own();
  other.Own();
  NoteChange();
  other.NoteChange();
}

void TParts::NoteChange() {
  TCustomMapObject::Of(*this).NoteGeometry();
}

bool TParts::HasFewVertices() const {
  int count = 0;
  for (const TPart &part : Items()) count += part.GetPoints().GetCount();
  return count <= 1;
}

TBounds TParts::BoundsOfVertices() const {
  TBounds bounds = TBounds::Empty();
  for (const TPart &part : Items()) {
    for (const TMapPoint &point : part.GetPoints().Points()) bounds.Widen(point.X, point.Y);
  }
  return bounds;
}

TBounds TParts::GetBounds() const {
  return m_bounds ? m_bounds->box : BoundsOfVertices();
}

void TParts::Keep(const TBounds &bounds) {
  if (m_bounds == nullptr) {
    void *pooled = detail::Pool::Take(sizeof(KeptBounds), detail::Pool::Shelf::Figures);
    m_bounds = pooled ? new (pooled) KeptBounds{bounds, true} : new KeptBounds{bounds, false};
  }
  m_bounds->box = bounds;
}

void TParts::KeepBounds() {
  if (m_bounds == nullptr) Keep(BoundsOfVertices());
}

void TParts::DropBounds() {
  KeptBounds *bounds = std::exchange(m_bounds, nullptr);
  if (bounds == nullptr) return;
  if (bounds->isPooled) {
    detail::Pool::Release(bounds);
  } else {
    std::default_delete<KeptBounds>()(bounds);
  }
}

void TParts::NoteAppended(std::span<const TMapPoint> added, const TBounds &bounds) {
  if (m_bounds == nullptr) {
    TBounds own = TBounds::Empty();
    own.Widen(added[0].X, added[0].Y);
    const TBounds before = BoundsOfVertices();
    const bool isAlone = added.size() == 1 && before == TBounds::Empty() && own == bounds;
    if (!isAlone) Keep(before);
  }
  if (m_bounds) m_bounds->box.Widen(bounds);
  NoteChange();
}

void TParts::AddPoint(double x, double y, double /*z*/) {
  AddBounds({x, y, x, y});
}

void TParts::AddBounds(const TBounds &bounds) {
  TBounds widened = GetBounds();
  widened.Widen(bounds);
  SetBounds(widened);
}

void TParts::SetBounds(const TBounds &bounds) {
  if (HasFewVertices() && bounds == BoundsOfVertices()) {
    DropBounds();
  } else {
    Keep(bounds);
  }
  NoteChange();
}

void TParts::MoveFirstTo(double x, double y) {
  TMapPoints &points = GetFirst().m_points;
  points.Forget();
  DropBounds();
  points.Add(x, y);
  SetBounds(points.GetBounds());
}

void TParts::SetSide(double TBounds::*side, double value) {
  TBounds bounds = GetBounds();
  bounds.*side = value;
  SetBounds(bounds);
}

}  // namespace tessera
