// SPDX-License-Identifier: MIT
#include <tessera/controls/detail/LayerIndicators.h>

#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>

namespace tessera::detail {
namespace {

/// How a figure is drawn: its outline, and its area when the switch is on.
struct Look {
  QColor color;
  bool isOn;
};

constexpr double OffOpacity = 0.45;
constexpr double LineWidthPx = 1.2;

void PaintFigure(QPainter &painter, const QPainterPath &figure, const Look &look) {
  painter.setBrush(look.isOn ? QBrush(look.color) : QBrush(Qt::NoBrush));
  painter.drawPath(figure);
}

void PaintEye(QPainter &painter, const Look &look) {
  QPainterPath lids(QPointF(1.5, 6.5));
  if (look.isOn) lids.quadTo(QPointF(8, -0.5), QPointF(14.5, 6.5));
  lids.moveTo(QPointF(1.5, 6.5));
  lids.quadTo(QPointF(8, 13.5), QPointF(14.5, 6.5));
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(lids);
  if (look.isOn) {
    QPainterPath pupil;
    pupil.addEllipse(QPointF(8, 6.5), 2, 2);
    PaintFigure(painter, pupil, look);
    return;
  }
  // Closed: the lower lid and its lashes.
  painter.drawLine(QPointF(4, 9), QPointF(3, 11));
  painter.drawLine(QPointF(8, 10), QPointF(8, 12));
  painter.drawLine(QPointF(12, 9), QPointF(13, 11));
}

void PaintPencil(QPainter &painter, const Look &look) {
  QPainterPath shaft;
  shaft.addPolygon(QPolygonF{{11.5, 1}, {14.5, 4}, {6.5, 12}, {2.5, 12}, {2.5, 9.5}, {11.5, 1}});
  PaintFigure(painter, shaft, look);
}

void PaintArrow(QPainter &painter, const Look &look) {
  QPainterPath arrow;
  arrow.addPolygon(
      QPolygonF{{4.5, 1}, {4.5, 10.5}, {7, 8.5}, {8.7, 12}, {10.5, 11.2}, {8.8, 7.8}, {11.8, 7.8}, {4.5, 1}});
  PaintFigure(painter, arrow, look);
}

void PaintLabel(QPainter &painter, const Look &look) {
  QPainterPath tag;
  tag.addPolygon(QPolygonF{{1.5, 6.5}, {5, 2}, {14.5, 2}, {14.5, 11}, {5, 11}, {1.5, 6.5}});
  QPainterPath holeAndText;
  holeAndText.addEllipse(QPointF(4.7, 6.5), 0.9, 0.9);
  holeAndText.addRect(7, 4.2, 5.5, 1.3);
  holeAndText.addRect(7, 7.5, 5.5, 1.3);
  // The holes have no outline, which would close them.
  if (look.isOn) painter.fillPath(tag.subtracted(holeAndText), look.color);
  painter.setBrush(Qt::NoBrush);
  painter.drawPath(tag);
}

using PaintPicture = void (*)(QPainter &painter, const Look &look);
constexpr PaintPicture Pictures[] = {PaintEye, PaintPencil, PaintArrow, PaintLabel};

}  // namespace

void PaintLayerIndicator(QPainter &painter, const QPointF &topLeft, int index, const QColor &color) {
  const bool isOn = index % 2 == 0;
  painter.save();
  painter.translate(topLeft);
  painter.setRenderHint(QPainter::Antialiasing);
  if (!isOn) painter.setOpacity(OffOpacity);
  painter.setPen(QPen(color, LineWidthPx, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  Pictures[index / 2](painter, {color, isOn});
  painter.restore();
}

}  // namespace tessera::detail
