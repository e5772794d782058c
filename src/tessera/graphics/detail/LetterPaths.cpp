// SPDX-License-Identifier: MIT
#include <tessera/graphics/detail/LetterPaths.h>

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

namespace tessera::detail {
namespace {

QFont FontOf(const TFont &font) {
  QFont made = font.ToQFont();
  made.setPixelSize(font.GetPixelSize());
  made.setKerning(false);
  return made;
}

}  // namespace

void FillLetters(QPainter &painter, const QString &text, const TFont &font) {
  const QFont letters = FontOf(font);
  QPainterPath path;
  path.addText(0, QFontMetricsF(letters).ascent(), letters, text);
  painter.fillPath(path, ToQColor(font.GetColor()));
}

void FillLettersCentred(QPainter &painter, const QString &text, const TFont &font, const QPointF &at) {
  const QFontMetricsF metrics(FontOf(font));
  painter.save();
  painter.translate(at - QPointF(metrics.horizontalAdvance(text), metrics.height()) / 2);
  FillLetters(painter, text, font);
  painter.restore();
}

}  // namespace tessera::detail
