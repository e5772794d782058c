// SPDX-License-Identifier: MIT
#include "Themes.h"

#include <tessera/objects/TRegion.h>

#include <array>
#include <cmath>
#include <numbers>

namespace tessera::gallery {
namespace {

constexpr TBounds Panel{3, 24, 45.5, 50};
constexpr int Columns = 4;
constexpr double ColumnWidth = 11.0;
constexpr double SwatchWidth = 4.6;
constexpr double SwatchHeight = 3.2;
/// Corners enough for a small ring to look round. More would show how screen points are rounded.
constexpr int Round = 32;

struct TNamedStyle {
  TBrushStyle style;
  const char *name;
};

constexpr std::array Styles{
    TNamedStyle{TBrushStyle::bsSolid, "bsSolid"},           TNamedStyle{TBrushStyle::bsClear, "bsClear"},
    TNamedStyle{TBrushStyle::bsHorizontal, "bsHorizontal"}, TNamedStyle{TBrushStyle::bsVertical, "bsVertical"},
    TNamedStyle{TBrushStyle::bsFDiagonal, "bsFDiagonal"},   TNamedStyle{TBrushStyle::bsBDiagonal, "bsBDiagonal"},
    TNamedStyle{TBrushStyle::bsCross, "bsCross"},           TNamedStyle{TBrushStyle::bsDiagCross, "bsDiagCross"},
};

TRegion &AddRegion(TMapLayer &layer, const TPen &pen, const TBrush &brush) {
  auto *region = layer.NewObject<TRegion>();
  region->SetPen(pen);
  region->SetBrush(brush);
  return *region;
}

void AddSwatch(TMapLayer &layer, const TMapPoint &at, TBrushStyle style, bool useBGColor) {
  TRegion &swatch = AddRegion(layer, PenOf(Ink), BrushOf(Blue, style));
  swatch.SetUseBGColor(useBGColor);
  swatch.SetBGColor(PaleOchre);
  AddPart(swatch, RingOf({at.X, at.Y, at.X + SwatchWidth, at.Y + SwatchHeight}));
}

/// Every style twice: as it is, and over a background colour.
void AddStyles(TSheet &sheet, TMapLayer &layer) {
  sheet.AddCaption({Panel.MinX, 45.2}, QStringLiteral("each alone, and over a background colour"));
  constexpr double FirstRow = 41.4;
  constexpr double RowHeight = 5.7;
  for (int i = 0; i < int(Styles.size()); ++i) {
    const int row = i / Columns;
    const TMapPoint at{Panel.MinX + i % Columns * ColumnWidth, FirstRow - row * RowHeight};
    AddSwatch(layer, at, Styles[i].style, false);
    AddSwatch(layer, {at.X + SwatchWidth, at.Y}, Styles[i].style, true);
    sheet.AddCaption({at.X + SwatchWidth, at.Y - 1.6}, QString::fromLatin1(Styles[i].name), TAlign::Middle);
  }
}

/// A ring of corners about a centre, the first one at the top; with `step` above 1 the sides pass over corners, as
/// those of a star do.
std::vector<TMapPoint> Ring(const TMapPoint &centre, double radius, int corners, int step = 1) {
  std::vector<TMapPoint> points;
  for (int i = 0; i <= corners; ++i) {
    const double angle = 2 * std::numbers::pi * (i * step % corners) / corners;
    points.push_back({centre.X + radius * std::sin(angle), centre.Y + radius * std::cos(angle)});
  }
  return points;
}

/// Rings beyond the first cut holes or add islands: where an even number of rings overlap, there is no area.
void AddRings(TSheet &sheet, TMapLayer &layer) {
  constexpr double Middle = 29.5;
  constexpr double Captions = 24.3;
  const auto centre = [](int column) { return TMapPoint{Panel.MinX + SwatchWidth + column * ColumnWidth, Middle}; };

  TRegion &hole = AddRegion(layer, PenOf(Green, 2), BrushOf(PaleGreen));
  AddPart(hole, Ring(centre(0), 3.6, 8));
  AddPart(hole, Ring(centre(0), 1.7, 4));
  sheet.AddCaption({centre(0).X, Captions}, QStringLiteral("a hole"), TAlign::Middle);

  TRegion &islands = AddRegion(layer, PenOf(Blue), BrushOf(PaleBlue));
  AddPart(islands, Ring(centre(1), 3.6, Round));
  AddPart(islands, Ring(centre(1), 2.7, Round));
  AddPart(islands, Ring({centre(1).X - 1.0, Middle + 0.4}, 1.1, Round / 2));
  AddPart(islands, Ring({centre(1).X + 1.5, Middle - 0.8}, 0.6, Round / 2));
  sheet.AddCaption({centre(1).X, Captions}, QStringLiteral("islands in a hole"), TAlign::Middle);

  TRegion &overlap = AddRegion(layer, PenOf(Red), BrushOf(PaleRed));
  AddPart(overlap, Ring({centre(2).X - 1.5, Middle}, 2.8, Round));
  AddPart(overlap, Ring({centre(2).X + 1.5, Middle}, 2.8, Round));
  sheet.AddCaption({centre(2).X, Captions}, QStringLiteral("rings that overlap"), TAlign::Middle);

  TRegion &star = AddRegion(layer, PenOf(Ochre), BrushOf(PaleOchre));
  AddPart(star, Ring({centre(3).X, Middle - 0.3}, 3.9, 5, 2));
  sheet.AddCaption({centre(3).X, Captions}, QStringLiteral("a ring over itself"), TAlign::Middle);
}

}  // namespace

void AddAreas(TSheet &sheet) {
  sheet.AddHeading(Panel, QStringLiteral("Areas"), QStringLiteral("TRegion, TBrush, UseBGColor"));
  TMapLayer &layer = sheet.NewLayer(QStringLiteral("Areas"));
  AddStyles(sheet, layer);
  AddRings(sheet, layer);
}

}  // namespace tessera::gallery
