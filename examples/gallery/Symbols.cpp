// SPDX-License-Identifier: MIT
#include "Themes.h"

#include <tessera/graphics/TFont.h>
#include <tessera/objects/TSymbol.h>

#include <array>

namespace tessera::gallery {
namespace {

constexpr TBounds Panel{48, 52, 90.5, 80};
constexpr int FirstShape = 32;
constexpr int LastShape = 67;

TFont SymbolFont(int sizePt, TColor color) {
  return {SymbolFontFamily.toString(), sizePt, color};
}

void AddSymbol(TMapLayer &layer, const TMapPoint &at, int shape, const TFont &font) {
  auto *symbol = layer.NewObject<TSymbol>();
  symbol->MoveTo(at.X, at.Y);
  symbol->SetShape(shape);
  symbol->SetFont(font);
}

void AddTable(TSheet &sheet, TMapLayer &layer) {
  constexpr int Columns = 12;
  constexpr double ColumnWidth = (Panel.MaxX - Panel.MinX) / Columns;
  constexpr double RowHeight = 5.4;
  constexpr double FirstRow = 74.6;
  for (int shape = FirstShape; shape <= LastShape; ++shape) {
    const int place = shape - FirstShape;
    const int row = place / Columns;
    const TMapPoint at{Panel.MinX + (place % Columns + 0.5) * ColumnWidth, FirstRow - row * RowHeight};
    AddSymbol(layer, at, shape, SymbolFont(16, Ink));
    sheet.AddCaption({at.X, at.Y - 3.1}, QString::number(shape), TAlign::Middle);
  }
}

void AddSizes(TSheet &sheet, TMapLayer &layer) {
  struct TSample {
    int shape;
    int sizePt;
    TColor color;
  };
  constexpr std::array Samples{TSample{34, 8, Red},    TSample{35, 12, Blue}, TSample{42, 16, Green},
                               TSample{46, 20, Ochre}, TSample{53, 24, Red},  TSample{56, 28, Blue},
                               TSample{62, 32, Green}};
  constexpr double ColumnWidth = (Panel.MaxX - Panel.MinX) / Samples.size();
  double x = Panel.MinX + ColumnWidth / 2;
  for (const TSample &sample : Samples) {
    AddSymbol(layer, {x, 56.4}, sample.shape, SymbolFont(sample.sizePt, sample.color));
    sheet.AddCaption({x, 52.2}, QStringLiteral("%1 pt").arg(sample.sizePt), TAlign::Middle);
    x += ColumnWidth;
  }
}

}  // namespace

void AddSymbols(TSheet &sheet) {
  sheet.AddHeading(Panel, QStringLiteral("Symbols"), QStringLiteral("TSymbol, TFont"));
  TMapLayer &layer = sheet.NewLayer(QStringLiteral("Symbols"));
  AddTable(sheet, layer);
  AddSizes(sheet, layer);
}

}  // namespace tessera::gallery
