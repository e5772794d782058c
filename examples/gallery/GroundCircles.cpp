// SPDX-License-Identifier: MIT
#include "Themes.h"

#include <tessera/objects/TGeoCircle.h>
#include <tessera/objects/TPolyline.h>

namespace tessera::gallery {
namespace {

constexpr TBounds Panel{93, 3, 117, 80};
/// A central meridian of the projection in which the circles are laid out; they are best near one.
constexpr double Longitude = 105;
constexpr double RadiusKm = 350;

void AddGraticule(TSheet &sheet, TMapLayer &layer) {
  const auto addLine = [&layer](const TMapPoint &from, const TMapPoint &to) {
    auto *line = layer.NewObject<TPolyline>();
    line->SetPen(PenOf(Faint));
    AddPart(*line, std::vector{from, to});
  };
  for (int latitude = 10; latitude <= 70; latitude += 10) {
    addLine({Panel.MinX + 3, double(latitude)}, {Panel.MaxX, double(latitude)});
    sheet.AddCaption({Panel.MinX, latitude - 0.7}, QStringLiteral("%1°").arg(latitude));
  }
  for (int longitude = 100; longitude <= 115; longitude += 5) {
    addLine({double(longitude), 6}, {double(longitude), 75.5});
  }
}

void AddCircle(TMapLayer &layer, double latitude, TColor color, TColor fill) {
  auto *circle = layer.NewObject<TGeoCircle>();
  circle->SetCenterX(Longitude);
  circle->SetCenterY(latitude);
  circle->SetRadius(RadiusKm * 1000);
  circle->SetPieCount(48);
  circle->SetPen(PenOf(color, 2));
  circle->SetBrush(BrushOf(fill));
}

}  // namespace

void AddGroundCircles(TSheet &sheet) {
  sheet.AddHeading(Panel, QStringLiteral("On the ground"), QStringLiteral("TGeoCircle"));
  TMapLayer &layer = sheet.NewLayer(QStringLiteral("Ground circles"));
  AddGraticule(sheet, layer);
  AddCircle(layer, 10, Red, PaleRed);
  AddCircle(layer, 30, Ochre, PaleOchre);
  AddCircle(layer, 50, Green, PaleGreen);
  AddCircle(layer, 70, Blue, PaleBlue);
  sheet.AddCaption({Longitude, 3.2}, QStringLiteral("all of a radius of %1 km").arg(RadiusKm), TAlign::Middle);
}

}  // namespace tessera::gallery
