// SPDX-License-Identifier: MIT
#include <tessera/layers/detail/IndexShapes.h>

#include <limits>

namespace tessera::detail {
namespace {

constexpr std::size_t RunLength = 16;
/// So many runs are cheaper to look through again than to cut.
constexpr std::uint32_t FewRuns = 8;
constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr TBounds Nothing = {Infinity, Infinity, -Infinity, -Infinity};

bool IsNowhere(const TMapPoint &point) {
  return std::isnan(point.X) || std::isnan(point.Y);
}

TBounds BoxOf(std::span<const TMapPoint> points) {
  TBounds box = Nothing;
  bool isNowhere = false;
  for (const TMapPoint &point : points) {
    box.Widen(point.X, point.Y);
    isNowhere |= IsNowhere(point);
  }
  return isNowhere ? TBounds{-Infinity, -Infinity, Infinity, Infinity} : box;
}

/// Whether all quadrants lie within the cell. Where the size of a cell overflows, they do not.
bool IsNesting(const TCellBounds &cell) {
  return std::isfinite(cell.MaxX - cell.MinX) && std::isfinite(cell.MaxY - cell.MinY);
}

/// What the boxes of all cells about a point have in common: the point, unless it lies beyond running bounds.
TBounds CoreAbout(const TMapPoint &point) {
  return IndexBox::BoundsOf({point.X, point.X, point.Y, point.Y});
}

bool HoldsInside(const TBounds &bounds, const TMapPoint &point) {
  return bounds.MinX < point.X && point.X < bounds.MaxX && bounds.MinY < point.Y && point.Y < bounds.MaxY;
}

bool HasCornersIn(const TCustomMapObject &object, const TCellBounds &cell) {
  return object.ContainsPoint(cell.MinX, cell.MinY) && object.ContainsPoint(cell.MaxX, cell.MinY) &&
         object.ContainsPoint(cell.MaxX, cell.MaxY) && object.ContainsPoint(cell.MinX, cell.MaxY);
}

bool IsIn(const TBounds &box, const TMapPoint *point) {
  return point && box.ContainsPoint(point->X, point->Y);
}

/// The numbers of the bits that are set.
template <typename Use>
void ForEachBit(unsigned bits, Use use) {
  for (; bits != 0; bits &= bits - 1) use(unsigned(std::countr_zero(bits)));
}

}  // namespace

/// The quadrants of a cell.
struct IndexShapes::Quadrants {
  explicit Quadrants(const TCellBounds &cell) : Quadrants(QuadrantsOf(cell)) {}
  explicit Quadrants(const std::array<TCellBounds, 4> &cells)
      : boxes{IndexBox(cells[0]), IndexBox(cells[1]), IndexBox(cells[2]), IndexBox(cells[3])} {
    for (std::size_t i = 0; i < boxes.size(); ++i) bounds[i] = boxes[i].GetBounds();
  }

  /// A bit for each quadrant that holds the point. Without branches: two have their sides in common.
  [[nodiscard]] unsigned Holding(const TMapPoint &p) const {
    const unsigned left = unsigned(p.X >= bounds[0].MinX) & unsigned(p.X <= bounds[0].MaxX);
    const unsigned right = unsigned(p.X >= bounds[2].MinX) & unsigned(p.X <= bounds[2].MaxX);
    const unsigned lower = unsigned(p.Y >= bounds[0].MinY) & unsigned(p.Y <= bounds[0].MaxY);
    const unsigned upper = unsigned(p.Y >= bounds[2].MinY) & unsigned(p.Y <= bounds[2].MaxY);
    return (left & lower) | (left & upper) << 1 | (right & upper) << 2 | (right & lower) << 3;
  }
  [[nodiscard]] unsigned Meeting(const TBounds &b) const {
    const unsigned left = unsigned(b.MinX <= bounds[0].MaxX) & unsigned(bounds[0].MinX <= b.MaxX);
    const unsigned right = unsigned(b.MinX <= bounds[2].MaxX) & unsigned(bounds[2].MinX <= b.MaxX);
    const unsigned lower = unsigned(b.MinY <= bounds[0].MaxY) & unsigned(bounds[0].MinY <= b.MaxY);
    const unsigned upper = unsigned(b.MinY <= bounds[2].MaxY) & unsigned(bounds[2].MinY <= b.MaxY);
    return (left & lower) | (left & upper) << 1 | (right & upper) << 2 | (right & lower) << 3;
  }

  std::array<IndexBox, 4> boxes;
  std::array<TBounds, 4> bounds;
};

/// What becomes of an entry in the quadrants: a bit for each.
struct IndexShapes::Fate {
  unsigned met = 0;
  unsigned covered = 0;
  std::array<const TMapPoint *, 4> samples{};
};

void IndexShapes::Add(const TCustomMapObject &object, std::uint32_t id) {
  const TBoxContainment containment = object.GetBoxContainment();
  const bool isByBounds = containment == TBoxContainment::ByBounds;
  Object described{
      &object, Nothing,    isByBounds ? object.GetBounds() : TBounds::Empty(), id, std::uint32_t(m_runs.size()),
      0,       containment};
  for (const TPart &part : object.GetParts().Items()) AddRuns(part.GetPoints().Points(), described);
  described.extent = ExtentOf(described);
  m_hasFigures |= containment == TBoxContainment::Refined;
  m_objects.push_back(described);
  m_stacks[0].push_back(WholeEntry(std::uint32_t(m_objects.size() - 1)));
}

void IndexShapes::AddRuns(std::span<const TMapPoint> points, Object &object) {
  m_vertexCount += points.size();
  while (!points.empty()) {
    const std::size_t count = std::min(RunLength, points.size());
    m_runs.push_back({BoxOf(points.first(count)), points.data(), std::uint32_t(count)});
    ++object.runCount;
    points = points.subspan(count);
  }
}

TBounds IndexShapes::ExtentOf(const Object &object) const {
  TBounds extent = Nothing;
  for (const Run &run : std::span(m_runs).subspan(object.firstRun, object.runCount)) {
    if (run.box.MinX != -Infinity) {
      extent.Widen(run.box);
      continue;
    }
    for (const TMapPoint &point : std::span(run.points, run.count)) {
      if (!IsNowhere(point)) extent.Widen(point.X, point.Y);
    }
  }
  return extent;
}

IndexShapes::Entry IndexShapes::WholeEntry(std::uint32_t at) const {
  const Object &object = m_objects[at];
  const bool hasVertices = object.runCount != 0;
  return {at,    object.firstRun, object.runCount,
          false, !hasVertices,    hasVertices ? m_runs[object.firstRun].points : nullptr};
}

QuadrantRanges IndexShapes::Split(const TCellBounds &cell, const CellRange &range) {
  const Quadrants quadrants(cell);
  const bool isNested = IsNesting(cell);
  m_cutMarks.push_back(m_cutRuns.size());
  QuadrantRanges ranges{};
  for (unsigned i = 0; i < ranges.size(); ++i) ranges[i] = {i, m_stacks[i].size(), 0};
  for (std::size_t i = 0; i < range.count; ++i) {
    const Entry entry = isNested ? EntryAt(range, i) : WholeEntry(EntryAt(range, i).object);
    DealOut(entry, quadrants, FateOf(entry, quadrants));
  }
  for (CellRange &each : ranges) each.count = m_stacks[each.stack].size() - each.first;
  return ranges;
}

void IndexShapes::Release(const QuadrantRanges &ranges) {
  for (const CellRange &range : ranges) m_stacks[range.stack].resize(range.first);
  m_cutRuns.resize(m_cutMarks.back());
  m_cutMarks.pop_back();
}

IndexShapes::Fate IndexShapes::FateOf(const Entry &entry, const Quadrants &quadrants) const {
  constexpr unsigned All = 15;
  const Object &object = m_objects[entry.object];
  Fate fate{0, 0, {entry.sample, entry.sample, entry.sample, entry.sample}};
  if (entry.covers) return {All, All, fate.samples};
  const unsigned near = quadrants.Meeting(object.extent);
  unsigned sought = 0;
  for (unsigned i = 0; i < quadrants.boxes.size(); ++i) {
    const unsigned bit = 1U << i;
    const bool isNear = (near & bit) != 0;
    if (isNear && quadrants.bounds[i].ContainsBounds(object.extent)) {
      fate.met |= bit;
    } else if (quadrants.boxes[i].HasCornersIn(object.bounds)) {
      fate.met |= bit;
      fate.covered |= bit;
    } else if (isNear && IsIn(quadrants.bounds[i], entry.sample)) {
      fate.met |= bit;
    } else {
      fate.samples[i] = nullptr;
      if (isNear) sought |= bit;
    }
  }
  if (sought != 0) FindVertices(entry, quadrants, sought, fate);
  if (object.containment != TBoxContainment::Refined) return fate;
  ForEachBit(All & ~fate.met, [&](unsigned i) {
    if (quadrants.boxes[i].IsContainedBy(*object.self)) fate.met |= 1U << i;
  });
  return fate;
}

void IndexShapes::FindVertices(const Entry &entry, const Quadrants &quadrants, unsigned sought, Fate &fate) const {
  const auto take = [&](unsigned found, const TMapPoint &sample) {
    ForEachBit(found, [&](unsigned i) { fate.samples[i] = &sample; });
    fate.met |= found;
    sought &= ~found;
  };
  for (std::uint32_t i = 0; i < entry.runCount && sought != 0; ++i) {
    const Run &run = RunOf(entry, i);
    unsigned near = quadrants.Meeting(run.box) & sought;
    ForEachBit(near, [&](unsigned quadrant) {
      if (!quadrants.bounds[quadrant].ContainsBounds(run.box)) return;
      take(1U << quadrant, *run.points);
    });
    near &= sought;
    for (std::uint32_t k = 0; k < run.count && near != 0; ++k) {
      const unsigned found = quadrants.Holding(run.points[k]) & near;
      if (found == 0) continue;
      take(found, run.points[k]);
      near &= ~found;
    }
  }
}

void IndexShapes::DealOut(const Entry &entry, const Quadrants &quadrants, const Fate &fate) {
  std::array<Entry, 4> dealt{entry, entry, entry, entry};
  for (unsigned i = 0; i < dealt.size(); ++i) {
    dealt[i].sample = fate.samples[i];
    dealt[i].covers = (fate.covered >> i & 1U) != 0;
  }
  if (entry.runCount > FewRuns && (fate.met & ~fate.covered) != 0) CutRuns(entry, quadrants, dealt);
  ForEachBit(fate.met, [&](unsigned i) { m_stacks[i].push_back(dealt[i]); });
}

void IndexShapes::CutRuns(const Entry &entry, const Quadrants &quadrants, std::array<Entry, 4> &dealt) {
  std::array<std::uint32_t, 4> counts{};
  for (std::uint32_t i = 0; i < entry.runCount; ++i) {
    ForEachBit(quadrants.Meeting(RunOf(entry, i).box), [&](unsigned quadrant) { ++counts[quadrant]; });
  }
  for (unsigned i = 0; i < dealt.size(); ++i) {
    // It is cut only when half of it goes, so that all the cuts on the way down take no more room than two of it.
    if (dealt[i].covers || 2 * counts[i] > entry.runCount) continue;
    const std::size_t first = m_cutRuns.size();
    for (std::uint32_t k = 0; k < entry.runCount; ++k) {
      const std::uint32_t run = entry.isCut ? m_cutRuns[entry.firstRun + k] : entry.firstRun + k;
      if (quadrants.Meeting(m_runs[run].box) >> i & 1U) m_cutRuns.push_back(run);
    }
    dealt[i].firstRun = std::uint32_t(first);
    dealt[i].runCount = counts[i];
    dealt[i].isCut = true;
  }
}

bool IndexShapes::IsCrowded(const TCellBounds &cell, const CellRange &range) {
  const std::size_t enough = CrowdOf(range.count);
  const Crowd crowd = FindCrowd(cell, range);
  return crowd.count >= enough && StayTogether(cell, range, crowd.point, enough);
}

IndexShapes::Crowd IndexShapes::FindCrowd(const TCellBounds &cell, const CellRange &range) const {
  const TMapPoint middle = {(cell.MaxX - cell.MinX) / 2 + cell.MinX, (cell.MaxY - cell.MinY) / 2 + cell.MinY};
  Crowd crowd{middle, DepthAt(middle, range)};
  const auto tryPoint = [&](const TMapPoint &point) {
    const std::size_t count = DepthAt(point, range);
    if (count > crowd.count) crowd = {point, count};
  };
  const std::size_t samples = SamplesOf(range.count);
  const TBounds bounds = CellBounds2Bounds(cell);
  for (std::size_t i = 0; i < samples; ++i) {
    const TMapPoint *sample = EntryAt(range, i * range.count / samples).sample;
    if (IsIn(bounds, sample)) tryPoint(*sample);
  }
  // Rims of figures may run through the cell with a corner on their inner side.
  if (!m_hasFigures) return crowd;
  for (const double x : {cell.MinX, cell.MaxX}) {
    for (const double y : {cell.MinY, cell.MaxY}) tryPoint({x, y});
  }
  return crowd;
}

std::size_t IndexShapes::DepthAt(const TMapPoint &point, const CellRange &range) const {
  const TBounds core = CoreAbout(point);
  std::size_t depth = 0;
  for (std::size_t i = 0; i < range.count; ++i) {
    const Entry &entry = EntryAt(range, i);
    const Object &object = m_objects[entry.object];
    depth +=
        std::size_t(entry.covers || IsIn(core, entry.sample) || HoldsInside(object.bounds, point) ||
                    (object.containment == TBoxContainment::Refined && object.self->ContainsPoint(point.X, point.Y)));
  }
  return depth;
}

bool IndexShapes::StayTogether(const TCellBounds &cell, const CellRange &range, const TMapPoint &point,
                               std::size_t enough) {
  if (range.count < enough) return false;
  if (CountLasting(cell, range, point) >= enough) return true;
  const auto quadrants = QuadrantsOf(cell);
  const auto *const quadrant = std::find_if(quadrants.begin(), quadrants.end(), [&point](const TCellBounds &each) {
    return CellBounds2Bounds(each).ContainsPoint(point.X, point.Y);
  });
  if (quadrant == quadrants.end()) return false;
  const QuadrantRanges ranges = Split(cell, range);
  const CellRange &found = ranges[std::size_t(quadrant - quadrants.begin())];
  const bool isRepeated = found.count == range.count && IsSameCell(*quadrant, cell);
  const bool stay = isRepeated || StayTogether(*quadrant, found, point, enough);
  Release(ranges);
  return stay;
}

std::size_t IndexShapes::CountLasting(const TCellBounds &cell, const CellRange &range, const TMapPoint &point) const {
  if (!IsNesting(cell)) return 0;
  const TBounds core = CoreAbout(point);
  std::size_t count = 0;
  for (std::size_t i = 0; i < range.count; ++i) {
    const Entry &entry = EntryAt(range, i);
    const Object &object = m_objects[entry.object];
    count += std::size_t(entry.covers || IsIn(core, entry.sample) ||
                         (object.containment == TBoxContainment::Refined && HasCornersIn(*object.self, cell)));
  }
  return count;
}

}  // namespace tessera::detail
