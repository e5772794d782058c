// SPDX-License-Identifier: MIT
#include <tessera/geometry/RectClipper.h>

namespace tessera {
namespace {

/// One side of the rectangle: the cutting line and which of its sides is kept.
struct Cut {
  TVectorOperations line;
  double at;
  bool isVertical;
  bool keepsGreater;

  template <typename Point>
  [[nodiscard]] bool Keeps(const Point &point) const {
    const auto value = isVertical ? point.X : point.Y;
    return keepsGreater ? value >= at : value <= at;
  }
};

TPointEx ToPointEx(const TPointEx &point) {
  return point;
}
TPointEx ToPointEx(const TMapPoint &point) {
  return {point.X, point.Y};
}

/// One cut. A run of points on the discarded side adds something only where an edge enters or leaves it, so the points
/// within the run, whose neighbours are discarded as well, are passed over without arithmetic.
template <typename Point>
void Apply(const Cut &cut, std::span<const Point> points, std::vector<TPointEx> &out) {
  out.clear();
  const std::size_t count = points.size();
  bool previousIsKept = count > 0 && cut.Keeps(points[count - 1]);
  for (std::size_t i = 0; i < count; ++i) {
    if (cut.Keeps(points[i])) {
      out.push_back(ToPointEx(points[i]));
      previousIsKept = true;
      continue;
    }
    const Point &next = points[i + 1 == count ? 0 : i + 1];
    const TPointEx here = ToPointEx(points[i]);
    TPointEx crossing{};
    if (previousIsKept) {
      const Point &previous = points[i == 0 ? count - 1 : i - 1];
      if (cut.line.IsIntersected(VectorEx(ToPointEx(previous), here), crossing)) out.push_back(crossing);
    }
    if (cut.Keeps(next) && cut.line.IsIntersected(VectorEx(here, ToPointEx(next)), crossing)) out.push_back(crossing);
    previousIsKept = false;
  }
}

}  // namespace

std::span<const TMapPoint> TRectClipper::Clip(std::span<const TMapPoint> points) {
  const TPointEx leftBottom = PointEx(m_rect.MinX, m_rect.MinY);
  const TPointEx leftTop = PointEx(m_rect.MinX, m_rect.MaxY);
  const TPointEx rightTop = PointEx(m_rect.MaxX, m_rect.MaxY);
  const TPointEx rightBottom = PointEx(m_rect.MaxX, m_rect.MinY);
  const Cut cuts[] = {
      {TVectorOperations(VectorEx(leftBottom, leftTop)), m_rect.MinX, true, true},        // smRight of the left side
      {TVectorOperations(VectorEx(leftTop, rightTop)), m_rect.MaxY, false, false},        // smBelow the top
      {TVectorOperations(VectorEx(rightTop, rightBottom)), m_rect.MaxX, true, false},     // smLeft of the right side
      {TVectorOperations(VectorEx(rightBottom, leftBottom)), m_rect.MinY, false, true}};  // smAbove the bottom

  Apply(cuts[0], points, m_from);
  if (m_from.empty()) {
    for (const TMapPoint &point : points) m_from.push_back(ToPointEx(point));
  }
  for (std::size_t i = 1; i < std::size(cuts); ++i) {
    Apply(cuts[i], std::span<const TPointEx>(m_from), m_to);
    if (!m_to.empty()) m_from.swap(m_to);
  }
  m_result.clear();
  m_result.reserve(m_from.size());
  for (const TPointEx &point : m_from) m_result.push_back({double(point.X), double(point.Y)});
  return m_result;
}

}  // namespace tessera
