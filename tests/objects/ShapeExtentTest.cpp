// SPDX-License-Identifier: MIT
#include "../support/Printers.h"
#include "../support/RandomShapes.h"

#include <tessera/layers/TMapLayer.h>
#include <tessera/objects/GeoCircle.h>
#include <tessera/objects/TCircle.h>
#include <tessera/objects/TGeoCircle.h>
#include <tessera/objects/TRectangle.h>

#include <gtest/gtest.h>

#include <limits>

namespace tessera::test {
namespace {

/// Where a coordinate lies: on a coarse grid, so that borders coincide, or anywhere, near the origin or far from it.
double Place(TRandomShapes &random, double offset) {
  return offset + (random.Whole(0, 1) == 0 ? random.Whole(-4, 4) : random.Real(-5, 5));
}

/// Meets no rectangle, but contains some.
class TContainingOnly : public TRectangle {
 public:
  bool IntersectsRect(double, double, double, double) const override { return false; }
};

void AddShape(TMapLayer &layer, TRandomShapes &random, double offset) {
  const double x = Place(random, offset);
  const double y = Place(random, offset);
  const int kind = random.Whole(0, 3);
  if (kind == 0) {
    auto *circle = layer.NewObject<TCircle>();
    circle->SetX(x);
    circle->SetY(y);
    circle->SetRadius(random.Whole(0, 1) == 0 ? random.Whole(-2, 3) : random.Real(-1, 3));
  } else if (kind == 1) {
    TRectangle *rectangle =
        random.Whole(0, 1) == 0 ? layer.NewObject<TRectangle>() : layer.NewObject<TContainingOnly>();
    rectangle->SetX0(x);
    rectangle->SetY0(y);
    rectangle->SetX1(Place(random, offset));
    rectangle->SetY1(Place(random, offset));
  } else if (kind == 2) {
    auto *circle = layer.NewObject<TGeoCircle>();
    circle->SetCenterX(x);
    circle->SetCenterY(y);
    circle->SetPieCount(8);
  } else {
    auto *circle = layer.NewObject<geocircle::TGeoCircle>();
    circle->SetX(x);
    circle->SetY(y);
    circle->SetRadius(random.Real(1e4, 2e5));
  }
}

bool MeetsPlainly(const TCustomMapObject &object, const TBounds &r) {
  return object.IntersectsRect(r.MinX, r.MinY, r.MaxX, r.MaxY) || object.WithinRect(r.MinX, r.MinY, r.MaxX, r.MaxY) ||
         object.ContainsRect(r.MinX, r.MinY, r.MaxX, r.MaxY);
}

/// Compares what the layer answers with the objects' own tests, and counts the objects that met.
int CompareQuery(const TMapLayer &layer, const TBounds &rect) {
  TCardinalArray ids;
  ids.Add(99);
  const bool areFound = layer.GetAllIdsInRect(Bounds2CellBounds(rect), ids);
  TCardinalArray expected;
  for (int i = 0; i < layer.GetObjectCount(); ++i) {
    if (MeetsPlainly(*layer.GetObjects(i), rect)) expected.Add(std::uint32_t(i));
  }
  EXPECT_TRUE(std::ranges::equal(ids.Ids(), expected.Ids())) << testing::PrintToString(rect);
  EXPECT_EQ(areFound, expected.GetCount() > 0);
  return int(expected.GetCount());
}

TEST(ShapeExtentTest, AreaQueriesAnswerAsTheObjectsDo) {
  TRandomShapes random(7);
  int met = 0;
  for (const double offset : {0.0, 50.0}) {
    TMapLayer layer;
    for (int i = 0; i < 300; ++i) AddShape(layer, random, offset);
    for (int i = 0; i < 400; ++i) {
      const TBounds rect{Place(random, offset), Place(random, offset), Place(random, offset), Place(random, offset)};
      met += CompareQuery(layer, rect);
    }
  }
  EXPECT_GT(met, 1000);
}

TEST(ShapeExtentTest, HoldsEveryPointThatACircleTakesForItsOwn) {
  // Rounding puts points in the circle that lie outside the square about it.
  TRandomShapes random(8);
  int beyondSquare = 0;
  for (int i = 0; i < 20000; ++i) {
    TCircle circle;
    circle.SetX(random.Real(-1, 1));
    circle.SetRadius(random.Real(0, 1));
    const std::optional<TBounds> extent = circle.GetExtent();
    ASSERT_TRUE(extent);
    double x = circle.GetBounds().MaxX;
    for (int step = 0; step < 3; ++step, x = std::nextafter(x, 1e9)) {
      if (!circle.ContainsPoint(x, 0)) continue;
      beyondSquare += x > circle.GetBounds().MaxX ? 1 : 0;
      EXPECT_TRUE(extent->ContainsPoint(x, 0)) << circle.GetX() << ' ' << circle.GetRadius();
    }
  }
  EXPECT_GT(beyondSquare, 100);
}

TEST(ShapeExtentTest, IsUnknownForCirclesWithoutBounds) {
  TMapLayer layer;
  auto *circle = layer.NewObject<TCircle>();
  for (const double radius : {1e200, std::numeric_limits<double>::infinity(), std::nan("")}) {
    circle->SetRadius(radius);
    EXPECT_FALSE(circle->GetExtent()) << radius;
    for (const TBounds &rect : {TBounds{-1, -1, 1, 1}, {1e300, 1e300, 1e301, 1e301}}) CompareQuery(layer, rect);
  }
}

TEST(ShapeExtentTest, FollowsTheSetters) {
  TMapLayer layer;
  auto *circle = layer.NewObject<TCircle>();
  auto *rectangle = layer.NewObject<TRectangle>();
  const TBounds rect{10, 10, 20, 20};
  EXPECT_EQ(CompareQuery(layer, rect), 0);
  circle->SetRadius(15);
  EXPECT_EQ(CompareQuery(layer, rect), 1);
  rectangle->SetX1(15);
  rectangle->SetY1(15);
  EXPECT_EQ(CompareQuery(layer, rect), 2);
  circle->SetX(-90);
  EXPECT_EQ(CompareQuery(layer, rect), 1);
}

}  // namespace
}  // namespace tessera::test
