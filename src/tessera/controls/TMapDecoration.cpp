// SPDX-License-Identifier: MIT
#include <tessera/base/GuardedCall.h>
#include <tessera/controls/TMapDecoration.h>

#include <QFontInfo>
#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

namespace tessera {
namespace {

constexpr int MarginPx = 8;

}  // namespace

TMapDecoration::TMapDecoration(TCorner corner, QWidget *parent) : TMapCompanion(parent), m_corner(corner) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

void TMapDecoration::SetTransparent(bool transparent) {
  m_isTransparent = transparent;
  setAttribute(Qt::WA_TransparentForMouseEvents, transparent);
  update();
}

void TMapDecoration::MapChanged() {
  Refresh();
  if (TTessera *map = GetMap()) {
    connect(map->GetPainting(), &TMapPainting::OnDecorate, this, &TMapDecoration::PaintInto);
  }
}

void TMapDecoration::PaintInto(QPainter &painter, const QRect &picture) {
  if (!m_isInPictures) return;
  Refresh();
  const QRect inner = picture.adjusted(MarginPx, MarginPx, -MarginPx, -MarginPx);
  QRect place(inner.topLeft(), sizeHint().boundedTo(inner.size()));
  if (m_corner == dcTopRight || m_corner == dcBottomRight) place.moveRight(inner.right());
  if (m_corner == dcBottomLeft || m_corner == dcBottomRight) place.moveBottom(inner.bottom());
  PaintTo(painter, place);
}

void TMapDecoration::PaintTo(QPainter &painter, const QRect &rect) {
  Refresh();
  Draw(painter, rect);
}

void TMapDecoration::Draw(QPainter &painter, const QRect &rect) const {
  painter.save();
  painter.setClipRect(rect, Qt::IntersectClip);
  painter.setRenderHint(QPainter::Antialiasing);
  if (!m_isTransparent) painter.fillRect(rect, palette().window());
  PaintContent(painter, rect);
  painter.restore();
}

QFont TMapDecoration::GetPixelFont() const {
  QFont letters = font();
  letters.setPixelSize(QFontInfo(letters).pixelSize());
  return letters;
}

QColor TMapDecoration::GetInk() const {
  return m_isTransparent ? QColor(Qt::black) : palette().color(QPalette::WindowText);
}

void TMapDecoration::PaintText(QPainter &painter, const QPointF &at, const QString &text) const {
  constexpr double RimPx = 3;
  const QFont letters = GetPixelFont();
  QPainterPath path;
  path.addText(at + QPointF(0, QFontMetricsF(letters).ascent()), letters, text);
  if (m_isTransparent) painter.strokePath(path, QPen(Qt::white, RimPx, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.fillPath(path, GetInk());
}

void TMapDecoration::paintEvent(QPaintEvent * /*event*/) {
  QPainter painter(this);
  GuardedCall([&] { Draw(painter, rect()); });
}

}  // namespace tessera
