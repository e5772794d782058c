// SPDX-License-Identifier: MIT
#include "../support/ObjectChecks.h"

#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRectangle.h>

#include <gtest/gtest.h>

namespace tessera::test {
namespace {

constexpr TColor Background = RGB(10, 200, 30);

/// A rectangle between (20, 30) and (60, 50): the pixels 20 to 60 along x and 50 to 70 along y.
class TRectangleTest : public testing::Test {
 protected:
  TRectangleTest() {
    Place({20, 30, 60, 50});
    GiveTools(rectangle, host);
    rectangle.SetBGColor(Background);
  }
  void Place(const TBounds &corners) {
    rectangle.SetX0(corners.MinX);
    rectangle.SetY0(corners.MinY);
    rectangle.SetX1(corners.MaxX);
    rectangle.SetY1(corners.MaxY);
  }

  TFakeMapHost host;
  TRectangle rectangle;
};

TEST_F(TRectangleTest, SortsWhatIsReadAndMakesMissingCorners) {
  Place({5, 9, 1, -9});
  EXPECT_EQ(rectangle.GetX0(), 1);
  rectangle.SetX0(3);
  EXPECT_EQ(std::as_const(rectangle).GetCorners(), (TBounds{1, -9, 3, 9}));
  EXPECT_EQ(rectangle.GetParts().GetFirst().GetPoints().GetPoint(0), (TMapPoint{3, 9})) << "not what is set";
  rectangle.GetParts().Clear();
  EXPECT_EQ(std::as_const(rectangle).GetCorners(), (TBounds{0, 0, 0, 0}));
  EXPECT_EQ(rectangle.GetParts().GetCount(), 0);
  AddPart(rectangle, {{3, 4}});
  EXPECT_EQ(rectangle.GetX1(), 3);
  EXPECT_EQ(rectangle.GetY0(), 0);
  EXPECT_EQ(rectangle.GetParts().GetFirst().GetPoints().GetCount(), 2);
  EXPECT_EQ(TRectangle().GetBounds(), (TBounds{0, 0, 0, 0}));
}

TEST_F(TRectangleTest, ContainsObjectsByTheirBoundsAndMeetsThemByTheirVertices) {
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

TEST_F(TRectangleTest, AnswersByItsCornersAndRectanglesByTheirs) {
  ExpectHits(rectangle, {{20, 30}, {60, 50}}, {{60.001, 50}, {0, 0}});
  ExpectRectAnswers(rectangle, {
                                   {{20, 30, 60, 50}, true, true, true},
                                   {{25, 35, 30, 40}, true, true, false},
                                   {{25, 35, 90, 90}, true, false, false},
                                   {{0, 0, 25, 35}, true, false, false},
                                   {{0, 0, 90, 90}, false, false, true},
                                   {{0, 35, 90, 45}, false, false, false},  // across, without a corner inside
                               });
}

TEST_F(TRectangleTest, DrawsFromCornerToCornerInAnyOrder) {
  for (const TBounds &corners : {TBounds{20, 30, 60, 50}, {60, 50, 20, 30}, {60, 30, 20, 50}}) {
    host.ClearPicture();
    Place(corners);
    rectangle.Paint();
    ExpectPixels(host, {{20, 50, LineColor}, {59, 69, LineColor}, {40, 60, FillColor}});
    EXPECT_EQ(InkOf(host), QRect(20, 50, 40, 20));
  }
  EXPECT_EQ(host.displayed.GetCount(), 1);
  Place({-1e12, -1e12, 1e12, 1e12});
  rectangle.Paint();
  ExpectPixels(host, {{0, 0, FillColor}, {99, 99, FillColor}});
}

TEST_F(TRectangleTest, LaysItsBackgroundUnderAHatchedBrush) {
  GiveTools(rectangle, host, TBrushStyle::bsHorizontal);
  rectangle.SetUseBGColor(true);
  rectangle.Paint();
  int hatch = 0;
  for (int y = 52; y < 68; ++y) hatch += host.At(40, y) == FillColor ? 1 : 0;
  EXPECT_EQ(hatch, 2);
  ExpectPixels(host, {{40, 62, Background}, {20, 60, LineColor}});
}

TEST_F(TRectangleTest, KeepsItsOwnToolsWhenItIsSelected) {
  rectangle.Paint();
  const QImage before = host.picture.GetImage().copy();
  host.flags.FastSelection = false;
  rectangle.Select();
  rectangle.Paint();
  EXPECT_EQ(host.picture.GetImage(), before) << "the selection pattern does not show";
}

TEST_F(TRectangleTest, MarksItsBackgroundBehindAClearBrush) {
  GiveTools(rectangle, host, TBrushStyle::bsClear);
  rectangle.SetUseBGColor(true);
  ExpectTwoHighlightsCancel(host, rectangle);
  rectangle.DrawSelection();
  EXPECT_EQ(host.At(40, 60), Background ^ Background);
}

}  // namespace
}  // namespace tessera::test
