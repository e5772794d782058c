// SPDX-License-Identifier: MIT
#pragma once

#include "FlatMap.h"

#include <QImage>
#include <QPoint>
#include <QPolygonF>

class QPainter;

namespace tessera::bench {

/// What the borders of areas are drawn in.
inline constexpr QRgb OutlineColor = qRgb(0x80, 0x80, 0x80);

/// What a picture shows: a pixel is `unitsPerPx` map units wide and high; y points up on the map.
struct BareView {
  FlatVertex centre;
  double unitsPerPx;
  QSize size;
};

/// Draws a map with nothing but QPainter: what a programmer would write who has the vertices in arrays and knows what
/// costs time. Shapes beside the view are skipped by their boxes; vertices within a pixel of the last kept one are
/// dropped; what sticks out of the view is clipped before QPainter sees it; pens and brushes change only with the
/// colour; every buffer is used again.
class BareLoop {
 public:
  explicit BareLoop(const FlatMap &map) : m_map(map) {}

  /// The view on the part of the map around its middle that is a `zoom`-th as wide and high.
  [[nodiscard]] BareView ViewOf(QSize size, double zoom) const;
  /// @pre `picture` has the size of the view.
  void Draw(const BareView &view, QImage &picture);

 private:
  void DrawRing(QPainter &painter, const FlatShape &shape, bool isInside);
  void DrawLine(QPainter &painter, const FlatShape &shape, bool isInside);
  void SetColor(QPainter &painter, const FlatShape &shape);
  void TransformAndThin(const FlatShape &shape);
  void ClipRing();

  const FlatMap &m_map;
  BareView m_view = {};
  QRectF m_clip;
  QImage m_glyph;
  QRgb m_color = 0;
  bool m_isFilling = false;
  std::vector<QPointF> m_points;
  std::vector<QPointF> m_clipped;
};

}  // namespace tessera::bench
