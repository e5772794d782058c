// SPDX-License-Identifier: MIT
#include <tessera/graphics/detail/LineRaster.h>
#include <tessera/graphics/detail/Stroker.h>

#include <QPolygonF>

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace tessera::detail {

namespace {

/// Up to this width lines are drawn as bundles of thin ones: the corners of a wider line would show.
constexpr int NarrowestWidePx = 4;

/// The stretch of a line from `start` to `end`, as fractions of its length.
struct Stretch {
  double start = 0;
  double end = 1;
  [[nodiscard]] bool IsEmpty() const { return start > end; }
};

/// Cuts `stretch` to the part where `origin` + t * `delta` lies in `low` … `high`.
void CutToRange(double origin, double delta, double low, double high, Stretch &stretch) {
  if (delta == 0) {
    if (origin < low || origin > high) stretch.end = -1;
    return;
  }
  const double atLow = (low - origin) / delta;
  const double atHigh = (high - origin) / delta;
  stretch.start = std::max(stretch.start, std::min(atLow, atHigh));
  stretch.end = std::min(stretch.end, std::max(atLow, atHigh));
}

/// Draws chains of points, each with the pen down all the way.
class ChainPainter {
 public:
  ChainPainter(PaintStage &stage, const DevicePen &pen) : m_stage(stage), m_pen(pen) {
    if (pen.widthPx >= NarrowestWidePx) {
      QPen qtPen(QColor::fromRgb(pen.ink.value), pen.widthPx);
      qtPen.setCapStyle(pen.IsDashed() ? Qt::FlatCap : Qt::RoundCap);
      qtPen.setJoinStyle(Qt::RoundJoin);
      QPainter &painter = stage.Painter();
      if (painter.pen() != qtPen) painter.setPen(qtPen);
    }
  }

  void Add(QPointF point) { m_chain.append(point); }
  [[nodiscard]] bool IsEmpty() const { return m_chain.isEmpty(); }

  void Flush() {
    if (m_chain.size() > 1) {
      if (m_pen.widthPx >= NarrowestWidePx) {
        DrawWide();
      } else {
        DrawNarrow();
      }
    }
    m_chain.clear();
  }

 private:
  void DrawWide() {
    QPainter &painter = m_stage.Painter();
    // The middle of the pixels that the pen covers; those of an even number would else be rounded up on one side only.
    const double middle = m_pen.OffsetPx() + m_pen.widthPx / 2.0;
    painter.translate(middle, middle);
    painter.drawPolyline(m_chain);
  }

  void DrawNarrow() {
    m_pixels.clear();
    for (const QPointF &point : m_chain) m_pixels.push_back(point.toPoint());
    // A dash ends where the gap begins, but however short it is, it shows.
    const bool isDot = std::all_of(m_pixels.begin(), m_pixels.end(), [&](TPoint p) { return p == m_pixels.front(); });
    const LineEnd end = m_pen.IsDashed() && !isDot ? LineEnd::Omitted : LineEnd::Drawn;
    DrawNarrowPolyline(m_stage.GetSurface(), m_pixels, {m_pen.widthPx, m_pen.OffsetPx()}, end, m_pen.ink);
  }

  PaintStage &m_stage;
  const DevicePen &m_pen;
  QPolygonF m_chain;
  std::vector<TPoint> m_pixels;
};

/// Cuts a line to what can be seen of it and into the dashes of the pen.
class LineChopper {
 public:
  LineChopper(PaintStage &stage, const DevicePen &pen, double phasePx)
      : m_painter(stage, pen), m_pattern(DashPattern(pen.style)), m_travelled(phasePx), m_unit(pen.widthPx) {
    m_window = stage.GetSurface().Bounds().Inflated(std::int64_t(pen.widthPx) + 2);
    m_period = std::accumulate(m_pattern.begin(), m_pattern.end(), 0.0) * m_unit;
  }

  void Line(TPoint from, TPoint to) {
    const QPointF origin(from);
    const QPointF delta = QPointF(to) - origin;
    Stretch visible;
    CutToRange(origin.x(), delta.x(), double(m_window.left), double(m_window.right), visible);
    CutToRange(origin.y(), delta.y(), double(m_window.top), double(m_window.bottom), visible);
    const double length = std::hypot(delta.x(), delta.y());
    if (visible.IsEmpty()) {
      m_painter.Flush();
    } else if (m_pattern.empty()) {
      Draw(origin, delta, visible);
    } else {
      DrawDashes(origin, delta, length, visible);
    }
    m_travelled += length;
  }

  /// Ends the last chain; returns how far the pen has come.
  double Finish() {
    m_painter.Flush();
    return m_travelled;
  }

 private:
  void Draw(QPointF origin, QPointF delta, Stretch stretch) {
    if (stretch.start > 0) m_painter.Flush();
    if (m_painter.IsEmpty()) m_painter.Add(origin + delta * stretch.start);
    m_painter.Add(origin + delta * stretch.end);
    if (stretch.end < 1) m_painter.Flush();
  }

  void DrawDashes(QPointF origin, QPointF delta, double length, Stretch visible) {
    if (length == 0) return;
    const double end = m_travelled + visible.end * length;
    double position = m_travelled + visible.start * length;
    double rest = std::fmod(position, m_period);
    std::size_t index = 0;
    while (index + 1 < m_pattern.size() && rest >= m_pattern[index] * m_unit) rest -= m_pattern[index++] * m_unit;
    while (position < end) {
      const double stop = position + m_pattern[index] * m_unit - rest;
      const bool isDash = index % 2 == 0;
      if (isDash) {
        // A dash that goes on beyond the line's end keeps its chain open, so that it is drawn around the corner.
        const double drawnTo = stop < end ? (stop - m_travelled) / length : visible.end;
        Draw(origin, delta, {(position - m_travelled) / length, drawnTo});
        if (stop <= end) m_painter.Flush();
      } else {
        m_painter.Flush();
      }
      position = stop;
      rest = 0;
      index = (index + 1) % m_pattern.size();
    }
  }

  ChainPainter m_painter;
  std::span<const double> m_pattern;
  DeviceRect m_window;
  double m_period = 0;
  double m_travelled;
  double m_unit;
};

}  // namespace

std::span<const double> DashPattern(TPenStyle style) {
  static constexpr std::array<double, 2> Dash{4, 2};
  static constexpr std::array<double, 2> Dot{1, 2};
  static constexpr std::array<double, 4> DashDot{4, 2, 1, 2};
  static constexpr std::array<double, 6> DashDotDot{4, 2, 1, 2, 1, 2};
  switch (style) {
    case TPenStyle::psDash:
      return Dash;
    case TPenStyle::psDot:
      return Dot;
    case TPenStyle::psDashDot:
      return DashDot;
    case TPenStyle::psDashDotDot:
      return DashDotDot;
    case TPenStyle::psSolid:
    case TPenStyle::psClear:
    case TPenStyle::psInsideFrame:
      break;
  }
  return {};
}

void StrokePolyline(PaintStage &stage, std::span<const TPoint> points, const DevicePen &pen, double &phasePx) {
  if (pen.widthPx < NarrowestWidePx && !pen.IsDashed()) {
    DrawNarrowPolyline(stage.GetSurface(), points, {pen.widthPx, pen.OffsetPx()}, LineEnd::Drawn, pen.ink);
    return;
  }
  LineChopper chopper(stage, pen, phasePx);
  for (std::size_t i = 1; i < points.size(); ++i) chopper.Line(points[i - 1], points[i]);
  phasePx = chopper.Finish();
}

}  // namespace tessera::detail
