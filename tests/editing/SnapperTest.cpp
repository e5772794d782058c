// SPDX-License-Identifier: MIT
#include "../support/RandomShapes.h"
#include "EditingFixture.h"

#include <tessera/editing/detail/Snapper.h>
#include <tessera/geometry/detail/EdgesNear.h>
#include <tessera/objects/TCircle.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRectangle.h>
#include <tessera/objects/TRegion.h>
#include <tessera/objects/TSymbol.h>

#include <array>
#include <cmath>

namespace tessera::test {
namespace {

using detail::SnapKind;
using detail::SnapPlace;
using detail::SnapRules;

constexpr SnapRules ToAll{.toVertices = true, .toIntersections = true, .toEdges = true, .gridStep = 10};

struct Side {
  TMapPoint from, to;
};

class SnapperTest : public TEditingFixture {
 protected:
  template <class Kind>
  Kind &Add(const std::vector<std::vector<TMapPoint>> &parts) {
    auto *object = layer->NewObject<Kind>();
    for (const auto &vertices : parts) {
      TMapPoints &points = object->GetParts().Add().GetPoints();
      for (const TMapPoint &vertex : vertices) points.Add(vertex);
    }
    return *object;
  }
  [[nodiscard]] std::optional<SnapPlace> Find(const TMapPoint &at, double reach, const SnapRules &rules) const {
    return detail::FindSnapPlace(layers, at, reach, rules, [](const TCustomMapObject &) { return true; });
  }
  [[nodiscard]] std::string Found(const TMapPoint &at, const SnapRules &rules) const {
    const auto place = Find(at, 2, rules);
    constexpr const char *Kinds[] = {"vertex", "intersection", "edge", "grid"};
    if (!place) return "none";
    return QString::asprintf("%s %g,%g", Kinds[int(place->kind)], place->point.X, place->point.Y).toStdString();
  }
};

TEST_F(SnapperTest, FindsTheNearestPlaceOfTheFirstKindThatHasOne) {
  Add<TPolyline>({{{0, 21}, {40, 21}}, {{33, 33}}});
  Add<TRegion>({{{21, 5}, {21, 35}, {60, 35}, {21, 5}}});
  auto *box = layer->NewObject<TRectangle>();
  box->SetX0(70), box->SetY0(5), box->SetX1(90), box->SetY1(25);
  layer->NewObject<TSymbol>()->MoveTo(55, 75);
  auto *circle = layer->NewObject<TCircle>();
  circle->SetX(75), circle->SetY(75), circle->SetRadius(9);
  struct Case {
    TMapPoint at;
    const char *all;
    const char *withoutVertices;
    const char *toEdges;
  };
  const Case cases[] = {
      {{1, 20}, "vertex 0,21", "edge 1,21", "edge 1,21"},
      {{11, 20}, "edge 11,21", "edge 11,21", "edge 11,21"},
      {{22, 20}, "intersection 21,21", "intersection 21,21", "edge 22,21"},
      {{32, 34}, "vertex 33,33", "edge 32,35", "edge 32,35"},
      {{20, 36}, "vertex 21,35", "edge 21,35", "edge 21,35"},
      {{89, 26}, "vertex 90,25", "edge 89,25", "edge 89,25"},
      {{80, 6}, "edge 80,5", "edge 80,5", "edge 80,5"},
      {{54, 74}, "vertex 55,75", "none", "none"},
      {{74, 76}, "vertex 75,75", "none", "none"},
      {{51, 69}, "grid 50,70", "grid 50,70", "none"},
      {{55, 65}, "none", "none", "none"},
  };
  SnapRules withoutVertices = ToAll;
  withoutVertices.toVertices = false;
  for (const Case &one : cases) {
    EXPECT_EQ(Found(one.at, ToAll), one.all);
    EXPECT_EQ(Found(one.at, withoutVertices), one.withoutVertices);
    EXPECT_EQ(Found(one.at, {.toEdges = true}), one.toEdges);
    EXPECT_EQ(Found(one.at, {}), "none");
  }
  layer->SetVisible(false);
  EXPECT_EQ(Found({1, 20}, ToAll), "grid 0,20");
}

std::vector<TMapPoint> PlainIntersections(const std::vector<Side> &sides) {
  std::vector<TMapPoint> all;
  for (const Side &side : sides) {
    for (const Side &other : sides) {
      const TMapPoint way{side.to.X - side.from.X, side.to.Y - side.from.Y};
      const TMapPoint otherWay{other.to.X - other.from.X, other.to.Y - other.from.Y};
      const double cross = way.X * otherWay.Y - way.Y * otherWay.X;
      const double share =
          ((other.from.X - side.from.X) * otherWay.Y - (other.from.Y - side.from.Y) * otherWay.X) / cross;
      const TMapPoint point{side.from.X + share * way.X, side.from.Y + share * way.Y};
      const TMapPoint onOther = detail::NearestOnEdge(other.from, other.to, point);
      constexpr double Rounding = 1e-9;
      const bool isOnOther = std::hypot(onOther.X - point.X, onOther.Y - point.Y) < Rounding;
      if (cross != 0 && share > 0 && share < 1 && isOnOther) all.push_back(point);
    }
  }
  return all;
}

/// The nearest place of the first kind that has one within reach, looked for everywhere.
std::optional<SnapPlace> PlainSnap(const std::vector<Side> &sides, const std::vector<TMapPoint> &intersections,
                                   const TMapPoint &at, double reach, const SnapRules &rules) {
  std::array<SnapPlace, 3> nearest;
  for (std::size_t kind = 0; kind < nearest.size(); ++kind) nearest[kind] = {SnapKind(kind), {INFINITY, INFINITY}};
  const auto offer = [&](SnapKind kind, const TMapPoint &point) {
    SnapPlace &best = nearest[std::size_t(kind)];
    if (detail::SquareOfDistance(point, at) < detail::SquareOfDistance(best.point, at)) best.point = point;
  };
  for (const Side &side : sides) {
    for (const TMapPoint &end : {side.from, side.to}) offer(SnapKind::Vertex, end);
    offer(SnapKind::Edge, detail::NearestOnEdge(side.from, side.to, at));
  }
  for (const TMapPoint &point : intersections) offer(SnapKind::Intersection, point);
  const std::array<bool, 3> isWanted{rules.toVertices, rules.toIntersections, rules.toEdges};
  for (const SnapPlace &place : nearest) {
    const bool isNear = detail::SquareOfDistance(place.point, at) <= reach * reach;
    if (isNear && isWanted[std::size_t(place.kind)]) return place;
  }
  return std::nullopt;
}

TEST_F(SnapperTest, FindsWhatAPlainSearchFinds) {
  constexpr TBounds World{0, 0, 100, 100};
  TRandomShapes random(3);
  std::vector<Side> sides;
  for (int i = 0; i < 60; ++i) {
    const auto vertices = random.Tangle(World, i < 2 ? 200 : random.Whole(2, 9));
    Add<TPolyline>({vertices});
    for (std::size_t at = 1; at < vertices.size(); ++at) sides.push_back({vertices[at - 1], vertices[at]});
  }
  const std::vector<TMapPoint> intersections = PlainIntersections(sides);
  std::array<int, 4> counts{};
  for (int i = 0; i < 600; ++i) {
    const TMapPoint at{random.Real(0, 100), random.Real(0, 100)};
    const double reach = random.Real(0.05, 1.5);
    const SnapRules rules{.toVertices = random.Whole(0, 1) == 1,
                          .toIntersections = random.Whole(0, 1) == 1,
                          .toEdges = random.Whole(0, 1) == 1};
    const auto found = Find(at, reach, rules);
    const auto plain = PlainSnap(sides, intersections, at, reach, rules);
    ASSERT_EQ(found.has_value(), plain.has_value());
    ++counts[found ? std::size_t(found->kind) : 3];
    if (!found) continue;
    EXPECT_EQ(found->kind, plain->kind);
    constexpr double Rounding = 1e-9;
    EXPECT_NEAR(found->point.X, plain->point.X, Rounding);
    EXPECT_NEAR(found->point.Y, plain->point.Y, Rounding);
  }
  for (const int count : counts) EXPECT_GT(count, 20);
}

}  // namespace
}  // namespace tessera::test
