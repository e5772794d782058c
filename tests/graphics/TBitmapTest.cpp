// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/graphics/TBitmap.h>

#include <QFile>
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
    EXPECT_EQ(bitmap.GetWidth(), 0);
  }
}

TEST(TBitmapTest, TakesItsTransparentColourFromTheBottomLeftPixelUnlessOneIsSet) {
  TBitmap bitmap(QImage(3, 2, QImage::Format_Indexed8));
  EXPECT_EQ(bitmap.GetImage().format(), QImage::Format_RGB32) << "a format that is drawn without conversion";
  bitmap.GetImage().setPixel(0, 1, ToRgb(clRed));
  bitmap.SetTransparentColor(clNavy);
  EXPECT_EQ(bitmap.GetTransparentColor(), clNavy);
  bitmap.SetTransparentColor(std::nullopt);
  EXPECT_EQ(bitmap.GetTransparentColor(), clRed);
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
  const QString broken = folder.filePath(QStringLiteral("broken.png"));
  QFile file(broken);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("\x89PNG\r\n\x1a\nnonsense");
  file.close();
  TBitmap bitmap;
  bitmap.SetSize(4, 4);
  for (const QString &fileName : {broken, folder.filePath(QStringLiteral("missing.bmp"))}) {
    try {
      bitmap.LoadFromFile(fileName);
      ADD_FAILURE() << "read " << fileName.toStdString();
    } catch (const EInOutError &error) {
      EXPECT_TRUE(MessageOf(error).contains(fileName)) << error.what();
    }
    EXPECT_EQ(bitmap.GetWidth(), 4);
  }
}

}  // namespace

}  // namespace tessera
