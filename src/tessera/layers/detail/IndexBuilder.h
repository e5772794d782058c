// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/layers/TIndexCell.h>
#include <tessera/layers/detail/IndexBox.h>

#include <cstddef>
#include <limits>
#include <span>
#include <vector>

namespace tessera::detail {

/// Divides a cell of the spatial index, and the cells that come of it.
///
/// A vertex is looked at only in cells whose middle lines cut through its object, and a long outline is cut down on the
/// way so that each cell sees little more than the vertices within it. An object that covers a cell is in all cells
/// below without further questions.
///
/// Left to itself, division would never end where more than five objects stay together however small the cells become:
/// where they share a vertex, or lie over each other. A cell with such a point is divided only while most of its
/// objects are not of those at that point; where no cell has such a point, the tree is the full one. Two more bounds
/// hold for data that no map has. Objects whose figures are not told by bounds or vertices, such as circles, may stay
/// together along their rims: eight levels in a row that keep them all end the division. And vertices on one vertical
/// or horizontal line double with every level, so the cells and ids of one tree are limited by the count of its
/// objects.
class IndexBuilder {
 public:
  explicit IndexBuilder(TIndexCell &top);
  /// Divides the cell. Answers whether it was.
  bool Run();

 private:
  static constexpr double NaN = std::numeric_limits<double>::quiet_NaN();

  /// What is known of an object throughout.
  struct Object {
    const TCustomMapObject *self;
    TBounds extent;  // of the vertices that may lie in a box at all; infinitely inverted without any
    TBounds bounds;  // as the object answers them; inverted unless it contains boxes by them
    TBoxContainment containment;
    bool hasVertices;
  };
  /// An object in a cell.
  struct Entry {
    std::uint32_t object;       // place in m_objects
    std::uint32_t vertexCount;  // of those at `vertices`
    const TMapPoint *vertices;  // all that lie in the cell and perhaps others; none: look at the object's
    TMapPoint sample;           // some vertex in the cell; not a number when none is known
    bool covers;                // is in every cell below
  };
  /// A run of m_entries. Those of the cells on the way down lie on top of each other.
  struct Range {
    std::size_t first;
    std::size_t count;
  };

  static Object Describe(const TCustomMapObject &object);
  static Entry WholeEntry(std::uint32_t at, const Object &object);
  void DivideCell(TIndexCell &cell, Range range, int fruitlessLevels);
  void AddChild(TIndexCell &cell, Range range, const TCellBounds &quadrant, int fruitlessLevels);
  void Collect(Range range, const IndexBox &box, bool isNested);
  [[nodiscard]] bool EnterBox(Entry &entry, const IndexBox &box);
  [[nodiscard]] bool FindVertex(Entry &entry, const TBounds &bounds);
  /// Lets the entry have only the vertices within the bounds, when they are much fewer. False when there are none.
  [[nodiscard]] bool CutOutline(Entry &entry, const TBounds &bounds);
  /// Hands `use` the vertices of an entry, run by run.
  template <typename Use>
  void ForEachRun(const Entry &entry, Use use) const;
  [[nodiscard]] bool EndsHere(const TIndexCell &cell, Range range, int fruitlessLevels) const;
  /// How many objects stay together at some point of the cell, however small the cells about it become: the most that
  /// are found for a few points.
  [[nodiscard]] std::size_t DeepestPoint(const TIndexCell &cell, Range range) const;
  [[nodiscard]] std::size_t DepthAt(const TMapPoint &point, Range range) const;
  void StoreIds(TIndexCell &cell, Range range);

  TIndexCell &m_top;
  std::vector<Object> m_objects;
  std::vector<std::uint32_t> m_ids;  // of m_objects
  std::vector<Entry> m_entries;
  std::vector<std::vector<TMapPoint>> m_cutOutlines;
  std::size_t m_cellsLeft;
  std::size_t m_idsLeft;
};

}  // namespace tessera::detail
