// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <array>
#include <cstddef>

namespace tessera::detail {

/// Memory for what is made together and mostly goes together, as all that a file gives a layer. Pieces are cut one
/// behind the other from slabs, without a word of their own, so that they lie close whatever the heap looks like. A
/// piece that is given back is not used again: a slab goes to the heap when its last piece has gone, with or after the
/// pool.
///
/// While a pool lives, it is the one of its thread; of several the youngest. The pieces of one pool may be given back
/// by any thread, but by one at a time, and not while the pool is at work in another.
class TESSERA_CORE_EXPORT Pool {
 public:
  /// What is read at different times lies apart.
  enum class Shelf { Figures, Values };

  Pool();
  ~Pool();
  Pool(const Pool &) = delete;
  Pool &operator=(const Pool &) = delete;

  /// A piece from the thread's pool: a figure aligned to 8 bytes, values to 4. None without a pool, for a large piece,
  /// and for the first few of a pool, so that small layers take no slab: these come from the heap.
  [[nodiscard]] static void *Take(std::size_t size, Shelf shelf);
  /// Makes a figure's piece larger where it stands; false when something stands behind it.
  [[nodiscard]] static bool ExtendFigure(void *piece, std::size_t size, std::size_t newSize);
  /// Gives a piece back. @pre it came from Take
  static void Release(void *piece) noexcept;

 private:
  struct Slab;
  void *Cut(std::size_t size, Shelf shelf);
  static void Leave(Slab *slab) noexcept;

  Pool *const m_outer;
  std::array<Slab *, 2> m_slabs{};  // from which is cut, by shelf
  std::size_t m_asked = 0;
};

}  // namespace tessera::detail
