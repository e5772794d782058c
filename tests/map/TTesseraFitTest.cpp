// SPDX-License-Identifier: MIT
#include "MapFixture.h"

#include <tessera/layers/LayerBounds.h>

#include <cmath>
#include <limits>
#include <random>

namespace tessera::test {
namespace {

class TTesseraFitTest : public MapFixture {
 protected:
  static TPolyline *AddDiagonal(TMapLayer *layer, const TBounds &bounds) {
    auto *line = layer->NewObject<TPolyline>();
    TMapPoints &points = line->GetParts().Add().GetPoints();
    points.Add(bounds.MinX, bounds.MinY);
    points.Add(bounds.MaxX, bounds.MaxY);
    return line;
  }

  /// Whether a box lies in the view, by its coordinates and by the pixels of its corners.
  [[nodiscard]] bool IsInView(const TBounds &box) const {
    const TViewport &viewport = map.GetViewport();
    return viewport.GetViewBounds().ContainsBounds(box) &&
           map.rect().contains(viewport.MapToScreen(box.MinX, box.MinY)) &&
           map.rect().contains(viewport.MapToScreen(box.MaxX, box.MaxY));
  }
  [[nodiscard]] double Filled(const TBounds &box) const {
    const TBounds view = map.GetViewBounds();
    return std::max((box.MaxX - box.MinX) / (view.MaxX - view.MinX), (box.MaxY - box.MinY) / (view.MaxY - view.MinY));
  }
};

TEST_F(TTesseraFitTest, BringsTheSelectionIntoView) {
  TMapLayer *layer = AddLayer();
  AddSquare(layer, 10, 10, 20, clRed)->Select();
  map.GetSelection()->Add(AddSquare(layer, 40, 20, 10, clRed), false);
  map.GetSelection()->Zoom();
  EXPECT_TRUE(IsInView({10, 10, 50, 30}));
  EXPECT_EQ(map.GetCenterX(), 30);
  EXPECT_EQ(map.GetCenterY(), 20);
  EXPECT_DOUBLE_EQ(map.GetZoom(), 4.2) << "8 of 100 pixels stay free above and below";
  AddDiagonal(layer, {70, 80, 70, 80})->Select();
  map.GetSelection()->Zoom();
  EXPECT_EQ(map.GetCenterX(), 70);
  EXPECT_DOUBLE_EQ(map.GetZoom(), 4.2) << "a point has no extent to zoom to";
}

TEST_F(TTesseraFitTest, ShowsAnyBoundsWholeInAnyView) {
  std::mt19937_64 random(8);
  const auto real = [&](double low, double high) { return std::uniform_real_distribution(low, high)(random); };
  const auto magnitude = [&](double lowest, double highest) {
    return std::copysign(std::pow(10.0, real(lowest, highest)), real(-1, 1));
  };
  for (int i = 0; i < 4000; ++i) {
    const bool isExtreme = i % 2 == 0;
    map.resize(int(real(2, 900)), int(real(2, 900)));
    map.SetMaxX(i % 7 == 0 ? -200 : magnitude(-3, 6));
    const double x = magnitude(-3, isExtreme ? 307.9 : 7);
    const double y = magnitude(-3, isExtreme ? 307.9 : 7);
    // Some are so thin that doubles hardly tell their sides apart.
    const double width = std::fabs(x) * std::pow(10, real(-18, 0.2));
    const double height = std::fabs(y) * std::pow(10, real(-18, 0.2));
    const TBounds box{x - width, y - height, std::nextafter(x + width, HUGE_VAL), y + height};
    map.ShowBounds(box);
    ASSERT_TRUE(IsInView(box)) << i << ' ' << map.width() << 'x' << map.height() << ' ' << x << ' ' << y;
  }
  constexpr double Largest = std::numeric_limits<double>::max();
  map.ShowBounds({-Largest, -Largest, Largest, Largest});
  EXPECT_TRUE(IsInView({-Largest, -Largest, Largest, Largest}));
  LookAt(5, 7, 3);
  const TViewport before = map.GetViewport();
  map.ShowBounds(TBounds::Empty());
  EXPECT_EQ(map.GetViewport(), before);
}

TEST_F(TTesseraFitTest, ShowsDataOfEveryShapeWholeAtZoomOne) {
  const TBounds shapes[] = {
      {0, 0, 20, 10}, {0, 0, 1, 1000}, {0, 0, 1000, 1}, {0, 0, 5, 0}, {0, 0, 0, 5}, {6e6, 6.1e6, 6.0001e6, 6.1002e6},
  };
  for (const QSize client : {QSize(300, 200), QSize(100, 700), QSize(9, 5)}) {
    for (const TBounds &shape : shapes) {
      map.GetLayers()->Clear();
      map.resize(client);
      map.SetZoom(7);
      AddDiagonal(AddLayer(), shape);
      map.ShowAll();
      EXPECT_TRUE(IsInView(shape)) << shape.MaxX << ' ' << shape.MaxY;
      EXPECT_EQ(map.GetZoom(), 1);
      EXPECT_GT(Filled(shape), 0.5) << shape.MaxX << ' ' << shape.MaxY;
    }
  }
}

TEST_F(TTesseraFitTest, ShowsAllOfExtremeDataAndThinDataFarAway) {
  constexpr double Largest = std::numeric_limits<double>::max();
  for (const TBounds &box : {TBounds{-Largest, -1, Largest, 1}, TBounds{1e300, 1, std::nextafter(1e300, 2e300), 1},
                             TBounds{1, 1e20, 1, 1e20}, TBounds{1, -3, 1, std::nextafter(-3, 0)}}) {
    map.GetLayers()->Clear();
    AddDiagonal(AddLayer(), box);
    map.ShowAll();
    EXPECT_TRUE(IsInView(box)) << box.MinX << ' ' << box.MinY;
  }
}

TEST_F(TTesseraFitTest, ShowsAllLayersOrOne) {
  AddDiagonal(AddLayer(), {0, 0, 1, 1});
  TMapLayer *empty = AddLayer();
  empty->NewObject<TPolyline>();
  TMapLayer *upper = AddLayer();
  AddDiagonal(upper, {-5, 2, -4, 8});
  EXPECT_EQ(BoundsOf(*map.GetLayers()), (TBounds{-5, 0, 1, 8}));
  EXPECT_EQ(BoundsOf(*empty), std::nullopt);
  map.ShowAll();
  EXPECT_GT(Filled({-5, 0, 1, 8}), 0.7);
  map.ShowLayer(*upper);
  EXPECT_GT(Filled({-5, 2, -4, 8}), 0.7);
  const TViewport before = map.GetViewport();
  map.ShowLayer(*empty);
  map.GetLayers()->Delete(2);
  map.GetLayers()->Delete(0);
  map.ShowAll();
  EXPECT_EQ(map.GetViewport(), before) << "nothing to look at";
}

}  // namespace
}  // namespace tessera::test
