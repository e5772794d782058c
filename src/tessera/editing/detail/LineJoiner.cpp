// SPDX-License-Identifier: MIT
#include <tessera/editing/detail/LineJoiner.h>

#include <algorithm>
#include <cmath>

namespace tessera::detail {

void LineJoiner::Add(std::span<const TMapPoint> line) {
  m_lines.emplace_back(line.begin(), line.end());
}

const LineJoiner::End *LineJoiner::FindEndAt(const TMapPoint &point) const {
  const auto isBefore = [](const End &end, double x) { return end.point.X < x; };
  auto end = std::lower_bound(m_ends.begin(), m_ends.end(), point.X - m_distance, isBefore);
  for (; end != m_ends.end() && end->point.X <= point.X + m_distance; ++end) {
    const double distance = std::hypot(end->point.X - point.X, end->point.Y - point.Y);
    if (!m_isUsed[end->line] && distance <= m_distance) return &*end;
  }
  return nullptr;
}

void LineJoiner::Grow(Joined &chain) {
  while (const End *end = FindEndAt(chain.points.back())) {
    m_isUsed[end->line] = true;
    chain.lines.push_back(end->line);
    std::vector<TMapPoint> &line = m_lines[end->line];
    if (end->isBack) std::reverse(line.begin(), line.end());
    chain.points.insert(chain.points.end(), line.begin() + 1, line.end());
  }
}

std::vector<LineJoiner::Joined> LineJoiner::Join() {
  const auto isClosed = [](const auto &line) { return line.size() > 1 && line.front() == line.back(); };
  for (std::size_t line = 0; line < m_lines.size(); ++line) {
    const auto &points = m_lines[line];
    if (points.empty() || isClosed(points)) continue;
    m_ends.push_back({points.front(), line, false});
    m_ends.push_back({points.back(), line, true});
  }
  const auto isLeft = [](const End &a, const End &b) { return a.point.X < b.point.X; };
  std::stable_sort(m_ends.begin(), m_ends.end(), isLeft);
  m_isUsed.assign(m_lines.size(), false);
  std::vector<Joined> all;
  for (std::size_t line = 0; line < m_lines.size(); ++line) {
    if (m_isUsed[line]) continue;
    m_isUsed[line] = true;
    Joined &chain = all.emplace_back(Joined{m_lines[line], {line}});
    if (chain.points.empty() || isClosed(chain.points)) continue;
    Grow(chain);
    std::reverse(chain.points.begin(), chain.points.end());
    Grow(chain);
    // It keeps the direction of its first line.
    std::reverse(chain.points.begin(), chain.points.end());
  }
  return all;
}

}  // namespace tessera::detail
