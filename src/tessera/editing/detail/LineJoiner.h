// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/TMapPoint.h>

#include <span>
#include <vector>

namespace tessera::detail {

/// Lines put together from lines whose ends meet, each of which is used once. Where more than two ends meet, any two of
/// them are joined.
class LineJoiner {
 public:
  /// A line, and the numbers of those it was made of.
  struct Joined {
    std::vector<TMapPoint> points;
    std::vector<std::size_t> lines;
  };

  /// @param distance in map units: how far apart ends may be; the end that is joined on then goes
  explicit LineJoiner(double distance) : m_distance(distance) {}

  void Add(std::span<const TMapPoint> line);
  /// In the order in which the first of each was added; a line that meets no other is there as it was added. Cost: that
  /// of sorting the ends, where few lie close to each other.
  [[nodiscard]] std::vector<Joined> Join();

 private:
  struct End {
    TMapPoint point;
    std::size_t line;
    bool isBack;
  };
  void Grow(Joined &chain);
  [[nodiscard]] const End *FindEndAt(const TMapPoint &point) const;

  double m_distance;
  std::vector<std::vector<TMapPoint>> m_lines;
  std::vector<char> m_isUsed;
  std::vector<End> m_ends;  // by x
};

}  // namespace tessera::detail
