// SPDX-License-Identifier: MIT
#include <tessera/layers/detail/IndexPoints.h>
#include <tessera/objects/TCustomMapObject.h>

namespace tessera::detail {

void IndexPoints::Stack::MakeRoom(std::size_t more) {
  if (capacity - count >= more) return;
  capacity = std::max(count + more, 2 * capacity);
  auto moved = std::make_unique_for_overwrite<Point[]>(capacity);
  std::copy_n(points.get(), count, moved.get());
  points = std::move(moved);
}

bool IndexPoints::Add(const TCustomMapObject &object, std::uint32_t id) {
  const auto parts = object.GetParts().Items();
  if (parts.size() != 1) return false;
  const auto points = parts[0].GetPoints().Points();
  if (points.size() != 1) return false;
  const TMapPoint point = points[0];
  if (!m_cell.ContainsPoint(point.X, point.Y)) return false;
  switch (object.GetBoxContainment()) {
    case TBoxContainment::Never:
      break;
    case TBoxContainment::ByBounds:
      if (object.GetBounds() != TBounds{point.X, point.Y, point.X, point.Y}) return false;
      break;
    case TBoxContainment::Refined:
      return false;
  }
  Stack &stack = m_stacks[0];
  stack.MakeRoom(1);
  stack.points[stack.count++] = {point.X, point.Y, id};
  return true;
}

QuadrantRanges IndexPoints::Split(const TCellBounds &cell, const CellRange &range) {
  const double midX = (cell.MaxX - cell.MinX) / 2 + cell.MinX;
  const double midY = (cell.MaxY - cell.MinY) / 2 + cell.MinY;
  QuadrantRanges ranges{};
  std::array<Point *, 4> ends{};
  for (unsigned i = 0; i < 4; ++i) {
    m_stacks[i].MakeRoom(range.count);
    ranges[i] = {i, m_stacks[i].count, 0};
    ends[i] = m_stacks[i].points.get() + m_stacks[i].count;
  }
  const Point *const first = m_stacks[range.stack].points.get() + range.first;
  for (const Point *point = first; point != first + range.count; ++point) {
    const Point each = *point;
    const bool isOnX = each.x == midX;
    const bool isOnY = each.y == midY;
    if (isOnX || isOnY) {
      // Borders belong to both sides.
      const bool isLeft = each.x <= midX;
      const bool isRight = each.x >= midX;
      const bool isLower = each.y <= midY;
      const bool isUpper = each.y >= midY;
      if (isLeft && isLower) *ends[0]++ = each;
      if (isLeft && isUpper) *ends[1]++ = each;
      if (isRight && isUpper) *ends[2]++ = each;
      if (isRight && isLower) *ends[3]++ = each;
    } else {
      const unsigned quadrant = (3U * unsigned(each.x > midX)) ^ unsigned(each.y > midY);
      *ends[quadrant]++ = each;
    }
  }
  for (unsigned i = 0; i < 4; ++i) {
    m_stacks[i].count = std::size_t(ends[i] - m_stacks[i].points.get());
    ranges[i].count = m_stacks[i].count - ranges[i].first;
  }
  return ranges;
}

void IndexPoints::Release(const QuadrantRanges &ranges) {
  for (const CellRange &range : ranges) m_stacks[range.stack].count = range.first;
}

bool IndexPoints::IsCrowded(const TCellBounds &cell, const CellRange &range) const {
  const Point *const first = m_stacks[range.stack].points.get() + range.first;
  const auto isCrowdAt = [&](double x, double y) {
    const auto isThere = [x, y](const Point &point) { return point.x == x && point.y == y; };
    return std::size_t(std::count_if(first, first + range.count, isThere)) >= CrowdOf(range.count);
  };
  if (isCrowdAt((cell.MaxX - cell.MinX) / 2 + cell.MinX, (cell.MaxY - cell.MinY) / 2 + cell.MinY)) return true;
  const std::size_t samples = SamplesOf(range.count);
  for (std::size_t i = 0; i < samples; ++i) {
    const Point &sample = first[i * range.count / samples];
    if (isCrowdAt(sample.x, sample.y)) return true;
  }
  return false;
}

}  // namespace tessera::detail
