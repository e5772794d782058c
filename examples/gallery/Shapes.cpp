// SPDX-License-Identifier: MIT
#include "Themes.h"

#include <tessera/objects/TCircle.h>

namespace tessera::gallery {
namespace {

constexpr TBounds Panel{3, 3, 32, 22};
constexpr double Captions = 3.2;

TCircle &AddCircle(TMapLayer &layer, const TMapPoint &centre, double radius, const TPen &pen, const TBrush &brush) {
  auto *circle = layer.NewObject<TCircle>();
  circle->SetX(centre.X);
  circle->SetY(centre.Y);
  circle->SetRadius(radius);
  circle->SetPen(pen);
  circle->SetBrush(brush);
  return *circle;
}

TRectangle &AddRectangle(TMapLayer &layer, const TBounds &box, const TPen &pen, const TBrush &brush) {
  auto *rectangle = layer.NewObject<TRectangle>();
  SetCorners(*rectangle, box);
  rectangle->SetPen(pen);
  rectangle->SetBrush(brush);
  return *rectangle;
}

void AddCircles(TMapLayer &layer) {
  AddCircle(layer, {8.2, 13.2}, 5.2, PenOf(Blue, 2), BrushOf(PaleBlue));
  AddCircle(layer, {8.2, 13.2}, 2.7, PenOf(Blue), BrushOf(Blue, TBrushStyle::bsDiagCross));
  AddCircle(layer, {14.4, 8.4}, 3.2, PenOf(Red, 1, TPenStyle::psDash), BrushOf(Red, TBrushStyle::bsClear));
  AddCircle(layer, {15.2, 16.4}, 1.6, PenOf(Ochre, 3), BrushOf(PaleOchre));
}

void AddRectangles(TMapLayer &layer) {
  AddRectangle(layer, {19.5, 9.2, 27, 18.4}, PenOf(Green, 2), BrushOf(PaleGreen));
  AddRectangle(layer, {21.2, 11.6, 25.3, 16}, PenOf(Green), BrushOf(Green, TBrushStyle::bsCross));
  AddRectangle(layer, {24, 5.2, 31.2, 12.2}, PenOf(Red, 1, TPenStyle::psDash), BrushOf(Red, TBrushStyle::bsClear));
  TRectangle &hatched =
      AddRectangle(layer, {28.2, 14.6, 32, 18.4}, PenOf(Ochre, 3), BrushOf(Ochre, TBrushStyle::bsBDiagonal));
  hatched.SetUseBGColor(true);
  hatched.SetBGColor(PaleOchre);
}

}  // namespace

void AddShapes(TSheet &sheet) {
  sheet.AddHeading(Panel, QStringLiteral("Shapes"), QStringLiteral("TCircle, TRectangle"));
  AddCircles(sheet.NewLayer(QStringLiteral("Circles")));
  sheet.AddCaption({10, Captions}, QStringLiteral("a centre and a radius"), TAlign::Middle);
  AddRectangles(sheet.NewLayer(QStringLiteral("Rectangles")));
  sheet.AddCaption({25.6, Captions}, QStringLiteral("two corners"), TAlign::Middle);
}

}  // namespace tessera::gallery
