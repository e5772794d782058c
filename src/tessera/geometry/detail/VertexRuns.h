// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>
#include <tessera/base/TMapPoint.h>
#include <tessera/geometry/detail/RoundedBox.h>

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <span>

namespace tessera::detail {

/// The vertices of a part, and, where there are many, boxes around 16, 256 and 4096 of them in a row, by which all that
/// lie alike are passed over without a look at each. A box around a vertex that is not a number holds everything. A
/// view: it owns nothing.
class TESSERA_CORE_EXPORT VertexRuns {
 public:
  /// Parts with fewer vertices have no boxes.
  static constexpr std::size_t LeastVertices = 128;

  VertexRuns() = default;
  /// Without boxes.
  explicit VertexRuns(std::span<const TMapPoint> points) : m_points(points) {}
  /// @param boxes of these points, as MakeBoxes makes them
  VertexRuns(std::span<const TMapPoint> points, const RoundedBox *boxes) : m_points(points), m_boxes(boxes) {}

  [[nodiscard]] static std::unique_ptr<RoundedBox[]> MakeBoxes(std::span<const TMapPoint> points);
  /// Widens the boxes around the vertex at `index` of `count` by a place that it moves to.
  static void Widen(RoundedBox *boxes, std::size_t count, std::size_t index, const TMapPoint &place);

  [[nodiscard]] std::span<const TMapPoint> Points() const { return m_points; }
  /// Where a vertex of the part stands in it.
  [[nodiscard]] std::size_t IndexOf(const TMapPoint *vertex) const { return std::size_t(vertex - m_points.data()); }

  /// The first vertex from `at` on, and before `end`, that does not pass `test`; `end` when all do. A box passes
  /// `testBox` only if all that it may hold passes `test`.
  template <typename BoxTest, typename Test>
  [[nodiscard]] std::size_t FirstNot(std::size_t at, std::size_t end, BoxTest testBox, Test test) const {
    while (at < end) {
      if (m_boxes) {
        const std::size_t behind = PassRuns(at, end, testBox);
        if (behind != at) {
          at = behind;
          continue;
        }
      }
      const std::size_t stop = m_boxes ? std::min(end, (at / Lengths[0] + 1) * Lengths[0]) : end;
      for (; at < stop; ++at) {
        if (!test(m_points[at])) return at;
      }
    }
    return end;
  }
  /// Bounds that hold all vertices; none when some are not numbers. Boxes make them a little larger.
  [[nodiscard]] std::optional<TBounds> GetBounds() const;
  /// Whether all vertices lie in a rectangle.
  [[nodiscard]] bool LieWithin(const TBounds &rect) const {
    const auto isBoxIn = [&rect](const RoundedBox &box) { return box.LiesWithin(rect); };
    const auto isIn = [&rect](const TMapPoint &point) { return rect.ContainsPoint(point.X, point.Y); };
    return FirstNot(0, m_points.size(), isBoxIn, isIn) == m_points.size();
  }

 private:
  static constexpr std::array<std::size_t, 3> Lengths = {16, 256, 4096};

  static constexpr std::size_t RunsOf(std::size_t count, std::size_t length) { return (count + length - 1) / length; }
  /// Where the boxes of a level begin among those of a part of `count` vertices.
  static constexpr std::size_t FirstOf(std::size_t level, std::size_t count) {
    std::size_t first = 0;
    for (std::size_t below = 0; below < level; ++below) first += RunsOf(count, Lengths[below]);
    return first;
  }
  /// Behind the longest run that begins at `at`, ends before `end` and passes; `at` when there is none.
  template <typename BoxTest>
  [[nodiscard]] std::size_t PassRuns(std::size_t at, std::size_t end, BoxTest testBox) const {
    for (std::size_t level = Lengths.size(); level-- > 0;) {
      const std::size_t length = Lengths[level];
      const std::size_t behind = std::min(at + length, m_points.size());
      if (at % length != 0 || behind > end) continue;
      if (testBox(m_boxes[FirstOf(level, m_points.size()) + at / length])) return behind;
    }
    return at;
  }

  std::span<const TMapPoint> m_points;
  const RoundedBox *m_boxes = nullptr;
};

}  // namespace tessera::detail
