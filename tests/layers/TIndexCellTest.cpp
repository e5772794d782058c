// SPDX-License-Identifier: MIT
#include "../support/PlainIndex.h"
#include "../support/RandomShapes.h"

#include <tessera/base/Exceptions.h>
#include <tessera/layers/TMapLayer.h>
#include <tessera/objects/TCircle.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRegion.h>
#include <tessera/objects/TSymbol.h>

#include <QBuffer>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace tessera::test {
namespace {

using Ids = std::vector<std::uint32_t>;

constexpr TBounds World{0, 0, 1024, 1024};

TMapPoint Somewhere(TRandomShapes &random) {
  return random.Tangle(World, 1)[0];
}

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

QByteArray FileBytesOf(const TIndexCell &cell) {
  QBuffer buffer;
  buffer.open(QIODevice::WriteOnly);
  cell.WriteIndex(buffer);
  return buffer.data();
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

/// Outlines long enough to be cut on the way down, lines that cross quadrants without a vertex in them, and points.
void FillWithLongOutlines(TMapLayer &layer, TRandomShapes &random) {
  for (int i = 0; i < 2; ++i) {
    AddObject(layer, random.Ring({random.Real(200, 800), random.Real(200, 800)}, random.Real(50, 250), 400));
    AddObject<TPolyline>(layer, {{0, random.Real(0, 1024)}, {1024, random.Real(0, 1024)}});
  }
  for (int i = 0; i < 300; ++i) AddPoint(layer, random.Real(0, 1024), random.Real(0, 1024));
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

/// Rings with vertices that were moved out of the bounds, or that are nowhere.
void FillWithStrayVertices(TMapLayer &layer, TRandomShapes &random) {
  for (int id = 0; id < 200; ++id) {
    TRegion *ring = AddObject(layer, random.Ring(Somewhere(random), random.Real(1, 12), random.Whole(3, 30)));
    if (id % 7 != 0) continue;
    TMapPoints &points = ring->GetParts().GetFirst().GetPoints();
    points.SetPoint(0, Somewhere(random));
    points.SetPoint(1, {std::numeric_limits<double>::quiet_NaN(), 5});
  }
}

struct Sample {
  const char *name;
  void (*fill)(TMapLayer &layer, TRandomShapes &random);
};

const Sample Samples[] = {
    {"points on midlines",
     [](TMapLayer &layer, TRandomShapes &random) {
       AddPoint(layer, 0, 0);
       AddPoint(layer, 1024, 1024);
       for (int i = 0; i < 150; ++i) AddPoint(layer, 8 * random.Whole(0, 128), 8 * random.Whole(0, 128));
     }},
    {"long outlines", FillWithLongOutlines},
    {"parts", FillWithParts},
    {"stray vertices", FillWithStrayVertices},
};

/// With some ids there already, of which others are found, too.
void ExpectSameAppending(const TIndexCell &root, const PlainCell &plain, const TCellBounds &rect) {
  TCardinalArray ids;
  Ids plainIds{1, 1'000'000, 4};
  ids.AddAll(plainIds);
  TIndexCell::GetIdsInRect(root, root, rect, ids);
  plain.GetIdsInRect(rect, plainIds);
  ASSERT_EQ(IdsOf(ids), plainIds);
}

void ExpectSameAnswers(TMapLayer &layer, const PlainCell &plain) {
  TRandomShapes random(12);
  const TIndexCell &root = *layer.GetIndex2D();
  const TCellBounds all = root.GetBounds();
  for (int i = 0; i < 300; ++i) {
    // On a grid, where points and the borders of cells are, and anywhere.
    const bool isOnGrid = i % 4 == 1;
    const double x = isOnGrid ? 64 * random.Whole(0, 16) : random.Real(all.MinX - 10, all.MaxX + 10);
    const double y = isOnGrid ? 64 * random.Whole(0, 16) : random.Real(all.MinY - 10, all.MaxY + 10);
    const double reach = i % 3 == 0 ? 1200 : 150;
    TCellBounds rect{x, x + random.Real(-5, reach), y, y + random.Real(-5, reach)};
    if (isOnGrid) rect = {x - 64, x, y - 64, y};
    if (i == 0) rect = {all.MinX, all.MaxX, all.MinY, all.MaxY};
    TCardinalArray ids;
    Ids plainIds;
    ASSERT_EQ(root.GetAllIdsAtPoint(x, y, ids), plain.GetIdsAtPoint(x, y, plainIds));
    ASSERT_EQ(IdsOf(ids), plainIds);
    ASSERT_NO_FATAL_FAILURE(ExpectSameAppending(root, plain, rect));
    plainIds.clear();
    const bool hasCandidates = plain.GetIdsInRect(rect, plainIds);
    ASSERT_EQ(root.GetAllIdsInRect(rect, ids), hasCandidates);
    ASSERT_EQ(IdsOf(ids), plainIds);
    // The layer keeps the candidates that meet the rectangle.
    std::erase_if(plainIds, [&](std::uint32_t id) {
      const TCustomMapObject &object = *layer.GetObjects(int(id));
      return !object.IntersectsRect(rect.MinX, rect.MinY, rect.MaxX, rect.MaxY) &&
             !object.WithinRect(rect.MinX, rect.MinY, rect.MaxX, rect.MaxY);
    });
    ASSERT_EQ(layer.GetAllIdsInRect(rect, ids), hasCandidates);
    ASSERT_EQ(IdsOf(ids), plainIds);
  }
}

TEST(TIndexCellSampleTest, BuildsTheTreeAndGivesTheAnswersOfThePlainProcedure) {
  for (const Sample &sample : Samples) {
    SCOPED_TRACE(sample.name);
    TRandomShapes random(11);
    TMapLayer layer;
    sample.fill(layer, random);
    layer.SetUseIndex2D(true);
    const auto plain = PlainCell::Build(layer, 100'000);
    const TIndexCell &root = *layer.GetIndex2D();
    EXPECT_GT(root.GetCount(), 0);
    const QByteArray bytes = FileBytesOf(root);
    // First from the arrays, then with one cell an object, and in the end with all.
    ASSERT_NO_FATAL_FAILURE(ExpectSameAnswers(layer, *plain));
    EXPECT_GT(root.GetCell(0)->GetCount(), 0);
    ASSERT_NO_FATAL_FAILURE(ExpectSameAnswers(layer, *plain));
    EXPECT_EQ(FileBytesOf(root), bytes);
    ASSERT_NO_FATAL_FAILURE(ExpectSameTree(root, *plain));
    ASSERT_NO_FATAL_FAILURE(ExpectSameAnswers(layer, *plain));
    EXPECT_EQ(FileBytesOf(root), bytes);
  }
}

/// A kind of random object, of which many may stay together for ever.
struct Tangle {
  const char *name;
  void (*add)(TMapLayer &layer, TRandomShapes &random, double reach);
};

std::vector<TMapPoint> Triangle(TRandomShapes &random, double reach) {
  const TMapPoint centre = Somewhere(random);
  return random.Tangle({centre.X - reach, centre.Y - reach, centre.X + reach, centre.Y + reach}, 3);
}

const Tangle Tangles[] = {
    {"triangles", [](auto &layer, auto &random, double reach) { AddObject(layer, Triangle(random, reach)); }},
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
       std::vector<TMapPoint> points = Triangle(random, reach);
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

TEST_F(TIndexCellTest, KeepsAFewObjectsInTheRootAndRefusesAnEmptyLayer) {
  EXPECT_THROW(layer.SetUseIndex2D(true), ERangeError);
  EXPECT_FALSE(layer.GetAllIdsInRect({0, 1, 0, 1}, ids));
  layer.SetUseIndex2D(false);
  AddDiagonal(5);
  TIndexCell &root = Root();
  root.Clear();
  EXPECT_EQ(IdsOf(root), (Ids{0, 1, 2, 3, 4})) << "a leaf stays as it is when cleared";
  EXPECT_EQ(root.GetBounds(), (TCellBounds{0, 4, 0, 4}));
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

TEST_F(TIndexCellTest, StaysUntilItIsClearedWhileDetachedAndReportsAStaleId) {
  AddDiagonal(10);
  TIndexCell &root = Root();
  layer.SetUseIndex2D(false);
  AddPoint(layer, 3, 3);
  for (const Ids &expected : {Ids{3}, Ids{3, 10}}) {
    layer.SetUseIndex2D(true);
    EXPECT_TRUE(layer.GetAllIdsInRect({3, 3, 3, 3}, ids));
    EXPECT_EQ(IdsOf(ids), expected);
    layer.SetUseIndex2D(false);
    root.Clear();
  }
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

TEST_F(TIndexCellTest, AnswersByItsCellsAsTheyAreChanged) {
  AddDiagonal(64);
  TIndexCell &root = Root();
  root.SetLevel(7);
  layer.SetUseIndex2D(false);
  const TCellBounds lowerLeft{0, 1, 0, 1};
  TIndexCell *child = root.GetCell(0);
  EXPECT_EQ(child->GetLevel(), 1) << "that of the time of building";
  EXPECT_EQ(child->GetLayer(), &layer);
  EXPECT_FALSE(child->IsBuildNeeded());
  child->GetCell(0)->Clear();
  EXPECT_TRUE(root.GetAllIdsInRect({0, 63, 0, 63}, ids));
  EXPECT_EQ(ids.GetCount(), 48);
  EXPECT_FALSE(root.GetAllIdsInRect(lowerLeft, ids));
  auto added = std::make_unique<TIndexCell>(child);
  added->SetBounds(lowerLeft);
  ids.Clear();
  child->AddChildCell(std::move(added));
  EXPECT_FALSE(root.GetAllIdsInRect(lowerLeft, ids));
  child->SetBounds({100, 101, 100, 101});
  EXPECT_FALSE(root.GetAllIdsInRect({0, 30, 0, 30}, ids)) << "no cell is asked whose parent does not meet";
  root.SetBounds({-2, -1, -2, -1});
  EXPECT_FALSE(root.GetAllIdsInRect({0, 63, 0, 63}, ids));
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
    void (*add)(TMapLayer &layer, int number);
  };
  constexpr double Infinity = std::numeric_limits<double>::infinity();
  constexpr double Epsilon = std::numeric_limits<double>::epsilon();
  const Crowd crowds[] = {
      {"boxes over each other",
       [](auto &layer, int i) {
         AddBox(layer, TBounds{-1.0 * i, 0, 100, 100.0 + i});
       }},
      {"shared vertex",
       [](auto &layer, int i) {
         AddObject(layer, {{0.1, 0.2}, {std::cos(i), std::sin(i)}});
       }},
      {"origin", [](auto &layer, int i) { AddPoint(layer, i % 2, i / 2 % 2); }},
      {"without vertices", [](auto &layer, int) { AddObject(layer, {}); }},
      {"vertical line", [](auto &layer, int i) { AddPoint(layer, 1, i); }},
      {"neighbours", [](auto &layer, int i) { AddPoint(layer, 1 + i % 2 * Epsilon, 1 + i / 2 % 2 * Epsilon); }},
      {"huge", [](auto &layer, int i) { AddPoint(layer, i % 2 ? -1.7e308 : 1.7e308, 1e300 * i); }},
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
