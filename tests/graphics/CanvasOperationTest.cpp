// SPDX-License-Identifier: MIT
#include "CanvasPixels.h"

#include <gtest/gtest.h>

#include <functional>

namespace tessera {

namespace {

using test::Board;

/// A drawing by name, for tests that hold for each of them.
struct Operation {
  std::string name;
  std::function<void(TCanvas &)> draw;
};

/// Every drawing that follows the pen's mode, with figures that overlap themselves and reach over the border.
std::vector<Operation> ModalOperations() {
  using Points = std::vector<TPoint>;
  const Points crossing{{5, 5}, {35, 25}, {35, 5}, {5, 25}, {5, 5}, {35, 25}, {60, 10}};
  return {
      {"Rectangle", [](TCanvas &canvas) { canvas.Rectangle(30, 25, 6, 4); }},
      {"Ellipse", [](TCanvas &canvas) { canvas.Ellipse(4, 3, 33, 24); }},
      {"FlatEllipse", [](TCanvas &canvas) { canvas.Ellipse(-20, 10, 34, 13); }},
      {"Polygon", [crossing](TCanvas &canvas) { canvas.Polygon(crossing); }},
      {"Polyline", [crossing](TCanvas &canvas) { canvas.Polyline(crossing); }},
      {"SetPixels",
       [](TCanvas &canvas) {
         const TPixel pixels[] = {{{3, 4}, RGB(0xF0, 0, 0)}, {{39, 29}, RGB(0xF0, 0, 0)}, {{40, -1}, clNavy}};
         canvas.SetPixels(pixels);
       }},
      {"LineTo",
       [crossing](TCanvas &canvas) {
         canvas.MoveTo(2, 2);
         for (const TPoint &point : crossing) canvas.LineTo(point.x(), point.y());
       }},
      {"PaintRgn",
       [crossing](TCanvas &canvas) {
         TRgn region;
         canvas.CreatePolygonRgn(crossing, TFillMode::Winding, region);
         canvas.PaintRgn(region);
       }},
      {"TextOutOfOneCharacter", [](TCanvas &canvas) { canvas.TextOut(10, 5, QStringLiteral("@")); }},
      {"TextOut", [](TCanvas &canvas) { canvas.TextOut(3, 5, QStringLiteral("Wqgj@@")); }},
      {"TurnedTextOut",
       [](TCanvas &canvas) {
         canvas.SetFontEscapement(300);
         canvas.TextOut(3, 22, QStringLiteral("Wqgj@"));
         canvas.SetFontEscapement(0);
       }},
  };
}

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
    if (name == "SetPixels") return true;
    if (name == "Polyline" || name == "LineTo") return pen != TPenStyle::psClear;
    return pen != TPenStyle::psClear || hasBrush || name.find("Text") != std::string::npos;
  }
};

TEST_P(CanvasXorTest, RestoresThePictureWhenDrawnTwice) {
  TBitmap pattern;
  pattern.SetSize(3, 5);
  test::FillWithNoise(pattern);
  for (const qreal ratio : {1.0, 1.5, 2.0}) {
    Board board(40, 30, ratio);
    board.canvas.Font() = TFont(QStringLiteral("DejaVu Sans"), 9, clBlue);
    board.canvas.Pen().SetColor(RGB(200, 30, 99));
    board.canvas.Brush().SetColor(RGB(60, 240, 10));
    test::FillWithNoise(board.bitmap);
    for (const TPenMode mode : {TPenMode::pmXor, TPenMode::pmNotXor}) {
      board.canvas.Pen().SetMode(mode);
      for (int pen = int(TPenStyle::psSolid); pen <= int(TPenStyle::psInsideFrame); ++pen) {
        board.canvas.Pen().SetStyle(TPenStyle(pen));
        for (const int width : {0, 1, 2, 3, 4, 7}) {
          SCOPED_TRACE(testing::Message()
                       << "ratio " << ratio << " mode " << int(mode) << " pen " << pen << ' ' << width);
          board.canvas.Pen().SetWidth(width);
          board.canvas.Brush().SetBitmap(TBitmap());
          for (int brush = int(TBrushStyle::bsSolid); brush <= int(TBrushStyle::bsDiagCross); ++brush) {
            board.canvas.Brush().SetStyle(TBrushStyle(brush));
            ASSERT_EQ(DrawTwice(board), Shows(TPenStyle(pen), brush != int(TBrushStyle::bsClear))) << "brush " << brush;
          }
          board.canvas.Brush().SetBitmap(pattern);
          ASSERT_EQ(DrawTwice(board), Shows(TPenStyle(pen), true)) << "a bitmap brush";
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

INSTANTIATE_TEST_SUITE_P(EveryOperation, CanvasXorTest, testing::ValuesIn(ModalOperations()),
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
  std::vector<Operation> operations = ModalOperations();
  TBitmap noise;
  noise.SetSize(9, 7);
  test::FillWithNoise(noise);
  const std::vector<Operation> modeless = {
      {"FillRect", [](TCanvas &canvas) { canvas.FillRect(QRect(-3, 4, 20, 10)); }},
      {"Draw", [noise](TCanvas &canvas) { canvas.Draw(35, -2, noise); }},
      {"StretchDraw", [noise](TCanvas &canvas) { canvas.StretchDraw(QRect(3, 9, 5, 12), noise); }},
      {"CopyRect", [](TCanvas &canvas) { canvas.CopyRect(QRect(20, 3, 11, 5), canvas, QRect(0, 20, 11, 5)); }},
      {"Needle", [](TCanvas &canvas) {
         canvas.Polyline(std::vector<TPoint>{{20, 25}, {21, 8}, {22, 25}});
       }}};
  operations.insert(operations.end(), modeless.begin(), modeless.end());
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
  board.canvas.FillRect(QRect(40, 0, 5, 5));
  board.canvas.Polyline(std::vector<TPoint>{{-20, -20}, {-20, 50}});
  EXPECT_TRUE(told.empty());
  board.canvas.FillRect(QRect(35, 3, 20, 4));
  EXPECT_EQ(told, std::vector{QRect(35, 3, 5, 4)});
}

}  // namespace

}  // namespace tessera
