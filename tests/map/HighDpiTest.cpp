// SPDX-License-Identifier: MIT
// Runs with a device pixel ratio of 2.
#include "MapFixture.h"

#include <tessera/graphics/TCanvas.h>
#include <tessera/objects/TSprite.h>

namespace tessera::test {
namespace {

using HighDpiTest = MapFixture;

TEST_F(HighDpiTest, DrawsAtTheResolutionOfTheScreen) {
  ASSERT_EQ(map.devicePixelRatioF(), 2);
  auto *line = AddLayer()->NewObject<TPolyline>();
  TMapPoints &points = line->GetParts().Add().GetPoints();
  points.Add(20.5, 0);
  points.Add(20.5, 100);
  AddSquare(map.GetLayers()->First(), 60, 20, 40, clRed);
  const QImage picture = Shown();
  ASSERT_EQ(picture.size(), QSize(400, 200));
  int black = 0;
  for (int x = 0; x < 100; ++x) black += picture.pixel(x, 101) == Pixel(clBlack);
  EXPECT_EQ(black, 2) << "a pen of one client pixel is two device pixels wide";
  EXPECT_EQ(picture.pixel(125, 155), Pixel(clRed));
  EXPECT_EQ(picture.pixel(115, 155), Pixel(clWhite));
}

TEST_F(HighDpiTest, TakesTheFastSelectionAwayWithoutATrace) {
  TRegion *square = AddSquare(AddLayer(), 20, 20, 40, clRed);
  const QImage before = Shown();
  square->Select();
  const QImage selected = Shown();
  EXPECT_NE(selected, before);
  map.GetSelection()->Clear();
  EXPECT_EQ(Shown(), before);
}

TEST_F(HighDpiTest, CopiesThePictureAtItsResolution) {
  AddSquare(AddLayer(), 20, 20, 40, clRed);
  const QImage shown = Shown();
  TBitmap copy;
  map.AssignToBitmap(copy);
  EXPECT_EQ(copy.GetWidth(), 200);
  EXPECT_EQ(copy.GetImage().size(), QSize(400, 200));
  EXPECT_EQ(copy.GetImage().pixel(80, 120), shown.pixel(80, 120));
}

TEST_F(HighDpiTest, MovesASpriteWithoutATrace) {
  AddSquare(AddLayer(), 20, 20, 40, clRed);
  auto *sprite = AddLayer()->NewObject<TSprite>();
  QImage glyph(7, 5, QImage::Format_RGB32);
  glyph.fill(ToRgb(clNavy));
  sprite->SetGlyph(TBitmap(glyph));
  sprite->GetGlyph().SetTransparent(false);
  sprite->Move(40, 40);
  map.DoUpdate(true);
  const QImage start = Shown();
  EXPECT_EQ(start.pixel(80, 120), Pixel(clNavy));
  for (int x = -10; x < 210; x += 3) sprite->Move(x, 110 - x / 2.0);
  sprite->Move(61, 21);
  const QImage moved = Shown();
  const std::vector<QRect> repaints = Repaints([&] { sprite->Move(62, 21); });
  ASSERT_EQ(repaints.size(), 1U);
  EXPECT_TRUE(QRect(55, 73, 13, 12).contains(repaints[0]));
  sprite->Move(61, 21);
  EXPECT_NE(moved, start);
  map.DoUpdate(true);
  EXPECT_EQ(Shown(), moved);
}

}  // namespace
}  // namespace tessera::test
