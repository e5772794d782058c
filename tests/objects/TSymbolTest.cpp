// SPDX-License-Identifier: MIT
#include "../support/FakeMapHost.h"
#include "../support/Printers.h"

#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TSymbol.h>

#include <gtest/gtest.h>

namespace tessera {
namespace {

using test::TFakeMapHost;

/// A red sign at the pixel (40, 60), with a font of 9 points.
class TSymbolTest : public testing::Test {
 protected:
  TSymbolTest() {
    symbol.SetMap(&host);
    symbol.SetFont(TFont(QStringLiteral("MapInfo Cartographic"), 9, clRed));
    symbol.SetShape(34);
    symbol.MoveTo(40, 40);
  }
  [[nodiscard]] int InkIn(const QRect &rect) const {
    int count = 0;
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
      for (int x = rect.left(); x <= rect.right(); ++x) count += host.At(x, y) != clWhite ? 1 : 0;
    }
    return count;
  }
  [[nodiscard]] int Ink() const { return InkIn(QRect(0, 0, 100, 100)); }

  TFakeMapHost host;
  TSymbol symbol;
};

TEST_F(TSymbolTest, StartsWithoutShapeAtTheOrigin) {
  TSymbol fresh;
  EXPECT_EQ(fresh.GetShape(), 31);
  EXPECT_EQ(fresh.GetParts().GetCount(), 1);
  EXPECT_EQ(fresh.GetBounds(), (TBounds{0, 0, 0, 0}));
  fresh.GetParts().Clear();
  EXPECT_EQ(fresh.GetX(), 0);
  EXPECT_EQ(fresh.GetParts().GetFirst().GetPoints().GetCount(), 1);
}

TEST_F(TSymbolTest, HasNoShapeBelow31) {
  struct Row {
    int given, taken;
  };
  for (const Row &row : {Row{58, 58}, {32, 32}, {31, 31}, {30, 31}, {-5, 31}}) {
    symbol.SetShape(row.given);
    EXPECT_EQ(symbol.GetShape(), row.taken);
  }
}

TEST_F(TSymbolTest, LeavesItsBoundsBehindWhenItsCoordinatesAreSet) {
  symbol.SetX(7);
  symbol.SetY(8);
  EXPECT_EQ(symbol.GetX(), 7);
  EXPECT_EQ(symbol.GetY(), 8);
  EXPECT_EQ(symbol.GetBounds(), (TBounds{40, 40, 40, 40}));
  symbol.UpdateBounds();
  EXPECT_EQ(symbol.GetBounds(), (TBounds{7, 8, 7, 8}));
  symbol.MoveTo(1, 2);
  EXPECT_EQ(symbol.GetBounds(), (TBounds{1, 2, 1, 2}));
  EXPECT_EQ(symbol.GetParts().GetFirst().GetPoints().GetCount(), 1);
}

TEST_F(TSymbolTest, ContainsThePixelsNearIt) {
  // Half of nine points is four, and two more pixels are allowed for.
  struct Row {
    double x, y;
    bool isNear;
  };
  for (const Row &row : {Row{46, 34, true},
                         {34, 46, true},
                         {46.4, 40, true},
                         {47, 40, false},
                         {33, 40, false},
                         {40, 47, false},
                         {40, 33, false}}) {
    EXPECT_EQ(symbol.ContainsPoint(row.x, row.y), row.isNear) << row.x << ' ' << row.y;
  }
  EXPECT_TRUE(TSymbol().ContainsPoint(1e9, -1e9));
}

TEST_F(TSymbolTest, IsAPointToOtherObjectsAndRectangles) {
  TPolyline line;
  test::AddPart(line, {{40, 40}, {50, 50}});
  EXPECT_TRUE(symbol.Intersects(line));
  EXPECT_FALSE(symbol.Contains(line));
  EXPECT_FALSE(symbol.Contains(TPolyline()));
  EXPECT_FALSE(symbol.ContainsRect(40, 40, 40, 40));
  struct Row {
    TBounds r;
    bool meets;
  };
  for (const Row &row :
       {Row{{40, 40, 40, 40}, true}, {{0, 0, 40, 40}, true}, {{40.5, 0, 50, 50}, false}, {{50, 50, 0, 0}, false}}) {
    EXPECT_EQ(symbol.IntersectsRect(row.r.MinX, row.r.MinY, row.r.MaxX, row.r.MaxY), row.meets);
    EXPECT_EQ(symbol.WithinRect(row.r.MinX, row.r.MinY, row.r.MaxX, row.r.MaxY), row.meets);
  }
  symbol.SetX(60);
  EXPECT_FALSE(symbol.Intersects(line));
}

TEST_F(TSymbolTest, DrawsItsSignCentredOnThePoint) {
  symbol.Paint();
  const int ink = Ink();
  EXPECT_GT(ink, 10);
  EXPECT_EQ(InkIn(QRect(40 - 7, 60 - 7, 14, 14)), ink);
  EXPECT_EQ(host.At(40, 60), clRed);
  EXPECT_EQ(host.canvas.Brush().GetStyle(), TBrushStyle::bsSolid);
}

TEST_F(TSymbolTest, IsDisplayedWithoutInkWithoutShape) {
  symbol.SetShape(TSymbol::NoShape);
  symbol.Paint();
  EXPECT_EQ(Ink(), 0);
  EXPECT_TRUE(host.displayed.Holds(symbol));
}

TEST_F(TSymbolTest, StandsOnThePatternWhenSelectedInThePicture) {
  host.flags.FastSelection = false;
  symbol.Paint();
  EXPECT_NE(host.At(35, 55), TFakeMapHost::PatternColor);
  symbol.Select();
  symbol.Paint();
  EXPECT_EQ(host.At(35, 55), TFakeMapHost::PatternColor);
  EXPECT_EQ(host.At(40, 60), clRed);
}

TEST_F(TSymbolTest, RestoresThePictureWhenItsFrameIsDrawnTwice) {
  symbol.Paint();
  const QImage before = host.picture.GetImage().copy();
  symbol.DrawSelection();
  EXPECT_NE(host.picture.GetImage(), before);
  EXPECT_EQ(host.canvas.Pen().GetMode(), TPenMode::pmCopy);
  symbol.DrawSelection();
  EXPECT_EQ(host.picture.GetImage(), before);
  host.flags.ShowSelection = false;
  symbol.DrawSelection();
  EXPECT_EQ(host.picture.GetImage(), before);
}

}  // namespace
}  // namespace tessera
