// SPDX-License-Identifier: MIT
#include <tessera/base/detail/Prefetch.h>
#include <tessera/layers/detail/IndexShapes.h>

#include <limits>

namespace tessera::detail {
namespace {

constexpr std::size_t RunLength = 16;
/// So many runs are cheaper to look through again than to cut.
constexpr std::uint32_t FewRuns = 8;
constexpr double Infinity = std::numeric_limits<double>::infinity();
constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
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

bool IsIn(const TBounds &box, const TMapPoint &point) {
  return box.ContainsPoint(point.X, point.Y);
}

/// The numbers of the bits that are set.
template <typename Use>
void ForEachBit(unsigned bits, Use use) {
  for (; bits != 0; bits &= bits - 1) use(unsigned(std::countr_zero(bits)));
}

}  // namespace

/// The quadrants of a cell, asked all at once, without branches: every two have their sides in common. Each answer is a
/// bit for each quadrant.
struct IndexShapes::Quadrants {
  explicit Quadrants(const TCellBounds &cell) : cells(QuadrantsOf(cell)) {
    for (std::size_t i = 0; i < cells.size(); ++i) bounds[i] = IndexBox::BoundsOf(cells[i]);
  }

  /// Those that hold the point.
  [[nodiscard]] unsigned Holding(const TMapPoint &p) const { return Holding(TBounds{p.X, p.Y, p.X, p.Y}); }
  /// Those that hold all of a box that is in order.
  [[nodiscard]] unsigned Holding(const TBounds &b) const {
    return Combine([&](const TBounds &q) { return unsigned(q.MinX <= b.MinX) & unsigned(b.MaxX <= q.MaxX); },
                   [&](const TBounds &q) { return unsigned(q.MinY <= b.MinY) & unsigned(b.MaxY <= q.MaxY); });
  }
  [[nodiscard]] unsigned Meeting(const TBounds &b) const {
    return Combine([&](const TBounds &q) { return unsigned(q.MinX <= b.MaxX) & unsigned(b.MinX <= q.MaxX); },
                   [&](const TBounds &q) { return unsigned(q.MinY <= b.MaxY) & unsigned(b.MinY <= q.MaxY); });
  }
  /// Those with all corners in a box.
  [[nodiscard]] unsigned WithCornersIn(const TBounds &b) const {
    const auto isIn = [](double low, double each, double high) {
      return unsigned(low <= each) & unsigned(each <= high);
    };
    const auto isInX = [&](const TCellBounds &q) {
      return isIn(b.MinX, q.MinX, b.MaxX) & isIn(b.MinX, q.MaxX, b.MaxX);
    };
    const auto isInY = [&](const TCellBounds &q) {
      return isIn(b.MinY, q.MinY, b.MaxY) & isIn(b.MinY, q.MaxY, b.MaxY);
    };
    return Combine(isInX(cells[0]), isInX(cells[2]), isInY(cells[0]), isInY(cells[2]));
  }

  std::array<TCellBounds, 4> cells;
  std::array<TBounds, 4> bounds{};

 private:
  [[nodiscard]] static unsigned Combine(unsigned left, unsigned right, unsigned lower, unsigned upper) {
    return (left & lower) | (left & upper) << 1 | (right & upper) << 2 | (right & lower) << 3;
  }
  template <typename OnX, typename OnY>
  [[nodiscard]] unsigned Combine(OnX onX, OnY onY) const {
    return Combine(onX(bounds[0]), onX(bounds[2]), onY(bounds[0]), onY(bounds[2]));
  }
};

/// What becomes of an entry in the quadrants: a bit for each.
struct IndexShapes::Fate {
  unsigned met = 0;
  unsigned covered = 0;
  std::array<TMapPoint, 4> samples;
};

void IndexShapes::Add(const TCustomMapObject &object, std::uint32_t id) {
  Object described{&object, id, std::uint32_t(m_runs.size()), 0};
  for (const TPart &part : object.GetParts().Items()) AddRuns(part.GetPoints().Points(), described);
  const TBounds extent = ExtentOf(described);
  Containment containment = Containment::None;
  switch (object.GetBoxContainment()) {
    case TBoxContainment::Refined:
      containment = Containment::Refined;
      m_hasFigures = true;
      break;
    case TBoxContainment::ByBounds:
      containment = object.GetBounds() == extent                ? Containment::ByExtent
                    : extent.ContainsBounds(object.GetBounds()) ? Containment::ByInnerBounds
                                                                : Containment::ByBounds;
      break;
    case TBoxContainment::Never:
      break;
  }
  const auto place = std::uint32_t(m_objects.size());
  m_objects.push_back(described);
  m_stacks[0].push_back(WholeEntry({extent, {}, place, 0, 0, containment, false, false}));
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

IndexShapes::Entry IndexShapes::WholeEntry(const Entry &entry) const {
  Entry whole = entry;
  const Object &object = m_objects[entry.object];
  const bool hasVertices = object.runCount != 0;
  whole.firstRun = object.firstRun;
  whole.runCount = object.runCount;
  whole.isCut = false;
  whole.covers = !hasVertices;
  whole.sample = hasVertices ? *m_runs[object.firstRun].points : TMapPoint{NaN, NaN};
  return whole;
}

TBounds IndexShapes::BoundsOf(const Entry &entry) const {
  switch (entry.containment) {
    case Containment::ByExtent:
      return entry.extent;
    case Containment::ByInnerBounds:
    case Containment::ByBounds:
      return m_objects[entry.object].self->GetBounds();
    case Containment::None:
    case Containment::Refined:
      break;
  }
  return TBounds::Empty();
}

QuadrantRanges IndexShapes::Split(const TCellBounds &cell, const CellRange &range) {
  const Quadrants quadrants(cell);
  const bool isNested = IsNesting(cell);
  m_cutMarks.push_back(m_cutRuns.size());
  QuadrantRanges ranges{};
  for (unsigned i = 0; i < ranges.size(); ++i) ranges[i] = {i, m_stacks[i].size(), 0};
  Expect(quadrants, range);
  for (std::size_t i = 0; i < range.count; ++i) {
    const Entry entry = isNested ? EntryAt(range, i) : WholeEntry(EntryAt(range, i));
    DealOut(entry, FateOf(entry, quadrants));
  }
  for (CellRange &each : ranges) each.count = m_stacks[each.stack].size() - each.first;
  return ranges;
}

void IndexShapes::Release(const QuadrantRanges &ranges) {
  for (const CellRange &range : ranges) m_stacks[range.stack].resize(range.first);
  m_cutRuns.resize(m_cutMarks.back());
  m_cutMarks.pop_back();
}

void IndexShapes::Expect(const Quadrants &quadrants, const CellRange &range) const {
  for (std::size_t i = 0; i < range.count; ++i) {
    const Entry &entry = EntryAt(range, i);
    if (entry.isCut || quadrants.Holding(entry.extent) != 0) continue;
    for (std::uint32_t run = 0; run < std::min(entry.runCount, 4U); ++run) Prefetch(&m_runs[entry.firstRun + run]);
  }
}

IndexShapes::Fate IndexShapes::FateOf(const Entry &entry, const Quadrants &quadrants) {
  constexpr unsigned All = 15;
  Fate fate{0, 0, {entry.sample, entry.sample, entry.sample, entry.sample}};
  m_nearRuns.clear();
  if (entry.covers) return {All, All, fate.samples};
  const unsigned near = quadrants.Meeting(entry.extent);
  fate.met = near & quadrants.Holding(entry.extent);
  if (fate.met == near && entry.containment < Containment::ByBounds) return fate;
  fate.covered = quadrants.WithCornersIn(BoundsOf(entry)) & ~fate.met;
  fate.met |= fate.covered | (near & quadrants.Holding(entry.sample));
  ForEachBit(All & ~fate.met, [&fate](unsigned i) { fate.samples[i] = {NaN, NaN}; });
  LocateRuns(entry, quadrants);
  if (near & ~fate.met) FindVertices(entry, quadrants, near & ~fate.met, fate);
  if (entry.containment != Containment::Refined) return fate;
  ForEachBit(All & ~fate.met, [&](unsigned i) {
    if (IndexBox(quadrants.cells[i]).IsContainedBy(*m_objects[entry.object].self)) fate.met |= 1U << i;
  });
  return fate;
}

void IndexShapes::LocateRuns(const Entry &entry, const Quadrants &quadrants) {
  m_nearRuns.resize(entry.runCount);
  for (std::uint32_t i = 0; i < entry.runCount; ++i) {
    m_nearRuns[i] = std::uint8_t(quadrants.Meeting(RunOf(entry, i).box));
  }
}

void IndexShapes::FindVertices(const Entry &entry, const Quadrants &quadrants, unsigned sought, Fate &fate) const {
  const auto take = [&](unsigned found, const TMapPoint &sample) {
    ForEachBit(found, [&](unsigned i) { fate.samples[i] = sample; });
    fate.met |= found;
    sought &= ~found;
  };
  for (std::uint32_t i = 0; i < entry.runCount && sought != 0; ++i) {
    if ((m_nearRuns[i] & sought) == 0) continue;
    const Run &run = RunOf(entry, i);
    take(quadrants.Holding(run.box) & sought, *run.points);
    unsigned near = m_nearRuns[i] & sought;
    for (std::uint32_t k = 0; k < run.count && near != 0; ++k) {
      const unsigned found = quadrants.Holding(run.points[k]) & near;
      if (found == 0) continue;
      take(found, run.points[k]);
      near &= ~found;
    }
  }
}

void IndexShapes::DealOut(const Entry &entry, const Fate &fate) {
  ForEachBit(fate.met, [&](unsigned i) {
    Entry dealt = entry;
    dealt.sample = fate.samples[i];
    dealt.covers = (fate.covered >> i & 1U) != 0;
    if (m_nearRuns.size() > FewRuns && !dealt.covers) CutRuns(i, dealt);
    m_stacks[i].push_back(dealt);
  });
}

void IndexShapes::CutRuns(unsigned quadrant, Entry &entry) {
  const auto isNear = [quadrant](std::uint8_t near) { return unsigned(near) >> quadrant & 1U; };
  std::uint32_t count = 0;
  for (const std::uint8_t near : m_nearRuns) count += isNear(near);
  // It is cut only when half of it goes, so that all the cuts on the way down take no more room than two of it.
  if (2 * count > entry.runCount) return;
  const std::size_t first = m_cutRuns.size();
  m_cutRuns.resize(first + count);
  std::size_t end = first;
  for (std::uint32_t i = 0; i < entry.runCount; ++i) {
    if (isNear(m_nearRuns[i])) m_cutRuns[end++] = entry.isCut ? m_cutRuns[entry.firstRun + i] : entry.firstRun + i;
  }
  entry.firstRun = std::uint32_t(first);
  entry.runCount = count;
  entry.isCut = true;
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
    const TMapPoint &sample = EntryAt(range, i * range.count / samples).sample;
    if (IsIn(bounds, sample)) tryPoint(sample);
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
    depth += std::size_t(
        entry.covers || IsIn(core, entry.sample) || HoldsInside(BoundsOf(entry), point) ||
        (entry.containment == Containment::Refined && m_objects[entry.object].self->ContainsPoint(point.X, point.Y)));
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
    count +=
        std::size_t(entry.covers || IsIn(core, entry.sample) ||
                    (entry.containment == Containment::Refined && HasCornersIn(*m_objects[entry.object].self, cell)));
  }
  return count;
}

}  // namespace tessera::detail
