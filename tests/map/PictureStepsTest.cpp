// SPDX-License-Identifier: MIT
// Pictures that are made in steps, and what happens between them.
#include "../support/RandomShapes.h"
#include "MapFixture.h"

#include <tessera/graphics/TCanvas.h>
#include <tessera/layers/TMapLayers.h>
#include <tessera/objects/TMapScopes.h>

#include <QSignalSpy>

#include <array>
#include <memory>
#include <stdexcept>

namespace tessera::test {
namespace {

/// A map on the screen that draws one object a step, for which there is one each time that events are processed.
class PictureStepsTest : public MapFixture {
 protected:
  static constexpr int Squares = 8;

  PictureStepsTest() {
    map.GetPainting()->SetPaintInSteps(true);
    map.GetPainting()->SetStepMs(0);
    for (int i = 0; i < Squares; ++i) AddSquare(i == 0 ? AddLayer() : Bottom(), 10 + 20 * i, 40, 10, ColorOf(i));
    map.show();
    Finish();
  }

  [[nodiscard]] TMapLayer *Bottom() const { return map.GetLayers()->First(); }
  static TColor ColorOf(int square) { return RGB(20 * square, 100, 200 - 20 * square); }

  static void RunSteps(int count) {
    for (int i = 0; i < count; ++i) QApplication::processEvents();
  }
  static void Finish() { RunSteps(100); }

  /// What stands on the screen picture, without a paint event.
  QImage OnScreen() { return map.GetCanvas().CopyOf(map.rect()).GetImage(); }
  QImage MadeAtOnce() {
    map.GetPainting()->SetPaintInSteps(false);
    QImage picture = Repainted();
    map.GetPainting()->SetPaintInSteps(true);
    return picture;
  }

  void DoAnything(TRandomShapes &random);
};

/// Does what programs and people may do between two steps, one thing at random.
void PictureStepsTest::DoAnything(TRandomShapes &random) {
  TMapLayers &layers = *map.GetLayers();
  if (layers.GetCount() == 0) layers.Add(QString(), QString());
  TMapLayer &layer = *layers.GetLayer(random.Whole(0, layers.GetCount() - 1));
  if (layer.GetObjectCount() == 0) {
    AddSquare(&layer, 0, 0, 30, clRed);
    map.Invalidate();
  }
  const int any = random.Whole(0, layer.GetObjectCount() - 1);
  const std::array doomed{layer.GetObjects(any)};
  const std::array<std::function<void()>, 14> things{
      [&] { map.SetCenterX(random.Real(0, 200)); },
      [&] { map.SetZoom(std::exp2(random.Real(-3, 3))); },
      [&] {
        AddSquare(&layer, random.Real(0, 180), random.Real(0, 80), 20, ColorOf(any));
        map.Invalidate();
      },
      [&] { layer.DeleteObjects(doomed); },
      [&] { layer.MoveObject(any, 0); },
      [&] { layers.Add(QString(), QString()); },
      [&] { layers.Delete(random.Whole(0, layers.GetCount() - 1)); },
      [&] { map.SelectObjectAt(random.Real(0, 200), random.Real(0, 100), false); },
      [&] { map.PaintMapToBitmap(); },
      [&] { map.PaintBitmapToMapCanvas(); },
      [&] { map.resize(random.Whole(1, 300), random.Whole(1, 200)); },
      [&] { map.SetLayers(std::make_unique<TMapLayers>()); },
      [&] { map.Invalidate(); },
      [&] { const TUpdateScope update(map); },
  };
  things[std::size_t(random.Whole(0, int(things.size()) - 1))]();
}

TEST_F(PictureStepsTest, ShowsTheOldPictureMovedAndScaledUntilTheNewOneIsComplete) {
  EXPECT_EQ(OnScreen().pixel(15, 55), Pixel(ColorOf(0)));
  const QSignalSpy painted(&map, &TTessera::OnPaint);
  const QSignalSpy repainted(&map, &TTessera::OnScreenRepainted);
  AddSquare(Bottom(), 150, 10, 10, clRed);
  LookAt(125, 50, 2);
  RunSteps(3);
  EXPECT_EQ(OnScreen().pixel(2 * (95 - 75), 60), Pixel(ColorOf(4)));
  EXPECT_EQ(OnScreen().pixel(195, 95), Pixel(clWhite)) << "nothing is known of it";
  EXPECT_NE(OnScreen().pixel(2 * (155 - 75), 90), Pixel(clRed));
  EXPECT_EQ(painted.count(), 0);
  EXPECT_EQ(repainted.count(), 1) << "figures stand on the old picture, too";
  TBitmap last;
  map.AssignToBitmap(last);
  EXPECT_EQ(last.GetImage().pixel(15, 55), Pixel(ColorOf(0))) << "as the last paint left it";
  Finish();
  EXPECT_EQ(painted.count(), 1);
  EXPECT_EQ(repainted.count(), 2);
  EXPECT_EQ(OnScreen(), MadeAtOnce());
}

TEST_F(PictureStepsTest, SendsTheEventsOfAPictureThatIsMadeAtOnce) {
  AddSquare(AddLayer(), 20, 20, 40, clRed);
  QStringList events;
  const auto note = [&](const char *name) { return [&events, name] { events << QLatin1String(name); }; };
  QObject::connect(&map, &TTessera::OnStartProgress, &map, note("start"));
  QObject::connect(&map, &TTessera::OnShowProgress, &map, note("show"));
  QObject::connect(&map, &TTessera::OnStopProgress, &map, note("stop"));
  QObject::connect(&map, &TTessera::OnUpdate, &map, note("update"));
  QObject::connect(&map, &TTessera::OnPaint, &map, note("paint"));
  QObject::connect(&map, &TTessera::OnScreenRepainted, &map, note("repainted"));
  const QImage atOnce = MadeAtOnce();
  const QStringList expected = std::exchange(events, {});
  map.DoUpdate(true);
  Finish();
  EXPECT_EQ(events, expected);
  EXPECT_EQ(OnScreen(), atOnce);
}

TEST_F(PictureStepsTest, GivesUpAPictureForANewerOne) {
  const QSignalSpy painted(&map, &TTessera::OnPaint);
  const QSignalSpy started(&map, &TTessera::OnStartProgress);
  const QSignalSpy stopped(&map, &TTessera::OnStopProgress);
  for (int i = 0; i < 5; ++i) {
    LookAt(110 + i, 50);
    RunSteps(4);
  }
  EXPECT_EQ(painted.count(), 0);
  EXPECT_EQ(OnScreen().pixel(155 - 14, 55), Pixel(ColorOf(7))) << "the old picture, in the newest view";
  LookAt(100, 50);
  RunSteps(4);
  EXPECT_EQ(OnScreen().pixel(155, 55), Pixel(ColorOf(7))) << "back in the view of the old picture";
  Finish();
  EXPECT_EQ(painted.count(), 1);
  EXPECT_EQ(started.count(), 6);
  EXPECT_EQ(stopped.count(), 6);
}

TEST_F(PictureStepsTest, MakesAPictureAnewWhenObjectsHaveComeOrGoneWithoutARepaint) {
  map.DoUpdate(true);
  RunSteps(3);
  AddSquare(Bottom(), 150, 10, 10, clRed);
  Finish();
  EXPECT_EQ(OnScreen().pixel(155, 85), Pixel(clRed));
  EXPECT_EQ(OnScreen(), MadeAtOnce());
  map.DoUpdate(true);
  RunSteps(3);
  const auto removed = Bottom()->RemoveObject(Bottom()->First());
  Finish();
  EXPECT_EQ(OnScreen().pixel(15, 55), Pixel(clWhite));
  EXPECT_EQ(OnScreen(), MadeAtOnce());
}

TEST_F(PictureStepsTest, ShowsAPictureThatAProgramHasMadeAtOnceBetweenSteps) {
  AddSquare(Bottom(), 150, 10, 10, clRed);
  map.DoUpdate(true);
  RunSteps(3);
  EXPECT_NE(OnScreen().pixel(155, 85), Pixel(clRed));
  map.PaintMapToBitmap();
  Finish();
  EXPECT_EQ(OnScreen().pixel(155, 85), Pixel(clRed));
}

TEST_F(PictureStepsTest, WaitsForTheEndOfABatch) {
  const QSignalSpy painted(&map, &TTessera::OnPaint);
  map.DoUpdate(true);
  RunSteps(3);
  map.BeginUpdate();
  Finish();
  EXPECT_EQ(painted.count(), 0);
  map.EndUpdate(false);
  Finish();
  EXPECT_EQ(painted.count(), 1);
}

TEST_F(PictureStepsTest, SelectsWhatIsNotDrawnYet) {
  LookAt(110, 50);
  RunSteps(2);
  map.SelectObjectAt(15 + 20 * (Squares - 1), 45, true);
  ASSERT_EQ(map.GetSelection()->GetCount(), 1);
  EXPECT_EQ(map.GetSelection()->First(), Bottom()->Last());
  EXPECT_NE(OnScreen().pixel(15 + 20 * (Squares - 1) - 10, 55), Pixel(ColorOf(Squares - 1))) << "its highlight";
  Bottom()->SetSelectable(false);
  map.SelectObjectAt(15, 45, true);
  EXPECT_EQ(map.GetSelection()->GetCount(), 0);
  Finish();
  EXPECT_EQ(OnScreen(), MadeAtOnce());
}

TEST_F(PictureStepsTest, TellsOfErrorsOfHandlersAndPaintsOn) {
  for (const auto signal : {&TTessera::OnUpdate, &TTessera::OnPaint}) {
    const auto connection = QObject::connect(&map, signal, &map, [] { throw std::runtime_error("broken handler"); });
    map.DoUpdate(true);
    Finish();
    EXPECT_EQ(std::exchange(messages, {}), QStringList{QStringLiteral("broken handler")});
    QObject::disconnect(connection);
    EXPECT_EQ(OnScreen(), MadeAtOnce());
  }
}

TEST_F(PictureStepsTest, SurvivesTheEndOfTheMapBetweenStepsAndInTheLastOne) {
  for (const bool isInHandler : {false, true}) {
    auto *other = new TTessera;
    other->GetPainting()->SetPaintInSteps(true);
    other->GetPainting()->SetStepMs(0);
    AddSquare(other->GetLayers()->Add(QString(), QString()), 0, 0, 10, clRed);
    AddSquare(other->GetLayers()->First(), 20, 0, 10, clRed);
    if (isInHandler) QObject::connect(other, &TTessera::OnPaint, [other] { delete other; });
    const QPointer<TTessera> guard(other);
    other->show();
    RunSteps(isInHandler ? 100 : 3);
    EXPECT_EQ(guard.isNull(), isInHandler);
    delete guard.data();
  }
}

TEST_F(PictureStepsTest, ShowsInTheEndWhatAPictureMadeAtOnceShows) {
  TRandomShapes random(4711);
  for (int i = 0; i < 400; ++i) {
    SCOPED_TRACE(i);
    DoAnything(random);
    RunSteps(random.Whole(0, 6));
    if (i % 20 > 0) continue;
    Finish();
    const QImage inSteps = OnScreen();
    ASSERT_EQ(inSteps, MadeAtOnce());
  }
}

}  // namespace
}  // namespace tessera::test
