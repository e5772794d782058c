// SPDX-License-Identifier: MIT
#include "../support/Printers.h"

#include <tessera/base/Exceptions.h>
#include <tessera/objects/TParts.h>

#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace tessera {
namespace {

using Points = std::vector<TMapPoint>;

constexpr double NaN = std::numeric_limits<double>::quiet_NaN();

Points PointsOf(const TMapPoints &points) {
  return {points.Points().begin(), points.Points().end()};
}

void Fill(TMapPoints &points, std::initializer_list<TMapPoint> vertices) {
  for (const TMapPoint &vertex : vertices) points.Add(vertex);
}

TEST(TMapPointsTest, StartsWithBoundsThatContainNothing) {
  const TMapPoints points;
  EXPECT_EQ(points.GetCount(), 0);
  EXPECT_EQ(points.GetBounds(), (TBounds{2147483647.0, 2147483647.0, -2147483647.0, -2147483647.0}));
}

TEST(TMapPointsTest, WidensItsBoundsWithEveryVertex) {
  TMapPoints points;
  EXPECT_EQ(points.Add(3, 4), (TMapPoint{3, 4}));
  EXPECT_EQ(points.GetBounds(), (TBounds{3, 4, 3, 4}));
  points.Add(-1, 9);
  EXPECT_EQ(points.GetBounds(), (TBounds{-1, 4, 3, 9}));
  points.Add(NaN, NaN);
  points.Add(0, 5);
  EXPECT_EQ(points.GetBounds(), (TBounds{-1, 4, 3, 9}));
}

TEST(TMapPointsTest, DoesNotWidenItsBoundsBeyondTheSentinels) {
  TMapPoints points;
  points.Add(3e9, -3e9);
  EXPECT_EQ(points.GetBounds(), (TBounds{2147483647.0, -3e9, 3e9, -2147483647.0}));
}

TEST(TMapPointsTest, NeverShrinksItsBounds) {
  struct Row {
    const char *name;
    void (*change)(TMapPoints &);
    Points left;
  };
  const Row rows[] = {{"deleting", [](TMapPoints &p) { p.Delete(1); }, {{0, 0}, {2, 2}}},
                      {"moving",
                       [](TMapPoints &p) {
                         p.SetPoint(1, {1, 1});
                       },
                       {{0, 0}, {1, 1}, {2, 2}}},
                      {"moving outwards",
                       [](TMapPoints &p) {
                         p.SetPoint(1, {50, 1});
                       },
                       {{0, 0}, {50, 1}, {2, 2}}},
                      {"deleting all",
                       [](TMapPoints &p) {
                         while (p.GetCount() > 0) p.Delete(0);
                       },
                       {}},
                      {"turning",
                       [](TMapPoints &p) { p.Transform([](const TMapPoint &v) {
                                             return TMapPoint{v.Y, -v.X / 9};
                                           }); },
                       {{0, 0}, {8, -1}, {2, -2 / 9.0}}}};
  for (const Row &row : rows) {
    TMapPoints points;
    Fill(points, {{0, 0}, {9, 8}, {2, 2}});
    row.change(points);
    EXPECT_EQ(PointsOf(points), row.left) << row.name;
    TBounds bounds{0, 0, 9, 8};
    if (row.left.size() == 3 && row.left[1].Y == -1) bounds.MinY = -1;
    EXPECT_EQ(points.GetBounds(), bounds) << row.name;
    points.Add(-1, 10);
    bounds.Widen(-1, 10);
    EXPECT_EQ(points.GetBounds(), bounds) << row.name;
  }
}

TEST(TMapPointsTest, StartsAnewWhenRestarted) {
  TMapPoints points;
  points.Restart();
  Fill(points, {{0, 0}, {9, 8}});
  points.Delete(0);
  points.Restart();
  EXPECT_EQ(points.GetCount(), 0);
  EXPECT_EQ(points.GetBounds(), TBounds::Empty());
  Fill(points, {{1, 2}, {3, 4}, {5, 6}});
  EXPECT_EQ(points.GetBounds(), (TBounds{1, 2, 5, 6}));
  EXPECT_EQ(PointsOf(points), (Points{{1, 2}, {3, 4}, {5, 6}}));
}

TEST(TMapPointsTest, ClonesItsVerticesWithBoundsOfTheirOwn) {
  TMapPoints points;
  Fill(points, {{0, 0}, {9, 8}});
  points.Delete(1);
  TMapPoints clone = points.Clone();
  clone.Add(1, 1);
  EXPECT_EQ(PointsOf(clone), (Points{{0, 0}, {1, 1}}));
  EXPECT_EQ(clone.GetBounds(), (TBounds{0, 0, 1, 1}));
  EXPECT_EQ(points.GetCount(), 1);
}

TEST(TMapPointsTest, RefusesVerticesThatDoNotExist) {
  TMapPoints points;
  EXPECT_THROW(static_cast<void>(points.GetPoint(0)), ERangeError);
  EXPECT_THROW(points.Delete(0), ERangeError);
  Fill(points, {{0, 0}});
  EXPECT_THROW(static_cast<void>(points.GetPoint(-1)), ERangeError);
  EXPECT_THROW(points.SetPoint(1, {0, 0}), ERangeError);
  EXPECT_THROW(points.Delete(1), ERangeError);
}

TEST(TMapPointsTest, AppendsWhatIsWrittenInPlace) {
  TParts parts;
  TMapPoints &points = parts.Add().GetPoints();
  Fill(points, {{0, 0}});
  const auto writeTwoOfThree = [](TMapPoint *first, TBounds &bounds) {
    first[0] = {5, 1};
    first[1] = {7, 2};
    bounds = {5, 1, 7, 2};
    return std::size_t(2);
  };
  points.AppendInPlace(3, writeTwoOfThree);
  points.AppendInPlace(3, [](TMapPoint *, TBounds &) { return std::size_t(0); });
  EXPECT_EQ(PointsOf(points), (Points{{0, 0}, {5, 1}, {7, 2}}));
  EXPECT_EQ(parts.GetBounds(), (TBounds{0, 0, 7, 2}));
  // Bounds that nothing was entered into widen nothing.
  parts.AddBounds(TBounds::Empty());
  EXPECT_EQ(parts.GetBounds(), (TBounds{0, 0, 7, 2}));
}

TEST(TMapPointsTest, FollowsAListThroughRandomChanges) {
  std::mt19937 random(3);
  const auto any = [&](std::size_t count) { return int(random() % count); };
  for (int run = 0; run < 30; ++run) {
    TParts parts;
    TMapPoints &points = parts.Add().GetPoints();
    Points model;
    TBounds bounds = TBounds::Empty();
    for (int step = 0; step < 300; ++step) {
      const TMapPoint vertex{any(2000) - 1000.0, any(2000) - 1000.0};
      const int at = model.empty() ? 0 : any(model.size());
      switch (any(8)) {
        case 0:
          if (model.empty()) break;
          points.Delete(at);
          model.erase(model.begin() + at);
          break;
        case 1:
          if (model.empty()) break;
          points.SetPoint(at, vertex);
          model[std::size_t(at)] = vertex;
          break;
        case 2:
          points.Reserve(random() % 9);
          break;
        case 3:
          points.UpdateBounds(vertex);
          bounds.Widen(vertex.X, vertex.Y);
          break;
        default:
          points.Add(vertex);
          model.push_back(vertex);
          bounds.Widen(vertex.X, vertex.Y);
      }
      ASSERT_EQ(PointsOf(points), model) << "run " << run << " step " << step;
      ASSERT_EQ(points.GetBounds(), bounds) << "run " << run << " step " << step;
    }
  }
}

/// The first coordinates of the first vertices, which tell the parts apart.
std::vector<double> Marks(const TParts &parts) {
  std::vector<double> marks;
  for (const TPart &part : parts.Items()) marks.push_back(part.GetPoints().GetPoint(0).X);
  return marks;
}

TPart &Mark(TPart &part, double mark) {
  part.GetPoints().Add(mark, mark);
  return part;
}

TEST(TPartsTest, WidensItsBoundsWithEveryVertexOfEveryPart) {
  TParts parts;
  EXPECT_EQ(parts.GetMinX(), 2147483647.0);
  EXPECT_EQ(parts.GetMaxX(), -2147483647.0);
  Mark(parts.Add(), 3);
  Mark(parts.Add(), 5);
  Mark(parts.GetFirst(), 1);
  parts.AddPoint(4, 9, 77);
  EXPECT_EQ(parts.GetBounds(), (TBounds{1, 1, 5, 9}));
  parts.Delete(0);
  parts.Clear();
  EXPECT_EQ(parts.GetBounds(), (TBounds{1, 1, 5, 9}));
}

TEST(TPartsTest, KeepsPartsInOrderWithNoneOneAndMany) {
  TParts parts;
  EXPECT_TRUE(parts.Items().empty());
  Mark(parts.Insert(0), 1);
  Mark(parts.Insert(0), 0);
  Mark(parts.Insert(2), 3);
  Mark(parts.Insert(2), 2);
  EXPECT_EQ(Marks(parts), (std::vector<double>{0, 1, 2, 3}));
  parts.Delete(1);
  EXPECT_EQ(Marks(parts), (std::vector<double>{0, 2, 3}));
  parts.Delete(2);
  parts.Delete(0);
  EXPECT_EQ(Marks(parts), (std::vector<double>{2}));
  parts.Delete(0);
  EXPECT_EQ(parts.GetCount(), 0);
  Mark(parts.Add(), 9);
  EXPECT_EQ(Marks(parts), (std::vector<double>{9}));
  parts.Delete(0);
  EXPECT_EQ(parts.GetCount(), 0);
}

TEST(TPartsTest, RefusesPartsThatDoNotExist) {
  TParts parts;
  for (int count = 0; count < 3; ++count) {
    EXPECT_THROW(static_cast<void>(parts.GetItems(count)), ERangeError);
    EXPECT_THROW(static_cast<void>(std::as_const(parts).GetItems(-1)), ERangeError);
    EXPECT_THROW(parts.Delete(count), ERangeError);
    EXPECT_THROW(parts.Insert(count + 1), ERangeError);
    EXPECT_THROW(parts.Insert(-1), ERangeError);
    parts.Add();
  }
  EXPECT_THROW(static_cast<void>(TParts().GetLast()), ERangeError);
}

TEST(TPartsTest, TakesOverListsWithoutWideningItsBounds) {
  TParts parts;
  Mark(parts.Add(), 1);
  TMapPoints list;
  list.Add(50, 50);
  parts.GetFirst().SetPoints(std::move(list));
  EXPECT_EQ(parts.GetBounds(), (TBounds{1, 1, 1, 1}));
  Mark(parts.GetFirst(), 2);
  EXPECT_EQ(Marks(parts), (std::vector<double>{50}));
  EXPECT_EQ(parts.GetBounds(), (TBounds{1, 1, 2, 2}));
  parts.GetFirst().SetPoints(TMapPoints());
  EXPECT_EQ(parts.GetCount(), 1);
  EXPECT_EQ(parts.GetFirst().GetPoints().GetCount(), 0);
}

TEST(TPartsTest, NoLongerHearsOfAListThatItGaveAway) {
  TMapPoints list;
  TParts other;
  {
    TParts parts;
    Mark(parts.Add(), 1);
    list.Add(7, 7);
    parts.GetFirst().SetPoints(std::move(list));
    Mark(other.Add(), 3);
    parts.GetFirst().SetPoints(std::move(other.GetFirst().GetPoints()));
    Mark(other.GetFirst(), 4);
    EXPECT_EQ(parts.GetBounds(), (TBounds{1, 1, 1, 1}));
  }
  EXPECT_EQ(other.GetBounds(), (TBounds{3, 3, 4, 4}));
  list.Restart();
  list.Add(2, 2);
  EXPECT_EQ(list.GetBounds(), (TBounds{2, 2, 2, 2}));
}

TEST(TPartsTest, AssignsCopiesOfPartsOfOtherLists) {
  TParts source;
  Mark(source.Add(), 7);
  TParts parts;
  parts.Add();
  Mark(parts.Add(), 1);
  parts.SetFirst(source.GetFirst());
  parts.SetLast(source.GetFirst());
  parts.SetItems(0, parts.GetFirst());
  EXPECT_EQ(Marks(parts), (std::vector<double>{7, 7}));
  Mark(parts.GetFirst(), 3);
  EXPECT_EQ(parts.GetBounds(), (TBounds{1, 1, 3, 3}));
  EXPECT_EQ(source.GetBounds(), (TBounds{7, 7, 7, 7}));
  EXPECT_EQ(source.GetFirst().GetPoints().GetCount(), 1);
}

TEST(TPartsTest, SwapsListsOfAnySizeWithTheirBounds) {
  for (int mine = 0; mine < 4; ++mine) {
    for (int theirs = 0; theirs < 4; ++theirs) {
      TParts a;
      TParts b;
      for (int i = 0; i < mine; ++i) Mark(a.Add(), i);
      for (int i = 0; i < theirs; ++i) Mark(b.Add(), 10 + i);
      a.Swap(b);
      EXPECT_EQ(a.GetCount(), theirs);
      EXPECT_EQ(b.GetCount(), mine);
      if (theirs > 0) Mark(a.GetLast(), 99);
      if (mine > 0) Mark(b.GetLast(), -99);
      EXPECT_EQ(a.GetMaxX(), theirs > 0 ? 99 : -BoundsSentinel);
      EXPECT_EQ(b.GetMinX(), mine > 0 ? -99 : BoundsSentinel);
      EXPECT_EQ(b.GetMaxX(), mine > 0 ? mine - 1 : -BoundsSentinel);
    }
  }
}

}  // namespace
}  // namespace tessera
