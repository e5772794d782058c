// SPDX-License-Identifier: MIT
#include <tessera/graphics/TRgn.h>
#include <tessera/graphics/detail/ScanConverter.h>

namespace tessera {

namespace {

using Run = TRgn::Run;

/// Walks over the borders of the runs of one row, left and right alternately.
class BorderCursor {
 public:
  explicit BorderCursor(const std::vector<Run> &runs) : m_run(runs.data()), m_end(runs.data() + runs.size()) {}
  [[nodiscard]] bool IsAtEnd() const { return m_run == m_end; }
  [[nodiscard]] std::int32_t Row() const { return m_run->y; }
  [[nodiscard]] bool IsIn(std::int32_t y) const { return m_run != m_end && m_run->y == y; }
  [[nodiscard]] std::int32_t Border() const { return m_isRight ? m_run->right : m_run->left; }
  void Next() {
    if (m_isRight) ++m_run;
    m_isRight = !m_isRight;
  }

 private:
  const Run *m_run;
  const Run *m_end;
  bool m_isRight = false;
};

void XorRow(BorderCursor &a, BorderCursor &b, std::int32_t y, std::vector<Run> &result) {
  bool inside = false;
  std::int32_t start = 0;
  while (a.IsIn(y) || b.IsIn(y)) {
    const bool takeA = a.IsIn(y) && (!b.IsIn(y) || a.Border() <= b.Border());
    BorderCursor &cursor = takeA ? a : b;
    const std::int32_t x = cursor.Border();
    cursor.Next();
    if (inside) detail::AppendRun(result, y, start, x);
    inside = !inside;
    start = x;
  }
}

}  // namespace

void TRgn::SetPolygon(std::span<const TPoint> points, TFillMode mode, const QRect &clip) {
  m_runs.clear();
  if (points.size() < 3 || clip.isEmpty()) return;
  detail::ConvertPolygon(points, mode, clip, m_runs);
}

void TRgn::XorWith(const TRgn &other) {
  if (other.m_runs.empty()) return;
  thread_local std::vector<Run> result;
  result.clear();
  BorderCursor mine(m_runs);
  BorderCursor theirs(other.m_runs);
  while (!mine.IsAtEnd() || !theirs.IsAtEnd()) {
    const bool mineFirst = theirs.IsAtEnd() || (!mine.IsAtEnd() && mine.Row() <= theirs.Row());
    XorRow(mine, theirs, mineFirst ? mine.Row() : theirs.Row(), result);
  }
  m_runs.swap(result);
}

TRgnComplexity TRgn::GetComplexity() const {
  if (m_runs.empty()) return TRgnComplexity::NullRegion;
  const Run &first = m_runs.front();
  std::int32_t y = first.y;
  for (const Run &run : m_runs) {
    if (run.left != first.left || run.right != first.right || run.y != y) return TRgnComplexity::ComplexRegion;
    ++y;
  }
  return TRgnComplexity::SimpleRegion;
}

}  // namespace tessera
