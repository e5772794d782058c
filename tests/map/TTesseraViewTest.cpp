// SPDX-License-Identifier: MIT
#include "MapFixture.h"

#include <QSignalSpy>
#include <QWheelEvent>

namespace tessera::test {
namespace {

class TTesseraViewTest : public MapFixture {
 protected:
  void Wheel(int delta, const QPoint &desktop = {0, 0}) {
    QWheelEvent event(QPointF(5, 5), QPointF(desktop), QPoint(), QPoint(0, delta), Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&map, &event);
  }
};

TEST(TTesseraTest, ShowsTheWholeEarthAtFirst) {
  const TTessera map;
  EXPECT_EQ(map.size(), QSize(100, 100));
  EXPECT_EQ(map.GetViewBounds(), (TBounds{-180, -180, 180, 180}));
}

TEST_F(TTesseraViewTest, StepsByTwoWithTheWheelWithinItsBounds) {
  const QSignalSpy zoomed(&map, &TTessera::OnZoom);
  for (const double zoom : {0, 1, -3}) map.SetZoom(zoom);
  EXPECT_EQ(map.GetZoom(), -3);
  map.SetZoom(80);
  EXPECT_EQ(zoomed.count(), 2) << "none and the same are ignored";
  Wheel(1);
  EXPECT_EQ(map.GetZoom(), 100);
  Wheel(1200);
  EXPECT_EQ(map.GetZoom(), 100);
  EXPECT_EQ(zoomed.count(), 3) << "a zoom held at its bound is no change";
  map.SetZoom(1);
  Wheel(-1);
  Wheel(-1);
  EXPECT_EQ(map.GetZoom(), 0.25);
  map.SetMinZoom(0.2);
  Wheel(-1);
  EXPECT_EQ(map.GetZoom(), 0.2);
}

TEST_F(TTesseraViewTest, ZoomsAboutWhatItIsToldToAndRedrawsOnce) {
  TMapLayer *layer = AddLayer();
  Wheel(1);
  EXPECT_EQ(map.GetCenterX(), 100);
  Shown();

  QSignalSpy painted(&map, &TTessera::OnPaint);
  map.SetZoomType(TTessera::wmCursor);
  map.SetZoom(1);
  Wheel(1, {30, 20});
  EXPECT_EQ(map.GetCenterX(), 30) << "the position on the desktop is taken as a client pixel";
  EXPECT_EQ(map.GetCenterY(), 80);
  Shown();
  EXPECT_EQ(painted.count(), 1);

  map.SetZoomType(TTessera::wmSelected);
  Wheel(1);
  EXPECT_EQ(map.GetCenterX(), 30) << "without a selection the centre stays";
  AddSquare(layer, 140, 60, 20, clRed)->Select();
  Wheel(1);
  EXPECT_EQ(map.GetCenterX(), 150);
  EXPECT_EQ(map.GetCenterY(), 70);
}

TEST_F(TTesseraViewTest, HoldsUpdatesBackWithoutNesting) {
  Shown();
  map.BeginUpdate();
  map.BeginUpdate();
  map.EndUpdate(false);
  EXPECT_FALSE(map.GetModified());
  EXPECT_FALSE(map.GetInUpdate());
  map.DoUpdate(false);
  EXPECT_TRUE(map.GetModified()) << "the argument is ignored";
}

TEST_F(TTesseraViewTest, TurnsTheDataClockwiseAndBack) {
  constexpr double Tolerance = 1e-12;  // a few roundings of coordinates of this size
  TRegion *square = AddSquare(AddLayer(), 10, 10, 20, clRed);
  const auto corner = [&] { return square->GetParts().GetFirst().GetPoints().GetPoint(1); };
  map.RotateMap(10, 10, 90);
  EXPECT_TRUE(map.GetisMapRotated());
  const TMapPoint rotated = corner();
  EXPECT_NEAR(rotated.X, 10, Tolerance);
  EXPECT_NEAR(rotated.Y, -10, Tolerance);
  EXPECT_EQ(square->GetBounds(), (TBounds{10, 10, 30, 30})) << "an object's bounds are not part of a rotation";
  map.RotateMap(10, 10, 90);
  EXPECT_EQ(corner(), rotated);
  double x = 0;
  double y = 0;
  map.NormalToRotated(30, 10, x, y);
  EXPECT_NEAR(x, 10, Tolerance);
  map.RotatedToNormal(x, y, x, y);
  EXPECT_NEAR(x, 30, Tolerance);

  map.RotateMap(10, 10, 0);
  EXPECT_NEAR(corner().X, 30, Tolerance);
  EXPECT_NEAR(corner().Y, 10, Tolerance);
  EXPECT_FALSE(map.GetisMapRotated());
  EXPECT_EQ(map.GetRotationCenter(), (TMapPoint{0, 0}));
}

TEST_F(TTesseraViewTest, TakesARotationByNothingForNoneOnTheAxes) {
  map.RotateMap(5, 0, 0);
  EXPECT_FALSE(map.UnRotate());
  map.RotateMap(5, 5, 0);
  EXPECT_TRUE(map.UnRotate());
}

}  // namespace
}  // namespace tessera::test
