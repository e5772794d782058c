// SPDX-License-Identifier: MIT
#include <tessera/graphics/detail/EllipseRaster.h>

#include <algorithm>
#include <cmath>
#include <numeric>

namespace tessera::detail {

namespace {

/// Columns `left` … `right` - 1; none when `left` >= `right`.
struct Span {
  std::int64_t left = 0;
  std::int64_t right = 0;
  [[nodiscard]] bool IsEmpty() const { return left >= right; }
};

Span Common(Span a, Span b) {
  return {std::max(a.left, b.left), std::min(a.right, b.right)};
}

/// The pixels whose centres lie in the ellipse that touches the sides of a rectangle.
class EllipseShape {
 public:
  explicit EllipseShape(const DeviceRect &rect)
      : m_centreX(double(rect.left + rect.right) / 2),
        m_centreY(double(rect.top + rect.bottom) / 2),
        m_radiusX(double(rect.right - rect.left) / 2),
        m_radiusY(double(rect.bottom - rect.top) / 2) {}

  [[nodiscard]] Span Row(std::int64_t y) const {
    const double height = (double(y) + 0.5 - m_centreY) / m_radiusY;
    if (m_radiusX <= 0 || m_radiusY <= 0 || std::abs(height) >= 1) return {};
    const double reach = m_radiusX * std::sqrt(1 - height * height);
    return {std::int64_t(std::ceil(m_centreX - reach - 0.5)), std::int64_t(std::floor(m_centreX + reach - 0.5)) + 1};
  }

  /// The way along the outline to the ray through a pixel; exact on a circle.
  [[nodiscard]] double ArcLengthTo(std::int64_t x, std::int64_t y) const {
    const double across = (double(x) + 0.5 - m_centreX) / m_radiusX;
    const double down = (double(y) + 0.5 - m_centreY) / m_radiusY;
    return (std::atan2(down, across) + M_PI) * (m_radiusX + m_radiusY) / 2;
  }

 private:
  double m_centreX;
  double m_centreY;
  double m_radiusX;
  double m_radiusY;
};

class EllipsePainter {
 public:
  EllipsePainter(const Surface &surface, const DeviceRect &outer, const DevicePen &pen, const Fill &fill)
      : m_surface(surface),
        m_outer(outer),
        m_inner(outer.Inflated(-std::int64_t(pen.widthPx))),
        m_pen(pen),
        m_penFill(pen.ink),
        m_fill(fill),
        m_pattern(DashPattern(pen.style)),
        m_period(std::accumulate(m_pattern.begin(), m_pattern.end(), 0.0) * pen.widthPx) {}

  void PaintRow(std::int64_t y) const {
    const Span row = m_outer.Row(y);
    if (row.IsEmpty()) return;
    if (m_pen.IsClear()) {
      m_fill.PaintRun(m_surface, y, row.left, row.right);
      return;
    }
    const Span inside = InsideOf(row, y);
    if (inside.IsEmpty()) {
      PaintBorder(y, row);
      return;
    }
    PaintBorder(y, {row.left, inside.left});
    m_fill.PaintRun(m_surface, y, inside.left, inside.right);
    PaintBorder(y, {inside.right, row.right});
  }

 private:
  /// What the pen leaves of a row. A pixel beside one that is outside always belongs to the outline, which is therefore
  /// connected, and just that for a pen of one pixel.
  [[nodiscard]] Span InsideOf(Span row, std::int64_t y) const {
    Span inside = Common(Common(m_outer.Row(y - 1), m_outer.Row(y + 1)), {row.left + 1, row.right - 1});
    return m_pen.widthPx > 1 ? Common(inside, m_inner.Row(y)) : inside;
  }

  void PaintBorder(std::int64_t y, Span span) const {
    if (m_pattern.empty()) {
      m_penFill.PaintRun(m_surface, y, span.left, span.right);
      return;
    }
    const std::int64_t end = std::min<std::int64_t>(span.right, m_surface.right);
    for (std::int64_t x = std::max<std::int64_t>(span.left, m_surface.left); x < end; ++x) {
      (IsInDash(x, y) ? m_penFill : m_fill).PaintRun(m_surface, y, x, x + 1);
    }
  }

  [[nodiscard]] bool IsInDash(std::int64_t x, std::int64_t y) const {
    double rest = std::fmod(m_outer.ArcLengthTo(x, y), m_period);
    std::size_t index = 0;
    while (index + 1 < m_pattern.size() && rest >= m_pattern[index] * m_pen.widthPx) {
      rest -= m_pattern[index++] * m_pen.widthPx;
    }
    return index % 2 == 0;
  }

  const Surface &m_surface;
  EllipseShape m_outer;
  EllipseShape m_inner;
  const DevicePen &m_pen;
  Fill m_penFill;
  const Fill &m_fill;
  std::span<const double> m_pattern;
  double m_period;
};

}  // namespace

void DrawEllipse(const Surface &surface, const DeviceRect &rect, const DevicePen &pen, const Fill &fill) {
  const bool centred = !pen.IsClear() && pen.style != TPenStyle::psInsideFrame;
  const DeviceRect outer = centred ? rect.Inflated(-pen.OffsetPx()) : rect;
  const EllipsePainter painter(surface, outer, pen, fill);
  const std::int64_t end = std::min<std::int64_t>(outer.bottom, surface.bottom);
  for (std::int64_t y = std::max<std::int64_t>(outer.top, surface.top); y < end; ++y) painter.PaintRow(y);
}

}  // namespace tessera::detail
