// SPDX-License-Identifier: MIT
#include "CanvasPixels.h"

#include <gtest/gtest.h>

namespace tessera {

namespace {

using test::Board;
using test::Operation;

constexpr TPenStyle PenStyles[] = {TPenStyle::psSolid,      TPenStyle::psDash,       TPenStyle::psDot,
                                   TPenStyle::psDashDot,    TPenStyle::psDashDotDot, TPenStyle::psClear,
                                   TPenStyle::psInsideFrame};
constexpr int PenWidths[] = {0, 1, 2, 3, 4, 7};
constexpr TBrushStyle BrushStyles[] = {TBrushStyle::bsSolid,    TBrushStyle::bsClear,     TBrushStyle::bsHorizontal,
                                       TBrushStyle::bsVertical, TBrushStyle::bsFDiagonal, TBrushStyle::bsBDiagonal,
                                       TBrushStyle::bsCross,    TBrushStyle::bsDiagCross};
constexpr TPenMode XorModes[] = {TPenMode::pmXor, TPenMode::pmNotXor};
constexpr qreal Ratios[] = {1, 1.5, 2};

class CanvasXorTest : public testing::TestWithParam<Operation> {
 protected:
  /// Draws twice on noise. @returns whether the first time changed anything.
  bool DrawTwice(Board &board) {
    const QImage before = board.bitmap.GetImage().copy();
    GetParam().draw(board.canvas);
    const bool changed = board.bitmap.GetImage() != before;
    GetParam().draw(board.canvas);
    EXPECT_EQ(board.bitmap.GetImage(), before);
    return changed;
  }

  /// Whether the operation shows with these tools.
  [[nodiscard]] bool Shows(TPenStyle pen, bool hasBrush) const {
    const std::string &name = GetParam().name;
    if (name == "PaintRgn") return hasBrush;
    if (name == "Polyline" || name == "LineTo") return pen != TPenStyle::psClear;
    return pen != TPenStyle::psClear || hasBrush || name.find("Text") != std::string::npos;
  }
};

TEST_P(CanvasXorTest, RestoresThePictureWhenDrawnTwice) {
  TBitmap pattern;
  pattern.SetSize(3, 5);
  test::FillWithNoise(pattern);
  for (const qreal ratio : Ratios) {
    Board board(40, 30, ratio);
    board.canvas.Font() = TFont(QStringLiteral("DejaVu Sans"), 9, clBlue);
    board.canvas.Pen().SetColor(RGB(200, 30, 99));
    board.canvas.Brush().SetColor(RGB(60, 240, 10));
    test::FillWithNoise(board.bitmap);
    for (const TPenMode mode : XorModes) {
      board.canvas.Pen().SetMode(mode);
      for (const TPenStyle pen : PenStyles) {
        board.canvas.Pen().SetStyle(pen);
        for (const int width : PenWidths) {
          board.canvas.Pen().SetWidth(width);
          board.canvas.Brush().SetBitmap(TBitmap());
          for (const TBrushStyle brush : BrushStyles) {
            board.canvas.Brush().SetStyle(brush);
            ASSERT_EQ(DrawTwice(board), Shows(pen, brush != TBrushStyle::bsClear))
                << "ratio " << ratio << " mode " << int(mode) << " pen " << int(pen) << " width " << width << " brush "
                << int(brush);
          }
          board.canvas.Brush().SetBitmap(pattern);
          ASSERT_EQ(DrawTwice(board), Shows(pen, true)) << "a bitmap brush, pen " << int(pen) << " width " << width;
        }
      }
    }
  }
}

TEST_P(CanvasXorTest, ChangesEachPixelToOneOfTwoValues) {
  // On black an XOR leaves the colours of pen and brush themselves; a pixel met twice would be black or a mixture.
  // Each LineTo is a figure of its own, and two of them may share pixels.
  if (GetParam().name == "LineTo") return;
  Board board;
  board.bitmap.GetImage().fill(Qt::black);
  board.FillWith(RGB(0, 0, 0xF0));
  board.canvas.Pen().SetColor(RGB(0xF0, 0, 0));
  board.canvas.Font() = TFont(QStringLiteral("DejaVu Sans"), 9, RGB(0xF0, 0, 0));
  board.canvas.Pen().SetWidth(5);
  board.canvas.Pen().SetMode(TPenMode::pmXor);
  GetParam().draw(board.canvas);
  const int touched = board.Count(RGB(0, 0, 0xF0)) + board.Count(RGB(0xF0, 0, 0));
  EXPECT_GT(touched, 0);
  EXPECT_EQ(touched + board.Count(clBlack), 40 * 30);
}

INSTANTIATE_TEST_SUITE_P(EveryOperation, CanvasXorTest, testing::ValuesIn(test::ModalOperations()),
                         [](const auto &row) { return row.param.name; });

TEST(CanvasXorModeTest, XorsWithTheColourOrItsInverse) {
  Board board;
  board.bitmap.GetImage().fill(qRgb(0x12, 0x34, 0x56));
  board.FillWith(RGB(0xFF, 0x0F, 0x01));
  board.canvas.Pen().SetColor(RGB(0xFF, 0x0F, 0x01));
  board.canvas.Pen().SetMode(TPenMode::pmXor);
  board.canvas.LineTo(1, 0);
  EXPECT_EQ(board.At(0, 0), RGB(0x12 ^ 0xFF, 0x34 ^ 0x0F, 0x56 ^ 0x01));
  board.canvas.Pen().SetMode(TPenMode::pmNotXor);
  board.canvas.LineTo(2, 0);
  EXPECT_EQ(board.At(1, 0), RGB(0x12 ^ 0x00, 0x34 ^ 0xF0, 0x56 ^ 0xFE));
  board.canvas.FillRect(QRect(0, 0, 2, 1));
  EXPECT_EQ(board.At(0, 0), RGB(0xFF, 0x0F, 0x01)) << "a rectangle is filled whatever the mode";
}

}  // namespace

}  // namespace tessera
