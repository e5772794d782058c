// SPDX-License-Identifier: MIT
#include "../support/FourCuts.h"
#include "../support/Printers.h"
#include "../support/RandomShapes.h"

#include <tessera/layers/TMapLayer.h>
#include <tessera/objects/GeoCircle.h>
#include <tessera/objects/TCircle.h>
#include <tessera/objects/TGeoCircle.h>
#include <tessera/objects/TRectangle.h>
#include <tessera/objects/TSymbol.h>
#include <tessera/objects/detail/RectTests.h>
#include <tessera/objects/detail/ScreenOutliner.h>

#include <gtest/gtest.h>

#include <cmath>
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
  const int kind = random.Whole(0, 4);
  if (kind == 0) {
    auto *circle = layer.NewObject<TCircle>();
    circle->SetX(x), circle->SetY(y);
    circle->SetRadius(random.Whole(0, 1) == 0 ? random.Whole(-2, 3) : random.Real(-1, 3));
  } else if (kind < 3) {
    TRectangle *rectangle = kind == 1 ? layer.NewObject<TRectangle>() : layer.NewObject<TContainingOnly>();
    rectangle->SetX0(x), rectangle->SetY0(y);
    rectangle->SetX1(Place(random, offset)), rectangle->SetY1(Place(random, offset));
  } else if (kind == 3) {
    auto *circle = layer.NewObject<TGeoCircle>();
    circle->SetCenterX(x), circle->SetCenterY(y), circle->SetPieCount(8);
  } else {
    auto *circle = layer.NewObject<geocircle::TGeoCircle>();
    circle->SetX(x), circle->SetY(y), circle->SetRadius(random.Real(1e4, 2e5));
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
  TCardinalArray expected;
  for (int i = 0; i < layer.GetObjectCount(); ++i) {
    if (MeetsPlainly(*layer.GetObjects(i), rect)) expected.Add(std::uint32_t(i));
  }
  EXPECT_EQ(layer.GetAllIdsInRect(Bounds2CellBounds(rect), ids), expected.GetCount() > 0);
  EXPECT_TRUE(std::ranges::equal(ids.Ids(), expected.Ids())) << testing::PrintToString(rect);
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

TEST(ShapeExtentTest, AreaQueriesAroundAllObjectsAnswerAsTheObjectsDo) {
  constexpr double Infinity = std::numeric_limits<double>::infinity();
  TMapLayer layer;
  for (const double at : {0.1, 0.5, 0.9}) layer.NewObject<TSymbol>()->MoveTo(at, at);
  for (const double beyond : {0.1, 7.0, Infinity}) {
    EXPECT_EQ(CompareQuery(layer, {0, 0, beyond, beyond}), beyond > 1 ? 3 : 1);
  }
  EXPECT_EQ(CompareQuery(layer, {0.1, 0.1, 0.9, 0.9}), 3);
  static_cast<TSymbol *>(layer.First())->MoveTo(8, 8);
  EXPECT_EQ(CompareQuery(layer, {0, 0, 7, 7}), 2);
  layer.NewObject<TSymbol>()->MoveTo(std::numeric_limits<double>::quiet_NaN(), 1);
  EXPECT_EQ(CompareQuery(layer, {-Infinity, -Infinity, Infinity, Infinity}), 3);
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

TEST(ShapeExtentTest, FollowsTheSettersAndIsUnknownForCirclesWithoutBounds) {
  TMapLayer layer;
  auto *circle = layer.NewObject<TCircle>();
  for (const auto &[x, radius, count] : {std::tuple(0.0, 0.0, 0), {0, 15, 1}, {-90, 15, 0}}) {
    circle->SetX(x), circle->SetRadius(radius);
    EXPECT_EQ(CompareQuery(layer, {10, 10, 20, 20}), count);
  }
  for (const double radius : {1e200, std::nan("")}) {
    circle->SetRadius(radius);
    EXPECT_FALSE(circle->GetExtent()) << radius;
    for (const TBounds &rect : {TBounds{-1, -1, 1, 1}, {1e300, 1e300, 1e301, 1e301}}) CompareQuery(layer, rect);
  }
}

TEST(RectTestsTest, AnswersAsCornersAndSidesDo) {
  TRandomShapes random(8);
  int met = 0;
  for (int i = 0; i < 60000; ++i) {
    const auto any = [&, kind = i % 3] {
      const double origin = kind == 1 ? 0 : 5e8;
      const auto corner = [&] { return kind == 0 ? random.Whole(0, 5) : origin + random.Real(-1, 1); };
      return TBounds{corner(), corner(), corner(), corner()};
    };
    const TBounds a = any();
    const TBounds b = any();
    const bool meets = detail::CornersOrSidesMeet(a, b);
    ASSERT_EQ(detail::BoundsMeetRect(a, b), meets) << testing::PrintToString(a) << testing::PrintToString(b);
    met += meets ? 1 : 0;
  }
  EXPECT_TRUE(met > 10000 && met < 50000) << met;
}

using Outline = std::vector<TPoint>;
using Points = std::vector<TMapPoint>;

TViewport ViewOf(int width, int height) {
  return {0, 0, double(width), double(height), width / 2.0, height / 2.0, 1, width, height};
}

TBounds BoundsOf(const Points &points) {
  TBounds bounds = TBounds::Empty();
  for (const TMapPoint &point : points) bounds.Widen(point.X, point.Y);
  return bounds;
}

/// The outline step by step: the enlarged view, four cuts, one conversion after the other, thinning.
Outline PlainOutline(const TViewport &view, const TViewFlags &flags, const Points &points) {
  if (points.empty()) return {};
  const TBounds shown = view.GetViewBounds();
  const TPoint first = view.MapToScreen(shown.MinX, shown.MinY) + TPoint(-2, 2);
  const TPoint second = view.MapToScreen(shown.MaxX, shown.MaxY) + TPoint(2, -2);
  const TMapPoint low = view.ScreenToMap(first.x(), first.y());
  const TMapPoint high = view.ScreenToMap(second.x(), second.y());
  Outline outline;
  for (const TMapPoint &point : FourCuts({low.X, low.Y, high.X, high.Y}, points)) {
    const TPoint pixel = view.MapToScreen(point.X, point.Y);
    const int level = flags.GeneralizationLevel;
    if (!flags.UseGeneralization || outline.empty() || std::abs(std::int64_t(pixel.x()) - outline.back().x()) > level ||
        std::abs(std::int64_t(pixel.y()) - outline.back().y()) > level) {
      outline.push_back(pixel);
    }
  }
  if (!flags.UseGeneralization) {
    const TPoint last = outline.back();
    outline.resize(points.size(), last);
  }
  return outline;
}

/// Compares outlines in one random view; counts those wholly in view and the others.
void CompareOutlines(TRandomShapes &random, double origin, const TViewFlags &flags, int &whole, int &cut) {
  TViewport view = ViewOf(random.Whole(1, 900), random.Whole(1, 700));
  view.Zoom = std::exp2(random.Real(-6, 10));
  view.CenterX = origin + random.Real(-100, 100);
  view.CenterY = -origin + random.Real(-100, 100);
  const TBounds shown = view.GetViewBounds();
  const double width = shown.MaxX - shown.MinX;
  const double height = shown.MaxY - shown.MinY;
  const double reach = random.Real(0.01, 1);
  const TMapPoint centre{view.CenterX + width * random.Real(-1, 1), view.CenterY + height * random.Real(-1, 1)};
  const TBounds about{centre.X - width * reach, centre.Y - height * reach, centre.X + width * reach,
                      centre.Y + height * reach};
  detail::ScreenOutliner outliner(view, flags);
  for (const Points &points : {random.Tangle(about, random.Whole(0, 9)), random.OnGrid(shown, 4, random.Whole(1, 40)),
                               random.Ring(centre, width * reach, random.Whole(3, 1500)),
                               random.Ring(centre, width * reach / 50, random.Whole(3, 9000)),
                               random.Ring({view.CenterX, view.CenterY}, width * 0.3, 1100)}) {
    const auto boxes = detail::VertexRuns::MakeBoxes(points);
    const Outline plain = PlainOutline(view, flags, points);
    for (const auto &part : {detail::VertexRuns(points), detail::VertexRuns(points, boxes.get())}) {
      Outline outline{{-77, -77}};
      const std::size_t count = outliner.PartToScreen(part, BoundsOf(points), outline);
      ASSERT_EQ(count, outline.size() - 1);
      ASSERT_EQ(outline[0], TPoint(-77, -77)) << "what was there stays";
      ASSERT_EQ(Outline(outline.begin() + 1, outline.end()), plain);
    }
    ASSERT_TRUE(!outliner.ThinsToOne(detail::RoundedBox::Of(BoundsOf(points))) || plain.size() <= 1);
    (shown.ContainsBounds(BoundsOf(points)) ? whole : cut) += 1;
  }
}

TEST(ScreenOutlinerTest, GivesTheOutlineOfThePlainSteps) {
  for (const auto &[thins, level] : {std::pair(false, 1), {true, 0}, {true, 1}, {true, 7}, {true, -1}}) {
    TViewFlags flags;
    flags.UseGeneralization = thins;
    flags.GeneralizationLevel = level;
    TRandomShapes random(2024);
    int whole = 0;
    int cut = 0;
    for (int i = 0; i < 300; ++i) {
      SCOPED_TRACE(testing::Message() << "thins " << thins << " level " << level << " view " << i);
      ASSERT_NO_FATAL_FAILURE(CompareOutlines(random, i % 3 == 0 ? 4.5e8 : 0, flags, whole, cut));
    }
    EXPECT_TRUE(whole > 150 && cut > 150) << whole << ' ' << cut;
  }
}

TEST(ScreenOutlinerTest, DoesNotTrustBoundsThatAreTooSmall) {
  TViewFlags flags;
  flags.UseGeneralization = false;
  detail::ScreenOutliner outliner(ViewOf(100, 100), flags);
  for (int quarters = 4 * 99; quarters < 4 * 105; ++quarters) {
    const double x = quarters / 4.0;
    const Points points{{50, 50}, {x, 50}, {50, 70}};
    Outline outline;
    outliner.PartToScreen(detail::VertexRuns(points), {50, 50, 60, 60}, outline);
    EXPECT_EQ(outline, PlainOutline(ViewOf(100, 100), flags, points)) << x;
  }
}

}  // namespace
}  // namespace tessera::test
