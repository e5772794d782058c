// SPDX-License-Identifier: MIT
#include "../support/ObjectChecks.h"

#include <tessera/objects/TSprite.h>

#include <gtest/gtest.h>

#include <random>

namespace tessera::test {
namespace {

/// A map that can say that its picture is being rebuilt.
struct TRebuildingHost final : TFakeMapHost {
  bool isBusy = false;
  [[nodiscard]] bool GetIsBusy() const override { return isBusy; }
};

/// A picture whose bottom left pixel is white and whose other pixels are of one colour.
TBitmap Picture(int width, int height, TColor color) {
  QImage image(width, height, QImage::Format_RGB32);
  image.fill(ToRgb(color));
  image.setPixel(0, height - 1, ToRgb(clWhite));
  return TBitmap(image);
}

class TSpriteTest : public testing::Test {
 protected:
  TSpriteTest() {
    FillWithNoise(1);
    sprite.SetMap(&host);
  }
  /// Gives the map a picture in which every pixel differs from its neighbours.
  void FillWithNoise(double ratio) {
    host.picture.SetSize(100, 100, ratio);
    std::mt19937 random(1);
    QImage &image = host.picture.GetImage();
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) image.setPixel(x, y, QRgb(random()) | 0xFF000000U);
    }
    map = image.copy();
  }
  [[nodiscard]] const QImage &Shown() const { return host.picture.GetImage(); }

  TRebuildingHost host;
  TSprite sprite;
  QImage map;  ///< The picture without the sprite.
};

TEST_F(TSpriteTest, StandsCentredOnItsPointWithoutItsTransparentPixels) {
  sprite.Move(50, 40);
  sprite.SetGlyph(Picture(4, 6, clRed));
  QImage expected = map;
  for (int y = 57; y < 63; ++y) {
    for (int x = 48; x < 52; ++x) expected.setPixel(x, y, ToRgb(clRed));
  }
  expected.setPixel(48, 62, map.pixel(48, 62));
  EXPECT_EQ(Shown(), expected);
}

TEST_F(TSpriteTest, LeavesNoWrongPixelWhereverItGoes) {
  for (const double ratio : {1.0, 2.0, 1.25, 1.5}) {
    for (const QSize &size : {QSize(1, 1), QSize(5, 7), QSize(8, 3), QSize(9, 150), QSize(301, 201)}) {
      sprite.SetGlyph(Picture(size.width(), size.height(), clRed));
      sprite.Move(0, 0);
      FillWithNoise(ratio);
      std::mt19937 random(3);
      host.isBusy = true;
      sprite.Draw();
      host.isBusy = false;
      for (int i = 0; i < 300; ++i) sprite.Move(double(random() % 140) - 20, double(random() % 140) - 20);
      const QImage moved = Shown().copy();
      sprite.Hide();
      ASSERT_EQ(Shown(), map) << ratio << ' ' << size.width() << 'x' << size.height();
      sprite.Show();
      ASSERT_EQ(Shown(), moved);
    }
  }
}

TEST_F(TSpriteTest, DoesNotKeepItselfAsBackground) {
  sprite.SetGlyph(Picture(5, 5, clRed));
  sprite.SetVisible(false);
  sprite.Move(60, 60);
  EXPECT_EQ(Shown(), map);
  sprite.SetX(30);
  EXPECT_NE(Shown(), map) << "the setters show a sprite that is not visible";
  sprite.SetVisible(true);
  TSprite other;
  other.SetGlyph(Picture(9, 9, clBlue));
  other.SetMap(&host);
  other.Move(33, 62);
  EXPECT_EQ(host.At(32, 38), clBlue);
  other.Hide();
  sprite.Move(60, 60);
  sprite.Hide();
  EXPECT_EQ(Shown(), map);
}

TEST_F(TSpriteTest, DoesNotBringBackWhatARebuiltPictureHasNotGot) {
  sprite.SetGlyph(Picture(5, 5, clRed));
  sprite.Move(40, 40);
  host.isBusy = true;
  host.picture.GetImage().fill(ToRgb(clNavy));
  sprite.Paint();
  host.isBusy = false;
  EXPECT_EQ(host.At(40, 60), clRed);
  sprite.Move(70, 70);
  EXPECT_EQ(host.At(40, 60), clNavy);
  // In a view that does not show the sprite the layer does not draw it at all.
  host.picture.GetImage().fill(ToRgb(clBlue));
  host.viewport.CenterX += 28;
  sprite.Move(80, 80);
  EXPECT_EQ(host.At(70 - 28, 30), clBlue);
  EXPECT_EQ(host.At(80 - 28, 20), clRed);
}

TEST_F(TSpriteTest, IsDrawnWhenItsPointIsInView) {
  host.isBusy = true;
  for (const auto &[x, y, isDrawn] : {std::tuple(0, 0, true), {100, 100, true}, {-1, 50, false}, {50, 101, false}}) {
    FillWithNoise(1);
    TSprite fresh;
    fresh.SetGlyph(Picture(7, 7, clRed));
    fresh.Move(x, y);
    fresh.SetMap(&host);
    fresh.Paint();
    EXPECT_EQ(Shown() != map, isDrawn) << x << ' ' << y;
  }
}

TEST_F(TSpriteTest, TakesItsPictureFromTheList) {
  TImageList images;
  images.Add(Picture(5, 5, clRed));
  images.Add(Picture(3, 3, clBlue));
  sprite.Move(50, 50);
  sprite.SetVisible(false);
  sprite.SetImageIndex(1);
  EXPECT_TRUE(sprite.GetGlyph().IsEmpty()) << "no list, no picture";
  EXPECT_TRUE(sprite.GetVisible());
  sprite.SetImageList(&images);
  sprite.SetImageIndex(0);
  EXPECT_EQ(host.At(52, 48), clRed);
  for (const int index : {1, 2}) {  // the second is none of the list
    sprite.SetImageIndex(index);
    ExpectPixels(host, {{50, 50, clBlue}, {52, 48, FromQColor(map.pixelColor(52, 48))}});
  }
}

TEST_F(TSpriteTest, AnswersHitsByItsPictureAndRectanglesByItsCornersOnAMap) {
  sprite.SetGlyph(Picture(10, 6, clRed));
  sprite.Move(50, 50);
  ExpectHits(sprite, {{55, 47}, {45, 53}}, {{56, 50}, {50, 54}});
  ExpectRectAnswers(sprite, {{{0, 0, 100, 100}, true, false, true},
                             {{55, 53, 60, 60}, true, false, false},
                             {{49, 49, 51, 51}, false, false, true},
                             {{60, 60, 0, 0}, false, false, false}});
  EXPECT_FALSE(sprite.Intersects(sprite) || sprite.Contains(sprite));
  TSprite loose;
  loose.SetGlyph(Picture(5, 5, clRed));
  loose.Show();
  loose.Hide();
  loose.Draw();
  EXPECT_FALSE(loose.ContainsPoint(0, 0) || loose.IntersectsRect(-1, -1, 1, 1));
}

}  // namespace
}  // namespace tessera::test
