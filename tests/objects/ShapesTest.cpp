// SPDX-License-Identifier: MIT
#include "../support/ObjectChecks.h"
#include "../support/TraceRecorder.h"

#include <tessera/base/Exceptions.h>
#include <tessera/geometry/CoordConvertorU.h>
#include <tessera/objects/GeoCircle.h>
#include <tessera/objects/TCircle.h>
#include <tessera/objects/TGeoCircle.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRectangle.h>
#include <tessera/objects/TRegion.h>
#include <tessera/objects/TSymbol.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace tessera::test {
namespace {

constexpr TColor Background = RGB(10, 200, 30);

/// A map with three shapes.
class SimpleShapesTest : public testing::Test {
 protected:
  SimpleShapesTest() {
    Place(circle, 40, 40, 10);
    Place({20, 30, 60, 50});
    rectangle.SetBGColor(Background);
    GiveTools(circle, host);
    GiveTools(rectangle, host);
    symbol.SetMap(&host);
    symbol.SetFont(TFont(QStringLiteral("MapInfo Cartographic"), 9, clRed));
    symbol.SetShape(34);
    symbol.MoveTo(40, 40);
  }
  static void Place(TCircle &circle, double x, double y, double radius) {
    circle.SetX(x), circle.SetY(y), circle.SetRadius(radius);
  }
  void Place(const TBounds &corners) {
    rectangle.SetX0(corners.MinX), rectangle.SetY0(corners.MinY);
    rectangle.SetX1(corners.MaxX), rectangle.SetY1(corners.MaxY);
  }

  TFakeMapHost host;
  TCircle circle;        ///< Of radius 10 about (40, 40), which is the pixel (40, 60).
  TRectangle rectangle;  ///< Between (20, 30) and (60, 50): the pixels 20 to 60 along x and 50 to 70 along y.
  TSymbol symbol;        ///< A red sign at the pixel (40, 60), with a font of 9 points.
};
using TCircleTest = SimpleShapesTest;
using TRectangleTest = SimpleShapesTest;
using TSymbolTest = SimpleShapesTest;

TEST_F(TCircleTest, MeetsWhatHasOneVertexInsideAndCirclesThatOverlap) {
  TPolyline line;
  EXPECT_FALSE(circle.Contains(line)) << "an object without vertices";
  AddPart(line, {{500, 500}, {400, 400}});
  EXPECT_FALSE(circle.Contains(line) || circle.Intersects(line));
  AddPart(line, {{900, 900}, {41, 41}});
  EXPECT_TRUE(circle.Contains(line) && circle.Intersects(line));
  TCircle other;
  for (const auto &[distance, isOverlap] : {std::pair(20, false), {19.99, true}, {0, true}}) {
    Place(other, 40, 40 + distance, 10);
    EXPECT_EQ(circle.Intersects(other), isOverlap) << distance;
  }
}

TEST_F(TCircleTest, AnswersByItsRimAndRectanglesByTheirCorners) {
  Place(circle, 0, 0, 10);
  ExpectHits(circle, {{0, 0}, {6, 8}, {10, 0}, {-8, -6}}, {{10, 0.001}, {9, 9}});
  ExpectRectAnswers(circle, {{{-6, -8, 6, 8}, true, true, false},
                             {{-6, -8, 6, 8.001}, true, false, false},
                             {{-1, -50, 1, 50}, false, false, false},  // across, without a corner inside
                             {{-10, -10, 10, 10}, false, false, true},
                             {{-10, -10, 10, 9.999}, false, false, false},
                             {{50, 50, -50, -50}, false, false, false}});
}

TEST_F(TCircleTest, DrawsAroundItsCentreWithAsMuchAsThereIs) {
  host.viewport.Zoom = 2;
  circle.Paint();
  EXPECT_EQ(InkOf(host), QRect(10, 50, 40, 40));
  ExpectPixels(host, {{30, 70, FillColor}, {10, 70, LineColor}, {30, 50, LineColor}, {12, 52, clWhite}});
  ExpectTwoHighlightsCancel(host, circle);
  host.flags.FastSelection = false;
  circle.Select();
  circle.Paint();
  EXPECT_EQ(host.At(30, 70), TFakeMapHost::PatternColor);
  host.selection.Clear();
  host.ClearPicture();
  host.viewport.Zoom = 1;
  circle.GetParts().Clear();
  circle.Paint();
  EXPECT_EQ(circle.GetParts().GetCount(), 0);
  EXPECT_TRUE(InkOf(host).isNull());
  EXPECT_EQ(circle.GetY(), 0);
  EXPECT_EQ(circle.GetParts().GetFirst().GetPoints().GetCount(), 1) << "reading makes the missing vertex";
  circle.Paint();
  EXPECT_EQ(host.At(5, 95), FillColor) << "the centre is then at (0, 0)";
  circle.SetRadius(1e12);
  EXPECT_EQ(circle.GetBounds(), (TBounds{-1e12, -1e12, 1e12, 1e12}));
  circle.Paint();
  ExpectPixels(host, {{0, 0, FillColor}, {99, 99, FillColor}});
}

TEST_F(TRectangleTest, SortsWhatIsReadAndMakesMissingCorners) {
  Place({5, 9, 1, -9});
  EXPECT_EQ(rectangle.GetX0(), 1);
  rectangle.SetX0(3);
  EXPECT_EQ(std::as_const(rectangle).GetCorners(), (TBounds{1, -9, 3, 9}));
  EXPECT_EQ(rectangle.GetParts().GetFirst().GetPoints().GetPoint(0), (TMapPoint{3, 9})) << "not what is set";
  rectangle.GetParts().Clear();
  EXPECT_EQ(std::as_const(rectangle).GetCorners(), (TBounds{0, 0, 0, 0}));
  EXPECT_EQ(rectangle.GetParts().GetCount(), 0);
}

TEST_F(TRectangleTest, AnswersByCornersContainsBoundsAndMeetsVertices) {
  ExpectHits(rectangle, {{20, 30}, {60, 50}}, {{60.001, 50}, {0, 0}});
  ExpectRectAnswers(rectangle, {{{20, 30, 60, 50}, true, true, true},
                                {{25, 35, 30, 40}, true, true, false},
                                {{0, 0, 25, 35}, true, false, false},
                                {{0, 0, 90, 90}, false, false, true},
                                {{0, 35, 90, 45}, false, false, false}});  // across, without a corner inside
  TPolyline line;
  EXPECT_FALSE(rectangle.Contains(line) || rectangle.Intersects(line)) << "an object without vertices";
  AddPart(line, {{25, 35}, {60, 50}});
  EXPECT_TRUE(rectangle.Contains(line) && rectangle.Intersects(line));
  line.GetParts().AddPoint(70, 40, 0);
  EXPECT_FALSE(rectangle.Contains(line)) << "bounds wider than the vertices";
  TPolyline across;
  AddPart(across, {{0, 40}, {100, 40}});
  EXPECT_FALSE(rectangle.Intersects(across)) << "only vertices count";
}

TEST_F(TRectangleTest, DrawsFromCornerToCornerInAnyOrder) {
  for (const TBounds &corners : {TBounds{20, 30, 60, 50}, {60, 50, 20, 30}, {60, 30, 20, 50}}) {
    host.ClearPicture();
    Place(corners);
    rectangle.Paint();
    ExpectPixels(host, {{20, 50, LineColor}, {59, 69, LineColor}, {40, 60, FillColor}});
    EXPECT_EQ(InkOf(host), QRect(20, 50, 40, 20));
  }
  const QImage before = host.picture.GetImage().copy();
  host.flags.FastSelection = false;
  rectangle.Select();
  rectangle.Paint();
  EXPECT_EQ(host.picture.GetImage(), before) << "the selection pattern does not show";
  Place({-1e12, -1e12, 1e12, 1e12});
  rectangle.Paint();
  ExpectPixels(host, {{0, 0, FillColor}, {99, 99, FillColor}});
}

TEST_F(TRectangleTest, LaysItsBackgroundUnderAHatchedBrushAndMarksItBehindAClearOne) {
  GiveTools(rectangle, host, TBrushStyle::bsHorizontal);
  rectangle.SetUseBGColor(true);
  rectangle.Paint();
  int hatch = 0;
  for (int y = 52; y < 68; ++y) hatch += host.At(40, y) == FillColor ? 1 : 0;
  EXPECT_EQ(hatch, 2);
  ExpectPixels(host, {{40, 62, Background}, {20, 60, LineColor}});
  GiveTools(rectangle, host, TBrushStyle::bsClear);
  ExpectTwoHighlightsCancel(host, rectangle);
  TCircle above;
  above.SetX(40), above.SetY(40), above.SetRadius(5);
  GiveTools(above, host);
  above.Paint();
  const QImage before = host.picture.GetImage().copy();
  for (const bool hasBackground : {true, false}) {
    rectangle.SetUseBGColor(hasBackground);
    rectangle.DrawSelection();
    EXPECT_NE(host.picture.GetImage(), before) << "as other kinds";
    rectangle.DrawSelection();
    EXPECT_EQ(host.picture.GetImage(), before) << "what lies above stays";
  }
}

TEST_F(TSymbolTest, IsAPointToOtherObjectsAndContainsThePixelsNearIt) {
  // Half of nine points is four, and two more pixels are allowed for.
  ExpectHits(symbol, {{46, 34}, {34, 46}, {46.4, 40}}, {{47, 40}, {33, 40}, {40, 47}, {40, 33}});
  EXPECT_TRUE(TSymbol().ContainsPoint(1e9, -1e9)) << "without a map";
  TPolyline line;
  AddPart(line, {{40, 40}, {50, 50}});
  EXPECT_TRUE(symbol.Intersects(line));
  EXPECT_FALSE(symbol.Contains(line) || symbol.Contains(TPolyline()));
  ExpectRectAnswers(symbol, {{{40, 40, 40, 40}, true, false, true}, {{40.5, 0, 50, 50}, false, false, false}});
  symbol.SetX(7);
  EXPECT_EQ(symbol.GetBounds(), (TBounds{40, 40, 40, 40})) << "setting a coordinate leaves the bounds";
  symbol.MoveTo(1, 2);
  EXPECT_EQ(symbol.GetBounds(), (TBounds{1, 2, 1, 2}));
}

TEST_F(TSymbolTest, DrawsItsSignCentredOnThePointIfItHasAShapeAndItsHighlightTwiceOrByThePattern) {
  symbol.Paint();
  EXPECT_GT(InkOf(host).width(), 3);
  EXPECT_TRUE(QRect(40 - 7, 60 - 7, 14, 14).contains(InkOf(host)));
  ExpectTwoHighlightsCancel(host, symbol);
  host.flags.FastSelection = false;
  symbol.Select();
  symbol.Paint();
  ExpectPixels(host, {{35, 55, TFakeMapHost::PatternColor}, {40, 60, clRed}});
  symbol.SetSelected(false);
  host.ClearPicture();
  symbol.SetShape(30);
  EXPECT_EQ(symbol.GetShape(), TSymbol::NoShape);
  symbol.Paint();
  EXPECT_TRUE(InkOf(host).isNull());
}

/// A closed square ring in client pixels; the map is as high as the client.
void AddSquare(TCustomMapObject &object, double left, double top, double right, double bottom) {
  const double low = 100 - bottom;
  const double high = 100 - top;
  AddPart(object, {{left, low}, {left, high}, {right, high}, {right, low}, {left, low}});
}

/// A region on a map of 100 by 100 pixels.
class TRegionTest : public testing::Test {
 protected:
  TRegionTest() { GiveTools(region, host); }

  TFakeMapHost host;
  TRegion region;
};

TEST_F(TRegionTest, LeavesHolesAndOverlapsAndFillsIslandsAndOpenRings) {
  AddSquare(region, 10, 10, 90, 90);
  AddSquare(region, 30, 30, 70, 70);
  AddSquare(region, 45, 45, 55, 55);
  AddPart(region, {{80, 2}, {80, 20}, {98, 20}, {98, 2}});
  region.Paint();
  ExpectPixels(host, {{20, 50, FillColor}, {50, 75, FillColor}, {50, 50, FillColor}, {95, 95, FillColor}});
  ExpectPixels(host, {{35, 50, clWhite}, {50, 65, clWhite}, {5, 50, clWhite}, {85, 85, clWhite}});
  ExpectPixels(host,
               {{10, 50, LineColor}, {30, 50, LineColor}, {50, 90, LineColor}, {98, 90, LineColor}, {95, 98, clWhite}});
  EXPECT_TRUE(host.displayed.Holds(&region));
  host.flags.FastSelection = false;
  region.Select();
  region.Paint();
  ExpectPixels(host, {{20, 50, TFakeMapHost::PatternColor}, {10, 50, clNavy}});
}

TEST_F(TRegionTest, FillsTheLoopsOfARingByTheWindingRule) {
  // Twice around in one turn: the inner square is encircled twice.
  AddPart(region, {{10, 10}, {10, 90}, {90, 90}, {90, 10}, {30, 10}, {30, 70}, {70, 70}, {70, 30}, {10, 30}, {10, 10}});
  region.Paint();
  ExpectPixels(host, {{50, 50, FillColor}, {20, 20, FillColor}, {80, 80, FillColor}, {20, 80, clWhite}});
}

TEST_F(TRegionTest, AcceptsOnlyPartsOfOnePointInTheFastMode) {
  host.flags.FastDraw = true;
  region.Paint();
  AddPart(region, {{50, 50}});
  EXPECT_NO_THROW(region.Paint());
  AddSquare(region, 10, 10, 90, 90);
  EXPECT_THROW(region.Paint(), ERangeError);
  EXPECT_TRUE(InkOf(host).isNull());
}

TEST_F(TRegionTest, TracesWhatCombiningItsRingsCameToAndNeedsAFirstOne) {
  TTraceRecorder trace;
  AddSquare(region, 10, 10, 90, 90);
  region.Paint();
  AddPart(region, {{5, 5}});
  AddSquare(region, 20, 20, 80, 80);
  AddSquare(region, 20, 20, 80, 80);
  AddPart(region, {});
  AddSquare(region, 10, 10, 90, 90);
  region.Paint();
  host.ClearPicture();
  region.GetParts().Clear();
  AddPart(region, {});
  AddSquare(region, 10, 10, 90, 90);
  region.Paint();
  EXPECT_EQ(trace.texts.join(u' '),
            u"The region is a single rectangle. The region is more than a single rectangle. "
            u"The region is a single rectangle. The region is empty. No region is created.");
  ExpectPixels(host, {{50, 50, clWhite}, {10, 50, LineColor}});
}

TEST_F(TRegionTest, RestoresThePictureWhenItsHighlightIsDrawnTwiceAsALineDoes) {
  TPolyline line;
  for (TCustomMapObject *object : std::initializer_list<TCustomMapObject *>{&line, &region}) {
    GiveTools(*object, host);
    AddSquare(*object, 20, 20, 150, 80);
    AddSquare(*object, 30, 30, 60, 90);
    AddPart(*object, {{5, 5}, {95, 95}, {5, 95}, {95, 5}});
    TPen pen = object->GetPen();
    for (const auto &[width, style] : {std::pair(1, TPenStyle::psDashDot), {5, TPenStyle::psSolid}}) {
      pen.SetWidth(width);
      pen.SetStyle(style);
      object->SetPen(pen);
      object->SetUseBGColor(false);
      ExpectTwoHighlightsCancel(host, *object);
      object->SetUseBGColor(true);
      ExpectTwoHighlightsCancel(host, *object);
    }
  }
}

TEST_F(TRegionTest, ShowsAsOnePixelWhenItIsTooSmallAsALineDoesIfThatIsWanted) {
  using enum TPenStyle;
  using enum TBrushStyle;
  constexpr TColor Ground = RGB(9, 200, 9);
  struct Row {
    TPenStyle pen;
    TBrushStyle brush;
    bool usesGround;
    TColor regionColor;
    TColor lineColor;
  };
  const Row rows[] = {{psDash, bsSolid, true, LineColor, LineColor},
                      {psClear, bsCross, true, FillColor, clWhite},
                      {psClear, bsClear, true, Ground, clWhite},
                      {psClear, bsClear, false, clWhite, clWhite}};
  TPolyline line;
  GiveTools(line, host);
  host.flags.ShowSmallObjects = true;
  for (const Row &row : rows) {
    for (TCustomMapObject *object : std::initializer_list<TCustomMapObject *>{&region, &line}) {
      TPen pen = object->GetPen();
      pen.SetStyle(row.pen);
      pen.SetWidth(5);
      object->SetPen(pen);
      TBrush brush = object->GetBrush();
      brush.SetStyle(row.brush);
      object->SetBrush(brush);
      object->SetBGColor(Ground);
      object->SetUseBGColor(row.usesGround);
      // One that is small, and one of two small parts that lie apart.
      for (const int partCount : {1, 2}) {
        host.ClearPicture();
        object->GetParts().Clear();
        AddSquare(*object, 20.1, 30.1, 20.4, 30.4);
        if (partCount == 2) AddSquare(*object, 60.1, 80.1, 60.4, 80.4);
        const bool isArea = object == &region;
        object->Paint();
        const TColor color = isArea ? row.regionColor : row.lineColor;
        ExpectPixels(host, {{20, 30, color}, {21, 30, clWhite}, {60, 80, clWhite}});
        if (color != clWhite) ExpectTwoHighlightsCancel(host, *object);
        host.flags.FastDraw = isArea;
        object->Paint();
        host.flags.FastDraw = false;
        ExpectPixels(host, {{20, 30, color}});
      }
    }
  }
}

std::span<const TMapPoint> RingOf(const TCustomMapObject &object) {
  return object.GetParts().GetFirst().GetPoints().Points();
}

void Place(TGeoCircle &circle, const TMapPoint &place) {
  circle.SetCenterX(place.X), circle.SetCenterY(place.Y);
}

void Place(geocircle::TGeoCircle &circle, const TMapPoint &place) {
  circle.SetX(place.X), circle.SetY(place.Y);
}

TEST(TGeoCircleTest, LiesInThePlaneAtItsRadius) {
  TGeoCircle circle;
  EXPECT_EQ(RingOf(circle).size(), 91U);
  EXPECT_NEAR(RingOf(circle)[89].Y, 100 / 110.6, 0.002) << "north, at 100 km";
  Place(circle, {-58.4, -34.6});
  circle.SetRadius(25000);
  circle.SetPieCount(17);
  double x0 = 0;
  double y0 = 0;
  BL2XY(-34.6, -58.4, x0, y0, 0);
  const auto ring = RingOf(circle);
  ASSERT_EQ(ring.size(), 18U);
  EXPECT_LT(circle.GetBounds().MaxY, -34) << "bounds keep nothing of where the circle was before";
  EXPECT_EQ(ring.front(), ring.back());
  for (std::size_t i = 1; i <= 17; ++i) {
    const double bearing = 2 * std::acos(-1.0) * double(i) / 17;
    double b = 0;
    double l = 0;
    XY2BL(x0 + 25000 * std::cos(bearing), y0 + 25000 * std::sin(bearing), b, l);
    constexpr double OneMetre = 1.2e-5;  // an easting may fall on the other side of a whole metre
    EXPECT_NEAR(ring[i - 1].Y, b, OneMetre) << i;
    EXPECT_NEAR(ring[i - 1].X, l - 360, OneMetre) << i;
  }
}

TEST(TGeoCircleTest, CountsLongitudesFrom180OnAsWesternAndAcceptsNoRingWithoutPoints) {
  TGeoCircle circle;
  Place(circle, {179.9, 10});
  const auto eastern = std::ranges::count_if(RingOf(circle), [](const TMapPoint &p) { return p.X > 178 && p.X < 180; });
  const auto western = std::ranges::count_if(RingOf(circle), [](const TMapPoint &p) { return p.X < -178; });
  EXPECT_GT(eastern, 20);
  EXPECT_EQ(eastern + western, 91);
  EXPECT_THROW(circle.SetPieCount(0), EZeroDivide);
  EXPECT_THROW(circle.SetPieCount(-3), ERangeError);
}

/// The circle that stands alone, in a view of 37 to 41 degrees east and 54 to 58 north.
class GeoCircleTest : public testing::Test {
 protected:
  GeoCircleTest() {
    host.viewport = {37, 54, 41, 58, 39, 56, 1, 100, 100};
    GiveTools(circle, host);
  }

  TFakeMapHost host;
  geocircle::TGeoCircle circle;
};

TEST_F(GeoCircleTest, HasTheRingOfTheRegion) {
  TGeoCircle region;
  Place(region, {-120.5, -40});
  Place(circle, {-120.5, -40});
  EXPECT_TRUE(std::ranges::equal(RingOf(circle), RingOf(region)));
}

TEST_F(GeoCircleTest, AnswersAllTestsWithItsOwnHitTest) {
  Place(circle, {39, 56});
  const TBounds bounds = circle.GetBounds();
  TPolyline corner;
  AddPart(corner, {{bounds.MinX, bounds.MinY}});
  TPolyline both;
  AddPart(both, {{bounds.MinX, bounds.MinY}, {39, 56}});
  EXPECT_FALSE(circle.Intersects(corner) || circle.Contains(both) || both.Within(circle));
  EXPECT_TRUE(circle.Intersects(both));
  ExpectHits(circle, {{39, 56}}, {{bounds.MinX, bounds.MinY}});
  ExpectRectAnswers(circle, {{{bounds.MaxX, 0, 90, 90}, true, false, false},
                             {bounds, true, false, true},
                             {{38.9, 55.9, 39.1, 56.1}, true, true, false}});
  circle.GetParts().Clear();
  // A zigzag with corners at the height of the question, a spike downwards among them.
  AddPart(circle, {{0, 0}, {2, 4}, {4, 2}, {6, 4}, {8, 2}, {10, 4}, {12, 0}});
  ExpectHits(circle, {{4, 1.9}, {4, 2}, {5.5, 2}, {1.1, 2}, {2, 4}, {10.9, 2}},
             {{4, 2.1}, {0.5, 2}, {8, 3.9}, {-1, 0}, {11.5, 2}});
}

TEST_F(GeoCircleTest, DrawsAClosedOutlineOfFourPointsOrMoreAndItsBackgroundUnderTheBrush) {
  AddPart(circle, {{38, 55}, {38, 57}, {40, 57}});
  circle.GetParts().Delete(0);
  circle.Paint();
  EXPECT_TRUE(InkOf(host).isNull()) << "three points";
  circle.GetParts().GetFirst().GetPoints().Add(40, 55);
  circle.Paint();
  ExpectPixels(host, {{50, 50, FillColor}, {50, 75, LineColor}});
  host.ClearPicture();
  GiveTools(circle, host, TBrushStyle::bsClear);
  circle.SetBGColor(clNavy);
  for (const bool usesBackground : {false, true}) {
    circle.SetUseBGColor(usesBackground);
    circle.Paint();
    ExpectPixels(host, {{50, 50, usesBackground ? clNavy : clWhite}, {50, 75, LineColor}});
  }
  ExpectTwoHighlightsCancel(host, circle);
}

}  // namespace
}  // namespace tessera::test
