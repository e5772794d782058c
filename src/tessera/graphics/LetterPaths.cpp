// SPDX-License-Identifier: MIT
#include <tessera/graphics/LetterPaths.h>
#include <tessera/graphics/detail/SymbolFont.h>

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

namespace tessera {
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

void FillSymbol(QPainter &painter, int shape, const TFont &font, const QPointF &at) {
  const detail::SymbolGlyph &glyph = detail::ResolveSymbol(font, shape);
  FillLettersCentred(painter, glyph.text, glyph.font, at);
}

}  // namespace tessera
