// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/graphics/TBrush.h>
#include <tessera/graphics/TFont.h>
#include <tessera/graphics/TPen.h>

#include <QImageReader>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <limits>

namespace tessera {

namespace {

TEST(TBitmapTest, HoldsClientPixelsAtTheFullResolutionIfTheSizeCanBe) {
  TBitmap bitmap;
  bitmap.SetSize(5, 3, 1.5);
  EXPECT_EQ(bitmap.GetImage().size(), QSize(8, 5));
  EXPECT_EQ(QSize(bitmap.GetWidth(), bitmap.GetHeight()), QSize(5, 3));
  constexpr int Highest = std::numeric_limits<int>::max();
  for (const QSize size : {QSize(0, 5), QSize(5, -1), QSize(Highest, Highest), QSize(1 << 20, 1 << 20)}) {
    bitmap.SetSize(2, 2);
    bitmap.SetSize(size.width(), size.height());
    EXPECT_TRUE(bitmap.IsEmpty()) << size.width() << 'x' << size.height();
  }
}

TEST(TBitmapTest, ReadsPicturesAboveTheLimitOfTheProcessAndLeavesThatAsItWas) {
  const QTemporaryDir folder;
  const QString fileName = folder.filePath(QStringLiteral("picture.png"));
  QImage image(600, 600, QImage::Format_RGB32);
  image.fill(Qt::red);
  ASSERT_TRUE(image.save(fileName));
  const int previousMb = QImageReader::allocationLimit();
  QImageReader::setAllocationLimit(1);
  EXPECT_TRUE(QImageReader(fileName).read().isNull());
  TBitmap bitmap;
  bitmap.LoadFromFile(fileName);
  EXPECT_EQ(bitmap.GetImage(), image);
  EXPECT_EQ(QImageReader::allocationLimit(), 1);
  QImageReader::setAllocationLimit(previousMb);
}

TEST(TBitmapTest, NamesTheFileItCannotReadAndStaysAsItWas) {
  const QTemporaryDir folder;
  const QString fileName = folder.filePath(QStringLiteral("missing.bmp"));
  TBitmap bitmap;
  bitmap.SetSize(4, 4);
  try {
    bitmap.LoadFromFile(fileName);
    ADD_FAILURE();
  } catch (const EInOutError &error) {
    EXPECT_TRUE(MessageOf(error).contains(fileName)) << error.what();
  }
  EXPECT_EQ(bitmap.GetWidth(), 4);
}

TEST(QtToolsTest, PensGoToQtAndBack) {
  TPen pen;
  pen.SetColor(RGB(1, 20, 255));
  pen.SetWidth(7);
  for (int style = int(TPenStyle::psSolid); style < int(TPenStyle::psInsideFrame); ++style) {
    pen.SetStyle(TPenStyle(style));
    EXPECT_EQ(TPen::FromQPen(pen.ToQPen()), pen) << style;
  }
}

TEST(QtToolsTest, BrushesAndFontsGoToQtAndBack) {
  TBrush brush;
  brush.SetColor(RGB(1, 20, 255));
  for (int style = int(TBrushStyle::bsSolid); style <= int(TBrushStyle::bsDiagCross); ++style) {
    brush.SetStyle(TBrushStyle(style));
    EXPECT_EQ(TBrush::FromQBrush(brush.ToQBrush()), brush) << style;
  }
  TFont font(QStringLiteral("Serif"), -13, clNavy);
  font.SetStyle(TFontStyles(TFontStyle::fsBold) | TFontStyle::fsUnderline);
  EXPECT_EQ(TFont::FromQFont(font.ToQFont(), clNavy), font);
}

}  // namespace

}  // namespace tessera
