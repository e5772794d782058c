// SPDX-License-Identifier: MIT
#include <tessera/graphics/detail/ScanConverter.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <utility>

namespace tessera::detail {
namespace {

using Run = TRgn::Run;

/// A side of the polygon on its way down. In the row that is k below its upper end (x, y) it crosses at
/// x + ceil(k * dx / dy), which is the first pixel not left of it.
struct Edge {
  std::int64_t x;          ///< The crossing in the current row.
  std::int64_t step;       ///< floor(dx / dy)
  std::int64_t remainder;  ///< dx - step * dy
  std::int64_t height;     ///< dy
  std::int64_t error;      ///< How much the crossing was rounded up, in 1 / dy; always in 0 … dy - 1.
  std::int32_t rowsLeft;
  std::int32_t winding;
  std::int32_t next;  ///< The next edge that begins in the same row, or -1.

  void Advance() {
    x += step;
    error -= remainder;
    if (error < 0) {
      error += height;
      ++x;
    }
  }
};

/// Goes over the crossings of one row from left to right and appends what lies inside.
class RowSweep {
 public:
  RowSweep(std::int32_t y, std::int32_t insideBits, std::vector<Run> &runs)
      : m_y(y), m_insideBits(insideBits), m_runs(runs) {}

  void Cross(std::int32_t x, std::int32_t change) {
    const bool wasInside = IsInside();
    m_winding += change;
    if (IsInside() == wasInside) return;
    if (wasInside) {
      AppendRun(m_runs, m_y, m_start, x);
    } else {
      m_start = x;
    }
  }

  /// Ends the row at the clip; the sides that lie beyond it were left out.
  void Finish(std::int32_t right) {
    if (IsInside()) AppendRun(m_runs, m_y, m_start, right);
  }

 private:
  [[nodiscard]] bool IsInside() const { return (m_winding & m_insideBits) != 0; }

  std::int32_t m_y;
  std::int32_t m_insideBits;  ///< The bits of a winding number that make a pixel an inner one.
  std::int32_t m_winding = 0;
  std::int32_t m_start = 0;
  std::vector<Run> &m_runs;
};

/// Turns polygons into runs. Keeps its storage from one polygon to the next.
class ScanConverter {
 public:
  void Convert(std::span<const TPoint> points, TFillMode mode, const QRect &clip, std::vector<Run> &runs) {
    if (!Prepare(points, clip)) return;
    m_insideBits = mode == TFillMode::Alternate ? 1 : -1;
    if (m_isTiny) {
      ConvertTiny(points, runs);
      return;
    }
    CollectEdges(points);
    m_active.clear();
    for (std::int32_t y = m_top; y < m_bottom; ++y) {
      for (std::int32_t i = m_firstOfRow[std::size_t(std::int64_t(y) - m_top)]; i >= 0;
           i = m_edges[std::size_t(i)].next) {
        m_active.push_back(m_edges[std::size_t(i)]);
      }
      if (m_active.size() <= FewCrossings) {
        EmitFew(y, runs);
      } else {
        EmitMany(y, runs);
      }
    }
  }

 private:
  /// Up to here sorting is faster than counting by column.
  static constexpr std::size_t FewCrossings = 24;
  static constexpr std::size_t TinyCorners = 16;
  static constexpr int TinyRows = 64;
  static constexpr int TinyHeight = 1 << 10;
  static constexpr int TinyReach = 1 << 19;

  /// Finds the rows to be converted. False when no pixel can be inside both polygon and clip.
  bool Prepare(std::span<const TPoint> points, const QRect &clip) {
    int minX = points[0].x();
    int maxX = minX;
    int minY = points[0].y();
    int maxY = minY;
    for (const TPoint &point : points) {
      minX = std::min(minX, point.x());
      maxX = std::max(maxX, point.x());
      minY = std::min(minY, point.y());
      maxY = std::max(maxY, point.y());
    }
    constexpr std::int64_t Largest = std::numeric_limits<std::int32_t>::max();
    m_left = clip.left();
    m_right = std::int32_t(std::min(Largest, std::int64_t(clip.right()) + 1));
    m_top = std::max(minY, clip.top());
    m_bottom = std::int32_t(std::min<std::int64_t>(maxY, std::int64_t(clip.bottom()) + 1));
    m_isTiny = points.size() <= TinyCorners && std::int64_t(m_bottom) - m_top <= TinyRows && minX >= -TinyReach &&
               maxX <= TinyReach && minY >= -TinyReach && maxY <= TinyReach && maxY - minY <= TinyHeight;
    return m_top < m_bottom && minX < m_right && maxX > m_left;
  }

  /// The same for the polygons that a map has most of, those of a few corners and rows: all crossings are put down row
  /// by row, without a list of the active edges.
  void ConvertTiny(std::span<const TPoint> points, std::vector<Run> &runs) {
    std::fill_n(m_tinyCounts, m_bottom - m_top, std::uint8_t(0));
    const TPoint *from = &points.back();
    for (const TPoint &to : points) {
      if (from->y() < to.y()) {
        PutTinyEdge(*from, to, 1);
      } else if (from->y() > to.y()) {
        PutTinyEdge(to, *from, -1);
      }
      from = &to;
    }
    for (std::int32_t y = m_top; y < m_bottom; ++y) {
      const std::int64_t *crossings = m_tinyCrossings[y - m_top];
      const std::size_t count = m_tinyCounts[y - m_top];
      if (count == 2) {  // a way in and a way out
        const auto left = std::int32_t(crossings[0] >> 2);
        const auto right = std::int32_t(crossings[1] >> 2);
        if (left < right) runs.push_back({y, left, right});
      } else {
        SweepKeys(y, crossings, count, runs);
      }
    }
  }

  /// Notes the edge's crossing with each row. A crossing is kept in units of 2^-32: the slope is rounded by less than a
  /// unit, so that after at most TinyHeight = 2^10 rows the crossing is less than 2^-22 off. What is added to round up
  /// must leave crossings on a pixel where they are, and take those at least 1 / TinyHeight behind one to the next:
  /// 1 - 2^-16 does both.
  void PutTinyEdge(const TPoint &upper, const TPoint &lower, std::int32_t winding) {
    constexpr double One = 4294967296.0;
    constexpr std::int64_t RoundUp = (std::int64_t(1) << 32) - (std::int64_t(1) << 16);
    const std::int32_t first = std::max(upper.y(), m_top);
    const std::int32_t end = std::min(lower.y(), m_bottom);
    const auto slope = std::int64_t(std::floor((lower.x() - upper.x()) * One / (lower.y() - upper.y())));
    std::int64_t x = std::int64_t(upper.x()) * (std::int64_t(1) << 32) + RoundUp + slope * (first - upper.y());
    for (std::int32_t row = first - m_top; row < end - m_top; ++row, x += slope) {
      const std::int32_t column = std::clamp(std::int32_t(x >> 32), m_left, m_right);
      InsertKey(m_tinyCrossings[row], m_tinyCounts[row]++, KeyOf(column, winding));
    }
  }

  /// Column and winding in one number, so that a comparison sorts by column.
  static std::int64_t KeyOf(std::int32_t x, std::int32_t winding) { return std::int64_t(x) * 4 + (winding + 1); }

  /// Adds a key to `count` sorted ones.
  static void InsertKey(std::int64_t *keys, std::size_t count, std::int64_t key) {
    for (; count > 0 && keys[count - 1] > key; --count) keys[count] = keys[count - 1];
    keys[count] = key;
  }

  void SweepKeys(std::int32_t y, const std::int64_t *keys, std::size_t count, std::vector<Run> &runs) const {
    RowSweep sweep(y, m_insideBits, runs);
    for (std::size_t i = 0; i < count; ++i) sweep.Cross(std::int32_t(keys[i] >> 2), std::int32_t(keys[i] & 3) - 1);
    sweep.Finish(m_right);
  }

  void CollectEdges(std::span<const TPoint> points) {
    m_edges.clear();
    m_firstOfRow.assign(std::size_t(std::int64_t(m_bottom) - m_top), -1);
    const TPoint *from = &points.back();
    for (const TPoint &to : points) {
      if (from->y() < to.y()) {
        AddEdge(*from, to, 1);
      } else if (from->y() > to.y()) {
        AddEdge(to, *from, -1);
      }
      from = &to;
    }
  }

  void AddEdge(const TPoint &upper, const TPoint &lower, std::int32_t winding) {
    const std::int32_t first = std::max(upper.y(), m_top);
    const std::int32_t end = std::min(lower.y(), m_bottom);
    if (first >= end || (upper.x() >= m_right && lower.x() >= m_right)) return;
    Edge edge{upper.x(), 0, 0, std::int64_t(lower.y()) - upper.y(), 0, end - first, winding, 0};
    const std::int64_t dx = std::int64_t(lower.x()) - upper.x();
    if (dx != 0) SetSlope(edge, dx, std::uint64_t(std::int64_t(first) - upper.y()));
    std::int32_t &head = m_firstOfRow[std::size_t(std::int64_t(first) - m_top)];
    edge.next = head;
    head = std::int32_t(m_edges.size());
    m_edges.push_back(edge);
  }

  /// Sets the slope and goes `rows` rows down. All products stay below 2^64 because rows, remainder < dy < 2^32.
  static void SetSlope(Edge &edge, std::int64_t dx, std::uint64_t rows) {
    constexpr std::int64_t Narrow = std::numeric_limits<std::int32_t>::max();
    if (dx >= -Narrow && dx <= Narrow && edge.height <= Narrow) {  // a narrow division is several times faster
      edge.step = std::int32_t(dx) / std::int32_t(edge.height);
      edge.remainder = std::int32_t(dx) % std::int32_t(edge.height);
    } else {
      edge.step = dx / edge.height;
      edge.remainder = dx % edge.height;
    }
    if (edge.remainder < 0) {
      edge.remainder += edge.height;
      --edge.step;
    }
    if (rows == 0) return;
    const auto height = std::uint64_t(edge.height);
    const std::uint64_t offset = rows * std::uint64_t(edge.remainder);
    const std::uint64_t whole = offset / height + (offset % height != 0 ? 1 : 0);
    edge.x += std::int64_t(rows) * edge.step + std::int64_t(whole);
    edge.error = std::int64_t(whole * height - offset);
  }

  /// Calls `crossing(x, winding)` for the crossing of each active edge with the current row, cut to the clip, and
  /// moves the edges on to the next row.
  template <typename Crossing>
  void TakeCrossings(Crossing crossing) {
    for (std::size_t i = 0; i < m_active.size();) {
      Edge &edge = m_active[i];
      crossing(std::int32_t(std::clamp<std::int64_t>(edge.x, m_left, m_right)), edge.winding);
      if (--edge.rowsLeft > 0) {
        edge.Advance();
        ++i;
      } else {
        edge = m_active.back();
        m_active.pop_back();
      }
    }
  }

  void EmitFew(std::int32_t y, std::vector<Run> &runs) {
    std::int64_t crossings[FewCrossings];
    std::size_t count = 0;
    TakeCrossings([&](std::int32_t x, std::int32_t winding) { InsertKey(crossings, count++, KeyOf(x, winding)); });
    SweepKeys(y, crossings, count, runs);
  }

  /// As EmitFew, in time linear in the crossings: the windings are summed up by column.
  void EmitMany(std::int32_t y, std::vector<Run> &runs) {
    const std::size_t columns = std::size_t(std::int64_t(m_right) - m_left) + 1;
    m_windingOfColumn.resize(std::max(m_windingOfColumn.size(), columns));
    m_touched.resize(std::max(m_touched.size(), columns / 64 + 1));
    TakeCrossings([&](std::int32_t x, std::int32_t winding) {
      const auto column = std::size_t(std::int64_t(x) - m_left);
      m_windingOfColumn[column] += winding;
      m_touched[column / 64] |= std::uint64_t(1) << (column % 64);
    });
    RowSweep sweep(y, m_insideBits, runs);
    for (std::size_t word = 0; word <= columns / 64; ++word) {
      for (std::uint64_t bits = std::exchange(m_touched[word], 0); bits != 0; bits &= bits - 1) {
        const std::size_t column = word * 64 + std::size_t(std::countr_zero(bits));
        const std::int32_t change = std::exchange(m_windingOfColumn[column], 0);
        sweep.Cross(std::int32_t(std::int64_t(column) + m_left), change);
      }
    }
    sweep.Finish(m_right);
  }

  std::vector<Edge> m_edges;
  std::vector<Edge> m_active;
  std::vector<std::int32_t> m_firstOfRow;
  std::vector<std::int32_t> m_windingOfColumn;  ///< All 0 between rows.
  std::vector<std::uint64_t> m_touched;         ///< A bit per column; all 0 between rows.
  std::int32_t m_left = 0;
  std::int32_t m_right = 0;
  std::int32_t m_top = 0;
  std::int32_t m_bottom = 0;
  std::int32_t m_insideBits = 0;
  bool m_isTiny = false;
  std::uint8_t m_tinyCounts[TinyRows];
  std::int64_t m_tinyCrossings[TinyRows][TinyCorners];
};

}  // namespace

void ConvertPolygon(std::span<const TPoint> points, TFillMode mode, const QRect &clip, std::vector<Run> &runs) {
  thread_local ScanConverter converter;
  converter.Convert(points, mode, clip, runs);
}

}  // namespace tessera::detail
