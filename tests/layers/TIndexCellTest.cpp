// SPDX-License-Identifier: MIT
#include "../support/PlainIndex.h"
#include "../support/RandomShapes.h"

#include <tessera/base/Exceptions.h>
#include <tessera/layers/TMapLayer.h>
#include <tessera/objects/TCircle.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRegion.h>
#include <tessera/objects/TSymbol.h>

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <limits>

namespace tessera::test {
namespace {

using Ids = std::vector<std::uint32_t>;

constexpr TBounds World{0, 0, 1024, 1024};

TMapPoint Somewhere(TRandomShapes &random) {
  return random.Tangle(World, 1)[0];
}

/// A kind that refines what it contains, as circles do: some corner is enough.
class TDisc : public TCustomMapObject {
 public:
  bool ContainsPoint(double x, double y) const override {
    const TMapPoint centre = GetParts().GetFirst().GetPoints().GetPoint(0);
    return std::hypot(x - centre.X, y - centre.Y) <= radius;
  }
  bool Contains(const TCustomMapObject &object) const override { return Intersects(object); }
  double radius = 0;
};

template <typename Kind = TRegion>
Kind *AddObject(TMapLayer &layer, const std::vector<TMapPoint> &points) {
  Kind *object = layer.NewObject<Kind>();
  TMapPoints &vertices = object->GetParts().Add().GetPoints();
  for (const TMapPoint &point : points) vertices.Add(point);
  return object;
}

void AddPoint(TMapLayer &layer, double x, double y) {
  layer.NewObject<TSymbol>()->MoveTo(x, y);
}

void AddBox(TMapLayer &layer, const TBounds &box) {
  AddObject(layer, {{box.MinX, box.MinY}, {box.MinX, box.MaxY}, {box.MaxX, box.MaxY}, {box.MaxX, box.MinY}});
}

Ids IdsOf(const TIndexCell &cell) {
  Ids ids;
  for (int i = 0; i < cell.GetIdsCount(); ++i) ids.push_back(cell.GetIds(i));
  return ids;
}

Ids IdsOf(const TCardinalArray &ids) {
  return {ids.Ids().begin(), ids.Ids().end()};
}

QByteArray BytesOf(const TCellBounds &bounds) {
  return QByteArray::fromRawData(reinterpret_cast<const char *>(&bounds), sizeof bounds).toHex();
}

void ExpectSameTree(const TIndexCell &cell, const PlainCell &plain) {
  // By their bytes, as they go into a file: cells of huge layers have sides that are no numbers.
  ASSERT_EQ(BytesOf(cell.GetBounds()), BytesOf(plain.bounds));
  ASSERT_EQ(cell.GetLevel(), plain.level);
  ASSERT_EQ(IdsOf(cell), plain.ids);
  ASSERT_EQ(cell.GetCount(), int(plain.children.size()));
  for (int i = 0; i < cell.GetCount(); ++i) {
    ASSERT_EQ(cell.GetCell(i)->GetParent(), &cell);
    ASSERT_NO_FATAL_FAILURE(ExpectSameTree(*cell.GetCell(i), *plain.children[std::size_t(i)]));
  }
}

int CountCells(const TIndexCell &cell) {
  int count = 1;
  for (int i = 0; i < cell.GetCount(); ++i) count += CountCells(*cell.GetCell(i));
  return count;
}

void FillWithPoints(TMapLayer &layer, TRandomShapes &random) {
  for (int i = 0; i < 300; ++i) AddPoint(layer, random.Real(0, 1024), random.Real(0, 1024));
}

void FillWithPointsOnMidlines(TMapLayer &layer, TRandomShapes &random) {
  AddPoint(layer, 0, 0);
  AddPoint(layer, 1024, 1024);
  for (int i = 0; i < 150; ++i) AddPoint(layer, 8 * random.Whole(0, 128), 8 * random.Whole(0, 128));
}

void FillWithRings(TMapLayer &layer, TRandomShapes &random) {
  for (int i = 0; i < 200; ++i) {
    AddObject(layer, random.Ring(Somewhere(random), random.Real(1, 12), random.Whole(3, 30)));
  }
}

/// Outlines long enough to be cut on the way down, and lines that cross quadrants without a vertex in them.
void FillWithLongOutlines(TMapLayer &layer, TRandomShapes &random) {
  for (int i = 0; i < 2; ++i) {
    AddObject(layer, random.Ring({random.Real(200, 800), random.Real(200, 800)}, random.Real(50, 250), 400));
    AddObject<TPolyline>(layer, {{0, random.Real(0, 1024)}, {1024, random.Real(0, 1024)}});
  }
  FillWithPoints(layer, random);
}

void FillWithParts(TMapLayer &layer, TRandomShapes &random) {
  for (int i = 0; i < 60; ++i) {
    const TMapPoint centre = Somewhere(random);
    TRegion *region = AddObject(layer, random.Ring(centre, 3, 40));
    TMapPoints &second = region->GetParts().Add().GetPoints();
    for (const TMapPoint &point : random.Ring({centre.X + 12, centre.Y}, 2, 40)) second.Add(point);
    region->GetParts().Add();
  }
}

void FillWithNestedBoxes(TMapLayer &layer, TRandomShapes &random) {
  for (int i = 0; i < 4; ++i) AddBox(layer, {20.0 * i, 10.0 * i, 1000 - 30.0 * i, 1024 - 50.0 * i});
  for (int i = 0; i < 60; ++i) AddPoint(layer, random.Real(0, 19), random.Real(0, 1024));
}

/// Five in a place are not too many, and neither is what has no vertices.
void FillWithDuplicates(TMapLayer &layer, TRandomShapes &random) {
  for (int i = 0; i < 40; ++i) {
    const TMapPoint place = Somewhere(random);
    for (int j = 0; j < 4; ++j) AddPoint(layer, place.X, place.Y);
  }
  layer.NewObject<TRegion>();
}

/// Vertices that were moved out of the bounds, or that are nowhere.
void FillWithStrayVertices(TMapLayer &layer, TRandomShapes &random) {
  FillWithRings(layer, random);
  for (int id = 0; id < layer.GetObjectCount(); id += 7) {
    TMapPoints &points = layer.GetObjects(id)->GetParts().GetFirst().GetPoints();
    points.SetPoint(0, Somewhere(random));
    points.SetPoint(1, {std::numeric_limits<double>::quiet_NaN(), 5});
  }
}

void FillWithDiscs(TMapLayer &layer, TRandomShapes &random) {
  for (int i = 0; i < 60; ++i) AddObject<TDisc>(layer, {Somewhere(random)})->radius = random.Real(1, 40);
}

void FillVerticalLine(TMapLayer &layer, TRandomShapes &random) {
  for (int i = 0; i < 40; ++i) AddPoint(layer, 7, random.Real(0, 100));
}

void FillWithACrowd(TMapLayer &layer, TRandomShapes &random) {
  AddPoint(layer, 1024, 1024);
  for (int i = 0; i < 9; ++i) AddPoint(layer, random.Real(0, 1e-6), random.Real(0, 1e-6));
}

struct Sample {
  const char *name;
  void (*fill)(TMapLayer &layer, TRandomShapes &random);
};

const Sample Samples[] = {
    {"Points", FillWithPoints},         {"PointsOnMidlines", FillWithPointsOnMidlines},
    {"Rings", FillWithRings},           {"LongOutlines", FillWithLongOutlines},
    {"Parts", FillWithParts},           {"NestedBoxes", FillWithNestedBoxes},
    {"Duplicates", FillWithDuplicates}, {"StrayVertices", FillWithStrayVertices},
    {"Discs", FillWithDiscs},           {"VerticalLine", FillVerticalLine},
    {"Crowd", FillWithACrowd},
};

class TIndexCellSampleTest : public testing::TestWithParam<Sample> {
 protected:
  TIndexCellSampleTest() {
    TRandomShapes random(11);
    GetParam().fill(m_layer, random);
    m_layer.SetUseIndex2D(true);
    m_plain = PlainCell::Build(m_layer, 100'000);
  }
  const TIndexCell &Root() { return *m_layer.GetIndex2D(); }

  TMapLayer m_layer;
  std::unique_ptr<PlainCell> m_plain;
};

INSTANTIATE_TEST_SUITE_P(Layers, TIndexCellSampleTest, testing::ValuesIn(Samples),
                         [](const auto &row) { return std::string(row.param.name); });

TEST_P(TIndexCellSampleTest, BuildsTheTreeOfThePlainProcedure) {
  EXPECT_GT(Root().GetCount(), 0);
  ExpectSameTree(Root(), *m_plain);
}

TEST_P(TIndexCellSampleTest, AnswersQueriesInTheOrderOfThePlainProcedure) {
  TRandomShapes random(12);
  const TCellBounds all = Root().GetBounds();
  for (int i = 0; i < 300; ++i) {
    const double x = random.Real(all.MinX - 10, all.MaxX + 10);
    const double y = random.Real(all.MinY - 10, all.MaxY + 10);
    const TCellBounds rect{x, x + random.Real(-5, 150), y, y + random.Real(-5, 150)};
    TCardinalArray ids;
    Ids plainIds;
    ASSERT_EQ(Root().GetAllIdsAtPoint(x, y, ids), m_plain->GetIdsAtPoint(x, y, plainIds));
    ASSERT_EQ(IdsOf(ids), plainIds);
    plainIds.clear();
    const bool hasCandidates = m_plain->GetIdsInRect(rect, plainIds);
    ASSERT_EQ(Root().GetAllIdsInRect(rect, ids), hasCandidates);
    ASSERT_EQ(IdsOf(ids), plainIds);
    // The layer keeps the candidates that meet the rectangle.
    std::erase_if(plainIds, [&](std::uint32_t id) {
      const TCustomMapObject &object = *m_layer.GetObjects(int(id));
      return !object.IntersectsRect(rect.MinX, rect.MinY, rect.MaxX, rect.MaxY) &&
             !object.WithinRect(rect.MinX, rect.MinY, rect.MaxX, rect.MaxY);
    });
    ASSERT_EQ(m_layer.GetAllIdsInRect(rect, ids), hasCandidates);
    ASSERT_EQ(IdsOf(ids), plainIds);
  }
}

/// A kind of random object, of which many may stay together for ever.
struct Tangle {
  const char *name;
  void (*add)(TMapLayer &layer, TRandomShapes &random, double reach);
};

std::vector<TMapPoint> Triangle(TRandomShapes &random, const TMapPoint &centre, double reach) {
  return random.Tangle({centre.X - reach, centre.Y - reach, centre.X + reach, centre.Y + reach}, 3);
}

const Tangle Tangles[] = {
    {"triangles",
     [](auto &layer, auto &random, double reach) { AddObject(layer, Triangle(random, Somewhere(random), reach)); }},
    {"nested triangles",
     [](auto &layer, auto &random, double reach) {
       AddObject(layer, Triangle(random, {300, 700}, reach));
     }},
    {"triangles with common corners",
     [](auto &layer, auto &random, double) { AddObject(layer, random.OnGrid(World, 16, 3)); }},
    {"circles",
     [](auto &layer, auto &random, double reach) {
       const TMapPoint centre = Somewhere(random);
       auto *circle = layer.template NewObject<TCircle>();
       circle->SetX(centre.X);
       circle->SetY(centre.Y);
       circle->UpdateBounds();
       circle->SetRadius(random.Real(0, reach / 2));
     }},
    {"boxes and lines wider than any number",
     [](auto &layer, auto &random, double reach) {
       const double scale = random.Whole(0, 1) ? 1.5e305 : 0.1;
       std::vector<TMapPoint> points = Triangle(random, Somewhere(random), reach);
       for (TMapPoint &point : points) point.X = (point.X - 512) * scale;
       AddObject(layer, points);
     }},
    {"points beyond running bounds",
     [](auto &layer, auto &random, double reach) {
       const double offset = random.Whole(0, 3) == 0 ? 3e9 : -3e9;
       AddPoint(layer, offset + random.Real(0, reach), random.Real(0, reach));
     }},
    {"points at infinity or nowhere",
     [](auto &layer, auto &random, double) {
       constexpr double Infinity = std::numeric_limits<double>::infinity();
       const double odd[] = {Infinity, -Infinity, std::numeric_limits<double>::quiet_NaN(), 1.7e308, -1.7e308};
       const int at = random.Whole(0, 12);
       AddPoint(layer, at < 5 ? odd[at] : random.Real(0, 9), random.Real(0, 9));
     }},
};

TEST(TIndexCellTangleTest, BuildsTheTreeOfThePlainProcedureWhereverThatEnds) {
  constexpr int Layers = 60;
  for (const Tangle &tangle : Tangles) {
    int ends = 0;
    for (unsigned seed = 0; seed < Layers; ++seed) {
      SCOPED_TRACE(testing::Message() << tangle.name << ", seed " << seed);
      TRandomShapes random(seed);
      const double reach = random.Real(10, 500);
      const int count = random.Whole(6, 60);
      TMapLayer layer;
      for (int i = 0; i < count; ++i) tangle.add(layer, random, reach);
      const auto plain = PlainCell::Build(layer, 3000);
      layer.SetUseIndex2D(true);
      if (!plain) continue;
      ++ends;
      ASSERT_NO_FATAL_FAILURE(ExpectSameTree(*layer.GetIndex2D(), *plain));
    }
    EXPECT_GT(ends, 0) << tangle.name;
  }
}

class TIndexCellTest : public testing::Test {
 protected:
  /// Appends points on the diagonal, from the origin on.
  void AddDiagonal(int count) {
    for (int i = 0; i < count; ++i) AddPoint(layer, i, i);
  }
  TIndexCell &Root() {
    layer.SetUseIndex2D(true);
    return *layer.GetIndex2D();
  }

  TMapLayer layer;
  TCardinalArray ids;
};

TEST_F(TIndexCellTest, KeepsAFewObjectsInTheRoot) {
  AddDiagonal(5);
  TIndexCell &root = Root();
  root.Clear();
  EXPECT_EQ(root.GetCount(), 0);
  EXPECT_EQ(IdsOf(root), (Ids{0, 1, 2, 3, 4})) << "a leaf stays as it is when cleared";
  EXPECT_EQ(root.GetBounds(), (TCellBounds{0, 4, 0, 4}));
  EXPECT_TRUE(root.IsBuildNeeded());
  EXPECT_THROW(static_cast<void>(root.GetCell(0)), ERangeError);
  EXPECT_THROW(static_cast<void>(root.GetIds(5)), ERangeError);
}

TEST_F(TIndexCellTest, LosesAnObjectThatCrossesAQuadrantWithoutAVertexInIt) {
  for (const double at : {0, 1, 2, 3, 100}) AddPoint(layer, at, at);
  AddPoint(layer, 100, 0);
  AddObject<TPolyline>(layer, {{45, 30}, {60, 55}});
  const TCellBounds inLowerRightQuadrant{52, 53, 40, 44};
  EXPECT_TRUE(layer.GetAllIdsInRect(inLowerRightQuadrant, ids));
  EXPECT_EQ(IdsOf(ids), (Ids{6}));
  EXPECT_TRUE(Root().GetAllIdsInRect(inLowerRightQuadrant, ids));
  EXPECT_EQ(IdsOf(ids), (Ids{5}));
}

TEST_F(TIndexCellTest, BuildsTwiceWhenMadeWithALayer) {
  AddDiagonal(8);
  const TIndexCell root(&layer);
  EXPECT_EQ(root.GetCount(), 4);
  EXPECT_EQ(root.GetCell(0)->GetBounds(), root.GetCell(2)->GetBounds());
  EXPECT_TRUE(root.GetAllIdsAtPoint(1, 1, ids));
  EXPECT_EQ(IdsOf(ids), (Ids{0, 1, 2, 3, 0, 1, 2, 3}));
}

TEST_F(TIndexCellTest, RefusesAnEmptyLayer) {
  EXPECT_THROW(layer.SetUseIndex2D(true), ERangeError);
  EXPECT_TRUE(layer.GetUseIndex2D());
  EXPECT_FALSE(layer.GetAllIdsInRect({0, 1, 0, 1}, ids));
}

TEST_F(TIndexCellTest, StaysUntilItIsClearedWhileDetached) {
  AddDiagonal(10);
  TIndexCell &root = Root();
  layer.SetUseIndex2D(false);
  EXPECT_EQ(root.GetLayer(), nullptr);
  AddPoint(layer, 3, 3);
  layer.SetUseIndex2D(true);
  EXPECT_TRUE(layer.GetAllIdsInRect({3, 3, 3, 3}, ids));
  EXPECT_EQ(IdsOf(ids), (Ids{3}));
  layer.SetUseIndex2D(false);
  root.Clear();
  EXPECT_EQ(root.GetCount(), 0);
  layer.SetUseIndex2D(true);
  EXPECT_TRUE(layer.GetAllIdsInRect({3, 3, 3, 3}, ids));
  EXPECT_EQ(IdsOf(ids), (Ids{3, 10}));
}

TEST_F(TIndexCellTest, ReportsAStaleId) {
  AddDiagonal(3);
  layer.SetUseIndex2D(true);
  layer.RemoveObject(layer.Last());
  EXPECT_THROW(layer.GetAllIdsInRect({0, 5, 0, 5}, ids), ERangeError);
}

TEST_F(TIndexCellTest, QueriesAppendOnlyWhatIsNotThereYet) {
  AddDiagonal(3);
  const TIndexCell &root = Root();
  ids.Add(1);
  EXPECT_TRUE(TIndexCell::GetIdsInRect(root, root, {0, 2, 0, 2}, ids));
  EXPECT_EQ(IdsOf(ids), (Ids{1, 0, 2}));
  // A copy has no room; what did not fit must not be missing from the next answer.
  TCardinalArray full;
  TCardinalArray one;
  one.Add(2);
  full.Copy(one);
  EXPECT_THROW(TIndexCell::GetIdsInRect(root, root, {0, 2, 0, 2}, full), ERangeError);
  EXPECT_TRUE(root.GetAllIdsInRect({0, 2, 0, 2}, ids));
  EXPECT_EQ(IdsOf(ids), (Ids{0, 1, 2}));
}

TEST_F(TIndexCellTest, DividesAChildThatIsMadeWithIds) {
  AddDiagonal(8);
  TIndexCell &root = Root();
  for (const std::uint32_t id : {0u, 1u, 2u, 3u, 4u, 5u, 99u}) ids.Add(id);
  auto child = std::make_unique<TIndexCell>(&root, TCellBounds{0, 8, 0, 8}, ids);
  EXPECT_EQ(child->GetLevel(), 1);
  ASSERT_EQ(child->GetCount(), 4);
  EXPECT_EQ(IdsOf(*child->GetCell(0)), (Ids{0, 1, 2, 3, 4}));
  EXPECT_EQ(IdsOf(*child->GetCell(1)), (Ids{4}));
  EXPECT_EQ(IdsOf(*child->GetCell(2)), (Ids{4, 5}));
  root.AddChildCell(std::move(child));
  EXPECT_EQ(root.GetCell(root.GetCount() - 1)->GetParent(), &root);
}

TEST_F(TIndexCellTest, FindsItsIdsThatMeetABox) {
  AddPoint(layer, 5, 5);
  AddBox(layer, {0, 0, 10, 10});
  AddObject<TPolyline>(layer, {{0, 4.5}, {10, 5.5}});
  EXPECT_TRUE(Root().GetIdsByBounds({4, 6, 4, 6}, ids));
  EXPECT_EQ(IdsOf(ids), (Ids{0, 1}));
  EXPECT_FALSE(Root().GetIdsByBounds({11, 12, 4, 6}, ids));
}

TEST(TIndexCellCrowdTest, EndsDivisionWhereObjectsStayTogether) {
  struct Crowd {
    const char *name;
    std::function<void(TMapLayer &layer, int number)> add;
  };
  constexpr double Infinity = std::numeric_limits<double>::infinity();
  const auto oneOrMore = [](int i) { return i % 2 ? 1 : std::nextafter(1, 2); };
  const Crowd crowds[] = {
      {"same point", [](auto &layer, int) { AddPoint(layer, 0.1, 0.1); }},
      {"same box", [](auto &layer, int) { AddBox(layer, World); }},
      {"boxes over each other",
       [](auto &layer, int i) {
         AddBox(layer, {-1.0 * i, 0, 100, 100.0 + i});
       }},
      {"shared vertex",
       [](auto &layer, int i) {
         AddObject(layer, {{0.1, 0.2}, {std::cos(i), std::sin(i)}});
       }},
      {"origin", [](auto &layer, int i) { AddPoint(layer, i % 2, i / 2 % 2); }},
      {"without vertices", [](auto &layer, int) { AddObject(layer, {}); }},
      {"same disc",
       [](auto &layer, int) {
         AddObject<TDisc>(layer, {{5, 5}})->radius = 3;
       }},
      {"vertical line", [](auto &layer, int i) { AddPoint(layer, 1, i); }},
      {"neighbours", [&](auto &layer, int i) { AddPoint(layer, oneOrMore(i), oneOrMore(i / 2)); }},
      {"beyond running bounds", [](auto &layer, int i) { AddPoint(layer, 3e9 + i, 1e6 * i); }},
      {"huge", [](auto &layer, int i) { AddPoint(layer, i % 2 ? -1.7e308 : 1.7e308, 1e300 * i); }},
      {"huge line", [](auto &layer, int i) { AddPoint(layer, i % 2 ? -1.7e308 : 1.7e308, 5); }},
      {"infinite", [](auto &layer, int i) { AddPoint(layer, i % 2 ? Infinity : 1, i % 3 ? -Infinity : 1); }},
  };
  for (const Crowd &crowd : crowds) {
    SCOPED_TRACE(crowd.name);
    TMapLayer layer;
    for (int i = 0; i < 2000; ++i) crowd.add(layer, i);
    layer.SetUseIndex2D(true);
    EXPECT_LT(CountCells(*layer.GetIndex2D()), 400'000);
    TCardinalArray ids;
    EXPECT_TRUE(layer.GetIndex2D()->GetAllIdsInRect({-Infinity, Infinity, -Infinity, Infinity}, ids));
    EXPECT_EQ(ids.GetCount(), 2000);
  }
}

TEST_F(TIndexCellTest, DividesAroundObjectsThatCoverTheWholeLayer) {
  TRandomShapes random(3);
  for (int i = 0; i < 10; ++i) AddBox(layer, World);
  for (int i = 0; i < 5000; ++i) AddPoint(layer, random.Real(0, 1024), random.Real(0, 1024));
  EXPECT_TRUE(Root().GetAllIdsInRect({500, 510, 500, 510}, ids));
  EXPECT_LT(ids.GetCount(), 60);
}

}  // namespace
}  // namespace tessera::test
