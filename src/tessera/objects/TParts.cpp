// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
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

void TPart::SetPoints(TMapPoints &&points) {
  TParts *owner = m_points.GetOwner();
  TParts *otherOwner = points.GetOwner();
  std::swap(m_points.m_block, points.m_block);
  points.SetOwner(otherOwner);
  m_points.SetOwner(owner);
  if (owner) owner->NoteChange();
  if (otherOwner) otherOwner->NoteChange();
}

void TPart::Assign(const TPart &source) {
  SetPoints(source.GetPoints().Clone());
}

TParts::~TParts() {
  FreeParts();
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
    many->push_back(std::move(only));
    std::destroy_at(&only);
  }
  SetWord(reinterpret_cast<std::uintptr_t>(many.get()) | ManyFlag);
  return *many.release();
}

TPart &TParts::Add() {
  if (GetWord() == 0) return *new (m_store) TPart(this);
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
    many->erase(many->begin() + std::ptrdiff_t(at));
    NoteChange();
  } else {
    Clear();
  }
}

void TParts::Clear() {
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
  Clear();
  for (const TPart &part : source.Items()) Add().Assign(part);
  SetBounds(source.GetBounds());
}

void TParts::Own() {
  for (TPart &part : Items()) part.m_points.SetOwner(this);
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

void TParts::AddPoint(double x, double y, double /*z*/) {
  m_bounds.Widen(x, y);
  NoteChange();
}

void TParts::AddBounds(const TBounds &bounds) {
  m_bounds.Widen(bounds);
  NoteChange();
}

void TParts::SetBounds(const TBounds &bounds) {
  m_bounds = bounds;
  NoteChange();
}

}  // namespace tessera
