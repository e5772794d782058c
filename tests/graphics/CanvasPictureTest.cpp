// SPDX-License-Identifier: MIT
#include "CanvasPixels.h"

#include <gtest/gtest.h>

namespace tessera {

namespace {

using test::Board;

TBitmap NoisePicture(int width, int height, qreal ratio = 1) {
  TBitmap picture;
  picture.SetSize(width, height, ratio);
  test::FillWithNoise(picture);
  return picture;
}

TEST(CanvasPictureTest, DrawsAPictureAtItsPlaceAndCutsIt) {
  Board board;
  const TBitmap picture = NoisePicture(10, 10);
  board.canvas.Draw(35, -4, picture);
  EXPECT_EQ(board.bitmap.GetImage().copy(35, 0, 5, 6), picture.GetImage().copy(0, 4, 5, 6));
  EXPECT_EQ(board.At(34, 0), clWhite);
  EXPECT_EQ(board.At(39, 6), clWhite);
}

TEST(CanvasPictureTest, ReplacesSharplyWhateverThePensMode) {
  for (const int ratio : {1, 2}) {
    Board board(40, 30, ratio);
    const TBitmap picture = NoisePicture(40, 30, ratio);
    board.canvas.Pen().SetMode(TPenMode::pmXor);
    board.canvas.Draw(0, 0, picture);
    board.canvas.Draw(0, 0, picture);
    EXPECT_EQ(board.bitmap.GetImage(), picture.GetImage());
  }
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
  picture.SetTransparent(false);
  board.canvas.Draw(5, 5, picture);
  EXPECT_EQ(board.Count(clBlue), 8);
}

TEST(CanvasPictureTest, BlendsHalfTransparentPixels) {
  Board board;
  QImage image(1, 1, QImage::Format_ARGB32);
  image.setPixel(0, 0, qRgba(255, 0, 0, 128));
  board.canvas.Draw(0, 0, TBitmap(image));
  EXPECT_EQ(board.At(0, 0), RGB(255, 127, 127));
}

TEST(CanvasPictureTest, MapsPixelsAlikeHoweverMuchIsVisible) {
  // Every pixel by the plain rule, on targets that hang over each border and on a huge one.
  const TBitmap picture = NoisePicture(13, 7);
  for (const QRect rect : {QRect(3, 4, 26, 14), QRect(-17, -9, 100, 77), QRect(30, 20, 55, 3), QRect(5, 5, 4, 3),
                           QRect(7 - 1'000'000'000, -5, 2'000'000'000, 2'000'000'000)}) {
    Board board;
    board.canvas.StretchDraw(rect, picture);
    const QRect visible = rect & QRect(0, 0, 40, 30);
    for (int y = visible.top(); y <= visible.bottom(); ++y) {
      for (int x = visible.left(); x <= visible.right(); ++x) {
        const auto sourceX = (std::int64_t(x) - rect.left()) * 13 / rect.width();
        const auto sourceY = (std::int64_t(y) - rect.top()) * 7 / rect.height();
        ASSERT_EQ(board.bitmap.GetImage().pixel(x, y), picture.GetImage().pixel(int(sourceX), int(sourceY)))
            << x << ',' << y;
      }
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
