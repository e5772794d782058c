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

/// The upper left corner of the board must look like this.
void ExpectRows(const Board &board, const std::vector<std::string> &rows) {
  for (std::size_t y = 0; y < rows.size(); ++y) {
    EXPECT_EQ(RowText(board, int(y), int(rows[y].size())), rows[y]) << "row " << y;
  }
}

TEST(CanvasFigureTest, LeavesOutTheRightColumnAndBottomRowOfARectangleAndAnEllipse) {
  Board board;
  board.canvas.Ellipse(0, 0, 9, 9);
  ExpectRows(board, {"..#####..", ".#.....#.", "#.......#", "#.......#", "#.......#", "#.......#", "#.......#",
                     ".#.....#.", "..#####..", "........."});
  board.bitmap.GetImage().fill(Qt::white);
  board.FillWith(clRed);
  board.canvas.Rectangle(5, 4, 1, 1);
  ExpectRows(board, {".......", ".####..", ".#oo#..", ".####..", "......."});
}

TEST(CanvasFigureTest, CentresThePenOnTheBorder) {
  using enum TPenStyle;
  // Style, width, ratio, and the middle row of a rectangle in columns 4 to 11.
  const std::tuple<TPenStyle, int, int, std::string> cases[] = {
      {psClear, 1, 1, "....oooooooo...."},       {psSolid, 1, 1, "....#oooooo#...."},
      {psSolid, 3, 1, "...###oooo###..."},       {psInsideFrame, 3, 1, "....###oo###...."},
      {psInsideFrame, 9, 1, "....########...."}, {psSolid, 1, 2, "........##oooooooooooo##........"}};
  for (const auto &[style, width, ratio, row] : cases) {
    Board board(40, 30, ratio);
    board.FillWith(clRed);
    board.canvas.Pen().SetStyle(style);
    board.canvas.Pen().SetWidth(width);
    board.canvas.Rectangle(4, 4, 12, 20);
    EXPECT_EQ(RowText(board, 12 * ratio, int(row.size())), row);
  }
}

TEST(CanvasFigureTest, DrawsALineWithoutItsEndAndAPolylineWithIt) {
  Board board;
  board.canvas.MoveTo(1, 0);
  board.canvas.LineTo(4, 0);
  board.canvas.Polyline(std::array{TPoint(1, 1), TPoint(4, 1)});
  ExpectRows(board, {".###..", ".####."});
}

TEST(CanvasFigureTest, DrawsALineAlikeInBothDirections) {
  for (int i = 0; i < 40 * 30; ++i) {
    const TPoint end(i % 40, i / 40);
    Board there;
    there.canvas.Polyline(std::array{TPoint(20, 15), end});
    Board back;
    back.canvas.Polyline(std::array{end, TPoint(20, 15)});
    ASSERT_EQ(there.bitmap.GetImage(), back.bitmap.GetImage()) << i;
    ASSERT_EQ(there.Count(clBlack), std::max(std::abs(end.x() - 20), std::abs(end.y() - 15)) + 1) << i;
  }
}

TEST(CanvasFigureTest, CarriesDashesOnFromLineToLine) {
  Board board;
  board.canvas.Pen().SetStyle(TPenStyle::psDash);
  board.canvas.MoveTo(0, 0);
  board.canvas.LineTo(36, 0);
  board.canvas.MoveTo(0, 1);
  for (int x = 1; x <= 36; ++x) board.canvas.LineTo(x, 1);
  EXPECT_EQ(RowText(board, 0, 14), "####..####..##");
  EXPECT_EQ(RowText(board, 1, 36), RowText(board, 0, 36));
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
    for (int y = 0; y < 30; ++y) {
      EXPECT_EQ(board.At(18, y) == clBlack, y >= first && y < first + width) << width << ", row " << y;
    }
  }
}

TEST(CanvasBrushTest, StartsHatchesAtThePicturesCornerAndScalesThem) {
  Board board(40, 30, 2);
  board.FillWith(clRed);
  board.canvas.Brush().SetStyle(TBrushStyle::bsFDiagonal);
  board.canvas.FillRect(QRect(0, 0, 40, 30));
  for (int i = 0; i < 60; ++i) EXPECT_EQ(board.At(i, i), clRed);
  EXPECT_EQ(RowText(board, 5, 22), "....oo..............oo");
}

TEST(CanvasBrushTest, LeavesOutWhatIsTransparentInABitmapAndSeesItChange) {
  TBitmap pattern;
  pattern.SetSize(2, 1);
  pattern.GetImage().setPixel(0, 0, ToRgb(clRed));
  pattern.GetImage().setPixel(1, 0, ToRgb(clBlack));
  Board board;
  const auto fillRow = [&board](int y, const TBitmap &bitmap) {
    board.canvas.Brush().SetBitmap(bitmap);
    board.canvas.FillRect(QRect(1, y, 5, 1));
  };
  fillRow(0, pattern);
  pattern.SetTransparent(true);
  pattern.SetTransparentColor(clBlack);
  fillRow(1, pattern);
  ExpectRows(board, {".#o#o#.", "..o.o.."});
}

TEST(CanvasBitmapTest, GoesOnDrawingWhenTheBitmapChangesUnderIt) {
  Board board;
  const std::array line{TPoint(0, 5), TPoint(39, 5)};
  const TBitmap snapshot = board.bitmap;
  board.canvas.Polyline(line);
  EXPECT_EQ(FromQColor(snapshot.GetImage().pixelColor(10, 5)), clWhite) << "a copy must keep its pixels";
  board.bitmap.SetSize(20, 10);
  board.canvas.Polyline(line);
  EXPECT_EQ(board.At(10, 5), clBlack);
  EXPECT_EQ(board.canvas.GetClipRect(), QRect(0, 0, 20, 10));
  board.bitmap = TBitmap();
  board.canvas.Polyline(line);
  EXPECT_TRUE(board.bitmap.IsEmpty());
}

TBitmap NoisePicture(int width, int height, qreal ratio = 1) {
  TBitmap picture;
  picture.SetSize(width, height, ratio);
  test::FillWithNoise(picture);
  return picture;
}

TEST(CanvasPictureTest, ReplacesSharplyWhateverThePensMode) {
  Board board(40, 30, 2);
  const TBitmap picture = NoisePicture(40, 30, 2);
  board.canvas.Pen().SetMode(TPenMode::pmXor);
  board.canvas.Draw(0, 0, picture);
  EXPECT_EQ(board.bitmap.GetImage(), picture.GetImage());
}

TEST(CanvasPictureTest, LeavesOutPixelsOfTheBottomLeftColour) {
  Board board;
  TBitmap picture;
  picture.SetSize(3, 3);
  picture.GetImage().fill(Qt::blue);
  picture.GetImage().setPixel(1, 1, ToRgb(clRed));
  picture.SetTransparent(true);
  board.canvas.Draw(5, 5, picture);
  EXPECT_EQ(board.Count(clBlue), 0);
  EXPECT_EQ(board.At(6, 6), clRed);
}

TEST(CanvasPictureTest, MapsPixelsAlikeHoweverMuchIsVisible) {
  // Every pixel by the plain rule, on targets that hang over each border and on a huge one.
  const TBitmap picture = NoisePicture(13, 7);
  for (const QRect rect : {QRect(3, 4, 26, 14), QRect(-17, -9, 100, 77), QRect(30, 20, 55, 3), QRect(5, 5, 4, 3),
                           QRect(7 - 1'000'000'000, -5, 2'000'000'000, 2'000'000'000)}) {
    Board board;
    board.canvas.StretchDraw(rect, picture);
    for (int i = 0; i < 40 * 30; ++i) {
      const QPoint at(i % 40, i / 40);
      const auto sourceX = (std::int64_t(at.x()) - rect.left()) * 13 / rect.width();
      const auto sourceY = (std::int64_t(at.y()) - rect.top()) * 7 / rect.height();
      ASSERT_EQ(board.bitmap.GetImage().pixel(at),
                rect.contains(at) ? picture.GetImage().pixel(int(sourceX), int(sourceY)) : ToRgb(clWhite))
          << at.x() << ',' << at.y();
    }
  }
}

TEST(CanvasPictureTest, CopiesWhatThereIsWithinOnePictureWithoutSmearing) {
  Board board;
  test::FillWithNoise(board.bitmap);
  const QImage before = board.bitmap.GetImage().copy();
  board.canvas.CopyRect(QRect(1, 1, 30, 20), board.canvas, QRect(0, 0, 30, 20));
  EXPECT_EQ(board.bitmap.GetImage().copy(1, 1, 30, 20), before.copy(0, 0, 30, 20));
  Board other;
  other.canvas.CopyRect(QRect(0, 0, 10, 10), board.canvas, QRect(-4, 25, 10, 10));
  EXPECT_EQ(other.bitmap.GetImage().copy(4, 0, 6, 5), before.copy(0, 25, 6, 5));
  EXPECT_EQ(other.Count(clWhite), 40 * 30 - 6 * 5);
}

}  // namespace

}  // namespace tessera
