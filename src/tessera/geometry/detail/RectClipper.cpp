// SPDX-License-Identifier: MIT
#include <tessera/geometry/detail/RectClipper.h>

namespace tessera::detail {
namespace {

TPointEx ToPointEx(const TMapPoint &point) {
  return {point.X, point.Y};
}

// The four sides, each by what of the plane it keeps.

struct RightOf {
  double at;
  template <typename Point>
  [[nodiscard]] bool Keeps(const Point &point) const {
    return point.X >= at;
  }
  [[nodiscard]] bool KeepsAll(const RoundedBox &box) const { return box.minX >= at; }
  [[nodiscard]] bool KeepsNone(const RoundedBox &box) const { return box.maxX < at; }
};

struct LeftOf {
  double at;
  template <typename Point>
  [[nodiscard]] bool Keeps(const Point &point) const {
    return point.X <= at;
  }
  [[nodiscard]] bool KeepsAll(const RoundedBox &box) const { return box.maxX <= at; }
  [[nodiscard]] bool KeepsNone(const RoundedBox &box) const { return box.minX > at; }
};

struct Above {
  double at;
  template <typename Point>
  [[nodiscard]] bool Keeps(const Point &point) const {
    return point.Y >= at;
  }
  [[nodiscard]] bool KeepsAll(const RoundedBox &box) const { return box.minY >= at; }
  [[nodiscard]] bool KeepsNone(const RoundedBox &box) const { return box.maxY < at; }
};

struct Below {
  double at;
  template <typename Point>
  [[nodiscard]] bool Keeps(const Point &point) const {
    return point.Y <= at;
  }
  [[nodiscard]] bool KeepsAll(const RoundedBox &box) const { return box.maxY <= at; }
  [[nodiscard]] bool KeepsNone(const RoundedBox &box) const { return box.minY > at; }
};

}  // namespace

/// One cut. `side.Keeps` answers whether a point of the outline, or a crossing, is not on the discarded side of the
/// line, `side.KeepsAll` and `side.KeepsNone` whether that is so for all that a box may hold. A run of points on the
/// discarded side adds something only where an edge enters or leaves it; everything else about it is dropped without
/// arithmetic.
template <typename Side>
void RectClipper::Cut(const TVectorEx &vector, Side side) {
  const TVectorOperations line(vector);
  const auto keeps = [&side](const auto &point) { return side.Keeps(point); };
  const auto drops = [&side](const auto &point) { return !side.Keeps(point); };
  const auto keepsAll = [&side](const RoundedBox &box) { return side.KeepsAll(box); };
  const auto keepsNone = [&side](const RoundedBox &box) { return side.KeepsNone(box); };
  // The first point that does not pass, of those from `at` on.
  const auto firstNot = [this](const TMapPoint *at, const TMapPoint *last, auto testBox, auto test) {
    return m_runs.Points().data() + m_runs.FirstNot(m_runs.IndexOf(at), m_runs.IndexOf(last), testBox, test);
  };
  m_to.clear();
  const auto frontOf = [](const Stretch &s) { return s.points.empty() ? s.crossing : ToPointEx(s.points.front()); };
  const auto backOf = [](const Stretch &s) { return s.points.empty() ? s.crossing : ToPointEx(s.points.back()); };
  const auto addCrossing = [&](const TPointEx &a, const TPointEx &b) {
    Stretch stretch{{}, {}};
    if (line.IsIntersected(VectorEx(a, b), stretch.crossing)) m_to.push_back(stretch);
  };
  TPointEx before = backOf(m_from.back());
  for (std::size_t i = 0; i < m_from.size(); ++i) {
    const Stretch &stretch = m_from[i];
    const TPointEx after = frontOf(m_from[i + 1 == m_from.size() ? 0 : i + 1]);
    if (stretch.points.empty()) {
      if (keeps(stretch.crossing)) {
        m_to.push_back(stretch);
      } else {
        if (keeps(before)) addCrossing(before, stretch.crossing);
        if (keeps(after)) addCrossing(stretch.crossing, after);
      }
    }
    const TMapPoint *const last = stretch.points.data() + stretch.points.size();
    for (const TMapPoint *at = stretch.points.data(); at != last;) {
      const TMapPoint *const first = at;
      at = firstNot(at, last, keepsAll, keeps);
      if (at != first) m_to.push_back({{first, at}, {}});
      if (at == last) break;
      const TPointEx previous = at == stretch.points.data() ? before : ToPointEx(at[-1]);
      if (keeps(previous)) addCrossing(previous, ToPointEx(*at));
      at = firstNot(at, last, keepsNone, drops);
      const TPointEx next = at == last ? after : ToPointEx(*at);
      if (keeps(next)) addCrossing(ToPointEx(at[-1]), next);
    }
    before = backOf(stretch);
  }
  if (!m_to.empty()) m_from.swap(m_to);
}

/// The cut by the splitter itself, for a rectangle without height: its sides are no vertical lines, and meet edges that
/// do not change sides.
void RectClipper::CutBySplitter(std::span<const TMapPoint> points) {
  const TPointEx left = PointEx(m_rect.MinX, m_rect.MinY);
  const TPointEx right = PointEx(m_rect.MaxX, m_rect.MinY);
  TPolySplitter splitter;
  for (const TMapPoint &point : points) splitter.GetSource().Add(ToPointEx(point));
  splitter.Split(VectorEx(left, left), TSplitMode::smRight);
  splitter.Split(VectorEx(left, right), TSplitMode::smBelow);
  splitter.Split(VectorEx(right, right), TSplitMode::smLeft);
  splitter.Split(VectorEx(right, left), TSplitMode::smAbove);
  m_from.clear();
  for (const TPointEx &point : splitter.GetSource().Points()) m_from.push_back({{}, point});
}

void RectClipper::CutBySides(const VertexRuns &runs) {
  const auto [minX, minY, maxX, maxY] = m_rect;
  const TPointEx leftBottom = PointEx(minX, minY);
  const TPointEx leftTop = PointEx(minX, maxY);
  const TPointEx rightTop = PointEx(maxX, maxY);
  const TPointEx rightBottom = PointEx(maxX, minY);
  m_runs = runs;
  m_from.assign(1, {runs.Points(), {}});
  Cut(VectorEx(leftBottom, leftTop), RightOf{minX});
  Cut(VectorEx(leftTop, rightTop), Below{maxY});
  Cut(VectorEx(rightTop, rightBottom), LeftOf{maxX});
  Cut(VectorEx(rightBottom, leftBottom), Above{minY});
}

std::span<const std::span<const TMapPoint>> RectClipper::Clip(const VertexRuns &runs) {
  m_result.clear();
  if (runs.Points().empty()) return m_result;
  if (m_rect.MinY == m_rect.MaxY) {
    CutBySplitter(runs.Points());
  } else {
    CutBySides(runs);
  }
  m_crossings.clear();
  m_crossings.reserve(m_from.size());
  for (const Stretch &stretch : m_from) {
    if (stretch.points.empty()) {
      m_crossings.push_back({double(stretch.crossing.X), double(stretch.crossing.Y)});
      m_result.emplace_back(&m_crossings.back(), 1);
    } else {
      m_result.push_back(stretch.points);
    }
  }
  return m_result;
}

}  // namespace tessera::detail
