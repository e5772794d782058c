// SPDX-License-Identifier: MIT
#include "MapFixture.h"

#include <tessera/base/Exceptions.h>
#include <tessera/graphics/TCanvas.h>

#include <QSignalSpy>

#include <map>
#include <memory>

namespace tessera::test {
namespace {

using TTesseraPaintTest = MapFixture;

TEST_F(TTesseraPaintTest, ShowsItsColourAndTellsNothingWithoutLayers) {
  QSignalSpy painted(&map, &TTessera::OnPaint);
  QSignalSpy updated(&map, &TTessera::OnUpdate);
  QSignalSpy progress(&map, &TTessera::OnStartProgress);
  map.SetColor(clRed);
  EXPECT_EQ(Shown().pixel(100, 50), Pixel(clRed));
  EXPECT_EQ(painted.count() + updated.count() + progress.count(), 0);
}

TEST_F(TTesseraPaintTest, DrawsTheLastLayerOnTopAndReportsEachOne) {
  AddSquare(AddLayer(), 20, 20, 40, clRed);
  AddSquare(AddLayer(), 40, 40, 40, clBlue);
  QSignalSpy started(&map, &TTessera::OnStartProgress);
  QSignalSpy shown(&map, &TTessera::OnShowProgress);
  const QImage picture = Shown();
  EXPECT_EQ(picture.pixel(30, 70), Pixel(clRed));
  EXPECT_EQ(picture.pixel(50, 50), Pixel(clBlue));
  EXPECT_EQ(picture.pixel(10, 90), Pixel(clWhite));
  EXPECT_EQ(started.count(), 1);
  EXPECT_EQ(started.at(0).at(2).toInt(), 1);
  ASSERT_EQ(shown.count(), 2);
  EXPECT_EQ(shown.at(1).at(1).toInt(), 1);
  EXPECT_EQ(map.GetDisplayed()->GetCount(), 2);
}

TEST_F(TTesseraPaintTest, KeepsItsPictureUntilItIsStaleAndWhatIsDrawnOnTheScreenUntilItRepaints) {
  AddSquare(AddLayer(), 20, 20, 40, clRed);
  const QSignalSpy painted(&map, &TTessera::OnPaint);
  const QImage before = Shown();
  map.GetCanvas().Brush().SetColor(clNavy);
  map.GetCanvas().FillRect(QRect(0, 0, 10, 10));
  map.update();
  EXPECT_EQ(Shown().pixel(5, 5), Pixel(clNavy));
  map.Invalidate();
  EXPECT_EQ(Shown(), before);
  EXPECT_EQ(painted.count(), 1);
  map.resize(210, 110);
  Shown();
  EXPECT_EQ(painted.count(), 2);
}

TEST_F(TTesseraPaintTest, MarksTheFastSelectionAtOnceAndTakesItAwayWithoutATrace) {
  QSignalSpy painted(&map, &TTessera::OnPaint);
  TRegion *square = AddSquare(AddLayer(), 20, 20, 40, clRed);
  const QImage before = Shown();
  square->Select();
  const QImage selected = Shown();
  EXPECT_NE(selected.pixel(30, 70), before.pixel(30, 70));
  EXPECT_EQ(selected.pixel(10, 90), before.pixel(10, 90));
  TBitmap copy;
  map.AssignToBitmap(copy);
  EXPECT_EQ(copy.GetImage().convertToFormat(QImage::Format_RGB32), before) << "the selection is not in the picture";
  map.Invalidate();
  EXPECT_EQ(Shown(), selected) << "a repaint shows the selection again";
  map.GetSelection()->Remove(square);
  EXPECT_EQ(Shown(), before);
  EXPECT_EQ(painted.count(), 1) << "the picture was not rebuilt for the selection";
}

TEST_F(TTesseraPaintTest, MakesTheSlowSelectionPartOfThePicture) {
  map.SetFastSelection(false);
  TRegion *square = AddSquare(AddLayer(), 20, 20, 40, clRed);
  square->Select();
  const QImage picture = Shown();
  std::map<QRgb, int> pixels;
  for (int i = 0; i < 64; ++i) ++pixels[picture.pixel(30 + i % 8, 50 + i / 8)];
  EXPECT_EQ(pixels, (std::map<QRgb, int>{{Pixel(clBlue), 48}, {Pixel(clWhite), 16}}))
      << "a quarter of the pattern lets the background show";
}

TEST_F(TTesseraPaintTest, SurvivesAViewWithoutExtent) {
  AddSquare(AddLayer(), 20, 20, 40, clRed);
  map.SetMaxX(map.GetMinX());
  Shown();
  EXPECT_FALSE(messages.isEmpty());
  EXPECT_THROW(static_cast<void>(map.GetViewBounds()), EZeroDivide);
}

TEST_F(TTesseraPaintTest, LabelsObjectsThatAreWhollyInView) {
  TMapLayer *layer = AddLayer();
  layer->GetFields().Add(QStringLiteral("name"), TDataType::dtString, 20);
  TRegion *square = AddSquare(layer, 60, 20, 60, clWhite);
  square->GetFields().GetFields(0).SetAsString(QStringLiteral("MMMM"));
  const QImage plain = Shown();
  layer->SetAutoLabel(true);
  EXPECT_NE(Shown(), plain);
  layer->SetLabelFieldIndex(1);
  EXPECT_EQ(Repainted(), plain);
  layer->SetLabelFieldIndex(0);
  map.SetCenterX(0);
  const QImage cut = Shown();
  layer->SetAutoLabel(false);
  EXPECT_EQ(Shown(), cut) << "an object that sticks out has no label";
}

TEST_F(TTesseraPaintTest, ForgetsObjectsThatAreDestroyed) {
  TMapLayer *layer = AddLayer();
  TRegion *square = AddSquare(layer, 20, 20, 40, clRed);
  Shown();
  square->Select();
  layer->RemoveObject(square).reset();
  EXPECT_EQ(map.GetSelection()->GetCount() + map.GetDisplayed()->GetCount(), 0);
  EXPECT_EQ(Shown().pixel(30, 70), Pixel(clWhite));
}

TEST_F(TTesseraPaintTest, IsDestroyedWithLayersAndLinksInUse) {
  struct Link : TMapDataLink {
    int events = 0;
    void MapEvent(TMapDataLinkEvent event, TObject *, int) override { events += event <= mdlDelSelection ? 1 : 0; }
  } link;
  auto other = std::make_unique<TTessera>();
  link.SetMap(other.get());
  TMapLayer *layer = other->GetLayers()->Add(QString(), QStringLiteral("layer"));
  AddSquare(layer, 0, 0, 10, clRed)->Select();
  EXPECT_EQ(link.events, 3) << "layer, object and selection";
  other.reset();
  EXPECT_EQ(link.events, 3) << "a map that goes down tells nothing";
  EXPECT_EQ(link.GetMap(), nullptr);
}

}  // namespace
}  // namespace tessera::test
