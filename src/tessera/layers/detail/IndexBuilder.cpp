// SPDX-License-Identifier: MIT
#include <tessera/layers/TMapLayer.h>
#include <tessera/layers/detail/IndexBuilder.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace tessera::detail {
namespace {

constexpr std::size_t MinCount = TIndexCell::DefaultMinObjectCountPerCell;
/// Outlines up to this length are cheaper to look through again than to cut.
constexpr std::uint32_t ShortOutline = 64;
/// How many of a cell's vertices are tried as points where objects stay together.
constexpr std::size_t SamplesOfSmallCell = 8;
constexpr std::size_t SamplesOfBigCell = 2;
constexpr std::size_t SmallCell = 64;
/// A cell costs some 150 bytes. Ordinary layers have a cell or two for each object, or one for each ten vertices.
constexpr std::size_t CellsOfAnyTree = std::size_t(1) << 18;
constexpr std::size_t CellsPerObject = 4;
constexpr std::size_t VerticesPerCell = 4;
constexpr std::size_t IdsPerCell = 8;

std::array<TCellBounds, 4> QuadrantsOf(const TCellBounds &cell) {
  const double midX = (cell.MaxX - cell.MinX) / 2 + cell.MinX;
  const double midY = (cell.MaxY - cell.MinY) / 2 + cell.MinY;
  return {{{cell.MinX, midX, cell.MinY, midY},
           {cell.MinX, midX, midY, cell.MaxY},
           {midX, cell.MaxX, midY, cell.MaxY},
           {midX, cell.MaxX, cell.MinY, midY}}};
}

/// Whether all quadrants lie within the cell. Where the size of a cell overflows, they do not.
bool IsNesting(const TCellBounds &cell) {
  return std::isfinite(cell.MaxX - cell.MinX) && std::isfinite(cell.MaxY - cell.MinY);
}

/// Equality by which not-a-number, the middle of what is infinite, equals itself.
bool IsSame(const TCellBounds &a, const TCellBounds &b) {
  const auto isSame = [](double x, double y) { return x == y || (std::isnan(x) && std::isnan(y)); };
  return isSame(a.MinX, b.MinX) && isSame(a.MaxX, b.MaxX) && isSame(a.MinY, b.MinY) && isSame(a.MaxY, b.MaxY);
}

/// What the boxes of all cells about a point have in common: the point, unless it lies beyond running bounds.
TBounds CoreAbout(const TMapPoint &point) {
  return IndexBox::BoundsOf({point.X, point.X, point.Y, point.Y});
}

bool Overlap(const TBounds &a, const TBounds &b) {
  return a.MinX <= b.MaxX && b.MinX <= a.MaxX && a.MinY <= b.MaxY && b.MinY <= a.MaxY;
}

bool HoldsInside(const TBounds &bounds, const TMapPoint &point) {
  return bounds.MinX < point.X && point.X < bounds.MaxX && bounds.MinY < point.Y && point.Y < bounds.MaxY;
}

bool HasCornersIn(const TCustomMapObject &object, const TCellBounds &cell) {
  return object.ContainsPoint(cell.MinX, cell.MinY) && object.ContainsPoint(cell.MaxX, cell.MinY) &&
         object.ContainsPoint(cell.MaxX, cell.MaxY) && object.ContainsPoint(cell.MinX, cell.MaxY);
}

/// Hands `use` the vertices of the object, part by part.
template <typename Use>
void ForEachPart(const TCustomMapObject &object, Use use) {
  for (const TPart &part : object.GetParts().Items()) use(part.GetPoints().Points());
}

}  // namespace

IndexBuilder::IndexBuilder(TIndexCell &top) : m_top(top) {
  std::size_t vertices = 0;
  const int count = top.m_layer ? top.m_layer->GetObjectCount() : 0;
  m_objects.reserve(top.m_ids.size());
  m_ids.reserve(top.m_ids.size());
  m_entries.reserve(2 * top.m_ids.size());
  for (const std::uint32_t id : top.m_ids) {
    if (id >= std::uint32_t(count)) continue;
    m_objects.push_back(Describe(*top.m_layer->GetObjects(int(id))));
    m_entries.push_back(WholeEntry(std::uint32_t(m_ids.size()), m_objects.back()));
    m_ids.push_back(id);
    vertices += m_entries.back().vertexCount;
    m_hasFigures |= m_objects.back().containment == TBoxContainment::Refined;
  }
  m_cellsLeft = CellsOfAnyTree + CellsPerObject * m_ids.size() + vertices / VerticesPerCell;
  m_idsLeft = IdsPerCell * m_cellsLeft;
}

IndexBuilder::Object IndexBuilder::Describe(const TCustomMapObject &object) {
  constexpr double Infinity = std::numeric_limits<double>::infinity();
  TBounds extent = {Infinity, Infinity, -Infinity, -Infinity};
  bool hasVertices = false;
  ForEachPart(object, [&](std::span<const TMapPoint> points) {
    for (const TMapPoint &point : points) {
      if (!std::isnan(point.X) && !std::isnan(point.Y)) extent.Widen(point.X, point.Y);
    }
    hasVertices |= !points.empty();
  });
  const TBoxContainment containment = object.GetBoxContainment();
  const bool isByBounds = containment == TBoxContainment::ByBounds;
  return {&object, extent, isByBounds ? object.GetBounds() : TBounds::Empty(), containment, hasVertices};
}

IndexBuilder::Entry IndexBuilder::WholeEntry(std::uint32_t at, const Object &object) {
  Entry entry{at, 0, nullptr, {NaN, NaN}, !object.hasVertices};
  ForEachPart(*object.self, [&entry](std::span<const TMapPoint> points) {
    if (entry.vertexCount == 0 && !points.empty()) entry.sample = points.front();
    entry.vertexCount += std::uint32_t(points.size());
  });
  return entry;
}

bool IndexBuilder::Run() {
  const Range all{0, m_entries.size()};
  if (EndsHere(m_top, all)) return false;
  DivideCell(m_top, all);
  return true;
}

void IndexBuilder::DivideCell(TIndexCell &cell, Range range) {
  for (const TCellBounds &quadrant : QuadrantsOf(cell.m_bounds)) AddChild(cell, range, quadrant);
  cell.m_isBuildNeeded = false;
}

void IndexBuilder::AddChild(TIndexCell &cell, Range range, const TCellBounds &quadrant) {
  WithEntriesIn(quadrant, cell.m_bounds, range, [&](Range found) {
    if (found.count == 0) return;
    auto child = std::make_unique<TIndexCell>(&cell);
    child->m_bounds = quadrant;
    // The cells that are begun on the way down still get their children when nothing is left.
    m_cellsLeft -= std::min<std::size_t>(m_cellsLeft, 1);
    // At the end of their precision, coordinates have no middle between them.
    const bool isRepeated = found.count == range.count && IsSame(quadrant, cell.m_bounds);
    if (found.count > MinCount && !isRepeated && !EndsHere(*child, found)) {
      DivideCell(*child, found);
    } else {
      StoreIds(*child, found);
    }
    cell.m_cells.push_back(std::move(child));
  });
}

template <typename Use>
void IndexBuilder::WithEntriesIn(const TCellBounds &quadrant, const TCellBounds &cell, Range range, Use use) {
  const std::size_t outlines = m_cutOutlines.size();
  const std::size_t first = m_entries.size();
  Collect(range, IndexBox(quadrant), IsNesting(cell));
  use(Range{first, m_entries.size() - first});
  m_entries.erase(m_entries.begin() + std::ptrdiff_t(first), m_entries.end());
  m_cutOutlines.resize(outlines);
}

void IndexBuilder::Collect(Range range, const IndexBox &box, bool isNested) {
  for (std::size_t i = range.first; i < range.first + range.count; ++i) {
    Entry entry = m_entries[i];
    if (!isNested) entry = WholeEntry(entry.object, m_objects[entry.object]);
    if (entry.covers || EnterBox(entry, box)) m_entries.push_back(entry);
  }
}

bool IndexBuilder::EnterBox(Entry &entry, const IndexBox &box) {
  const Object &object = m_objects[entry.object];
  const TBounds &bounds = box.GetBounds();
  if (!object.extent.IsInverted() && bounds.ContainsBounds(object.extent)) return true;
  if (box.HasCornersIn(object.bounds)) {
    entry.covers = true;
    return true;
  }
  if (Overlap(object.extent, bounds) && FindVertex(entry, bounds)) return true;
  entry.sample = {NaN, NaN};
  return object.containment == TBoxContainment::Refined && box.IsContainedBy(*object.self);
}

template <typename Use>
void IndexBuilder::ForEachRun(const Entry &entry, Use use) const {
  if (entry.vertices) {
    use(std::span(entry.vertices, entry.vertexCount));
  } else {
    ForEachPart(*m_objects[entry.object].self, use);
  }
}

bool IndexBuilder::FindVertex(Entry &entry, const TBounds &bounds) {
  if (entry.vertexCount > ShortOutline && !CutOutline(entry, bounds)) return false;
  const auto isIn = [&bounds](const TMapPoint &point) { return bounds.ContainsPoint(point.X, point.Y); };
  bool isFound = isIn(entry.sample);
  ForEachRun(entry, [&](std::span<const TMapPoint> points) {
    if (isFound) return;
    const auto found = std::find_if(points.begin(), points.end(), isIn);
    if (found == points.end()) return;
    entry.sample = *found;
    isFound = true;
  });
  return isFound;
}

bool IndexBuilder::CutOutline(Entry &entry, const TBounds &bounds) {
  const TBounds in = bounds;
  std::size_t count = 0;
  ForEachRun(entry, [&](std::span<const TMapPoint> points) {
    // Without branches, so that the compiler looks at several vertices at once.
    for (const TMapPoint &p : points) {
      count += std::size_t((p.X >= in.MinX) & (p.X <= in.MaxX) & (p.Y >= in.MinY) & (p.Y <= in.MaxY));
    }
  });
  // It is cut only when half of it goes, so that all the cuts on the way down take no more room than two of it.
  if (count == 0 || 2 * count > entry.vertexCount) return count > 0;
  std::vector<TMapPoint> &cut = m_cutOutlines.emplace_back();
  cut.reserve(count);
  ForEachRun(entry, [&](std::span<const TMapPoint> points) {
    std::copy_if(points.begin(), points.end(), std::back_inserter(cut),
                 [&in](const TMapPoint &point) { return in.ContainsPoint(point.X, point.Y); });
  });
  entry.vertices = cut.data();
  entry.vertexCount = std::uint32_t(count);
  return true;
}

bool IndexBuilder::EndsHere(const TIndexCell &cell, Range range) {
  constexpr std::size_t Quadrants = 4;
  if (m_cellsLeft < Quadrants || m_idsLeft < Quadrants * range.count) return true;
  const std::size_t enough = std::max(MinCount + 1, (range.count + 1) / 2);
  const Crowd crowd = FindCrowd(cell, range);
  return crowd.count >= enough && StayTogether(cell.m_bounds, range, crowd.point, enough);
}

IndexBuilder::Crowd IndexBuilder::FindCrowd(const TIndexCell &cell, Range range) const {
  const TCellBounds &box = cell.m_bounds;
  const TMapPoint middle = {(box.MaxX - box.MinX) / 2 + box.MinX, (box.MaxY - box.MinY) / 2 + box.MinY};
  Crowd crowd{middle, DepthAt(middle, range)};
  const auto tryPoint = [&](const TMapPoint &point) {
    const std::size_t count = DepthAt(point, range);
    if (count > crowd.count) crowd = {point, count};
  };
  const std::size_t samples = std::min(range.count, range.count <= SmallCell ? SamplesOfSmallCell : SamplesOfBigCell);
  for (std::size_t i = 0; i < samples; ++i) {
    const TMapPoint &sample = m_entries[range.first + i * range.count / samples].sample;
    if (cell.ContainsPoint(sample.X, sample.Y)) tryPoint(sample);
  }
  // Rims of figures may run through the cell with a corner on their inner side.
  if (!m_hasFigures) return crowd;
  for (const double x : {box.MinX, box.MaxX}) {
    for (const double y : {box.MinY, box.MaxY}) tryPoint({x, y});
  }
  return crowd;
}

std::size_t IndexBuilder::DepthAt(const TMapPoint &point, Range range) const {
  const TBounds core = CoreAbout(point);
  const auto first = m_entries.begin() + std::ptrdiff_t(range.first);
  return std::size_t(std::count_if(first, first + std::ptrdiff_t(range.count), [&](const Entry &entry) {
    const Object &object = m_objects[entry.object];
    return entry.covers || core.ContainsPoint(entry.sample.X, entry.sample.Y) || HoldsInside(object.bounds, point) ||
           (object.containment == TBoxContainment::Refined && object.self->ContainsPoint(point.X, point.Y));
  }));
}

bool IndexBuilder::StayTogether(const TCellBounds &cell, Range range, const TMapPoint &point, std::size_t enough) {
  if (range.count < enough) return false;
  if (CountLasting(cell, range, point) >= enough) return true;
  const auto quadrants = QuadrantsOf(cell);
  const auto *const quadrant = std::find_if(quadrants.begin(), quadrants.end(), [&point](const TCellBounds &each) {
    return CellBounds2Bounds(each).ContainsPoint(point.X, point.Y);
  });
  if (quadrant == quadrants.end()) return false;
  bool stay = false;
  WithEntriesIn(*quadrant, cell, range, [&](Range found) {
    const bool isRepeated = found.count == range.count && IsSame(*quadrant, cell);
    stay = isRepeated || StayTogether(*quadrant, found, point, enough);
  });
  return stay;
}

std::size_t IndexBuilder::CountLasting(const TCellBounds &cell, Range range, const TMapPoint &point) const {
  if (!IsNesting(cell)) return 0;
  const TBounds core = CoreAbout(point);
  const auto first = m_entries.begin() + std::ptrdiff_t(range.first);
  return std::size_t(std::count_if(first, first + std::ptrdiff_t(range.count), [&](const Entry &entry) {
    const Object &object = m_objects[entry.object];
    return entry.covers || core.ContainsPoint(entry.sample.X, entry.sample.Y) ||
           (object.containment == TBoxContainment::Refined && HasCornersIn(*object.self, cell));
  }));
}

void IndexBuilder::StoreIds(TIndexCell &cell, Range range) {
  cell.m_ids.reserve(range.count);
  for (std::size_t i = range.first; i < range.first + range.count; ++i)
    cell.m_ids.push_back(m_ids[m_entries[i].object]);
  m_idsLeft -= std::min(m_idsLeft, range.count);
}

}  // namespace tessera::detail
