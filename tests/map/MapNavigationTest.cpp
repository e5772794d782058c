// SPDX-License-Identifier: MIT
// Moving the view without a tool.
#include "../support/MapInput.h"
#include "MapFixture.h"

#include <tessera/map/TCustomMapTool.h>

#include <QTest>

namespace tessera::test {
namespace {

/// Centre and zoom.
using Place = std::vector<double>;

class MapNavigationTest : public MapFixture {
 protected:
  MapNavigationTest() { AddSquare(AddLayer(), 20, 20, 40, clRed); }
  Place View() const { return {map.GetCenterX(), map.GetCenterY(), map.GetZoom()}; }

  MapInput input{map};
};

TEST_F(MapNavigationTest, MovesByKeys) {
  for (const auto &[key, view] : {std::pair<int, Place>{Qt::Key_Left, {80, 50, 1}},
                                  {Qt::Key_Right, {120, 50, 1}},
                                  {Qt::Key_Up, {100, 60, 1}},
                                  {Qt::Key_Down, {100, 40, 1}},
                                  {Qt::Key_Plus, {100, 50, 2}},
                                  {Qt::Key_Minus, {100, 50, 0.5}},
                                  {Qt::Key_A, {100, 50, 1}}}) {
    LookAt(100, 50);
    input.Key(key);
    EXPECT_EQ(View(), view);
  }
  input.Key(Qt::Key_Home);
  EXPECT_EQ(map.GetCenterX(), 40) << "all is in view";
  map.GetNavigation()->SetKeys(false);
  const auto before = View();
  input.Key(Qt::Key_Left);
  EXPECT_EQ(View(), before);
}

TEST_F(MapNavigationTest, DragsWithTheMiddleButton) {
  const QImage before = Shown();
  input.Press({40, 50}, {}, Qt::MiddleButton);
  input.MoveTo({60, 40}, Qt::MiddleButton);
  EXPECT_EQ(Shown().copy(20, 0, 180, 90), before.copy(0, 10, 180, 90));
  input.Release({60, 40}, Qt::MiddleButton);
  EXPECT_EQ(View(), (Place{80, 40, 1}));
  input.Press({40, 50}, {}, Qt::MiddleButton);
  input.MoveTo({60, 40}, Qt::MiddleButton);
  const QImage dragged = Shown();
  map.Invalidate();
  EXPECT_EQ(Shown(), dragged) << "after a repaint it still stands where it was dragged to";
  input.Key(Qt::Key_Escape);
  input.MoveTo({90, 40}, Qt::MiddleButton);
  input.Release({90, 40}, Qt::MiddleButton);
  EXPECT_EQ(View(), (Place{80, 40, 1})) << "given up";
  const QImage givenUp = Shown();
  EXPECT_EQ(givenUp, Repainted());
  map.GetNavigation()->SetMiddleButton(false);
  input.Drag({40, 50}, {60, 40}, Qt::MiddleButton);
  EXPECT_EQ(View(), (Place{80, 40, 1}));
}

TEST_F(MapNavigationTest, KeepsThePlaceUnderTheWheel) {
  map.GetNavigation()->SetWheelKeepsPlace(true);
  const QPoint at(37, 81);
  const TMapPoint place = map.GetViewport().ScreenToMap(at.x(), at.y());
  for (const int delta : {120, 120, -120, 120, 120, -120, -120, -120}) {
    input.Wheel(delta, at);
    const TMapPoint now = map.GetViewport().ScreenToMap(at.x(), at.y());
    EXPECT_NEAR(now.X, place.X, 1e-9);
    EXPECT_NEAR(now.Y, place.Y, 1e-9);
  }
  EXPECT_EQ(map.GetZoom(), 1);
}

TEST_F(MapNavigationTest, AddsUpSmallStepsOfTheWheel) {
  map.GetNavigation()->SetWheelAddsUp(true);
  std::vector<double> zooms;
  for (const int delta : {50, 50, 50, -30, -100, 300, 50}) {
    input.Wheel(delta);
    zooms.push_back(map.GetZoom());
  }
  EXPECT_EQ(zooms, (std::vector<double>{1, 1, 2, 2, 1, 4, 4}));
}

/// A tool that is always in the middle of something.
class BusyTool : public TCustomMapTool {
 public:
  [[nodiscard]] bool GetInGesture() const override { return true; }
};

TEST_F(MapNavigationTest, ZoomsAndPansByTwoFingers) {
  BusyTool tool;
  tool.SetTessera(&map);
  tool.SetActive(true);
  int cancelled = 0;
  QObject::connect(&tool, &TCustomMapTool::OnCancel, &map, [&] { ++cancelled; });
  const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
  // Qt sends the gestures of a control that is a window itself twice.
  QWidget window;
  window.resize(300, 200);
  map.setParent(&window);
  window.show();
  const auto pinch = [&](QPoint one, QPoint two, const QPoint &oneBy, const QPoint &twoBy) {
    LookAt(100, 50);
    QTest::touchEvent(&map, screen.get()).press(0, one, &map).press(1, two, &map);
    for (int i = 0; i < 20; ++i) {
      one += oneBy;
      two += twoBy;
      QTest::touchEvent(&map, screen.get()).move(0, one, &map).move(1, two, &map);
    }
    QTest::touchEvent(&map, screen.get()).release(0, one, &map).release(1, two, &map);
  };
  pinch({80, 50}, {120, 50}, {-2, 0}, {2, 0});
  EXPECT_NEAR(map.GetZoom(), 3, 0.3) << "from 40 pixels apart to 120";
  EXPECT_NEAR(map.GetCenterX(), 100, 3);
  EXPECT_GT(cancelled, 0) << "what one finger had begun";
  pinch({50, 50}, {90, 50}, {2, 1}, {2, 1});
  EXPECT_NEAR(map.GetZoom(), 1, 0.1);
  EXPECT_NEAR(map.GetCenterX(), 60, 5);
  EXPECT_NEAR(map.GetCenterY(), 70, 3);
  map.GetNavigation()->SetTouch(false);
  pinch({80, 50}, {120, 50}, {-2, 0}, {2, 0});
  EXPECT_EQ(View(), (Place{100, 50, 1}));
  map.setParent(nullptr);
}

}  // namespace
}  // namespace tessera::test
