// SPDX-License-Identifier: MIT
#include "Themes.h"

#include <tessera/graphics/TFont.h>
#include <tessera/objects/TPolyline.h>

#include <algorithm>
#include <cmath>

namespace tessera::gallery {
namespace {

constexpr TBounds Panel{70.5, 3, 90.5, 22};
constexpr TBounds Ground{70.5, 5.2, 90.5, 18.4};

/// The height of hilly ground at a place of the picture, about from -1 to 1: waves of four directions, each bent by
/// those before it.
double HeightAt(double x, double y) {
  double height = 0;
  double frequency = 4;
  for (const double angle : {0.5, 1.9, 3.4, 5.2}) {
    height += 2.4 * std::sin(frequency * (x * std::cos(angle) + y * std::sin(angle)) + 2 * height + angle) / frequency;
    frequency *= 1.6;
  }
  return height;
}

/// The ground as seen from above: tinted by steps of height, and lit from the north-west.
QImage Relief() {
  constexpr QSize SizePx(400, 264);
  constexpr double Pixel = 1.0 / 400;
  constexpr int Steps = 7;
  QImage image(SizePx, QImage::Format_RGB32);
  for (int row = 0; row < SizePx.height(); ++row) {
    for (int column = 0; column < SizePx.width(); ++column) {
      const double x = column * Pixel;
      const double y = row * Pixel;
      const double height = HeightAt(x, y);
      const double slope = (HeightAt(x + Pixel, y + Pixel) - height) / Pixel;
      const double light = std::clamp(0.94 + 0.025 * slope, 0.8, 1.0);
      const double warmth = std::clamp(std::floor((height + 1) / 2 * Steps) / (Steps - 1), 0.0, 1.0);
      const auto shade = [&](double low, double high) { return int(light * (low + warmth * (high - low))); };
      image.setPixel(column, row, qRgb(shade(178, 252), shade(212, 234), shade(184, 204)));
    }
  }
  return image;
}

void AddRoute(TMapLayer &layer) {
  const std::vector<TMapPoint> stops{{72.5, 7.4}, {75.6, 9.6},  {77.4, 13}, {81, 13.8},
                                     {83.6, 11},  {86.4, 12.6}, {88, 15.6}};
  auto *route = layer.NewObject<TPolyline>();
  route->SetPen(PenOf(Red, 2, TPenStyle::psDash));
  AddPart(*route, stops);
  auto *goal = layer.NewObject<TSymbol>();
  goal->MoveTo(stops.back().X, stops.back().Y + 1);
  goal->SetShape(49);
  goal->SetFont({SymbolFontFamily.toString(), 18, Red});
}

}  // namespace

void AddPicture(TSheet &sheet) {
  sheet.AddHeading(Panel, QStringLiteral("Pictures"), QStringLiteral("TSubstrate"));
  auto ground = std::make_shared<TRectangle>();
  SetCorners(*ground, Ground);
  auto relief = std::make_unique<TSubstrate>();
  relief->SetBitmap(TBitmap(Relief()));
  relief->SetRect(std::move(ground));
  sheet.Map().GetSubstrates()->Add(std::move(relief));
  AddRoute(sheet.NewLayer(QStringLiteral("Route")));
  sheet.AddCaption({80.5, 3.2}, QStringLiteral("a picture under all layers"), TAlign::Middle);
}

}  // namespace tessera::gallery
