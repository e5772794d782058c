// SPDX-License-Identifier: MIT
#include "CanvasPixels.h"

#include <gtest/gtest.h>

#include <array>

namespace tessera {

namespace {

using test::Board;

/// A row of device pixels: '#' pen (black), 'o' brush (red), '.' paper (white), '?' anything else.
std::string RowText(const Board &board, int y, int width) {
  std::string text;
  for (int x = 0; x < width; ++x) {
    const TColor color = board.At(x, y);
    text += color == clBlack ? '#' : color == clRed ? 'o' : color == clWhite ? '.' : '?';
  }
  return text;
}

TEST(CanvasFigureTest, LeavesOutTheRightColumnAndBottomRowOfARectangle) {
  Board board(40, 30);
  board.canvas.Brush().SetStyle(TBrushStyle::bsSolid);
  board.canvas.Brush().SetColor(clRed);
  board.canvas.Rectangle(5, 4, 1, 1);
  EXPECT_EQ(RowText(board, 0, 7), ".......");
  EXPECT_EQ(RowText(board, 1, 7), ".####..");
  EXPECT_EQ(RowText(board, 2, 7), ".#oo#..");
  EXPECT_EQ(RowText(board, 3, 7), ".####..");
  EXPECT_EQ(RowText(board, 4, 7), ".......");
}

struct FrameCase {
  std::string name;
  TPenStyle style;
  int width;
  qreal ratio;
  std::string row;  ///< The middle row of a rectangle in columns 4 … 11.
};

class CanvasFrameTest : public testing::TestWithParam<FrameCase> {};

TEST_P(CanvasFrameTest, CentresThePenOnTheBorder) {
  Board board(40, 30, GetParam().ratio);
  board.canvas.Brush().SetStyle(TBrushStyle::bsSolid);
  board.canvas.Brush().SetColor(clRed);
  board.canvas.Pen().SetStyle(GetParam().style);
  board.canvas.Pen().SetWidth(GetParam().width);
  board.canvas.Rectangle(4, 4, 12, 20);
  EXPECT_EQ(RowText(board, int(12 * GetParam().ratio), int(GetParam().row.size())), GetParam().row);
}

INSTANTIATE_TEST_SUITE_P(Pens, CanvasFrameTest,
                         testing::Values(FrameCase{"None", TPenStyle::psClear, 1, 1, "....oooooooo...."},
                                         FrameCase{"Thin", TPenStyle::psSolid, 1, 1, "....#oooooo#...."},
                                         FrameCase{"Three", TPenStyle::psSolid, 3, 1, "...###oooo###..."},
                                         FrameCase{"Inside", TPenStyle::psInsideFrame, 3, 1, "....###oo###...."},
                                         FrameCase{"TooWideInside", TPenStyle::psInsideFrame, 9, 1, "....########...."},
                                         FrameCase{"ThinAtRatioTwo", TPenStyle::psSolid, 1, 2,
                                                   "........##oooooooooooo##........"}),
                         [](const auto &row) { return row.param.name; });

TEST(CanvasFigureTest, DrawsARoundClosedEllipse) {
  Board board;
  board.canvas.Ellipse(0, 0, 9, 9);
  const std::string rows[] = {"..#####..", ".#.....#.", "#.......#", "#.......#", "#.......#",
                              "#.......#", "#.......#", ".#.....#.", "..#####.."};
  for (int y = 0; y < 9; ++y) EXPECT_EQ(RowText(board, y, 9), rows[y]);
  EXPECT_EQ(RowText(board, 9, 9), ".........");
}

TEST(CanvasFigureTest, FillsAPolygonByTheAlternateRule) {
  Board board(40, 30);
  board.canvas.Brush().SetStyle(TBrushStyle::bsSolid);
  board.canvas.Brush().SetColor(clRed);
  board.canvas.Pen().SetStyle(TPenStyle::psClear);
  const std::array<TPoint, 8> nested{TPoint(0, 0), TPoint(9, 0), TPoint(9, 9), TPoint(0, 9),
                                     TPoint(0, 0), TPoint(5, 0), TPoint(5, 9), TPoint(0, 9)};
  board.canvas.Polygon(nested);
  EXPECT_EQ(RowText(board, 4, 11), ".....oooo..");
}

TEST(CanvasFigureTest, DrawsALineWithoutItsEndAndAPolylineWithIt) {
  Board board;
  board.canvas.MoveTo(1, 0);
  board.canvas.LineTo(4, 0);
  board.canvas.Polyline(std::array{TPoint(1, 1), TPoint(4, 1)});
  EXPECT_EQ(RowText(board, 0, 6), ".###..");
  EXPECT_EQ(RowText(board, 1, 6), ".####.");
}

TEST(CanvasFigureTest, DrawsALineAlikeInBothDirections) {
  for (int x = -20; x < 20; ++x) {
    for (int y = -15; y < 15; ++y) {
      Board there;
      there.canvas.Polyline(std::array{TPoint(20, 15), TPoint(20 + x, 15 + y)});
      Board back;
      back.canvas.Polyline(std::array{TPoint(20 + x, 15 + y), TPoint(20, 15)});
      ASSERT_EQ(there.bitmap.GetImage(), back.bitmap.GetImage()) << x << ',' << y;
      ASSERT_EQ(there.Count(clBlack), std::max(std::abs(x), std::abs(y)) + 1) << x << ',' << y;
    }
  }
}

TEST(CanvasFigureTest, CarriesDashesOnFromLineToLine) {
  Board whole;
  whole.canvas.Pen().SetStyle(TPenStyle::psDash);
  whole.canvas.MoveTo(0, 3);
  whole.canvas.LineTo(36, 3);
  Board pieces;
  pieces.canvas.Pen().SetStyle(TPenStyle::psDash);
  pieces.canvas.MoveTo(0, 3);
  for (int x = 1; x <= 36; ++x) pieces.canvas.LineTo(x, 3);
  EXPECT_EQ(RowText(whole, 3, 14), "####..####..##");
  EXPECT_EQ(RowText(pieces, 3, 36), RowText(whole, 3, 36));
}

TEST(CanvasFigureTest, KeepsTheDashesOfAWideLineOnItsWayThroughThePicture) {
  // Entering from far outside must not shift the dashes: 6000 is a whole number of periods of 24 pixels.
  Board near;
  near.canvas.Pen().SetStyle(TPenStyle::psDash);
  near.canvas.Pen().SetWidth(4);
  near.canvas.Polyline(std::array{TPoint(-24, 9), TPoint(60, 9)});
  Board far;
  far.canvas.Pen() = near.canvas.Pen();
  far.canvas.Polyline(std::array{TPoint(-6000, 9), TPoint(99999, 9)});
  EXPECT_EQ(far.bitmap.GetImage(), near.bitmap.GetImage());
  EXPECT_GT(near.Count(clBlack), 60);
  EXPECT_GT(near.Count(clWhite), 40 * 26);
}

TEST(CanvasFigureTest, DrawsAWideLineAlikeOnAllSides) {
  for (int width = 4; width <= 9; ++width) {
    Board board;
    board.canvas.Pen().SetWidth(width);
    board.canvas.Polyline(std::array{TPoint(12, 12), TPoint(25, 12)});
    const int first = 12 - (width - 1) / 2;
    const QImage line = board.bitmap.GetImage().copy(first, first, 13 + width, width);
    EXPECT_EQ(line.mirrored(true, false), line) << width;
    EXPECT_EQ(line.mirrored(false, true), line) << width;
    for (int y = first; y < first + width; ++y) EXPECT_EQ(board.At(18, y), clBlack) << width << ", row " << y;
    EXPECT_EQ(board.At(18, first - 1), clWhite) << width;
    EXPECT_EQ(board.At(18, first + width), clWhite) << width;
  }
}

TEST(CanvasFigureTest, DrawsAThinLineTwoPixelsWideAtRatioTwo) {
  Board board(40, 30, 2);
  board.canvas.Polyline(std::array{TPoint(1, 1), TPoint(3, 1)});
  EXPECT_EQ(RowText(board, 1, 8), "........");
  EXPECT_EQ(RowText(board, 2, 7), "..#####");
  EXPECT_EQ(RowText(board, 3, 7), "..#####");
  EXPECT_EQ(RowText(board, 4, 8), "........");
}

TEST(CanvasBrushTest, LeavesWhatLiesBetweenTheLinesOfAHatch) {
  Board board(40, 30);
  board.canvas.Brush().SetColor(clRed);
  board.canvas.Brush().SetStyle(TBrushStyle::bsVertical);
  board.canvas.FillRect(QRect(2, 0, 20, 1));
  EXPECT_EQ(RowText(board, 0, 24), "....o.......o.......o...");
}

TEST(CanvasBrushTest, StartsHatchesAtThePicturesCornerAndScalesThem) {
  Board board(40, 30, 2);
  board.canvas.Brush().SetColor(clRed);
  board.canvas.Brush().SetStyle(TBrushStyle::bsFDiagonal);
  board.canvas.FillRect(QRect(0, 0, 40, 30));
  for (int i = 0; i < 60; ++i) EXPECT_EQ(board.At(i, i), clRed);
  EXPECT_EQ(RowText(board, 5, 22), "....oo..............oo");
}

TEST(CanvasBrushTest, LeavesThePictureUnderTransparentPixelsOfABitmap) {
  QImage image(8, 8, QImage::Format_ARGB32_Premultiplied);
  for (int y = 0; y < 8; ++y) {
    for (int x = 0; x < 8; ++x) image.setPixel(x, y, x % 2 == 1 && y % 2 == 1 ? 0 : qRgb(255, 0, 0));
  }
  Board board(40, 30);
  board.canvas.Brush().SetBitmap(TBitmap(image));
  board.canvas.FillRect(QRect(1, 0, 9, 2));
  EXPECT_EQ(RowText(board, 0, 12), ".ooooooooo..");
  EXPECT_EQ(RowText(board, 1, 12), "..o.o.o.o...");
}

TEST(CanvasBrushTest, LeavesOutTheTransparentColourOfABitmapAndSeesItChange) {
  TBitmap pattern;
  pattern.SetSize(2, 1);
  pattern.GetImage().setPixel(0, 0, ToRgb(clRed));
  pattern.GetImage().setPixel(1, 0, ToRgb(clBlack));
  Board board(40, 30);
  board.canvas.Brush().SetBitmap(pattern);
  board.canvas.FillRect(QRect(0, 0, 5, 1));
  pattern.SetTransparent(true);
  pattern.SetTransparentColor(clBlack);
  board.canvas.Brush().SetBitmap(pattern);
  board.canvas.FillRect(QRect(0, 1, 5, 1));
  EXPECT_EQ(RowText(board, 0, 6), "o#o#o.");
  EXPECT_EQ(RowText(board, 1, 6), "o.o.o.");
}

TEST(CanvasBitmapTest, GoesOnDrawingWhenTheBitmapChangesUnderIt) {
  Board board(40, 30);
  board.canvas.Pen().SetWidth(6);
  const std::array line{TPoint(0, 5), TPoint(39, 5)};
  board.canvas.Polyline(line);
  const TBitmap snapshot = board.bitmap;
  board.bitmap.SetSize(20, 10);
  board.canvas.Polyline(line);
  EXPECT_EQ(board.At(10, 5), clBlack);
  EXPECT_EQ(board.canvas.GetClipRect(), QRect(0, 0, 20, 10));
  board.bitmap = snapshot;
  board.canvas.Polyline(std::array{TPoint(0, 20), TPoint(39, 20)});
  EXPECT_EQ(board.At(20, 20), clBlack);
  EXPECT_EQ(FromQColor(snapshot.GetImage().pixelColor(20, 20)), clWhite) << "a copy must keep its pixels";
  board.bitmap = TBitmap();
  board.canvas.Polyline(line);
  EXPECT_TRUE(board.bitmap.IsEmpty());
}

}  // namespace

}  // namespace tessera
