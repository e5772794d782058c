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
/// objects are not of those at that point. That they stay is never guessed: the cells about the point are followed down
/// until it is certain, so a cell whose division ends by itself is divided to that end. The one thing taken for granted
/// is that a figure which holds the corners of a cell, where neither bounds nor vertices tell, holds all between them.
///
/// The other bound is for trees that would end but hardly fit into memory: vertices on one vertical or horizontal line
/// double with every level, so the cells and ids of one tree are limited by the count of its objects.
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

  /// A place where objects are likely to stay together, and how many.
  struct Crowd {
    TMapPoint point;
    std::size_t count;
  };

  static Object Describe(const TCustomMapObject &object);
  static Entry WholeEntry(std::uint32_t at, const Object &object);
  void DivideCell(TIndexCell &cell, Range range);
  void AddChild(TIndexCell &cell, Range range, const TCellBounds &quadrant);
  /// Hands `use` the entries of a cell's range that meet a quadrant of it, for the time of the call.
  template <typename Use>
  void WithEntriesIn(const TCellBounds &quadrant, const TCellBounds &cell, Range range, Use use);
  void Collect(Range range, const IndexBox &box, bool isNested);
  [[nodiscard]] bool EnterBox(Entry &entry, const IndexBox &box);
  [[nodiscard]] bool FindVertex(Entry &entry, const TBounds &bounds);
  /// Lets the entry have only the vertices within the bounds, when they are much fewer. False when there are none.
  [[nodiscard]] bool CutOutline(Entry &entry, const TBounds &bounds);
  /// Hands `use` the vertices of an entry, run by run.
  template <typename Use>
  void ForEachRun(const Entry &entry, Use use) const;
  [[nodiscard]] bool EndsHere(const TIndexCell &cell, Range range);
  /// The most crowded of a few points of the cell.
  [[nodiscard]] Crowd FindCrowd(const TIndexCell &cell, Range range) const;
  [[nodiscard]] std::size_t DepthAt(const TMapPoint &point, Range range) const;
  /// Whether at least `enough` entries are in all cells about a point, however small.
  [[nodiscard]] bool StayTogether(const TCellBounds &cell, Range range, const TMapPoint &point, std::size_t enough);
  /// How many entries are certain to.
  [[nodiscard]] std::size_t CountLasting(const TCellBounds &cell, Range range, const TMapPoint &point) const;
  void StoreIds(TIndexCell &cell, Range range);

  TIndexCell &m_top;
  std::vector<Object> m_objects;
  bool m_hasFigures = false;         // that neither bounds nor vertices tell
  std::vector<std::uint32_t> m_ids;  // of m_objects
  std::vector<Entry> m_entries;
  std::vector<std::vector<TMapPoint>> m_cutOutlines;
  std::size_t m_cellsLeft;
  std::size_t m_idsLeft;
};

}  // namespace tessera::detail
