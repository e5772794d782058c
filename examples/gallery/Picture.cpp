// SPDX-License-Identifier: MIT
#include "Themes.h"

#include <tessera/graphics/SymbolFont.h>
#include <tessera/objects/TPolyline.h>

#include <algorithm>
#include <cmath>

namespace tessera::gallery {
namespace {

constexpr TBounds Panel{70.5, 3, 90.5, 22};
constexpr TBounds Ground{70.5, 5.2, 90.5, 18.4};

/// The height of hilly ground at a place of the picture: waves that turn, shorten and flatten from one to the next.
double HeightAt(double x, double y) {
  double height = 0;
  double frequency = 5;
  for (int octave = 0; octave < 6; ++octave) {
    const double angle = 1.3 * octave + 0.4;
    const double along = x * std::cos(angle) + y * std::sin(angle);
    const double across = y * std::cos(angle) - x * std::sin(angle);
    height += std::sin(frequency * along + height) * std::cos(0.8 * frequency * across + octave) / frequency;
    frequency *= 1.9;
  }
  return height;
}

/// The ground as seen from above, lit from the north-west: high ground is warm in colour, slopes in the shade are dark.
QImage Relief() {
  constexpr QSize SizePx(400, 264);
  constexpr double Step = 1.0 / 400;
  QImage image(SizePx, QImage::Format_RGB32);
  for (int row = 0; row < SizePx.height(); ++row) {
    for (int column = 0; column < SizePx.width(); ++column) {
      const double x = column * Step;
      const double y = row * Step;
      const double slope = (HeightAt(x + Step, y + Step) - HeightAt(x - Step, y - Step)) / Step;
      const double light = std::clamp(0.93 + 0.055 * slope, 0.62, 1.0);
      const double warmth = std::clamp(0.5 + 2.2 * HeightAt(x, y), 0.0, 1.0);
      const auto shade = [&](double low, double high) { return int(light * (low + warmth * (high - low))); };
      image.setPixel(column, row, qRgb(shade(190, 250), shade(218, 236), shade(186, 206)));
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
  ground->SetX0(Ground.MinX);
  ground->SetY0(Ground.MinY);
  ground->SetX1(Ground.MaxX);
  ground->SetY1(Ground.MaxY);
  auto relief = std::make_unique<TSubstrate>();
  relief->SetBitmap(TBitmap(Relief()));
  relief->SetRect(std::move(ground));
  sheet.Map().GetSubstrates()->Add(std::move(relief));
  AddRoute(sheet.NewLayer(QStringLiteral("Route")));
  sheet.AddCaption({80.5, 3.2}, QStringLiteral("a picture under all layers"), TAlign::Middle);
}

}  // namespace tessera::gallery
