// SPDX-License-Identifier: MIT
#include "CanvasPixels.h"

#include <gtest/gtest.h>

#include <array>
#include <limits>

namespace tessera {

namespace {

using test::Board;

constexpr int Lowest = std::numeric_limits<int>::min();
constexpr int Highest = std::numeric_limits<int>::max();
constexpr int Extremes[] = {Lowest, Lowest + 1, -40000, 0, 15, 40000, Highest - 1, Highest};

/// Every drawing with two corners taken from the ends of the coordinates.
void DrawAll(TCanvas &canvas, int x1, int y1, int x2, int y2) {
  const std::array points{TPoint(x1, y1), TPoint(x2, y1), TPoint(x2, y2), TPoint(20, y1)};
  const QRect rect(TPoint(x1, y1), TPoint(x2, y2));
  TBitmap bitmap;
  bitmap.SetSize(3, 2);
  canvas.FillRect(rect);
  canvas.Rectangle(x1, y1, x2, y2);
  canvas.Ellipse(x1, y1, x2, y2);
  canvas.Polygon(points);
  canvas.Polyline(points);
  canvas.MoveTo(x1, y1);
  canvas.LineTo(x2, y2);
  TRgn region;
  canvas.CreatePolygonRgn(points, TFillMode::Winding, region);
  canvas.PaintRgn(region);
  canvas.Draw(x1, y1, bitmap);
  canvas.StretchDraw(rect, bitmap);
  canvas.CopyRect(rect, canvas, QRect(TPoint(x2, y2), TPoint(x2, y2)));
  canvas.CopyRect(QRect(0, 0, 9, 9), canvas, rect);
  canvas.TextOut(x1, y1, QStringLiteral("A"));
  canvas.TextOut(x1, y2, QStringLiteral("Ag"));
  canvas.SetFontEscapement(x2);
  canvas.TextOut(x1, y1, QStringLiteral("Ag"));
  canvas.SetFontEscapement(0);
}

TEST(CanvasRangeTest, DrawsAnyCoordinatesWithinTheBitmap) {
  using enum TPenStyle;
  using enum TPenMode;
  const std::tuple<TPenStyle, int, TPenMode, int> cases[] = {
      {psSolid, 1, pmCopy, 1}, {psSolid, 9, pmCopy, 1}, {psSolid, Highest, pmCopy, 1}, {psDashDot, 6, pmCopy, 1},
      {psDot, 2, pmXor, 1},    {psSolid, 1, pmCopy, 2}, {psDot, 1, pmNotXor, 2}};
  for (const auto &[style, width, mode, ratio] : cases) {
    SCOPED_TRACE(testing::Message() << "style " << int(style) << " width " << width << " at " << ratio);
    Board board(40, 30, ratio);
    board.canvas.Brush().SetStyle(TBrushStyle::bsCross);
    board.canvas.Pen().SetStyle(style);
    board.canvas.Pen().SetWidth(width);
    board.canvas.Pen().SetMode(mode);
    for (const int x1 : Extremes) {
      for (const int y1 : Extremes) {
        for (const int end : Extremes) DrawAll(board.canvas, x1, y1, end, 20);
        DrawAll(board.canvas, x1, y1, 10, y1);
      }
    }
    EXPECT_EQ(board.canvas.GetClipRect(), QRect(0, 0, 40, 30));
    EXPECT_LT(board.Count(clWhite), 40 * 30 * ratio * ratio);
  }
}

TEST(CanvasRangeTest, CutsALineWhereAnUncutOneRuns) {
  // The same line on a board that holds all of it and, moved, on one that holds the middle only.
  std::mt19937 random(3);
  std::uniform_int_distribution<int> coordinate(0, 299);
  for (int i = 0; i < 2000; ++i) {
    const TPoint from(coordinate(random), coordinate(random));
    const TPoint to(coordinate(random), coordinate(random));
    const TPoint offset(100, 120);
    Board whole(300, 300);
    whole.canvas.Polyline(std::array{from, to});
    Board part(40, 30);
    part.canvas.Polyline(std::array{from - offset, to - offset});
    ASSERT_EQ(part.bitmap.GetImage(), whole.bitmap.GetImage().copy(QRect(offset, QSize(40, 30))))
        << from.x() << ',' << from.y() << " to " << to.x() << ',' << to.y();
  }
}

TEST(CanvasRangeTest, RunsThroughTheMiddleOfTheLongestDiagonal) {
  Board board(10, 10);
  board.canvas.Polyline(std::array{TPoint(Lowest + 1, Lowest + 1), TPoint(Highest, Highest)});
  for (int i = 0; i < 10; ++i) EXPECT_EQ(board.At(i, i), clBlack) << i;
  EXPECT_EQ(board.Count(clBlack), 10);
}

}  // namespace

}  // namespace tessera
