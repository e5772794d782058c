// SPDX-License-Identifier: MIT
#include "../support/ObjectChecks.h"

#include <tessera/objects/TCircle.h>
#include <tessera/objects/TPolyline.h>

#include <gtest/gtest.h>

namespace tessera::test {
namespace {

/// A circle of radius 10 about (40, 40), which is the pixel (40, 60).
class TCircleTest : public testing::Test {
 protected:
  TCircleTest() {
    Place(circle, 40, 40, 10);
    GiveTools(circle, host);
  }
  static void Place(TCircle &circle, double x, double y, double radius) {
    circle.SetX(x);
    circle.SetY(y);
    circle.SetRadius(radius);
  }

  TFakeMapHost host;
  TCircle circle;
};

TEST_F(TCircleTest, BoundsAreTheSquareAboutTheCentre) {
  EXPECT_EQ(TCircle().GetBounds(), (TBounds{0, 0, 0, 0}));
  EXPECT_EQ(circle.GetBounds(), (TBounds{30, 30, 50, 50}));
  circle.SetX(0);
  circle.SetRadius(-1);
  EXPECT_EQ(circle.GetBounds(), (TBounds{-1, 39, 1, 41}));
  circle.GetParts().GetFirst().GetPoints().SetPoint(0, {5, 5});
  circle.UpdateBounds();
  EXPECT_EQ(circle.GetBounds(), (TBounds{4, 4, 6, 6}));
}

TEST_F(TCircleTest, ContainsWhatHasOneVertexInside) {
  TPolyline line;
  EXPECT_FALSE(circle.Contains(line)) << "an object without vertices";
  AddPart(line, {{500, 500}, {400, 400}});
  EXPECT_FALSE(circle.Contains(line) || circle.Intersects(line));
  AddPart(line, {{900, 900}, {41, 41}});
  EXPECT_TRUE(circle.Contains(line) && circle.Intersects(line));
}

TEST_F(TCircleTest, IntersectsCirclesThatOverlapAndNotThoseThatTouch) {
  TCircle other;
  for (const auto &[distance, isOverlap] : {std::pair(20, false), {19.99, true}, {0, true}, {25, false}}) {
    Place(other, 40, 40 + distance, 10);
    EXPECT_EQ(circle.Intersects(other), isOverlap) << distance;
  }
}

TEST_F(TCircleTest, AnswersByItsRimAndRectanglesByTheirCorners) {
  Place(circle, 0, 0, 10);
  ExpectHits(circle, {{0, 0}, {6, 8}, {10, 0}, {-8, -6}}, {{10, 0.001}, {9, 9}});
  ExpectRectAnswers(circle, {{{-6, -8, 6, 8}, true, true, false},
                             {{-6, -8, 6, 8.001}, true, false, false},
                             {{0, 0, 50, 50}, true, false, false},
                             {{-1, -50, 1, 50}, false, false, false},  // across, without a corner inside
                             {{-10, -10, 10, 10}, false, false, true},
                             {{-10, -10, 10, 9.999}, false, false, false},
                             {{50, 50, -50, -50}, false, false, false}});
}

TEST_F(TCircleTest, DrawsAroundItsCentreAndGrowsWithTheZoom) {
  host.viewport.Zoom = 2;
  circle.Paint();
  EXPECT_TRUE(host.displayed.Holds(&circle));
  EXPECT_EQ(InkOf(host), QRect(10, 50, 40, 40));
  ExpectPixels(host, {{30, 70, FillColor}, {10, 70, LineColor}, {49, 70, LineColor}, {30, 50, LineColor}});
  ExpectPixels(host, {{30, 89, LineColor}, {12, 52, clWhite}, {47, 52, clWhite}, {12, 87, clWhite}});
}

TEST_F(TCircleTest, DrawsWithoutAVertexOrAPartAsMuchAsThereIs) {
  circle.GetParts().Clear();
  circle.Paint();
  EXPECT_EQ(circle.GetParts().GetCount(), 0);
  EXPECT_TRUE(InkOf(host).isNull());
  EXPECT_EQ(circle.GetY(), 0);
  EXPECT_EQ(circle.GetParts().GetFirst().GetPoints().GetCount(), 1) << "reading makes the missing vertex";
  circle.Paint();
  EXPECT_EQ(host.At(5, 95), FillColor) << "the centre is then at (0, 0)";
  for (const double radius : {1e5, 1e12}) {
    host.ClearPicture();
    circle.SetRadius(radius);
    circle.Paint();
    ExpectPixels(host, {{0, 0, FillColor}, {99, 99, FillColor}});
  }
}

TEST_F(TCircleTest, HighlightsItselfByDrawingTwiceOrByThePattern) {
  ExpectTwoHighlightsCancel(host, circle);
  host.flags.FastSelection = false;
  host.selection.Add(&circle, true);
  circle.Paint();
  EXPECT_EQ(host.At(40, 60), TFakeMapHost::PatternColor);
}

}  // namespace
}  // namespace tessera::test
