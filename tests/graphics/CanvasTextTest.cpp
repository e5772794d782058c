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

const QString CyrillicText = QStringLiteral("\u0413\u0443\u0434\u0456\u2014\u2116 7");

/// The smallest rectangle of device pixels that are not white.
QRect InkRect(const Board &board) {
  QRect rect;
  const QImage &image = board.bitmap.GetImage();
  for (int i = 0; i < image.width() * image.height(); ++i) {
    const QPoint at(i % image.width(), i / image.width());
    if (board.At(at.x(), at.y()) != clWhite) rect |= QRect(at, QSize(1, 1));
  }
  return rect;
}

TEST(TFontTest, CountsPointsAtNinetySixPixelsAnInch) {
  for (const auto &[size, pixels] : {std::pair(12, 16), {8, 11}, {-13, 13}, {0, 1}}) {
    EXPECT_EQ(TFont(QString(), size).GetPixelSize(), pixels);
  }
  EXPECT_GT(TFont(QString(), std::numeric_limits<int>::min()).GetPixelSize(), 10000);
}

TEST(CanvasTextTest, MeasuresLikeTheFontAtEveryRatio) {
  const QFontMetrics metrics(PlainFont(16));
  for (const QString &text : {QString(), QStringLiteral("AVffi To."), CyrillicText, QStringLiteral("e\u0301\u0301"),
                              QStringLiteral("\u0633\u0644\u0627\u0645")}) {
    TextBoard one;
    const QSize size(metrics.horizontalAdvance(text), metrics.height());
    for (int time = 0; time < 2; ++time) EXPECT_EQ(one.canvas.TextExtent(text), size);
    EXPECT_EQ(TextBoard(2).canvas.TextExtent(text), size);
  }
}

TEST(CanvasTextTest, DrawsTheLettersWhereThePainterDrawsThem) {
  for (const QString &text : {QStringLiteral("A"), QStringLiteral("j"), QStringLiteral("AVffi To. Wide"), CyrillicText,
                              QStringLiteral("fj"), QStringLiteral("e\u0301a")}) {
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
        for (int i = 0; i < 120 * ratio * 90 * ratio; ++i) {
          const QPoint pixel(i % (120 * ratio), i / (120 * ratio));
          // Blending rounds in two ways.
          ASSERT_NEAR(int(RedOf(board.At(pixel.x(), pixel.y()))), int(RedOf(plain.At(pixel.x(), pixel.y()))), 2)
              << text.toStdString() << " at " << at.x() << " ratio " << ratio;
        }
      }
    }
  }
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
  EXPECT_EQ(inkAfter([](TFont &font) { font.SetColor(clBlack); }), plain);
  EXPECT_NE(inkAfter([](TFont &font) { font.SetStyle(TFontStyle::fsBold); }), plain);
}

TEST(CanvasTextTest, FillsTheBoxFirst) {
  for (const QString &text : {QStringLiteral("."), QStringLiteral("..")}) {
    TextBoard board;
    board.FillWith(clRed);
    board.canvas.TextOut(10, 10, text);
    EXPECT_EQ(InkRect(board), QRect(QPoint(10, 10), board.canvas.TextExtent(text)));
  }
}

TEST(CanvasTextTest, TurnsCounterClockwiseAboutTheUpperLeftCorner) {
  const QString text = QStringLiteral("HHH");
  const std::tuple<int, bool, bool> cases[] = {{900, false, true}, {1800, true, true}, {-900, true, false}};
  for (const auto &[escapement, isLeft, isAbove] : cases) {
    TextBoard board;
    board.FillWith(clRed);
    const QSize size = board.canvas.TextExtent(text);
    board.canvas.SetFontEscapement(escapement);
    board.canvas.TextOut(60, 45, text);
    const QRect ink = InkRect(board);
    EXPECT_EQ(ink.size(), escapement % 1800 == 0 ? size : size.transposed());
    EXPECT_EQ(ink.left() < 60, isLeft) << escapement;
    EXPECT_EQ(ink.top() < 45, isAbove);
  }
}

}  // namespace

}  // namespace tessera
