// SPDX-License-Identifier: MIT
#include <tessera/map/TTesseraOptions.h>

namespace tessera {

TTesseraOptions::TTesseraOptions(QObject *parent)
    : QObject(parent), m_textStyle(new TObjectStyle), m_symbolStyle(new TObjectStyle) {
  constexpr int FontSizePt = 12;
  m_textStyle->font = TFont(QStringLiteral("Courier New"), FontSizePt);
  m_symbolStyle->font = TFont(QStringLiteral("MapInfo Cartographic"), FontSizePt, clNavy);
}

void TTesseraOptions::SetDefaultPen(const TPen &pen) {
  m_textStyle->pen = pen;
  m_symbolStyle->pen = pen;
}

void TTesseraOptions::SetDefaultPenColor(const QColor &color) {
  TPen pen = GetDefaultPen();
  pen.SetColor(FromQColor(color));
  SetDefaultPen(pen);
}

void TTesseraOptions::SetDefaultPenStyle(Qt::PenStyle style) {
  TPen pen = GetDefaultPen();
  pen.SetStyle(TPen::FromQPen(QPen(style)).GetStyle());
  SetDefaultPen(pen);
}

void TTesseraOptions::SetDefaultPenWidth(int widthPx) {
  TPen pen = GetDefaultPen();
  pen.SetWidth(widthPx);
  SetDefaultPen(pen);
}

void TTesseraOptions::SetDefaultBrush(const TBrush &brush) {
  m_textStyle->brush = brush;
  m_symbolStyle->brush = brush;
}

void TTesseraOptions::SetDefaultBGColor(TColor color) {
  m_textStyle->bgColor = color;
  m_symbolStyle->bgColor = color;
}

void TTesseraOptions::SetUseBGColor(bool use) {
  m_textStyle->useBGColor = use;
  m_symbolStyle->useBGColor = use;
}

void TTesseraOptions::SetDefaultTextQFont(const QFont &font) {
  SetDefaultTextFont(TFont::FromQFont(font, GetDefaultTextFont().GetColor()));
}

void TTesseraOptions::SetDefaultSymbolQFont(const QFont &font) {
  SetDefaultSymbolFont(TFont::FromQFont(font, GetDefaultSymbolFont().GetColor()));
}

}  // namespace tessera
