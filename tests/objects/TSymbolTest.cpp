// SPDX-License-Identifier: MIT
#include "../support/ObjectChecks.h"

#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TSymbol.h>

#include <gtest/gtest.h>

namespace tessera::test {
namespace {

/// A red sign at the pixel (40, 60), with a font of 9 points.
class TSymbolTest : public testing::Test {
 protected:
  TSymbolTest() {
    symbol.SetMap(&host);
    symbol.SetFont(TFont(QStringLiteral("MapInfo Cartographic"), 9, clRed));
    symbol.SetShape(34);
    symbol.MoveTo(40, 40);
  }

  TFakeMapHost host;
  TSymbol symbol;
};

TEST_F(TSymbolTest, LeavesItsBoundsBehindWhenItsCoordinatesAreSet) {
  symbol.SetX(7);
  symbol.SetY(8);
  EXPECT_EQ(symbol.GetBounds(), (TBounds{40, 40, 40, 40}));
  symbol.UpdateBounds();
  EXPECT_EQ(symbol.GetBounds(), (TBounds{7, 8, 7, 8}));
  symbol.MoveTo(1, 2);
  EXPECT_EQ(symbol.GetBounds(), (TBounds{1, 2, 1, 2}));
  symbol.GetParts().Clear();
  EXPECT_EQ(symbol.GetX(), 0);
  EXPECT_EQ(symbol.GetParts().GetFirst().GetPoints().GetCount(), 1);
}

TEST_F(TSymbolTest, ContainsThePixelsNearIt) {
  // Half of nine points is four, and two more pixels are allowed for.
  ExpectHits(symbol, {{46, 34}, {34, 46}, {46.4, 40}}, {{47, 40}, {33, 40}, {40, 47}, {40, 33}});
  EXPECT_TRUE(TSymbol().ContainsPoint(1e9, -1e9)) << "without a map";
}

TEST_F(TSymbolTest, IsAPointToOtherObjectsAndRectangles) {
  TPolyline line;
  AddPart(line, {{40, 40}, {50, 50}});
  EXPECT_TRUE(symbol.Intersects(line));
  EXPECT_FALSE(symbol.Contains(line) || symbol.Contains(TPolyline()));
  ExpectRectAnswers(symbol, {{{40, 40, 40, 40}, true, false, true},
                             {{0, 0, 40, 40}, true, false, true},
                             {{40.5, 0, 50, 50}, false, false, false},
                             {{50, 50, 0, 0}, false, false, false}});
}

TEST_F(TSymbolTest, DrawsItsSignCentredOnThePointIfItHasAShape) {
  symbol.Paint();
  EXPECT_GT(InkOf(host).width(), 3);
  EXPECT_TRUE(QRect(40 - 7, 60 - 7, 14, 14).contains(InkOf(host)));
  EXPECT_EQ(host.At(40, 60), clRed);
  EXPECT_EQ(host.canvas.Brush().GetStyle(), TBrushStyle::bsSolid);
  host.ClearPicture();
  host.displayed.Clear();
  symbol.SetShape(30);
  EXPECT_EQ(symbol.GetShape(), TSymbol::NoShape);
  symbol.Paint();
  EXPECT_TRUE(InkOf(host).isNull());
  EXPECT_TRUE(host.displayed.Holds(&symbol));
}

TEST_F(TSymbolTest, HighlightsItselfByAFrameDrawnTwiceOrByThePattern) {
  ExpectTwoHighlightsCancel(host, symbol);
  symbol.DrawSelection();
  EXPECT_EQ(host.canvas.Pen().GetMode(), TPenMode::pmCopy);
  host.ClearPicture();
  host.flags.FastSelection = false;
  symbol.Paint();
  EXPECT_NE(host.At(35, 55), TFakeMapHost::PatternColor);
  symbol.Select();
  symbol.Paint();
  ExpectPixels(host, {{35, 55, TFakeMapHost::PatternColor}, {40, 60, clRed}});
}

}  // namespace
}  // namespace tessera::test
