// SPDX-License-Identifier: MIT
#include "../support/FakeMapHost.h"
#include "../support/Printers.h"

#include <tessera/base/Exceptions.h>
#include <tessera/geometry/CoordConvertorU.h>
#include <tessera/objects/GeoCircle.h>
#include <tessera/objects/TGeoCircle.h>
#include <tessera/objects/TPolyline.h>

#include <gtest/gtest.h>

#include <cmath>

namespace tessera {
namespace {

using test::AddPart;
using test::TFakeMapHost;

std::span<const TMapPoint> RingOf(const TCustomMapObject &object) {
  return object.GetParts().GetFirst().GetPoints().Points();
}

struct TPlace {
  double x, y;
};

template <class Circle>
void Place(Circle &circle, const TPlace &place);

template <>
void Place(TGeoCircle &circle, const TPlace &place) {
  circle.SetCenterX(place.x);
  circle.SetCenterY(place.y);
}

template <>
void Place(geocircle::TGeoCircle &circle, const TPlace &place) {
  circle.SetX(place.x);
  circle.SetY(place.y);
}

TEST(TGeoCircleTest, StartsWithNinetyPointsAndTheFirstOnceMore) {
  const TGeoCircle circle;
  EXPECT_EQ(circle.GetPieCount(), 90);
  EXPECT_EQ(circle.GetRadius(), 100000);
  ASSERT_EQ(circle.GetParts().GetCount(), 1);
  const auto ring = RingOf(circle);
  ASSERT_EQ(ring.size(), 91U);
  EXPECT_EQ(ring.front(), ring.back());
  EXPECT_TRUE(circle.ContainsPoint(0, 0));
}

TEST(TGeoCircleTest, GoesRoundFromTheEastBeginningAtOneStep) {
  // On a central meridian, where the bearings of the plane are those of the ground.
  TGeoCircle circle;
  Place(circle, {39, 56});
  circle.SetPieCount(4);
  const auto ring = RingOf(circle);
  ASSERT_EQ(ring.size(), 5U);
  const double west = ring[2].X;
  EXPECT_NEAR(ring[0].Y, 56, 0.02);
  EXPECT_NEAR(ring[0].X, 39 + 100 / 62.4, 0.02) << "east";
  EXPECT_NEAR(ring[1].Y, 56 - 100 / 111.3, 0.002) << "south";
  EXPECT_NEAR(ring[1].X, 39, 2e-5);
  EXPECT_NEAR(west, 39 - 100 / 62.4, 0.02) << "west";
  EXPECT_NEAR(ring[3].Y, 56 + 100 / 111.3, 0.002) << "north";
  EXPECT_EQ(ring[4], ring[0]);
}

TEST(TGeoCircleTest, LiesInThePlaneAtItsRadius) {
  TGeoCircle circle;
  Place(circle, {-58.4, -34.6});
  circle.SetRadius(25000);
  circle.SetPieCount(17);
  double x0 = 0;
  double y0 = 0;
  BL2XY(-34.6, -58.4, x0, y0, 0);
  const auto ring = RingOf(circle);
  for (int i = 1; i <= 17; ++i) {
    const double bearing = 2 * std::acos(-1.0) * i / 17;
    double b = 0;
    double l = 0;
    XY2BL(x0 + 25000 * std::cos(bearing), y0 + 25000 * std::sin(bearing), b, l);
    constexpr double OneMetre = 1.2e-5;  // an easting may fall on the other side of a whole metre
    EXPECT_NEAR(ring[std::size_t(i - 1)].Y, b, OneMetre) << i;
    EXPECT_NEAR(ring[std::size_t(i - 1)].X, l - 360, OneMetre) << i;
  }
}

TEST(TGeoCircleTest, IsTwiceAsWideAsHighAtSixtyDegrees) {
  TGeoCircle circle;
  Place(circle, {39, 60});
  const TBounds &bounds = circle.GetBounds();
  EXPECT_NEAR((bounds.MaxX - bounds.MinX) / (bounds.MaxY - bounds.MinY), 2, 0.02);
  EXPECT_GT(bounds.MinX, 30) << "bounds keep nothing of where the circle was before";
}

TEST(TGeoCircleTest, CountsLongitudesFrom180OnAsWestern) {
  TGeoCircle circle;
  Place(circle, {179.9, 10});
  int eastern = 0;
  int western = 0;
  for (const TMapPoint &point : RingOf(circle)) {
    EXPECT_LT(point.X, 180);
    eastern += point.X > 178 ? 1 : 0;
    western += point.X < -178 ? 1 : 0;
  }
  EXPECT_GT(eastern, 20);
  EXPECT_GT(western, 20);
  EXPECT_EQ(eastern + western, 91);
}

TEST(TGeoCircleTest, AcceptsNoRingWithoutPoints) {
  TGeoCircle circle;
  EXPECT_THROW(circle.SetPieCount(0), EZeroDivide);
  EXPECT_EQ(RingOf(circle).size(), 0U);
  EXPECT_THROW(circle.SetPieCount(-3), ERangeError);
  circle.SetPieCount(1);
  EXPECT_EQ(RingOf(circle).size(), 2U);
}

TEST(TGeoCircleTest, DrawsAsARegion) {
  TFakeMapHost host;
  TGeoCircle circle;
  circle.SetMap(&host);
  Place(circle, {39, 56});
  host.viewport = {37, 54, 41, 58, 39, 56, 1, 100, 100};
  TBrush brush;
  brush.SetColor(clRed);
  circle.SetBrush(brush);
  circle.Paint();
  EXPECT_EQ(host.At(50, 50), clRed);
  EXPECT_EQ(host.At(50 + 38, 50), clRed);
  EXPECT_EQ(host.At(50, 50 - 20), clRed);
  EXPECT_EQ(host.At(50 + 38, 50 - 20), clWhite);
  EXPECT_EQ(host.At(50, 50 - 25), clWhite);
}

/// The circle that stands alone, in a view of 37 to 41 degrees east and 54 to 58 north.
class GeoCircleTest : public testing::Test {
 protected:
  GeoCircleTest() {
    host.viewport = {37, 54, 41, 58, 39, 56, 1, 100, 100};
    circle.SetMap(&host);
    TPen pen;
    pen.SetColor(clBlue);
    TBrush brush;
    brush.SetColor(clRed);
    circle.SetPen(pen);
    circle.SetBrush(brush);
  }

  TFakeMapHost host;
  geocircle::TGeoCircle circle;
};

TEST_F(GeoCircleTest, StartsAsASquareOfOneDegree) {
  const auto ring = RingOf(circle);
  ASSERT_EQ(ring.size(), 4U);
  EXPECT_EQ(ring[0], (TMapPoint{0, 0}));
  EXPECT_EQ(ring[1], (TMapPoint{0, 1}));
  EXPECT_EQ(ring[2], (TMapPoint{1, 1}));
  EXPECT_EQ(ring[3], (TMapPoint{1, 0}));
}

TEST_F(GeoCircleTest, HasTheRingOfTheRegion) {
  TGeoCircle region;
  for (const TPlace &place : {TPlace{39, 56}, {-120.5, -40}, {179.9, 0}}) {
    Place(region, place);
    Place(circle, place);
    region.SetRadius(50000);
    circle.SetRadius(50000);
    const auto ring = RingOf(circle);
    EXPECT_TRUE(std::ranges::equal(ring, RingOf(region)));
    EXPECT_EQ(circle.GetBounds(), region.GetBounds());
  }
}

TEST_F(GeoCircleTest, IsHitWithinItsOutlineAndOnIt) {
  struct Row {
    double x, y;
    bool isInside;
  };
  for (const Row &row : {Row{0.5, 0.5, true},
                         {0, 0, true},
                         {1, 1, true},
                         {0, 0.5, true},
                         {1, 0.25, true},
                         {0.5, 1, true},
                         {0.5, 0, true},
                         {1.0001, 0.5, false},
                         {-0.0001, 0.5, false},
                         {0.5, 1.0001, false},
                         {0.5, -0.0001, false}}) {
    EXPECT_EQ(circle.ContainsPoint(row.x, row.y), row.isInside) << row.x << ' ' << row.y;
  }
  Place(circle, {39, 56});
  const TBounds &bounds = circle.GetBounds();
  EXPECT_FALSE(circle.ContainsPoint(bounds.MinX, bounds.MinY)) << "a corner of the bounds";
  EXPECT_TRUE(circle.ContainsPoint(39, 56));
  circle.GetParts().Clear();
  EXPECT_FALSE(circle.ContainsPoint(39, 56));
}

TEST_F(GeoCircleTest, IsHitWhereAnOutlineOfAnyShapeIsFilled) {
  // A zigzag with corners at the height of the question, a spike downwards among them.
  circle.GetParts().Clear();
  AddPart(circle, {{0, 0}, {2, 4}, {4, 2}, {6, 4}, {8, 2}, {10, 4}, {12, 0}});
  struct Row {
    double x, y;
    bool isInside;
  };
  for (const Row &row : {Row{4, 1.9, true},
                         {4, 2, true},
                         {4, 2.1, false},
                         {5.5, 2, true},
                         {0.5, 2, false},
                         {1.1, 2, true},
                         {8, 3.9, false},
                         {2, 4, true},
                         {-1, 0, false},
                         {11.5, 2, false},
                         {10.9, 2, true}}) {
    EXPECT_EQ(circle.ContainsPoint(row.x, row.y), row.isInside) << row.x << ' ' << row.y;
  }
}

TEST_F(GeoCircleTest, AnswersOtherTestsWithItsOwnHitTest) {
  Place(circle, {39, 56});
  const TBounds bounds = circle.GetBounds();
  TPolyline inside;
  AddPart(inside, {{39, 56}, {39.5, 56.2}});
  TPolyline corner;
  AddPart(corner, {{bounds.MinX, bounds.MinY}});
  EXPECT_TRUE(circle.Contains(inside));
  EXPECT_TRUE(circle.Intersects(inside));
  EXPECT_FALSE(circle.Intersects(corner));
  EXPECT_TRUE(circle.IntersectsRect(bounds.MaxX, 0, 90, 90));
  EXPECT_TRUE(circle.WithinRect(bounds.MinX, bounds.MinY, bounds.MaxX, bounds.MaxY));
  EXPECT_FALSE(circle.ContainsRect(bounds.MinX, bounds.MinY, bounds.MaxX, bounds.MaxY));
  EXPECT_TRUE(circle.ContainsRect(38.9, 55.9, 39.1, 56.1));
}

TEST_F(GeoCircleTest, DrawsAClosedOutlineOfFourPointsOrMore) {
  Place(circle, {39, 56});
  circle.Paint();
  EXPECT_EQ(host.At(50, 50), clRed);
  EXPECT_EQ(host.At(50, 50 - 25), clWhite);
  host.ClearPicture();
  circle.GetParts().Clear();
  AddPart(circle, {{38, 55}, {38, 57}, {40, 57}});
  circle.Paint();
  EXPECT_EQ(host.At(30, 30), clWhite) << "three points";
  circle.GetParts().GetFirst().GetPoints().Add(40, 55);
  circle.Paint();
  EXPECT_EQ(host.At(50, 50), clRed);
  EXPECT_EQ(host.At(50, 75), clBlue) << "the closing side";
}

TEST_F(GeoCircleTest, LaysItsBackgroundUnderTheBrush) {
  Place(circle, {39, 56});
  TBrush clear;
  clear.SetStyle(TBrushStyle::bsClear);
  circle.SetBrush(clear);
  circle.SetBGColor(clNavy);
  circle.Paint();
  EXPECT_EQ(host.At(50, 50), clWhite);
  circle.SetUseBGColor(true);
  circle.Paint();
  EXPECT_EQ(host.At(50, 50), clNavy);
  int outline = 0;
  for (int x = 0; x < 100; ++x) outline += host.At(x, 50) == clBlue ? 1 : 0;
  EXPECT_EQ(outline, 2) << "drawn once, with the pen of the object";
}

TEST_F(GeoCircleTest, TakesItsHighlightAwayAgain) {
  Place(circle, {39, 56});
  circle.Paint();
  const QImage before = host.picture.GetImage().copy();
  circle.DrawSelection();
  EXPECT_NE(host.At(50, 50), clRed);
  circle.DrawSelection();
  EXPECT_EQ(host.picture.GetImage(), before);
}

}  // namespace
}  // namespace tessera
