// SPDX-License-Identifier: MIT
#include "../support/ObjectChecks.h"

#include <tessera/base/Exceptions.h>
#include <tessera/geometry/CoordConvertorU.h>
#include <tessera/objects/GeoCircle.h>
#include <tessera/objects/TGeoCircle.h>
#include <tessera/objects/TPolyline.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace tessera::test {
namespace {

std::span<const TMapPoint> RingOf(const TCustomMapObject &object) {
  return object.GetParts().GetFirst().GetPoints().Points();
}

void Place(TGeoCircle &circle, const TMapPoint &place) {
  circle.SetCenterX(place.X);
  circle.SetCenterY(place.Y);
}

void Place(geocircle::TGeoCircle &circle, const TMapPoint &place) {
  circle.SetX(place.X);
  circle.SetY(place.Y);
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

TEST(TGeoCircleTest, CountsLongitudesFrom180OnAsWestern) {
  TGeoCircle circle;
  Place(circle, {179.9, 10});
  const auto eastern = std::ranges::count_if(RingOf(circle), [](const TMapPoint &p) { return p.X > 178 && p.X < 180; });
  const auto western = std::ranges::count_if(RingOf(circle), [](const TMapPoint &p) { return p.X < -178; });
  EXPECT_GT(eastern, 20);
  EXPECT_EQ(eastern + western, 91);
}

TEST(TGeoCircleTest, AcceptsNoRingWithoutPoints) {
  TGeoCircle circle;
  EXPECT_THROW(circle.SetPieCount(0), EZeroDivide);
  EXPECT_THROW(circle.SetPieCount(-3), ERangeError);
  circle.SetPieCount(1);
  EXPECT_EQ(RingOf(circle).size(), 2U);
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
  region.SetRadius(50000);
  circle.SetRadius(50000);
  EXPECT_TRUE(std::ranges::equal(RingOf(circle), RingOf(region)));
  EXPECT_EQ(circle.GetBounds(), region.GetBounds());
}

TEST_F(GeoCircleTest, IsHitWithinItsOutlineAndOnIt) {
  ExpectHits(circle, {{0.5, 0.5}, {0, 0}, {1, 1}, {0, 0.5}, {1, 0.25}, {0.5, 1}, {0.5, 0}},
             {{1.0001, 0.5}, {-0.0001, 0.5}, {0.5, 1.0001}, {0.5, -0.0001}});
  Place(circle, {39, 56});
  const TBounds &bounds = circle.GetBounds();
  ExpectHits(circle, {{39, 56}}, {{bounds.MinX, bounds.MinY}});
  circle.GetParts().Clear();
  // A zigzag with corners at the height of the question, a spike downwards among them.
  AddPart(circle, {{0, 0}, {2, 4}, {4, 2}, {6, 4}, {8, 2}, {10, 4}, {12, 0}});
  ExpectHits(circle, {{4, 1.9}, {4, 2}, {5.5, 2}, {1.1, 2}, {2, 4}, {10.9, 2}},
             {{4, 2.1}, {0.5, 2}, {8, 3.9}, {-1, 0}, {11.5, 2}});
}

TEST_F(GeoCircleTest, AnswersOtherTestsWithItsOwnHitTest) {
  Place(circle, {39, 56});
  const TBounds bounds = circle.GetBounds();
  TPolyline corner;
  AddPart(corner, {{bounds.MinX, bounds.MinY}});
  TPolyline both;
  AddPart(both, {{bounds.MinX, bounds.MinY}, {39, 56}});
  EXPECT_FALSE(circle.Intersects(corner) || circle.Contains(both) || both.Within(circle));
  EXPECT_TRUE(circle.Intersects(both));
  ExpectRectAnswers(circle, {{{bounds.MaxX, 0, 90, 90}, true, false, false},
                             {bounds, true, false, true},
                             {{38.9, 55.9, 39.1, 56.1}, true, true, false}});
}

TEST_F(GeoCircleTest, DrawsAClosedOutlineOfFourPointsOrMore) {
  Place(circle, {39, 56});
  circle.Paint();
  ExpectPixels(host, {{50, 50, FillColor}, {50, 50 - 25, clWhite}});
  host.ClearPicture();
  circle.GetParts().Clear();
  AddPart(circle, {{38, 55}, {38, 57}, {40, 57}});
  circle.Paint();
  EXPECT_TRUE(InkOf(host).isNull()) << "three points";
  circle.GetParts().GetFirst().GetPoints().Add(40, 55);
  circle.Paint();
  ExpectPixels(host, {{50, 50, FillColor}, {50, 75, LineColor}});
}

TEST_F(GeoCircleTest, LaysItsBackgroundUnderTheBrush) {
  Place(circle, {39, 56});
  GiveTools(circle, host, TBrushStyle::bsClear);
  circle.SetBGColor(clNavy);
  for (const bool usesBackground : {false, true}) {
    circle.SetUseBGColor(usesBackground);
    circle.Paint();
    EXPECT_EQ(host.At(50, 50), usesBackground ? clNavy : clWhite);
  }
  int outline = 0;
  for (int x = 0; x < 100; ++x) outline += host.At(x, 50) == LineColor ? 1 : 0;
  EXPECT_EQ(outline, 2) << "drawn once, with the pen of the object";
  ExpectTwoHighlightsCancel(host, circle);
}

}  // namespace
}  // namespace tessera::test
