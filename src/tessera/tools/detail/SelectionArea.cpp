// SPDX-License-Identifier: MIT
#include <tessera/objects/TCircle.h>
#include <tessera/objects/TRectangle.h>
#include <tessera/objects/TRegion.h>
#include <tessera/tools/detail/SelectionArea.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>
#include <utility>

namespace tessera::detail {
namespace {

using Points = std::span<const TMapPoint>;

/// Above 0 where `point` lies left of the way from `a` to `b`, below on its right.
double Turn(const TMapPoint &a, const TMapPoint &b, const TMapPoint &point) {
  return (b.X - a.X) * (point.Y - a.Y) - (b.Y - a.Y) * (point.X - a.X);
}

TBounds BoxOf(const TMapPoint &a, const TMapPoint &b) {
  const auto [minX, maxX] = std::minmax(a.X, b.X);
  const auto [minY, maxY] = std::minmax(a.Y, b.Y);
  return {minX, minY, maxX, maxY};
}

bool IsOn(const TMapPoint &a, const TMapPoint &b, const TMapPoint &point) {
  return BoxOf(a, b).ContainsPoint(point.X, point.Y) && Turn(a, b, point) == 0;
}

bool Cross(const TMapPoint &a, const TMapPoint &b, const TMapPoint &c, const TMapPoint &d) {
  const auto areApart = [](double left, double right) { return (left < 0 && right > 0) || (left > 0 && right < 0); };
  return areApart(Turn(a, b, c), Turn(a, b, d)) && areApart(Turn(c, d, a), Turn(c, d, b));
}

bool Meet(const TMapPoint &a, const TMapPoint &b, const TMapPoint &c, const TMapPoint &d) {
  return Cross(a, b, c, d) || IsOn(a, b, c) || IsOn(a, b, d) || IsOn(c, d, a) || IsOn(c, d, b);
}

/// Whether `test` says yes to some side of a figure, from vertex to vertex and, in a ring, back to the first.
template <typename Test>
bool AnySide(Points points, bool isRing, Test test) {
  for (std::size_t i = 1; i < points.size(); ++i) {
    if (test(points[i - 1], points[i])) return true;
  }
  return isRing && points.size() > 1 && test(points.back(), points.front());
}

bool WindsAround(Points ring, const TMapPoint &point) {
  int windings = 0;
  AnySide(ring, true, [&](const TMapPoint &a, const TMapPoint &b) {
    if (a.Y <= point.Y && b.Y > point.Y && Turn(a, b, point) > 0) ++windings;
    if (a.Y > point.Y && b.Y <= point.Y && Turn(a, b, point) < 0) --windings;
    return false;
  });
  return windings != 0;
}

std::vector<TMapPoint> CircleRing(const TMapPoint &centre, double radius) {
  constexpr int Corners = 128;
  std::vector<TMapPoint> ring;
  ring.reserve(Corners);
  for (int i = 0; i < Corners; ++i) {
    const double angle = 2 * std::numbers::pi * i / Corners;
    ring.push_back({centre.X + radius * std::cos(angle), centre.Y + radius * std::sin(angle)});
  }
  return ring;
}

std::vector<TMapPoint> BoxRing(const TBounds &box) {
  return {{box.MinX, box.MinY}, {box.MaxX, box.MinY}, {box.MaxX, box.MaxY}, {box.MinX, box.MaxY}};
}

/// The figure of an object: open lines, or rings that are filled where an odd number of them winds around.
class Outline {
 public:
  explicit Outline(const TCustomMapObject &object) {
    const auto *circle = dynamic_cast<const TCircle *>(&object);
    const bool isBox = dynamic_cast<const TRectangle *>(&object) != nullptr;
    m_isArea = circle || isBox || dynamic_cast<const TRegion *>(&object) != nullptr;
    const TBounds box = object.GetBounds();
    const TMapPoint middle{std::midpoint(box.MinX, box.MaxX), std::midpoint(box.MinY, box.MaxY)};
    if (circle) m_own = CircleRing(middle, circle->GetRadius());
    if (isBox) m_own = BoxRing(box);
    if (circle || isBox) {
      m_figures.emplace_back(m_own);
    } else {
      for (const TPart &part : object.GetParts().Items()) m_figures.push_back(part.GetPoints().Points());
    }
  }
  Outline(const Outline &) = delete;
  Outline &operator=(const Outline &) = delete;

  template <typename Test>
  [[nodiscard]] bool AnyVertex(Test test) const {
    return std::ranges::any_of(m_figures, [&](Points points) { return std::ranges::any_of(points, test); });
  }
  template <typename Test>
  [[nodiscard]] bool AnySide(Test test) const {
    return std::ranges::any_of(m_figures, [&](Points points) { return detail::AnySide(points, m_isArea, test); });
  }
  [[nodiscard]] bool IsFilledAt(const TMapPoint &point) const {
    return m_isArea && std::ranges::count_if(m_figures, [&](Points p) { return WindsAround(p, point); }) % 2 == 1;
  }

 private:
  bool m_isArea = false;
  std::vector<TMapPoint> m_own;
  std::vector<Points> m_figures;
};

}  // namespace

SelectionArea::SelectionArea(std::vector<TMapPoint> ring) : m_ring(std::move(ring)) {
  for (const TMapPoint &point : m_ring) m_bounds.Widen(point.X, point.Y);
}

SelectionArea SelectionArea::Rectangle(const TMapPoint &corner, const TMapPoint &opposite) {
  return SelectionArea(BoxRing(BoxOf(corner, opposite)));
}

SelectionArea SelectionArea::Circle(const TMapPoint &centre, double radius) {
  return SelectionArea(CircleRing(centre, radius));
}

bool SelectionArea::HoldsPoint(const TMapPoint &point) const {
  return m_bounds.ContainsPoint(point.X, point.Y) && (WindsAround(m_ring, point) || IsSideOn(point, point, false));
}

bool SelectionArea::IsSideOn(const TMapPoint &from, const TMapPoint &to, bool isThrough) const {
  const TBounds box = BoxOf(from, to);
  if (box.MinX > m_bounds.MaxX || box.MaxX < m_bounds.MinX || box.MinY > m_bounds.MaxY || box.MaxY < m_bounds.MinY) {
    return false;
  }
  return AnySide(m_ring, true, [&](const TMapPoint &a, const TMapPoint &b) {
    return isThrough ? Cross(a, b, from, to) : Meet(a, b, from, to);
  });
}

bool SelectionArea::Meets(const TCustomMapObject &object) const {
  const Outline outline(object);
  return outline.AnyVertex([this](const TMapPoint &point) { return HoldsPoint(point); }) ||
         outline.AnySide([this](const TMapPoint &a, const TMapPoint &b) { return IsSideOn(a, b, false); }) ||
         outline.IsFilledAt(m_ring.front());
}

bool SelectionArea::Holds(const TCustomMapObject &object) const {
  const Outline outline(object);
  return outline.AnyVertex([](const TMapPoint & /*point*/) { return true; }) &&
         !outline.AnyVertex([this](const TMapPoint &point) { return !HoldsPoint(point); }) &&
         !outline.AnySide([this](const TMapPoint &a, const TMapPoint &b) { return IsSideOn(a, b, true); });
}

}  // namespace tessera::detail
