// SPDX-License-Identifier: MIT
#include <tessera/graphics/TBrush.h>
#include <tessera/graphics/TFont.h>
#include <tessera/graphics/TPen.h>

#include <gtest/gtest.h>

#include <limits>

namespace tessera {
namespace {

TEST(QtToolsTest, PensGoToQtAndBack) {
  for (int style = int(TPenStyle::psSolid); style <= int(TPenStyle::psInsideFrame); ++style) {
    for (const int width : {0, 1, 7, std::numeric_limits<int>::max()}) {
      TPen pen;
      pen.SetColor(RGB(1, 20, 255));
      pen.SetWidth(width);
      pen.SetStyle(TPenStyle(style));
      const TPen back = TPen::FromQPen(pen.ToQPen());
      if (pen.GetStyle() == TPenStyle::psInsideFrame) pen.SetStyle(TPenStyle::psSolid);
      EXPECT_EQ(back, pen) << style << ' ' << width;
    }
  }
  QPen dashes(QColor(9, 8, 7, 100), 2.6);
  dashes.setDashPattern({3, 1});
  const TPen pen = TPen::FromQPen(dashes);
  EXPECT_EQ(pen.GetStyle(), TPenStyle::psDash);
  EXPECT_EQ(pen.GetWidth(), 3);
  EXPECT_EQ(pen.GetColor(), RGB(9, 8, 7));
}

TEST(QtToolsTest, BrushesGoToQtAndBack) {
  for (int style = int(TBrushStyle::bsSolid); style <= int(TBrushStyle::bsDiagCross); ++style) {
    TBrush brush;
    brush.SetColor(RGB(1, 20, 255));
    brush.SetStyle(TBrushStyle(style));
    EXPECT_EQ(TBrush::FromQBrush(brush.ToQBrush()), brush) << style;
  }
  EXPECT_EQ(TBrush::FromQBrush(QBrush(Qt::Dense3Pattern)).GetStyle(), TBrushStyle::bsSolid);
  QImage image(3, 2, QImage::Format_RGB32);
  image.fill(Qt::red);
  image.setPixel(1, 1, qRgb(0, 0, 0));
  TBitmap bitmap(image);
  TBrush brush;
  brush.SetBitmap(bitmap);
  EXPECT_EQ(TBrush::FromQBrush(brush.ToQBrush()).GetBitmap()->GetImage().convertToFormat(QImage::Format_RGB32), image);
  bitmap.SetTransparent(true);
  bitmap.SetTransparentColor(clBlack);
  brush.SetBitmap(bitmap);
  const QImage texture = brush.ToQBrush().textureImage();
  EXPECT_EQ(qAlpha(texture.pixel(1, 1)), 0);
  EXPECT_EQ(texture.pixel(0, 1), ToRgb(clRed));
}

TEST(QtToolsTest, FontsGoToQtAndBack) {
  for (int style = 0; style < 16; ++style) {
    TFont font(QStringLiteral("Serif"), style % 2 == 0 ? 11 : -13, clNavy);
    font.SetStyle(TFontStyles(style));
    EXPECT_EQ(TFont::FromQFont(font.ToQFont(), clNavy), font) << style;
  }
  QFont semibold(QStringLiteral("Sans"));
  semibold.setPointSizeF(9.6);
  semibold.setWeight(QFont::DemiBold);
  TFont font(QStringLiteral("Sans"), 10);
  font.SetStyle(TFontStyle::fsBold);
  EXPECT_EQ(TFont::FromQFont(semibold), font);
}

}  // namespace
}  // namespace tessera
