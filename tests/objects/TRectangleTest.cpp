// SPDX-License-Identifier: MIT
#include "../support/FakeMapHost.h"
#include "../support/Printers.h"

#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRectangle.h>

#include <gtest/gtest.h>

namespace tessera {
namespace {

using test::AddPart;
using test::TFakeMapHost;

constexpr TColor Fill = RGB(255, 200, 0);
constexpr TColor Line = RGB(0, 100, 255);
constexpr TColor Background = RGB(10, 200, 30);

/// A rectangle between (20, 30) and (60, 50): the pixels 20 to 60 along x and 50 to 70 along y.
class TRectangleTest : public testing::Test {
 protected:
  TRectangleTest() {
    Place(rectangle, 20, 30, 60, 50);
    SetTools(TBrushStyle::bsSolid);
    rectangle.SetMap(&host);
  }
  static void Place(TRectangle &r, double x0, double y0, double x1, double y1) {
    r.SetX0(x0);
    r.SetY0(y0);
    r.SetX1(x1);
    r.SetY1(y1);
  }
  static TBounds Corners(TRectangle &r) { return {r.GetX0(), r.GetY0(), r.GetX1(), r.GetY1()}; }
  void SetTools(TBrushStyle style) {
    TPen pen;
    pen.SetColor(Line);
    TBrush brush;
    brush.SetColor(Fill);
    brush.SetStyle(style);
    rectangle.SetPen(pen);
    rectangle.SetBrush(brush);
  }

  TFakeMapHost host;
  TRectangle rectangle;
};

TEST_F(TRectangleTest, StartsAsAPointAtTheOriginAndMakesMissingCorners) {
  TRectangle fresh;
  EXPECT_EQ(fresh.GetParts().GetFirst().GetPoints().GetCount(), 2);
  EXPECT_EQ(fresh.GetBounds(), (TBounds{0, 0, 0, 0}));
  fresh.GetParts().Clear();
  EXPECT_EQ(std::as_const(fresh).GetCorners(), (TBounds{0, 0, 0, 0}));
  EXPECT_EQ(fresh.GetParts().GetCount(), 0);
  EXPECT_EQ(fresh.GetX1(), 0);
  EXPECT_EQ(fresh.GetParts().GetFirst().GetPoints().GetCount(), 2);
  fresh.GetParts().Clear();
  AddPart(fresh, {{3, 4}});
  EXPECT_EQ(Corners(fresh), (TBounds{0, 0, 3, 4}));
}

TEST_F(TRectangleTest, SortsWhatIsReadAndNotWhatIsSet) {
  rectangle.SetX0(5);
  rectangle.SetX1(1);
  EXPECT_EQ(rectangle.GetX0(), 1);
  EXPECT_EQ(rectangle.GetX1(), 5);
  rectangle.SetX0(3);
  EXPECT_EQ(rectangle.GetX0(), 1);
  EXPECT_EQ(rectangle.GetX1(), 3);
  rectangle.SetY0(9);
  rectangle.SetY1(-9);
  const auto points = std::as_const(rectangle).GetParts().GetFirst().GetPoints().Points();
  EXPECT_EQ(points[0], (TMapPoint{3, 9}));
  EXPECT_EQ(points[1], (TMapPoint{1, -9}));
  EXPECT_EQ(std::as_const(rectangle).GetCorners(), (TBounds{1, -9, 3, 9}));
}

TEST_F(TRectangleTest, IsHitWithinTheCornersSetLast) {
  EXPECT_EQ(rectangle.GetBounds(), (TBounds{20, 30, 60, 50}));
  EXPECT_TRUE(rectangle.ContainsPoint(60, 50));
  EXPECT_FALSE(rectangle.ContainsPoint(60.001, 50));
  EXPECT_FALSE(rectangle.ContainsPoint(0, 0)) << "where it began";
}

TEST_F(TRectangleTest, ContainsObjectsByTheirBoundsAndMeetsThemByTheirVertices) {
  TPolyline line;
  EXPECT_FALSE(rectangle.Contains(line)) << "the bounds of an object without vertices";
  EXPECT_FALSE(rectangle.Intersects(line));
  AddPart(line, {{25, 35}, {60, 50}});
  EXPECT_TRUE(rectangle.Contains(line));
  EXPECT_TRUE(rectangle.Intersects(line));
  line.GetParts().AddPoint(70, 40, 0);
  EXPECT_FALSE(rectangle.Contains(line)) << "bounds wider than the vertices";
  EXPECT_TRUE(rectangle.Intersects(line));
  TPolyline across;
  AddPart(across, {{0, 40}, {100, 40}});
  EXPECT_FALSE(rectangle.Intersects(across)) << "only vertices count";
}

TEST_F(TRectangleTest, AnswersRectanglesByTheirCorners) {
  struct Row {
    TBounds r;
    bool intersects, contains, within;
  };
  for (const Row &row : {Row{{20, 30, 60, 50}, true, true, true},
                         {{25, 35, 30, 40}, true, true, false},
                         {{25, 35, 90, 90}, true, false, false},
                         {{0, 0, 25, 35}, true, false, false},
                         {{0, 40, 25, 90}, true, false, false},
                         {{50, 0, 90, 40}, true, false, false},
                         {{0, 0, 90, 90}, false, false, true},
                         {{0, 35, 90, 45}, false, false, false},  // right across, without a corner inside
                         {{61, 51, 90, 90}, false, false, false}}) {
    const auto &[r, intersects, contains, within] = row;
    EXPECT_EQ(rectangle.IntersectsRect(r.MinX, r.MinY, r.MaxX, r.MaxY), intersects) << testing::PrintToString(r);
    EXPECT_EQ(rectangle.ContainsRect(r.MinX, r.MinY, r.MaxX, r.MaxY), contains) << testing::PrintToString(r);
    EXPECT_EQ(rectangle.WithinRect(r.MinX, r.MinY, r.MaxX, r.MaxY), within) << testing::PrintToString(r);
  }
}

TEST_F(TRectangleTest, DrawsFromCornerToCornerInAnyOrder) {
  for (const TBounds &r : {TBounds{20, 30, 60, 50}, {60, 50, 20, 30}, {60, 30, 20, 50}}) {
    host.ClearPicture();
    Place(rectangle, r.MinX, r.MinY, r.MaxX, r.MaxY);
    rectangle.Paint();
    EXPECT_EQ(host.At(20, 50), Line);
    EXPECT_EQ(host.At(59, 69), Line);
    EXPECT_EQ(host.At(40, 60), Fill);
    EXPECT_EQ(host.At(60, 60), clWhite);
    EXPECT_EQ(host.At(40, 70), clWhite);
  }
  EXPECT_EQ(host.displayed.GetCount(), 1);
}

TEST_F(TRectangleTest, LaysItsBackgroundUnderAHatchedBrush) {
  SetTools(TBrushStyle::bsHorizontal);
  rectangle.SetUseBGColor(true);
  rectangle.SetBGColor(Background);
  rectangle.Paint();
  int background = 0;
  int hatch = 0;
  for (int y = 52; y < 68; ++y) {
    background += host.At(40, y) == Background ? 1 : 0;
    hatch += host.At(40, y) == Fill ? 1 : 0;
  }
  EXPECT_EQ(background, 14);
  EXPECT_EQ(hatch, 2);
  EXPECT_EQ(host.At(20, 60), Line);
}

TEST_F(TRectangleTest, KeepsItsOwnToolsWhenItIsHighlighted) {
  rectangle.Paint();
  const QImage before = host.picture.GetImage().copy();
  host.ClearPicture();
  rectangle.DrawSelection();
  EXPECT_EQ(host.picture.GetImage(), before);
  host.flags.FastSelection = false;
  host.selection.Add(&rectangle, true);
  rectangle.Paint();
  EXPECT_EQ(host.picture.GetImage(), before) << "nor does the selection pattern show";
}

TEST_F(TRectangleTest, MarksItsBackgroundBehindAClearBrush) {
  SetTools(TBrushStyle::bsClear);
  rectangle.SetUseBGColor(true);
  rectangle.SetBGColor(Background);
  rectangle.Paint();
  const QImage before = host.picture.GetImage().copy();
  host.flags.ShowSelection = false;
  rectangle.DrawSelection();
  EXPECT_EQ(host.picture.GetImage(), before);
  host.flags.ShowSelection = true;
  rectangle.DrawSelection();
  EXPECT_EQ(host.At(40, 60), Background ^ Background);
  rectangle.DrawSelection();
  EXPECT_EQ(host.picture.GetImage(), before);
}

TEST_F(TRectangleTest, CoversTheViewWhenItIsFarTooLarge) {
  Place(rectangle, -1e12, -1e12, 1e12, 1e12);
  rectangle.Paint();
  EXPECT_EQ(host.At(0, 0), Fill);
  EXPECT_EQ(host.At(99, 99), Fill);
}

}  // namespace
}  // namespace tessera
