// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/layers/detail/CellDivider.h>
#include <tessera/layers/detail/IndexBox.h>

#include <vector>

namespace tessera::detail {

/// The contents of index cells where objects are of any kind.
///
/// A vertex is looked at only in cells whose middle lines cut through the box of the few that it stands among, its run,
/// and long outlines are cut down on the way so that each cell sees little more than the runs that meet it. An object
/// that covers a cell is in all cells below without further questions.
///
/// That objects stay together is never guessed: the cells about the point are followed down until it is certain, so a
/// cell whose division ends by itself is divided to that end. The one thing taken for granted is that a figure which
/// holds the corners of a cell, where neither bounds nor vertices tell, holds all between them.
class IndexShapes {
 public:
  void Add(const TCustomMapObject &object, std::uint32_t id);
  [[nodiscard]] CellRange GetAll() const { return {0, 0, m_stacks[0].size()}; }
  [[nodiscard]] std::size_t CountVertices() const { return m_vertexCount; }

  [[nodiscard]] QuadrantRanges Split(const TCellBounds &cell, const CellRange &range);
  void Release(const QuadrantRanges &ranges);
  [[nodiscard]] bool IsCrowded(const TCellBounds &cell, const CellRange &range);
  [[nodiscard]] bool HasFigures() const { return m_hasFigures; }
  template <typename Use>
  void ForEachId(const CellRange &range, Use use) const {
    for (std::size_t i = 0; i < range.count; ++i) use(m_objects[EntryAt(range, i).object].id);
  }

 private:
  /// Vertices of one part that follow each other.
  struct Run {
    TBounds box;  // without limits when some vertex is nowhere
    const TMapPoint *points;
    std::uint32_t count;
  };
  struct Object {
    const TCustomMapObject *self;
    std::uint32_t id;
    std::uint32_t firstRun;
    std::uint32_t runCount;
  };
  /// How an object contains boxes: not at all, by its extent, by other bounds within that, by any others, or by itself.
  enum class Containment : std::uint8_t { None, ByExtent, ByInnerBounds, ByBounds, Refined };
  /// An object in a cell. Nearly all questions are answered from here, where objects follow each other in the memory.
  struct Entry {
    TBounds extent;          // of the vertices that may lie in a box at all; infinitely inverted without any
    TMapPoint sample;        // some vertex in the cell; not a number when none is known
    std::uint32_t object;    // place in m_objects
    std::uint32_t firstRun;  // of all that meet the cell, and perhaps others: place in m_runs, or in m_cutRuns
    std::uint32_t runCount;
    Containment containment;
    bool isCut;
    bool covers;  // is in every cell below
  };
  struct Quadrants;
  struct Fate;
  /// A place where objects are likely to stay together, and how many.
  struct Crowd {
    TMapPoint point;
    std::size_t count;
  };

  void AddRuns(std::span<const TMapPoint> points, Object &object);
  [[nodiscard]] TBounds ExtentOf(const Object &object) const;
  /// The entry as it is before any cut.
  [[nodiscard]] Entry WholeEntry(const Entry &entry) const;
  /// The bounds by which the object contains boxes; inverted when it does not.
  [[nodiscard]] TBounds BoundsOf(const Entry &entry) const;
  [[nodiscard]] const Entry &EntryAt(const CellRange &range, std::size_t i) const {
    return m_stacks[range.stack][range.first + i];
  }
  [[nodiscard]] const Run &RunOf(const Entry &entry, std::uint32_t i) const {
    return m_runs[entry.isCut ? m_cutRuns[entry.firstRun + i] : entry.firstRun + i];
  }
  /// Has the processor fetch what the entries that lie across quadrants will need.
  void Expect(const Quadrants &quadrants, const CellRange &range) const;
  [[nodiscard]] Fate FateOf(const Entry &entry, const Quadrants &quadrants);
  /// Fills m_nearRuns.
  void LocateRuns(const Entry &entry, const Quadrants &quadrants);
  void FindVertices(const Entry &entry, const Quadrants &quadrants, unsigned sought, Fate &fate) const;
  void DealOut(const Entry &entry, const Fate &fate);
  /// Lets the entry have only the runs that meet a quadrant, when they are much fewer.
  void CutRuns(unsigned quadrant, Entry &entry);
  /// The most crowded of a few points of the cell.
  [[nodiscard]] Crowd FindCrowd(const TCellBounds &cell, const CellRange &range) const;
  [[nodiscard]] std::size_t DepthAt(const TMapPoint &point, const CellRange &range) const;
  /// Whether at least `enough` entries are in all cells about a point, however small.
  [[nodiscard]] bool StayTogether(const TCellBounds &cell, const CellRange &range, const TMapPoint &point,
                                  std::size_t enough);
  /// How many entries are certain to.
  [[nodiscard]] std::size_t CountLasting(const TCellBounds &cell, const CellRange &range, const TMapPoint &point) const;

  std::vector<Object> m_objects;
  std::vector<Run> m_runs;
  std::size_t m_vertexCount = 0;
  bool m_hasFigures = false;  // that neither bounds nor vertices tell
  std::array<std::vector<Entry>, 4> m_stacks;
  std::vector<std::uint32_t> m_cutRuns;
  std::vector<std::uint8_t>
      m_nearRuns;  // a bit for each quadrant that a run of the entry at hand meets; empty when not needed
  std::vector<std::size_t> m_cutMarks;  // the length of m_cutRuns before each split
};

}  // namespace tessera::detail
