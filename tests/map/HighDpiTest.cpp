// SPDX-License-Identifier: MIT
// Runs with a device pixel ratio of 2.
#include "MapFixture.h"

#include <tessera/graphics/TCanvas.h>

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

}  // namespace
}  // namespace tessera::test
