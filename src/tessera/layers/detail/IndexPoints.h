// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/layers/detail/CellDivider.h>

#include <memory>

namespace tessera {
class TCustomMapObject;
}

namespace tessera::detail {

/// The contents of index cells where each object is one point: they are dealt out to the quadrants, level by level.
class IndexPoints {
 public:
  /// Points of an ordinary cell.
  explicit IndexPoints(const TCellBounds &cell) : m_cell(CellBounds2Bounds(cell)) {}
  void Reserve(std::size_t count) { m_stacks[0].MakeRoom(count); }
  /// Takes an object in. False when it is not a point in the cell that is found by its position alone.
  [[nodiscard]] bool Add(const TCustomMapObject &object, std::uint32_t id);
  [[nodiscard]] CellRange GetAll() const { return {0, 0, m_stacks[0].count}; }

  [[nodiscard]] QuadrantRanges Split(const TCellBounds &cell, const CellRange &range);
  void Release(const QuadrantRanges &ranges);
  [[nodiscard]] bool IsCrowded(const TCellBounds &cell, const CellRange &range) const;
  [[nodiscard]] static bool HasFigures() { return false; }
  template <typename Use>
  void ForEachId(const CellRange &range, Use use) const {
    const Point *const first = m_stacks[range.stack].points.get() + range.first;
    std::for_each(first, first + range.count, [&use](const Point &point) { use(point.id); });
  }

 private:
  struct Point {
    double x;
    double y;
    std::uint32_t id;
  };
  struct Stack {
    std::unique_ptr<Point[]> points;
    std::size_t count = 0;
    std::size_t capacity = 0;
    /// Lets so many more be written at the end.
    void MakeRoom(std::size_t more);
  };

  TBounds m_cell;
  std::array<Stack, 4> m_stacks;
};

}  // namespace tessera::detail
