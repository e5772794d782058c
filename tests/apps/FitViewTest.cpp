// SPDX-License-Identifier: MIT
#include <apps/common/FitView.h>
#include <tessera/objects/TPolyline.h>

#include <gtest/gtest.h>

namespace tessera::apps {
namespace {

void AddDiagonal(TTessera &map, const TBounds &bounds) {
  TMapLayer *layer = map.GetLayers()->Add(QString(), QStringLiteral("layer"));
  TMapPoints &points = layer->NewObject<TPolyline>()->GetParts().Add().GetPoints();
  points.Add(bounds.MinX, bounds.MinY);
  points.Add(bounds.MaxX, bounds.MaxY);
}

TEST(FitViewTest, ShowsDataOfEveryShapeWholeAndFillsTheView) {
  const TBounds shapes[] = {
      {0, 0, 20, 10}, {0, 0, 1, 1000}, {0, 0, 1000, 1}, {0, 0, 5, 0}, {0, 0, 0, 5}, {6e6, 6.1e6, 6.0001e6, 6.1002e6},
  };
  for (const QSize client : {QSize(300, 200), QSize(100, 700), QSize(9, 5)}) {
    for (const TBounds &shape : shapes) {
      TTessera map;
      map.resize(client);
      map.SetZoom(7);
      AddDiagonal(map, shape);
      FitView(map);
      const TBounds view = map.GetViewBounds();
      EXPECT_TRUE(view.ContainsBounds(shape)) << shape.MaxX << ' ' << shape.MaxY;
      EXPECT_EQ(map.GetZoom(), 1);
      const double filled = std::max((shape.MaxX - shape.MinX) / (view.MaxX - view.MinX),
                                     (shape.MaxY - shape.MinY) / (view.MaxY - view.MinY));
      EXPECT_GT(filled, 0.7) << shape.MaxX << ' ' << shape.MaxY;
    }
  }
}

TEST(FitViewTest, LooksAtASinglePoint) {
  TTessera map;
  AddDiagonal(map, {30, 50, 30, 50});
  FitView(map);
  const TBounds view = map.GetViewBounds();
  EXPECT_DOUBLE_EQ((view.MinY + view.MaxY) / 2, 50);
  EXPECT_DOUBLE_EQ(view.MaxX, 30.5) << "one map unit is shown";
}

TEST(FitViewTest, TakesTheBoundsOfAllLayersTogetherAndLeavesAMapWithoutDataAlone) {
  TTessera map;
  map.GetLayers()->Add(QString(), QStringLiteral("empty"))->NewObject<TPolyline>();
  const TViewport before = map.GetViewport();
  FitView(map);
  EXPECT_EQ(map.GetViewport(), before);
  EXPECT_EQ(BoundsOf(*map.GetLayers()), std::nullopt);
  AddDiagonal(map, {0, 0, 1, 1});
  AddDiagonal(map, {-5, 2, -4, 8});
  EXPECT_EQ(BoundsOf(*map.GetLayers()), (TBounds{-5, 0, 1, 8}));
}

}  // namespace
}  // namespace tessera::apps
