// SPDX-License-Identifier: MIT
#include "BareLoop.h"

#include <QPainter>

#include <cmath>

namespace tessera::bench {
namespace {

/// Clipping happens this far outside, so that pens on the border of the view do not show.
constexpr double MarginPx = 4;

QImage MakeGlyph(int sizePx) {
  QImage glyph(sizePx, sizePx, QImage::Format_ARGB32_Premultiplied);
  glyph.fill(Qt::transparent);
  QPainter painter(&glyph);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(QColor(0x20, 0x40, 0x80));
  painter.setPen(Qt::NoPen);
  painter.drawEllipse(QRectF(0.5, 0.5, sizePx - 1, sizePx - 1));
  return glyph;
}

/// Keeps what lies on the inner side of one border. `inside` measures how far inside a point is; negative is outside.
template <typename Inside>
void ClipAgainst(std::vector<QPointF> &points, std::vector<QPointF> &result, Inside inside) {
  result.clear();
  if (points.empty()) return;
  QPointF previous = points.back();
  double previousDepth = inside(previous);
  for (const QPointF &point : points) {
    const double depth = inside(point);
    if ((depth >= 0) != (previousDepth >= 0)) {
      result.push_back(previous + (point - previous) * (previousDepth / (previousDepth - depth)));
    }
    if (depth >= 0) result.push_back(point);
    previous = point;
    previousDepth = depth;
  }
  points.swap(result);
}

/// The part of a segment within a rectangle, by the borders' parameters on it. False when nothing is.
bool ClipSegment(QPointF &from, QPointF &to, const QRectF &clip) {
  double start = 0;
  double end = 1;
  const QPointF along = to - from;
  const auto cut = [&](double direction, double room) {
    if (direction == 0) return room >= 0;
    const double at = room / direction;
    (direction < 0 ? start : end) = direction < 0 ? std::max(start, at) : std::min(end, at);
    return start <= end;
  };
  if (!cut(-along.x(), from.x() - clip.left()) || !cut(along.x(), clip.right() - from.x()) ||
      !cut(-along.y(), from.y() - clip.top()) || !cut(along.y(), clip.bottom() - from.y())) {
    return false;
  }
  if (end < 1) to = from + along * end;
  if (start > 0) from += along * start;
  return true;
}

}  // namespace

BareView BareLoop::ViewOf(QSize size, double zoom) const {
  const TBounds &box = m_map.Box();
  const double unitsPerPx = std::max((box.MaxX - box.MinX) / size.width(), (box.MaxY - box.MinY) / size.height());
  return {{(box.MinX + box.MaxX) / 2, (box.MinY + box.MaxY) / 2}, unitsPerPx / zoom, size};
}

void BareLoop::Draw(const BareView &view, QImage &picture) {
  m_view = view;
  m_clip = QRectF(QPointF(0, 0), QSizeF(view.size)).adjusted(-MarginPx, -MarginPx, MarginPx, MarginPx);
  if (m_glyph.isNull()) m_glyph = MakeGlyph(m_map.GetSymbolSize());
  const int halfGlyph = m_map.GetSymbolSize() / 2;
  m_color = 0;
  const double halfWidth = (view.size.width() / 2.0 + MarginPx) * view.unitsPerPx;
  const double halfHeight = (view.size.height() / 2.0 + MarginPx) * view.unitsPerPx;
  const TBounds seen = {view.centre.x - halfWidth, view.centre.y - halfHeight, view.centre.x + halfWidth,
                        view.centre.y + halfHeight};
  picture.fill(Qt::white);
  QPainter painter(&picture);
  for (const FlatShape &shape : m_map.Shapes()) {
    const TBounds &box = shape.box;
    if (box.MaxX < seen.MinX || box.MinX > seen.MaxX || box.MaxY < seen.MinY || box.MinY > seen.MaxY) continue;
    const bool isInside = seen.ContainsBounds(box);
    if (shape.kind == FlatKind::Point) {
      const double x = (box.MinX - view.centre.x) / view.unitsPerPx + view.size.width() / 2.0;
      const double y = (view.centre.y - box.MinY) / view.unitsPerPx + view.size.height() / 2.0;
      painter.drawImage(QPoint(static_cast<int>(x) - halfGlyph, static_cast<int>(y) - halfGlyph), m_glyph);
    } else if (shape.kind == FlatKind::Line) {
      DrawLine(painter, shape, isInside);
    } else {
      DrawRing(painter, shape, isInside);
    }
  }
}

void BareLoop::SetColor(QPainter &painter, const FlatShape &shape) {
  const bool isFilling = shape.kind == FlatKind::Ring;
  if (m_color == shape.color && m_isFilling == isFilling) return;
  m_color = shape.color;
  m_isFilling = isFilling;
  painter.setPen(QColor::fromRgb(isFilling ? OutlineColor : shape.color));
  if (isFilling) painter.setBrush(QColor::fromRgb(shape.color));
}

void BareLoop::TransformAndThin(const FlatShape &shape) {
  m_points.clear();
  const double scale = 1 / m_view.unitsPerPx;
  const double left = m_view.size.width() / 2.0 - m_view.centre.x * scale;
  const double top = m_view.size.height() / 2.0 + m_view.centre.y * scale;
  QPointF last(HUGE_VAL, HUGE_VAL);
  for (const FlatVertex &vertex : m_map.VerticesOf(shape)) {
    const QPointF point(left + vertex.x * scale, top - vertex.y * scale);
    if (std::abs(point.x() - last.x()) <= 1 && std::abs(point.y() - last.y()) <= 1) continue;
    m_points.push_back(point);
    last = point;
  }
}

void BareLoop::ClipRing() {
  const QRectF &clip = m_clip;
  ClipAgainst(m_points, m_clipped, [&](const QPointF &p) { return p.x() - clip.left(); });
  ClipAgainst(m_points, m_clipped, [&](const QPointF &p) { return clip.right() - p.x(); });
  ClipAgainst(m_points, m_clipped, [&](const QPointF &p) { return p.y() - clip.top(); });
  ClipAgainst(m_points, m_clipped, [&](const QPointF &p) { return clip.bottom() - p.y(); });
}

void BareLoop::DrawRing(QPainter &painter, const FlatShape &shape, bool isInside) {
  TransformAndThin(shape);
  if (!isInside) ClipRing();
  if (m_points.empty()) return;
  SetColor(painter, shape);
  painter.drawPolygon(m_points.data(), static_cast<int>(m_points.size()));
}

void BareLoop::DrawLine(QPainter &painter, const FlatShape &shape, bool isInside) {
  TransformAndThin(shape);
  SetColor(painter, shape);
  if (isInside) {
    painter.drawPolyline(m_points.data(), static_cast<int>(m_points.size()));
    return;
  }
  const auto drawRun = [&] {
    if (m_clipped.size() > 1) painter.drawPolyline(m_clipped.data(), static_cast<int>(m_clipped.size()));
    m_clipped.clear();
  };
  m_clipped.clear();
  for (std::size_t i = 1; i < m_points.size(); ++i) {
    QPointF from = m_points[i - 1];
    QPointF to = m_points[i];
    if (!ClipSegment(from, to, m_clip)) continue;
    if (m_clipped.empty() || from != m_clipped.back()) {
      drawRun();
      m_clipped.push_back(from);
    }
    m_clipped.push_back(to);
  }
  drawRun();
}

}  // namespace tessera::bench
