// SPDX-License-Identifier: MIT
#include "../support/FakeMapHost.h"
#include "../support/Printers.h"

#include <tessera/objects/TCircle.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRectangle.h>

#include <gtest/gtest.h>

#include <limits>

namespace tessera {
namespace {

using test::AddPart;
using test::TFakeMapHost;

constexpr TColor Fill = RGB(255, 200, 0);
constexpr TColor Line = RGB(0, 100, 255);

/// A circle of radius 10 about (40, 40), which is the pixel (40, 60).
class TCircleTest : public testing::Test {
 protected:
  TCircleTest() {
    Place(circle, 40, 40, 10);
    TPen pen;
    pen.SetColor(Line);
    TBrush brush;
    brush.SetColor(Fill);
    circle.SetPen(pen);
    circle.SetBrush(brush);
    circle.SetMap(&host);
  }
  static void Place(TCircle &circle, double x, double y, double radius) {
    circle.SetX(x);
    circle.SetY(y);
    circle.SetRadius(radius);
  }

  TFakeMapHost host;
  TCircle circle;
};

TEST_F(TCircleTest, StartsAsAPointAtTheOrigin) {
  TCircle fresh;
  EXPECT_EQ(fresh.GetParts().GetCount(), 1);
  EXPECT_EQ(fresh.GetParts().GetFirst().GetPoints().GetCount(), 1);
  EXPECT_EQ(fresh.GetRadius(), 0);
  EXPECT_EQ(fresh.GetBounds(), (TBounds{0, 0, 0, 0}));
  fresh.GetParts().Clear();
  EXPECT_EQ(fresh.GetY(), 0);
  EXPECT_EQ(fresh.GetParts().GetFirst().GetPoints().GetCount(), 1) << "reading makes the missing vertex";
}

TEST_F(TCircleTest, BoundsAreTheSquareAboutTheCentre) {
  EXPECT_EQ(circle.GetBounds(), (TBounds{30, 30, 50, 50}));
  circle.SetX(0);
  EXPECT_EQ(circle.GetBounds(), (TBounds{-10, 30, 10, 50}));
  circle.SetRadius(-1);
  EXPECT_EQ(circle.GetBounds(), (TBounds{-1, 39, 1, 41}));
  circle.GetParts().GetFirst().GetPoints().SetPoint(0, {5, 5});
  circle.UpdateBounds();
  EXPECT_EQ(circle.GetBounds(), (TBounds{4, 4, 6, 6}));
}

TEST_F(TCircleTest, CountsTheRimAsInside) {
  Place(circle, 0, 0, 10);
  struct Row {
    double x, y;
    bool isInside;
  };
  for (const Row &row :
       {Row{0, 0, true}, {6, 8, true}, {10, 0, true}, {10, 0.001, false}, {-8, -6, true}, {9, 9, false}}) {
    EXPECT_EQ(circle.ContainsPoint(row.x, row.y), row.isInside) << row.x << ' ' << row.y;
  }
}

TEST_F(TCircleTest, ContainsWhatHasOneVertexInside) {
  TPolyline line;
  EXPECT_FALSE(circle.Contains(line)) << "an object without vertices";
  AddPart(line, {{500, 500}, {400, 400}});
  EXPECT_FALSE(circle.Contains(line));
  EXPECT_FALSE(circle.Intersects(line));
  AddPart(line, {{900, 900}, {41, 41}});
  EXPECT_TRUE(circle.Contains(line));
  EXPECT_TRUE(circle.Intersects(line));
  EXPECT_TRUE(line.Within(circle));
}

TEST_F(TCircleTest, IntersectsCirclesThatOverlapAndNotThoseThatTouch) {
  struct Row {
    double distance;
    bool isOverlap;
  };
  TCircle other;
  for (const Row &row : {Row{2, false}, {1.999, true}, {0, true}, {2.5, false}}) {
    Place(circle, 0, 0, 1);
    Place(other, 0, row.distance, 1);
    EXPECT_EQ(circle.Intersects(other), row.isOverlap) << row.distance;
    EXPECT_EQ(other.Intersects(circle), row.isOverlap) << row.distance;
  }
  EXPECT_FALSE(TCircle().Intersects(TCircle())) << "two points at one place only touch";
}

TEST_F(TCircleTest, AnswersRectanglesByTheirCorners) {
  Place(circle, 0, 0, 10);
  struct Row {
    TBounds r;
    bool intersects, contains, within;
  };
  for (const Row &row : {Row{{-6, -8, 6, 8}, true, true, false},
                         {{-6, -8, 6, 8.001}, true, false, false},
                         {{0, 0, 50, 50}, true, false, false},
                         {{-50, -50, 0, 0}, true, false, false},
                         {{-50, 0, 0, 50}, true, false, false},
                         {{0, -50, 50, 0}, true, false, false},
                         {{-1, -50, 1, 50}, false, false, false},  // right across, without a corner inside
                         {{5, -50, 50, 50}, false, false, false},
                         {{-10, -10, 10, 10}, false, false, true},
                         {{-10, -10, 10, 9.999}, false, false, false},
                         {{-50, -50, 50, 50}, false, false, true},
                         {{20, 20, 50, 50}, false, false, false},
                         {{50, 50, -50, -50}, false, false, false}}) {
    const auto &[r, intersects, contains, within] = row;
    EXPECT_EQ(circle.IntersectsRect(r.MinX, r.MinY, r.MaxX, r.MaxY), intersects) << testing::PrintToString(r);
    EXPECT_EQ(circle.ContainsRect(r.MinX, r.MinY, r.MaxX, r.MaxY), contains) << testing::PrintToString(r);
    EXPECT_EQ(circle.WithinRect(r.MinX, r.MinY, r.MaxX, r.MaxY), within) << testing::PrintToString(r);
  }
}

TEST_F(TCircleTest, DrawsAroundItsCentreAndIsDisplayed) {
  circle.Paint();
  EXPECT_EQ(host.displayed.GetCount(), 1);
  EXPECT_EQ(host.At(40, 60), Fill);
  EXPECT_EQ(host.At(30, 60), Line);
  EXPECT_EQ(host.At(49, 60), Line);
  EXPECT_EQ(host.At(40, 50), Line);
  EXPECT_EQ(host.At(40, 69), Line);
  for (const QPoint corner : {QPoint(31, 51), QPoint(48, 51), QPoint(31, 68), QPoint(48, 68)}) {
    EXPECT_EQ(host.At(corner.x(), corner.y()), clWhite) << corner.x() << ' ' << corner.y();
  }
}

TEST_F(TCircleTest, GrowsWithTheZoom) {
  host.viewport.Zoom = 2;
  host.viewport.CenterX = 40;
  host.viewport.CenterY = 40;
  circle.Paint();
  EXPECT_EQ(host.At(30, 50), Line);
  EXPECT_EQ(host.At(50, 30), Line);
  EXPECT_EQ(host.At(50, 50), Fill);
}

TEST_F(TCircleTest, DrawsWithoutAVertexOrAPartAsMuchAsThereIs) {
  circle.GetParts().Clear();
  circle.Paint();
  EXPECT_EQ(host.displayed.GetCount(), 1);
  EXPECT_EQ(circle.GetParts().GetCount(), 0);
  EXPECT_EQ(host.At(0, 99), clWhite);
  circle.GetParts().Add();
  circle.Paint();
  EXPECT_EQ(host.At(5, 95), Fill) << "the centre is then at (0, 0)";
}

TEST_F(TCircleTest, CoversTheViewWhenItIsFarTooLarge) {
  for (const double radius : {1e5, 1e9, 1e12}) {
    host.ClearPicture();
    circle.SetRadius(radius);
    circle.Paint();
    EXPECT_EQ(host.At(0, 0), Fill) << radius;
    EXPECT_EQ(host.At(99, 99), Fill) << radius;
  }
}

TEST_F(TCircleTest, TakesItsHighlightAwayAgain) {
  circle.Paint();
  const QImage before = host.picture.GetImage().copy();
  host.flags.ShowSelection = false;
  circle.DrawSelection();
  EXPECT_EQ(host.picture.GetImage(), before);
  host.flags.ShowSelection = true;
  circle.DrawSelection();
  EXPECT_NE(host.At(40, 60), Fill);
  circle.DrawSelection();
  EXPECT_EQ(host.picture.GetImage(), before);
}

TEST_F(TCircleTest, ShowsTheSelectionPatternWhenSelectionsArePartOfThePicture) {
  host.flags.FastSelection = false;
  host.selection.Add(&circle, true);
  circle.Paint();
  EXPECT_EQ(host.At(40, 60), TFakeMapHost::PatternColor);
}

}  // namespace
}  // namespace tessera
