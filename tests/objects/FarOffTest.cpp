// SPDX-License-Identifier: MIT
#include "../support/ObjectChecks.h"
#include "../support/RandomShapes.h"

#include <tessera/objects/TCircle.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRectangle.h>
#include <tessera/objects/TRegion.h>
#include <tessera/objects/TSprite.h>
#include <tessera/objects/TText.h>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tessera::test {
namespace {

/// One map unit wide at most, its lower left corner or its middle at the point.
std::vector<std::unique_ptr<TCustomMapObject>> EveryKindAt(const TMapPoint &at) {
  std::vector<std::unique_ptr<TCustomMapObject>> objects;
  const auto add = [&]<typename Kind>(std::unique_ptr<Kind> object) -> Kind & {
    objects.push_back(std::move(object));
    return static_cast<Kind &>(*objects.back());
  };
  auto &symbol = add(std::make_unique<TSymbol>());
  symbol.SetShape('A');
  symbol.MoveTo(at.X, at.Y);
  auto &text = add(std::make_unique<TText>());
  text.MoveTo(at.X, at.Y);
  text.SetText(QStringLiteral("far"));
  text.SetWidth(1);
  text.SetHeight(1);
  text.SetAngle(30);
  auto &circle = add(std::make_unique<TCircle>());
  circle.SetX(at.X);
  circle.SetY(at.Y);
  circle.SetRadius(0.5);
  auto &rectangle = add(std::make_unique<TRectangle>());
  rectangle.SetX0(at.X);
  rectangle.SetY0(at.Y);
  rectangle.SetX1(at.X + 1);
  rectangle.SetY1(at.Y + 1);
  for (const bool isRegion : {false, true}) {
    auto &outline = isRegion ? static_cast<TCustomMapObject &>(add(std::make_unique<TRegion>()))
                             : add(std::make_unique<TPolyline>());
    TMapPoints &points = outline.GetParts().Add().GetPoints();
    points.Add(at.X, at.Y);
    points.Add(at.X + 1, at.Y);
    points.Add(at.X, at.Y + 1);
  }
  auto &sprite = add(std::make_unique<TSprite>());
  TBitmap glyph;
  glyph.SetSize(9, 9);
  sprite.SetGlyph(glyph);
  sprite.SetX(at.X);
  sprite.SetY(at.Y);
  return objects;
}

/// Paints the object as a selected one, with a wide pen, and highlights it.
void DrawInEveryWay(TCustomMapObject &object, TFakeMapHost &host, int penWidth) {
  GiveTools(object, host);
  TPen pen = object.GetPen();
  pen.SetWidth(penWidth);
  object.SetPen(pen);
  object.Select();
  for (const bool isFast : {false, true}) {
    host.flags.FastSelection = isFast;
    object.Paint();
    object.DrawSelection();
  }
  if (auto *sprite = dynamic_cast<TSprite *>(&object)) sprite->Show();
  host.selection.Clear();
}

TEST(FarOffTest, NothingIsDrawnOfWhatLiesFarFromTheView) {
  TRandomShapes random(5);
  TFakeMapHost host;
  host.ClearPicture();
  const QImage blank = host.picture.GetImage().copy();
  for (const double zoom : {1e3, 1e7, 1e9, 1e12}) {
    // The widest pen paints a million pixels.
    const int widestPen = zoom < 1e7 ? 9 : std::numeric_limits<int>::max();
    for (int round = 0; round < 24; ++round) {
      const TMapPoint centre = random.Tangle({-1e5, -1e5, 1e5, 1e5}, 1)[0];
      host.viewport = {0, 0, 100, 100, centre.X, centre.Y, zoom, 100, 100};
      const double away = random.Real(3, 5000) * (round % 2 ? 1 : -1);
      const bool isBeside = round % 4 < 2;
      for (const auto &object : EveryKindAt({centre.X + (isBeside ? away : 0), centre.Y + (isBeside ? 0 : away)})) {
        DrawInEveryWay(*object, host, round % 3 ? 9 : widestPen);
        ASSERT_EQ(host.picture.GetImage(), blank)
            << typeid(*object).name() << " at zoom " << zoom << ", " << away << " units from the middle";
      }
    }
  }
}

TEST(FarOffTest, ALabelStandsInTheMiddleOfBoundsThatAreFarOff) {
  TFakeMapHost host;
  host.ClearPicture();
  const QImage blank = host.picture.GetImage().copy();
  TMapLayer layer;
  layer.SetMap(&host);
  layer.GetFields().Add(QStringLiteral("Name"), TDataType::dtString, 0);
  layer.SetLabelFieldIndex(0);
  layer.SetAutoLabel(true);
  auto *line = layer.NewObject<TPolyline>();
  GiveTools(*line, host);
  TMapPoints &points = line->GetParts().Add().GetPoints();
  for (const double x : {10.0, 20.0, -1e12}) points.Add(x, 50);
  points.SetPoint(2, {30, 50});
  line->GetFields().GetFields(0).SetAsString(QStringLiteral("far"));
  TPen pen;
  pen.SetStyle(TPenStyle::psClear);
  line->SetPen(pen);
  line->Paint();
  EXPECT_EQ(host.picture.GetImage(), blank);
}

TEST(FarOffTest, ACircleIsThatOfItsCentreHoweverFarThatLies) {
  TFakeMapHost host;
  for (const TMapPoint &direction : {TMapPoint{-1, 0}, {1, 0}, {-0.6, 0.8}, {-0.8, -0.6}, {0.28, 0.96}}) {
    constexpr double Radius = 1.9e9;
    TCircle circle;
    // The rim runs through the middle of the view.
    const TMapPoint centre{50 + std::round(Radius * direction.X), 50 + std::round(Radius * direction.Y)};
    circle.SetX(centre.X);
    circle.SetY(centre.Y);
    circle.SetRadius(Radius);
    GiveTools(circle, host);
    host.ClearPicture();
    circle.Paint();
    for (int x = 0; x < 100; x += 9) {
      for (int y = 0; y < 100; y += 9) {
        const double beyond = std::hypot(x - centre.X, 100 - y - centre.Y) - Radius;
        if (std::abs(beyond) < 3) continue;
        EXPECT_EQ(host.At(x, y), beyond < 0 ? FillColor : clWhite) << x << ' ' << y;
      }
    }
  }
}

}  // namespace
}  // namespace tessera::test
