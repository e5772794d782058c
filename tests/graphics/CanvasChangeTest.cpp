// SPDX-License-Identifier: MIT
#include "CanvasPixels.h"

#include <gtest/gtest.h>

namespace tessera {
namespace {

using test::Board;
using test::Operation;

/// The client rectangle around the device pixels that differ.
QRect Difference(const QImage &before, const QImage &after, qreal ratio) {
  QRect changed;
  for (int y = 0; y < before.height(); ++y) {
    for (int x = 0; x < before.width(); ++x) {
      if (before.pixel(x, y) != after.pixel(x, y)) changed |= QRect(int(x / ratio), int(y / ratio), 1, 1);
    }
  }
  return changed;
}

std::vector<Operation> AllOperations() {
  std::vector<Operation> operations = test::ModalOperations();
  TBitmap noise;
  noise.SetSize(9, 7);
  test::FillWithNoise(noise);
  operations.push_back({"FillRect", [](TCanvas &canvas) { canvas.FillRect(QRect(-3, 4, 20, 10)); }});
  operations.push_back({"Draw", [noise](TCanvas &canvas) { canvas.Draw(35, -2, noise); }});
  operations.push_back({"StretchDraw", [noise](TCanvas &canvas) { canvas.StretchDraw(QRect(3, 9, 5, 12), noise); }});
  operations.push_back(
      {"CopyRect", [](TCanvas &canvas) { canvas.CopyRect(QRect(20, 3, 11, 5), canvas, QRect(0, 20, 11, 5)); }});
  operations.push_back({"Needle", [](TCanvas &canvas) {
                          canvas.Polyline(std::vector<TPoint>{{20, 25}, {21, 8}, {22, 25}});
                        }});
  return operations;
}

class CanvasChangeTest : public testing::TestWithParam<Operation> {};

TEST_P(CanvasChangeTest, TellsOfEveryPixelThatItChanges) {
  using enum TPenStyle;
  for (const qreal ratio : {1.0, 1.5, 2.0}) {
    for (const TPenMode mode : {TPenMode::pmCopy, TPenMode::pmXor}) {
      for (const auto &[style, widthPx] : {std::pair{psSolid, 1}, {psSolid, 7}, {psDash, 3}, {psClear, 1}}) {
        Board board(40, 30, ratio);
        test::FillWithNoise(board.bitmap);
        const QImage before = board.bitmap.GetImage().copy();
        QRect told;
        board.canvas.SetOnChange([&](const QRect &changed) { told |= changed; });
        board.FillWith(clRed);
        board.canvas.Font() = TFont(QStringLiteral("DejaVu Sans"), -6, clBlue);
        board.canvas.Pen().SetMode(mode);
        board.canvas.Pen().SetStyle(style);
        board.canvas.Pen().SetWidth(widthPx);
        GetParam().draw(board.canvas);
        const QRect changed = Difference(before, board.bitmap.GetImage(), ratio);
        EXPECT_TRUE(changed.isEmpty() || told.contains(changed)) << ratio << ' ' << int(style) << ' ' << widthPx;
      }
    }
  }
}

INSTANTIATE_TEST_SUITE_P(EveryOperation, CanvasChangeTest, testing::ValuesIn(AllOperations()),
                         [](const auto &row) { return row.param.name; });

TEST(CanvasChangeListenerTest, TellsNothingOfMeasuringAndOfWhatLiesOutside) {
  Board board;
  std::vector<QRect> told;
  board.canvas.SetOnChange([&](const QRect &changed) { told.push_back(changed); });
  static_cast<void>(board.canvas.TextWidth(QStringLiteral("Map")));
  static_cast<void>(board.canvas.CopyOf(QRect(0, 0, 5, 5)));
  board.canvas.FillRect(QRect(40, 0, 5, 5));
  board.canvas.Polyline(std::vector<TPoint>{{-20, -20}, {-20, 50}});
  EXPECT_TRUE(told.empty());
  board.canvas.FillRect(QRect(35, 3, 20, 4));
  EXPECT_EQ(told, std::vector{QRect(35, 3, 5, 4)});
}

}  // namespace
}  // namespace tessera
