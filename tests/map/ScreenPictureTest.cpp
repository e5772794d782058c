// SPDX-License-Identifier: MIT
// When the map repaints, and how much of the screen.
#include "MapFixture.h"

#include <tessera/base/DebugTrace.h>
#include <tessera/graphics/TCanvas.h>
#include <tessera/objects/TSprite.h>

#include <QSignalSpy>

#include <stdexcept>

namespace tessera::test {
namespace {

class ScreenPictureTest : public MapFixture {
 protected:
  ScreenPictureTest() { AddSquare(AddLayer(), 20, 20, 40, clRed); }

  int Rebuilds(const std::function<void()> &action) {
    const QSignalSpy painted(&map, &TTessera::OnPaint);
    int before = 0;
    Repaints([&] {
      before = int(painted.count());
      action();
    });
    return int(painted.count()) - before;
  }

  const QRect whole{0, 0, 200, 100};
};

TEST_F(ScreenPictureTest, ShowsOnlyWhatChangedAnew) {
  QImage glyph(5, 5, QImage::Format_RGB32);
  glyph.fill(Qt::black);
  auto *sprite = AddLayer()->NewObject<TSprite>();
  sprite->SetGlyph(TBitmap(glyph));
  sprite->Move(100, 50);
  map.DoUpdate(true);
  auto *square = map.GetLayers()->First()->First();

  const auto moved = Repaints([&] { sprite->Move(110, 60); });
  ASSERT_EQ(moved.size(), 1U);
  EXPECT_TRUE(QRect(98, 38, 15, 15).contains(moved[0])) << "from the old place to the new one";
  const auto selected = Repaints([&] { square->Select(); });
  ASSERT_EQ(selected.size(), 1U);
  EXPECT_TRUE(selected[0].contains(QRect(20, 40, 40, 40)));
  EXPECT_TRUE(QRect(15, 35, 50, 50).contains(selected[0]));
  EXPECT_TRUE(Repaints([&] { static_cast<void>(map.GetCanvas()); }).empty());
  EXPECT_TRUE(Repaints([&] { static_cast<void>(map.GetCanvas().TextExtent(QStringLiteral("Map"))); }).empty());
  EXPECT_TRUE(Repaints([&] { map.GetMapCanvas().FillRect(whole); }).empty()) << "the other picture";
  EXPECT_TRUE(Repaints([&] { map.PaintMapToBitmap(); }).empty()) << "the other picture";
  EXPECT_EQ(Repaints([&] { map.Invalidate(); }), std::vector{whole}) << "the highlight does not ask again";
  EXPECT_EQ(Repaints([&] { map.PaintBitmapToMapCanvas(); }), std::vector{whole});
}

TEST_F(ScreenPictureTest, RepaintsAgainAfterEventsRanWhileItWasBusy) {
  const auto runEvents = [this] {
    map.Invalidate();
    QApplication::processEvents();
  };
  const auto changeColor = [this] { map.SetColor(map.GetColor() ^ 1); };
  for (const auto signal : {&TTessera::OnPaint, &TTessera::OnUpdate, &TTessera::OnStopProgress}) {
    const auto connection = QObject::connect(&map, signal, &map, runEvents);
    for (int i = 0; i < 2; ++i) EXPECT_EQ(Rebuilds(changeColor), 1);
    QObject::disconnect(connection);
  }
  EXPECT_EQ(Rebuilds([&] {
              map.SetIsBusy(true);
              changeColor();
              QApplication::processEvents();
            }),
            0);
  EXPECT_EQ(Rebuilds([this] { map.SetIsBusy(false); }), 1) << "what was asked for meanwhile";
}

TEST_F(ScreenPictureTest, ShowsAfterABatchWhatWasAskedForMeanwhile) {
  EXPECT_TRUE(Repaints([this] {
                map.BeginUpdate();
                map.EndUpdate(false);
              }).empty());
  map.BeginUpdate();
  map.SetColor(clNavy);
  EXPECT_EQ(Shown().pixel(5, 5), Pixel(clWhite));
  EXPECT_EQ(Rebuilds([this] { map.EndUpdate(false); }), 1);
  EXPECT_EQ(Shown().pixel(5, 5), Pixel(clNavy));
  map.BeginUpdate();
  map.resize(300, 150);
  EXPECT_EQ(Shown().pixel(290, 140), Pixel(clNavy)) << "grown within a batch";
  map.EndUpdate(true);
}

TEST_F(ScreenPictureTest, TracesTheTimeOfDrawingWhenItIsNoLongerBusy) {
  QStringList traced;
  const TTraceSink before = SetDebugTraceSink([&](const QString &format, std::initializer_list<QString>) {
    traced << format << (map.GetIsBusy() ? QStringLiteral("busy") : QStringLiteral("done"));
  });
  Repainted();
  SetDebugTraceSink(before);
  EXPECT_EQ(traced, (QStringList{QStringLiteral("DrawTime = %s"), QStringLiteral("done")}));
}

TEST_F(ScreenPictureTest, LetsFiguresThatStandOnTheScreenBeDrawnAgain) {
  const auto toggleFigure = [this] {
    TCanvas &canvas = map.GetCanvas();
    canvas.Pen().SetMode(TPenMode::pmXor);
    canvas.Pen().SetColor(clWhite);
    canvas.Polyline(std::vector<TPoint>{{5, 5}, {150, 70}, {150, 20}});
  };
  const QImage before = Shown();
  toggleFigure();
  const QImage with = Shown();
  ASSERT_NE(with, before);
  const auto figure = QObject::connect(&map, &TTessera::OnScreenRepainted, &map, toggleFigure);
  map.Invalidate();
  EXPECT_EQ(Shown(), with);
  EXPECT_EQ(Repainted(), with);
  QObject::disconnect(figure);
  toggleFigure();
  EXPECT_EQ(Shown(), before) << "drawn once more it goes away";
}

TEST_F(ScreenPictureTest, TellsOfErrorsOfHandlersAndPaintsOn) {
  using Connect = std::function<QMetaObject::Connection(const std::function<void()> &)>;
  const auto to = [this](auto signal) -> Connect {
    return [this, signal](const std::function<void()> &handler) {
      return QObject::connect(&map, signal, &map, [handler] { handler(); });
    };
  };
  for (const Connect &connect :
       {to(&TTessera::OnStartProgress), to(&TTessera::OnShowProgress), to(&TTessera::OnStopProgress),
        to(&TTessera::OnUpdate), to(&TTessera::OnPaint), to(&TTessera::OnScreenRepainted)}) {
    Repaints([] {});
    messages.clear();
    auto connection = connect([] { throw std::runtime_error("no ink"); });
    EXPECT_EQ(Repaints([this] { map.DoUpdate(true); }).size(), 1U);
    EXPECT_EQ(messages, QStringList{QStringLiteral("no ink")});
    QObject::disconnect(connection);
    connection = connect([] { throw 42; });
    Repaints([this] { map.SetColor(map.GetColor() ^ 2); });
    EXPECT_EQ(messages.size(), 2);
    EXPECT_FALSE(map.GetIsBusy());
    EXPECT_EQ(Shown().pixel(5, 5), Pixel(map.GetColor())) << "what there is, is shown";
    EXPECT_EQ(messages.size(), 2) << "once for each request";
    QObject::disconnect(connection);
    Repaints([this] { map.SetColor(map.GetColor() ^ 1); });
    EXPECT_EQ(messages.size(), 2);
    EXPECT_EQ(Shown().pixel(5, 5), Pixel(map.GetColor()));
  }
}

TEST_F(ScreenPictureTest, PaintsOnWhenAHandlerTakesLayersAway) {
  for (int i = 0; i < 3; ++i) AddSquare(AddLayer(), 40 * i, 20, 10, clBlue);
  QObject::connect(&map, &TTessera::OnShowProgress, &map, [this] { map.GetLayers()->Clear(); });
  EXPECT_EQ(Shown().pixel(30, 70), Pixel(clRed)) << "what was drawn before";
  EXPECT_EQ(Repainted().pixel(30, 70), Pixel(clWhite));
  EXPECT_TRUE(messages.isEmpty());
}

}  // namespace
}  // namespace tessera::test
