// SPDX-License-Identifier: MIT
#include <tessera/graphics/detail/SymbolFont.h>

#include <QFontMetrics>
#include <QImage>
#include <QPainter>
#include <gtest/gtest.h>

#include <set>

namespace tessera {
namespace {

const TFont AbsentFont(QStringLiteral("A Family That Nobody Has"), 12, clNavy);

/// The sign in black on white, its text box centred on the middle of an image twice as big as the em square.
QImage Draw(int shape, int sizePx) {
  QImage image(2 * sizePx, 2 * sizePx, QImage::Format_Grayscale8);
  image.fill(Qt::white);
  const detail::SymbolGlyph &glyph = detail::ResolveSymbol(AbsentFont, shape);
  QFont font(glyph.font.GetName());
  font.setPixelSize(sizePx);
  const QFontMetrics metrics(font);
  QPainter painter(&image);
  painter.setFont(font);
  painter.drawText(sizePx - metrics.horizontalAdvance(glyph.text) / 2, sizePx - metrics.height() / 2 + metrics.ascent(),
                   glyph.text);
  return image;
}

/// The box around all pixels that are more ink than paper.
QRect InkBox(const QImage &image) {
  QRect box;
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      if (image.constScanLine(y)[x] < 128) box |= QRect(x, y, 1, 1);
    }
  }
  return box;
}

TEST(SymbolFontTest, DrawsADifferentSignForEveryShapeWithinTheEmSquareAndCentredOnThePoint) {
  for (const int sizePx : {12, 64}) {
    std::set<std::vector<uchar>> pictures;
    for (int shape = 32; shape <= 67; ++shape) {
      SCOPED_TRACE(testing::Message() << "shape " << shape << " at " << sizePx << " px");
      const QImage image = Draw(shape, sizePx);
      pictures.emplace(image.constBits(), image.constBits() + image.sizeInBytes());
      const QRect box = InkBox(image);
      EXPECT_GE(std::max(box.width(), box.height()), sizePx * 2 / 3);
      EXPECT_TRUE(QRect(sizePx / 2, sizePx / 2, sizePx, sizePx).contains(box));
      // Twice the distance of the middles, so that half pixels stay whole numbers.
      EXPECT_LE(std::abs(box.left() + box.right() + 1 - 2 * sizePx), 2);
      EXPECT_LE(std::abs(box.top() + box.bottom() + 1 - 2 * sizePx), 2);
    }
    EXPECT_EQ(pictures.size(), 36U);
  }
  for (const int shape : {31, -1}) EXPECT_TRUE(InkBox(Draw(shape, 24)).isNull()) << shape;
}

TEST(SymbolFontTest, RepeatsTheSignsForHigherCodesUnlessTheFontIsInstalled) {
  EXPECT_EQ(detail::ResolveSymbol(AbsentFont, 32 + 36 * 100000).text, detail::ResolveSymbol(AbsentFont, 32).text);
  const TFont font(QStringLiteral("DejaVu Sans"), 9, clRed);
  EXPECT_EQ(detail::ResolveSymbol(font, 0x416).font, font);
  EXPECT_EQ(detail::ResolveSymbol(font, 0x416).text, QString(QChar(0x416)));
}

}  // namespace
}  // namespace tessera
