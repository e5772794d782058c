// SPDX-License-Identifier: MIT
#include <tessera/base/detail/Pool.h>

#include <algorithm>
#include <cstdint>
#include <new>

// The address sanitizer, where it is at work, is told what is in use, so that it finds a use after the end in here,
// too.
#if __has_include(<sanitizer/asan_interface.h>)
#include <sanitizer/asan_interface.h>
#else
#define ASAN_POISON_MEMORY_REGION(address, size) static_cast<void>(0)
#define ASAN_UNPOISON_MEMORY_REGION(address, size) static_cast<void>(0)
#endif

namespace tessera::detail {
namespace {

// Slabs are aligned so that a piece finds its slab. They are a little smaller than that and not large, so that heaps
// which keep a word of their own before each lay them out without gaps, and not one by one in pages of their own.
constexpr std::size_t SlabSpan = std::size_t(1) << 15;
constexpr std::size_t SlabSize = SlabSpan - 16;
constexpr std::align_val_t SlabAlignment{SlabSpan};
constexpr std::size_t LargestPiece = std::size_t(1) << 12;
constexpr std::size_t LeastPiece = 8;  // so that each holds what marks it as given back
constexpr std::size_t HeapFirst = std::size_t(1) << 16;
constexpr std::size_t FigureUnit = 8;
constexpr std::size_t ValueUnit = 4;

thread_local Pool *t_pool = nullptr;

constexpr std::size_t RoundedUp(std::size_t size, std::size_t unit) {
  return (std::max(size, LeastPiece) + unit - 1) / unit * unit;
}

}  // namespace

struct Pool::Slab {
  std::uint32_t used = sizeof(Slab);
  std::uint32_t pieces = 0;
  bool isOpen = true;
  std::size_t lastPiece = 0;

  [[nodiscard]] std::byte *At(std::size_t offset) { return reinterpret_cast<std::byte *>(this) + offset; }
  static Slab *Of(void *piece) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): the address with its low bits cleared
    return reinterpret_cast<Slab *>(reinterpret_cast<std::uintptr_t>(piece) & ~(SlabSpan - 1));
  }
  [[nodiscard]] std::size_t OffsetOf(const void *piece) {
    return std::size_t(static_cast<const std::byte *>(piece) - At(0));
  }
};

Pool::Pool() : m_outer(t_pool) {
  t_pool = this;
}

Pool::~Pool() {
  t_pool = m_outer;
  for (Slab *slab : m_slabs) Leave(slab);
}

void Pool::Leave(Slab *slab) noexcept {
  if (slab == nullptr) return;
  slab->isOpen = false;
  if (slab->pieces == 0) ::operator delete(slab, SlabAlignment);
}

void *Pool::Take(std::size_t size, Shelf shelf) {
  Pool *pool = t_pool;
  if (pool == nullptr || size > LargestPiece) return nullptr;
  pool->m_asked += size;
  return pool->m_asked > HeapFirst ? pool->Cut(RoundedUp(size, shelf == Shelf::Values ? ValueUnit : FigureUnit), shelf)
                                   : nullptr;
}

void *Pool::Cut(std::size_t size, Shelf shelf) {
  Slab *&slab = m_slabs[std::size_t(shelf)];
  if (slab == nullptr || slab->used + size > SlabSize) {
    void *memory = ::operator new(SlabSize, SlabAlignment);
    Leave(slab);
    slab = new (memory) Slab;
    ASAN_POISON_MEMORY_REGION(slab->At(sizeof(Slab)), SlabSize - sizeof(Slab));
  }
  slab->lastPiece = slab->used;
  slab->used += std::uint32_t(size);
  ++slab->pieces;
  ASAN_UNPOISON_MEMORY_REGION(slab->At(slab->lastPiece), size);
  return slab->At(slab->lastPiece);
}

bool Pool::ExtendFigure(void *piece, std::size_t size, std::size_t newSize) {
  Slab *slab = Slab::Of(piece);
  const std::size_t more = RoundedUp(newSize, FigureUnit) - RoundedUp(size, FigureUnit);
  if (!slab->isOpen || slab->OffsetOf(piece) != slab->lastPiece || slab->used + more > SlabSize) return false;
  ASAN_UNPOISON_MEMORY_REGION(piece, newSize);
  slab->used += std::uint32_t(more);
  return true;
}

void Pool::Release(void *piece) noexcept {
  Slab *slab = Slab::Of(piece);
  // Without its size it is not known where the piece ends; its first word is enough to find most uses.
  ASAN_POISON_MEMORY_REGION(piece, LeastPiece);
  if (--slab->pieces == 0 && !slab->isOpen) ::operator delete(slab, SlabAlignment);
}

}  // namespace tessera::detail
