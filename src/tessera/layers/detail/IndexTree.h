// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/TBounds.h>
#include <tessera/layers/detail/FoundIds.h>

#include <array>
#include <bit>
#include <span>
#include <vector>

namespace tessera::detail {

/// Lower left, upper left, upper right and lower right.
[[nodiscard]] inline std::array<TCellBounds, 4> QuadrantsOf(const TCellBounds &cell) {
  const double midX = (cell.MaxX - cell.MinX) / 2 + cell.MinX;
  const double midY = (cell.MaxY - cell.MinY) / 2 + cell.MinY;
  return {{{cell.MinX, midX, cell.MinY, midY},
           {cell.MinX, midX, midY, cell.MaxY},
           {midX, cell.MaxX, midY, cell.MaxY},
           {midX, cell.MaxX, cell.MinY, midY}}};
}

/// Whether a cell is in order and within the limits of running bounds, and so are all cells below it.
[[nodiscard]] inline bool IsOrdinaryCell(const TCellBounds &cell) {
  return -BoundsSentinel <= cell.MinX && cell.MinX <= cell.MaxX && cell.MaxX <= BoundsSentinel &&
         -BoundsSentinel <= cell.MinY && cell.MinY <= cell.MaxY && cell.MaxY <= BoundsSentinel;
}

/// The cells below one cell of the spatial index, as the building makes them, in two arrays: eight bytes for a cell,
/// and the ids of all leaves one after the other. Bounds are not kept; they are worked out on the way down.
class TESSERA_CORE_EXPORT IndexTree {
 public:
  /// A cell on the way down. All ids of the leaves below it lie together.
  struct Cell {
    TCellBounds bounds;
    std::uint32_t node;
    std::uint32_t idsEnd;
  };

  // Making: from the top down, the children of a cell in order, each finished before the next.

  explicit IndexTree(const TCellBounds &bounds) : m_bounds(bounds), m_nodes(1) {}
  /// Gives a cell a child for each quadrant that has its bit set. Answers the first; the others follow.
  std::uint32_t AddChildren(std::uint32_t node, unsigned quadrants);
  /// What is added from now on lies in this cell.
  void Enter(std::uint32_t node) { m_nodes[node].firstId = std::uint32_t(m_ids.size()); }
  void AddId(std::uint32_t id) { m_ids.push_back(id); }
  /// Nothing is added any more.
  void Finish();
  static constexpr std::size_t MaxCells = std::size_t(1) << 28;

  // Walking.

  [[nodiscard]] Cell GetRoot() const { return {m_bounds, 0, std::uint32_t(m_ids.size())}; }
  [[nodiscard]] bool IsLeaf(const Cell &cell) const { return m_nodes[cell.node].quadrants == 0; }
  [[nodiscard]] int CountChildren(const Cell &cell) const { return std::popcount(m_nodes[cell.node].quadrants + 0U); }
  /// Hands `use` each child, in the order of the quadrants.
  template <typename Use>
  void ForEachChild(const Cell &cell, Use use) const {
    const std::array<TCellBounds, 4> quadrants = QuadrantsOf(cell.bounds);
    ForEachNode(cell, [&](unsigned quadrant, std::uint32_t node, std::uint32_t idsEnd) {
      use(Cell{quadrants[quadrant], node, idsEnd});
    });
  }
  /// Of all leaves below, in their order; an id of several leaves comes several times.
  [[nodiscard]] std::span<const std::uint32_t> IdsOf(const Cell &cell) const {
    return std::span(m_ids).subspan(m_nodes[cell.node].firstId, cell.idsEnd - m_nodes[cell.node].firstId);
  }
  /// Whether no id stands in several leaves.
  [[nodiscard]] bool HasUniqueIds() const { return m_uniqueIds.empty(); }

  /// Finds the ids of the leaves below that meet a rectangle along with all cells above them, but for `cell` itself,
  /// which is not asked.
  void FindInRect(const Cell &cell, const TBounds &rect, FoundIds &found) const;

 private:
  struct Node {
    std::uint32_t firstId = 0;
    std::uint32_t firstChild : 28 = 0;
    std::uint32_t quadrants : 4 = 0;  // that there are children of; none of a leaf
  };
  class Search;

  template <typename Use>
  void ForEachNode(const Cell &cell, Use use) const {
    const Node &node = m_nodes[cell.node];
    std::uint32_t child = node.firstChild;
    for (unsigned left = node.quadrants; left != 0; left &= left - 1) {
      const std::uint32_t idsEnd = std::has_single_bit(left) ? cell.idsEnd : m_nodes[child + 1].firstId;
      use(unsigned(std::countr_zero(left)), child++, idsEnd);
    }
  }
  void FindOddly(const Cell &cell, const TBounds &rect, FoundIds &found) const;

  TCellBounds m_bounds;
  std::vector<Node> m_nodes;
  std::vector<std::uint32_t> m_ids;
  /// All ids, each once, in the order of the leaves; empty when that is `m_ids`.
  std::vector<std::uint32_t> m_uniqueIds;
};

}  // namespace tessera::detail
