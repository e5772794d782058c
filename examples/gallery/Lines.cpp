// SPDX-License-Identifier: MIT
#include "Themes.h"

#include <tessera/objects/TPolyline.h>

#include <array>
#include <cmath>
#include <numbers>

namespace tessera::gallery {
namespace {

constexpr TBounds Panel{3, 52, 45.5, 80};
constexpr double FirstRow = 74.4;
constexpr double RowHeight = 3.2;

struct TNamedStyle {
  TPenStyle style;
  const char *name;
};

constexpr std::array Styles{
    TNamedStyle{TPenStyle::psSolid, "psSolid"},
    TNamedStyle{TPenStyle::psDash, "psDash"},
    TNamedStyle{TPenStyle::psDot, "psDot"},
    TNamedStyle{TPenStyle::psDashDot, "psDashDot"},
    TNamedStyle{TPenStyle::psDashDotDot, "psDashDotDot"},
    TNamedStyle{TPenStyle::psInsideFrame, "psInsideFrame"},
    TNamedStyle{TPenStyle::psClear, "psClear"},
};

void AddLine(TMapLayer &layer, const TMapPoint &from, const TMapPoint &to, const TPen &pen) {
  auto *line = layer.NewObject<TPolyline>();
  line->SetPen(pen);
  AddPart(*line, std::vector{from, to});
}

/// Captions hang half their height below the middle of what they stand beside.
void AddRowCaption(TSheet &sheet, double x, double y, const QString &text) {
  sheet.AddCaption({x, y - 0.7}, text);
}

void AddStyles(TSheet &sheet, TMapLayer &layer) {
  double y = FirstRow;
  for (const TNamedStyle &entry : Styles) {
    AddRowCaption(sheet, Panel.MinX, y, QString::fromLatin1(entry.name));
    AddLine(layer, {11.5, y}, {20.5, y}, PenOf(Ink, 1, entry.style));
    y -= RowHeight;
  }
  sheet.AddCaption({16, y + RowHeight - 0.7}, QStringLiteral("draws nothing"), TAlign::Middle);
}

void AddWidths(TSheet &sheet, TMapLayer &layer) {
  double y = FirstRow;
  for (const int widthPx : {1, 2, 3, 5, 8}) {
    AddRowCaption(sheet, 23, y, QStringLiteral("%1 px").arg(widthPx));
    AddLine(layer, {26.7, y}, {32.1, y}, PenOf(Blue, widthPx));
    AddLine(layer, {33.4, y}, {38.8, y}, PenOf(Green, widthPx, TPenStyle::psDash));
    AddLine(layer, {40.1, y}, {45.5, y}, PenOf(Red, widthPx, TPenStyle::psDot));
    y -= RowHeight;
  }
}

std::vector<TMapPoint> Wave(double left, double right, double y, double height) {
  constexpr int Steps = 40;
  constexpr double Waves = 2.5;
  std::vector<TMapPoint> points;
  for (int i = 0; i <= Steps; ++i) {
    const double share = double(i) / Steps;
    points.push_back({left + share * (right - left), y + height * std::sin(share * Waves * 2 * std::numbers::pi)});
  }
  return points;
}

void AddManyParts(TSheet &sheet, TMapLayer &layer) {
  auto *waves = layer.NewObject<TPolyline>();
  waves->SetPen(PenOf(Blue, 2));
  for (const double y : {58.4, 57.1, 55.8}) AddPart(*waves, Wave(26.7, 45.5, y, 0.8));
  AddRowCaption(sheet, 26.7, 53.4, QStringLiteral("one object of three parts"));
}

}  // namespace

void AddLines(TSheet &sheet) {
  sheet.AddHeading(Panel, QStringLiteral("Lines"), QStringLiteral("TPolyline, TPen"));
  TMapLayer &layer = sheet.NewLayer(QStringLiteral("Lines"));
  AddStyles(sheet, layer);
  AddWidths(sheet, layer);
  AddManyParts(sheet, layer);
}

}  // namespace tessera::gallery
