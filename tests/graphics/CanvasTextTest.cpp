// SPDX-License-Identifier: MIT
#include "CanvasPixels.h"

#include <QFontMetrics>
#include <QPainter>
#include <gtest/gtest.h>

#include <limits>

namespace tessera {

namespace {

using test::Board;

/// A board with a large plain font.
struct TextBoard : Board {
  explicit TextBoard(qreal ratio = 1) : Board(120, 90, ratio) {
    canvas.Font() = TFont(QStringLiteral("DejaVu Sans"), 12);
  }
};

/// What the board's font is for QPainter.
QFont PlainFont(int pixelSize) {
  QFont font(QStringLiteral("DejaVu Sans"));
  font.setPixelSize(pixelSize);
  font.setKerning(false);
  font.setStyleStrategy(QFont::StyleStrategy(QFont::NoSubpixelAntialias | QFont::PreferNoShaping));
  return font;
}

QString CyrillicText() {
  return QStringLiteral("\u0413\u0443\u0434\u0456\u2014\u2116 7");
}

/// The smallest rectangle of device pixels that are not white.
QRect InkRect(const Board &board) {
  QRect rect;
  const QImage &image = board.bitmap.GetImage();
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (board.At(x, y) != clWhite) rect |= QRect(x, y, 1, 1);
    }
  }
  return rect;
}

TEST(TFontTest, CountsPointsAtNinetySixPixelsAnInch) {
  const auto pixels = [](int size) { return TFont(QString(), size).GetPixelSize(); };
  EXPECT_EQ(pixels(12), 16);
  EXPECT_EQ(pixels(8), 11);
  EXPECT_EQ(pixels(-13), 13);
  EXPECT_EQ(pixels(0), 1);
  EXPECT_GT(pixels(std::numeric_limits<int>::max()), 10000);
  EXPECT_GT(pixels(std::numeric_limits<int>::min()), 10000);
}

TEST(CanvasTextTest, MeasuresLikeTheFontAtEveryRatio) {
  const QFontMetrics metrics(PlainFont(16));
  for (const QString &text :
       {QStringLiteral("W"), QStringLiteral("Wide words"), QString(), QStringLiteral("AVffi To."), CyrillicText(),
        QStringLiteral("e\u0301\u0301"), QStringLiteral("\u0633\u0644\u0627\u0645")}) {
    TextBoard one;
    const QSize size(metrics.horizontalAdvance(text), metrics.height());
    for (int time = 0; time < 2; ++time) EXPECT_EQ(one.canvas.TextExtent(text), size);
    EXPECT_EQ(TextBoard(2).canvas.TextExtent(text), size);
  }
}

TEST(CanvasTextTest, DrawsTheLettersWhereThePainterDrawsThem) {
  for (const QString &text : {QStringLiteral("A"), QStringLiteral("j"), QStringLiteral("AVffi To. Wide"),
                              CyrillicText(), QStringLiteral("fj"), QStringLiteral("e\u0301a")}) {
    // In the open, and across each border.
    for (const TPoint at : {TPoint(9, 5), TPoint(-4, -3), TPoint(115, 80), TPoint(109, 50), TPoint(-60, 40)}) {
      for (const int ratio : {1, 2}) {
        TextBoard board(ratio);
        board.canvas.TextOut(at.x(), at.y(), text);
        Board plain(120 * ratio, 90 * ratio);
        QPainter painter(&plain.bitmap.GetImage());
        painter.setFont(PlainFont(16 * ratio));
        painter.drawText(at.x() * ratio, at.y() * ratio + painter.fontMetrics().ascent(), text);
        painter.end();
        if (at.x() == 9) {
          ASSERT_FALSE(InkRect(plain).isEmpty());
        }
        for (int y = 0; y < 90 * ratio; ++y) {
          for (int x = 0; x < 120 * ratio; ++x) {
            // Blending rounds in two ways.
            ASSERT_NEAR(int(RedOf(board.At(x, y))), int(RedOf(plain.At(x, y))), 2)
                << text.toStdString() << ' ' << x << ',' << y << " at " << at.x() << " ratio " << ratio;
          }
        }
      }
    }
  }
}

TEST(CanvasTextTest, DrawsALineBelowSeveralLetters) {
  TextBoard board;
  board.canvas.Font().SetStyle(TFontStyle::fsUnderline);
  board.canvas.TextOut(0, 10, QStringLiteral("nn nn"));
  bool isLineFound = false;
  for (int y = 10; y < 40; ++y) {
    int x = 0;
    while (board.At(x, y) == clBlack) ++x;
    isLineFound |= x >= board.canvas.TextWidth(QStringLiteral("nn nn")) - 1;
  }
  EXPECT_TRUE(isLineFound);
}

TEST(CanvasTextTest, FollowsEveryChangeOfTheFont) {
  TextBoard board;
  const auto inkAfter = [&](auto change) {
    board.bitmap.GetImage().fill(Qt::white);
    change(board.canvas.Font());
    board.canvas.TextOut(5, 5, QStringLiteral("M"));
    return board.bitmap.GetImage().copy();
  };
  const QImage plain = inkAfter([](TFont &) {});
  EXPECT_NE(inkAfter([](TFont &font) { font.SetColor(clRed); }), plain);
  EXPECT_GT(board.Count(clRed), 0);
  EXPECT_EQ(inkAfter([](TFont &font) { font.SetColor(clBlack); }), plain);
  EXPECT_NE(inkAfter([](TFont &font) { font.SetStyle(TFontStyle::fsBold); }), plain);
  EXPECT_EQ(inkAfter([](TFont &font) { font.SetStyle({}); }), plain);
  EXPECT_NE(inkAfter([](TFont &font) { font.SetSize(13); }), plain);
}

TEST(CanvasTextTest, FillsTheBoxFirstUnlessTheBrushIsClear) {
  for (const QString &text : {QStringLiteral("."), QStringLiteral("..")}) {
    TextBoard board;
    board.canvas.TextOut(10, 10, text);
    EXPECT_EQ(board.Count(clRed), 0);
    board.FillWith(clRed);
    board.canvas.TextOut(10, 10, text);
    EXPECT_EQ(InkRect(board), QRect(QPoint(10, 10), board.canvas.TextExtent(text)));
  }
}

TEST(CanvasTextTest, TurnsCounterClockwiseAboutTheUpperLeftCorner) {
  const QString text = QStringLiteral("HHH");
  const std::tuple<int, bool, bool> cases[] = {
      {0, false, false}, {900, false, true}, {1800, true, true}, {-900, true, false}};
  for (const auto &[escapement, isLeft, isAbove] : cases) {
    SCOPED_TRACE(escapement);
    TextBoard board;
    board.FillWith(clRed);
    const QSize size = board.canvas.TextExtent(text);
    board.canvas.SetFontEscapement(escapement);
    board.canvas.TextOut(60, 45, text);
    const QRect ink = InkRect(board);
    EXPECT_EQ(ink.size(), escapement % 1800 == 0 ? size : size.transposed());
    EXPECT_EQ(ink.left() < 60, isLeft);
    EXPECT_EQ(ink.top() < 45, isAbove);
  }
}

}  // namespace

}  // namespace tessera
