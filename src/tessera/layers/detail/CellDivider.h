// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/layers/TIndexCell.h>
#include <tessera/layers/detail/IndexTree.h>

#include <algorithm>
#include <cmath>

namespace tessera::detail {

/// Equality by which not-a-number, the middle of what is infinite, equals itself.
[[nodiscard]] inline bool IsSameCell(const TCellBounds &a, const TCellBounds &b) {
  const auto isSame = [](double x, double y) { return x == y || (std::isnan(x) && std::isnan(y)); };
  return isSame(a.MinX, b.MinX) && isSame(a.MaxX, b.MaxX) && isSame(a.MinY, b.MinY) && isSame(a.MaxY, b.MaxY);
}

/// What is in a cell: a run of one of four stacks, for each quadrant has a stack of its own. The contents of the cells
/// on the way down lie on top of each other.
struct CellRange {
  unsigned stack;
  std::size_t first;
  std::size_t count;
};
using QuadrantRanges = std::array<CellRange, 4>;

/// How many objects have to stay together at a point for the division of a cell with so many to end.
[[nodiscard]] constexpr std::size_t CrowdOf(std::size_t count) {
  return std::max<std::size_t>(TIndexCell::DefaultMinObjectCountPerCell + 1, (count + 1) / 2);
}

/// How many of a cell's vertices are tried as points where objects stay together.
[[nodiscard]] constexpr std::size_t SamplesOf(std::size_t count) {
  constexpr std::size_t SmallCell = 64;
  constexpr std::size_t SamplesOfSmallCell = 8;
  constexpr std::size_t SamplesOfBigCell = 2;
  return std::min(count, count <= SmallCell ? SamplesOfSmallCell : SamplesOfBigCell);
}

/// Divides a cell of the spatial index, and the cells that come of it. A Content tells what is in a cell:
/// - `QuadrantRanges Split(cell, range)` says what of it is in each quadrant, until `Release(ranges)`;
/// - `bool IsCrowded(cell, range)`: whether CrowdOf objects are in all cells about some point, however small;
/// - `bool HasFigures()`: whether these may include some that Split does not find in the quadrant of the point;
/// - `ForEachId(range, use)`.
///
/// Left to itself, division would never end where more than five objects stay together. Such a cell is divided only
/// while most of its objects are not of those at that point.
///
/// The other bound is for trees that would end but hardly fit into memory: vertices on one vertical or horizontal line
/// double with every level, so the cells and ids of one tree are limited by the count of its objects.
template <class Content>
class CellDivider {
 public:
  CellDivider(Content &content, IndexTree &tree, std::size_t objects, std::size_t vertices)
      : m_content(content), m_tree(tree) {
    // Ordinary layers have a cell or two for each object, or one for each ten vertices.
    constexpr std::size_t CellsOfAnyTree = std::size_t(1) << 18;
    constexpr std::size_t CellsPerObject = 4;
    constexpr std::size_t VerticesPerCell = 4;
    constexpr std::size_t IdsPerCell = 8;
    // Those that are begun still get their children when nothing is left.
    constexpr std::size_t Reserve = std::size_t(1) << 16;
    m_cellsLeft =
        std::min(CellsOfAnyTree + CellsPerObject * objects + vertices / VerticesPerCell, IndexTree::MaxCells - Reserve);
    m_idsLeft = IdsPerCell * m_cellsLeft;
  }

  /// Gives a cell children, unless its division ends here. Answers whether it did.
  bool Divide(const TCellBounds &cell, std::uint32_t node, const CellRange &range) {
    if (m_cellsLeft < Quadrants || m_idsLeft < Quadrants * range.count) return false;
    if (m_content.HasFigures() && m_content.IsCrowded(cell, range)) return false;
    const QuadrantRanges ranges = m_content.Split(cell, range);
    // Those of a crowd are in the same quadrant, so most cells need not be asked.
    const bool ends =
        !m_content.HasFigures() && Largest(ranges) >= CrowdOf(range.count) && m_content.IsCrowded(cell, range);
    if (!ends) EnterQuadrants(cell, node, range, ranges);
    m_content.Release(ranges);
    return !ends;
  }

 private:
  static constexpr std::size_t Quadrants = 4;

  [[nodiscard]] static std::size_t Largest(const QuadrantRanges &ranges) {
    std::size_t largest = 0;
    for (const CellRange &range : ranges) largest = std::max(largest, range.count);
    return largest;
  }
  void EnterQuadrants(const TCellBounds &cell, std::uint32_t node, const CellRange &range,
                      const QuadrantRanges &ranges) {
    unsigned met = 0;
    for (unsigned i = 0; i < Quadrants; ++i) met |= unsigned(ranges[i].count != 0) << i;
    const std::array<TCellBounds, Quadrants> quadrants = QuadrantsOf(cell);
    std::uint32_t child = m_tree.AddChildren(node, met);
    for (unsigned i = 0; i < Quadrants; ++i) {
      if (ranges[i].count == 0) continue;
      // At the end of their precision, coordinates have no middle between them.
      const bool isRepeated = ranges[i].count == range.count && IsSameCell(quadrants[i], cell);
      Enter(quadrants[i], child++, ranges[i], isRepeated);
    }
  }
  void Enter(const TCellBounds &cell, std::uint32_t node, const CellRange &range, bool isRepeated) {
    m_tree.Enter(node);
    m_cellsLeft -= std::min<std::size_t>(m_cellsLeft, 1);
    constexpr std::size_t MinCount = TIndexCell::DefaultMinObjectCountPerCell;
    if (range.count > MinCount && !isRepeated && Divide(cell, node, range)) return;
    m_content.ForEachId(range, [this](std::uint32_t id) { m_tree.AddId(id); });
    m_idsLeft -= std::min(m_idsLeft, range.count);
  }

  Content &m_content;
  IndexTree &m_tree;
  std::size_t m_cellsLeft;
  std::size_t m_idsLeft;
};

}  // namespace tessera::detail
