// SPDX-License-Identifier: MIT
#include "../support/PoolBegun.h"
#include "../support/Printers.h"

#include <tessera/base/Exceptions.h>
#include <tessera/geometry/detail/VertexRuns.h>
#include <tessera/objects/TMapObjectsList.h>
#include <tessera/objects/TPolyline.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <limits>
#include <optional>
#include <random>

namespace tessera {
namespace {

using Points = std::vector<TMapPoint>;

TEST(TMapPointsTest, WidensItsBoundsFromTheSentinelsOnAndNotBeyondThem) {
  constexpr double Sentinel = 2147483647.0;
  constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
  TMapPoints points;
  EXPECT_EQ(points.GetBounds(), (TBounds{Sentinel, Sentinel, -Sentinel, -Sentinel}));
  EXPECT_EQ(points.Add(3e9, -3e9), (TMapPoint{3e9, -3e9}));
  EXPECT_EQ(points.GetBounds(), (TBounds{Sentinel, -3e9, 3e9, -Sentinel}));
  points.Restart();
  for (const TMapPoint &vertex : {TMapPoint{3, 4}, {-1, 9}, {NaN, NaN}, {0, 5}}) points.Add(vertex);
  EXPECT_EQ(points.GetBounds(), (TBounds{-1, 4, 3, 9}));
}

TBounds BoundsOf(const Points &points) {
  TBounds bounds = TBounds::Empty();
  for (const TMapPoint &point : points) bounds.Widen(point.X, point.Y);
  return bounds;
}

/// A list of a parts list beside a plain model of both.
class TMapPointsModel {
 public:
  void Change(std::mt19937 &random) {
    const auto any = [&](std::size_t count) { return int(random() % count); };
    const TMapPoint vertex{any(2000) - 1000.0, any(2000) - 1000.0};
    const int at = m_model.empty() ? -1 : any(m_model.size());
    const int action = any(40);
    if (action < 5 && at >= 0) {
      m_points.Delete(at);
      m_model.erase(m_model.begin() + at);
    } else if (action < 10 && at >= 0) {
      m_points.SetPoint(at, vertex);
      m_model[std::size_t(at)] = vertex;
    } else if (action < 15) {
      m_points.Reserve(random() % 9);
      m_points.UpdateBounds(vertex);
      m_bounds.Widen(vertex.X, vertex.Y);
    } else if (action == 20) {
      m_points.Restart();
      m_model.clear();
      m_bounds = TBounds::Empty();
    } else if (action == 21) {
      const auto turn = [](const TMapPoint &v) { return TMapPoint{v.Y, -v.X / 9}; };
      m_points.Transform(turn);
      for (TMapPoint &point : m_model) {
        point = turn(point);
        m_bounds.Widen(point.X, point.Y);
      }
    } else if (action == 22) {
      AppendInPlace({vertex, {vertex.Y, vertex.X}, vertex}, std::size_t(any(4)));
    } else if (action == 23) {
      Points many;
      for (int i = 0; i < 200; ++i) many.push_back({any(2000) - 1000.0, any(2000) - 1000.0});
      AppendInPlace(many, many.size());
    } else {
      m_points.Add(vertex);
      Append(vertex);
    }
  }
  void Check() {
    ASSERT_TRUE(std::ranges::equal(m_points.Points(), m_model));
    ASSERT_EQ(m_points.GetBounds(), m_bounds);
    const TBounds nearlyAll{-1000, -1000, 997, 999};
    const auto isIn = [&](const TMapPoint &point) { return nearlyAll.ContainsPoint(point.X, point.Y); };
    const auto isBoxIn = [&](const detail::RoundedBox &box) { return box.LiesWithin(nearlyAll); };
    const auto plain = std::ranges::find_if_not(m_model, isIn) - m_model.begin();
    ASSERT_EQ(m_points.GetRuns().FirstNot(0, m_model.size(), isBoxIn, isIn), std::size_t(plain));
    const TMapPoints clone = m_points.Clone();
    ASSERT_TRUE(std::ranges::equal(clone.Points(), m_model));
    ASSERT_EQ(clone.GetBounds(), BoundsOf(m_model)) << "of a clone, which are those of its vertices";
    ASSERT_EQ(m_parts.GetBounds(), m_added) << "of the parts list, which only hears of what is added";
  }

 private:
  /// Writes the first vertices into room for all of them.
  void AppendInPlace(Points vertices, std::size_t count) {
    m_points.AppendInPlace(vertices.size(), [&](TMapPoint *first, TBounds &bounds) {
      vertices.resize(count);
      std::ranges::copy(vertices, first);
      bounds = BoundsOf(vertices);
      return count;
    });
    for (const TMapPoint &vertex : vertices) Append(vertex);
  }
  void Append(const TMapPoint &vertex) {
    m_model.push_back(vertex);
    m_bounds.Widen(vertex.X, vertex.Y);
    m_added.Widen(vertex.X, vertex.Y);
  }

  TPolyline m_object;
  TParts &m_parts = m_object.GetParts();
  TMapPoints &m_points = m_parts.Add().GetPoints();
  Points m_model;
  TBounds m_bounds = TBounds::Empty();
  TBounds m_added = TBounds::Empty();
};

TEST(TMapPointsTest, FollowsAModelThroughRandomChanges) {
  std::mt19937 random(3);
  for (int run = 0; run < 100; ++run) {
    std::optional<PoolBegun> pool;
    if (run % 2 == 1) pool.emplace();
    TMapPointsModel model;
    for (int step = 0; step < 300; ++step) {
      SCOPED_TRACE(testing::Message() << "run " << run << " step " << step);
      model.Change(random);
      ASSERT_NO_FATAL_FAILURE(model.Check());
    }
  }
}

/// The first coordinates of the first vertices, which tell the parts apart.
std::vector<double> Marks(const TParts &parts) {
  std::vector<double> marks;
  for (const TPart &part : parts.Items()) marks.push_back(part.GetPoints().GetPoint(0).X);
  return marks;
}

void Mark(TPart &part, double mark) {
  part.GetPoints().Add(mark, mark);
}

/// Two lists of parts.
class TPartsTest : public testing::Test {
  TPolyline m_owner, m_otherOwner;

 protected:
  TParts &parts = m_owner.GetParts();
  TParts &other = m_otherOwner.GetParts();
};

TEST_F(TPartsTest, KeepsPartsInOrderWithNoneOneAndMany) {
  std::mt19937 random(4);
  std::vector<double> model;
  for (int step = 0; step < 1000; ++step) {
    const int at = int(random() % (model.size() + 1));
    if (at < parts.GetCount() && random() % 9 < 5) {
      parts.Delete(at);
      model.erase(model.begin() + at);
    } else {
      Mark(parts.Insert(at), step);
      model.insert(model.begin() + at, step);
    }
    ASSERT_EQ(Marks(parts), model) << step;
  }
}

TEST_F(TPartsTest, RefusesPartsAndVerticesThatDoNotExist) {
  TMapPoints points;
  for (int count = 0; count < 3; ++count) {
    for (const int index : {-1, count}) {
      EXPECT_THROW(static_cast<void>(std::as_const(parts).GetItems(index)), ERangeError);
      EXPECT_THROW(parts.Delete(index), ERangeError);
      EXPECT_THROW(parts.Insert(index < 0 ? index : count + 1), ERangeError);
      EXPECT_THROW(static_cast<void>(points.GetPoint(index)), ERangeError);
      EXPECT_THROW(points.SetPoint(index, {0, 0}), ERangeError);
      EXPECT_THROW(points.Delete(index), ERangeError);
    }
    parts.Add();
    points.Add(0, 0);
  }
}

TEST_F(TPartsTest, TakesOverListsWithoutWideningItsBoundsAndNoLongerHearsOfWhatItGaveAway) {
  {
    TPolyline shortLived;
    TParts &taker = shortLived.GetParts();
    Mark(taker.Add(), 3);
    Mark(taker.Add(), 5);
    TMapPoints list;
    list.Add(50, 50);
    taker.GetFirst().SetPoints(std::move(list));
    EXPECT_EQ(Marks(taker), (std::vector<double>{50, 5}));
    EXPECT_EQ(taker.GetBounds(), (TBounds{3, 3, 5, 5}));
    Mark(taker.GetFirst(), 1);
    taker.AddPoint(4, 9, 77);
    Mark(other.Add(), 3);
    taker.GetFirst().SetPoints(std::move(other.GetFirst().GetPoints()));
    Mark(other.GetFirst(), 4);
    taker.Delete(0);
    EXPECT_EQ(taker.GetBounds(), (TBounds{1, 1, 5, 9}));
  }
  EXPECT_EQ(other.GetBounds(), (TBounds{3, 3, 4, 4}));
}

TEST_F(TPartsTest, SwapsListsOfAnySizeWithTheirBounds) {
  for (int sizes = 0; sizes < 16; ++sizes) {
    const int mine = sizes / 4;
    const int theirs = sizes % 4;
    TPolyline a;
    TPolyline b;
    for (int i = 0; i < mine; ++i) Mark(a.GetParts().Add(), i);
    for (int i = 0; i < theirs; ++i) Mark(b.GetParts().Add(), 10 + i);
    a.GetParts().Swap(b.GetParts());
    if (theirs > 0) Mark(a.GetParts().GetLast(), 99);
    if (mine > 0) Mark(b.GetParts().GetLast(), -99);
    EXPECT_EQ(a.GetParts().GetCount(), theirs);
    EXPECT_EQ(b.GetParts().GetCount(), mine);
    EXPECT_EQ(a.GetParts().GetBounds(), theirs > 0 ? (TBounds{10, 10, 99, 99}) : TBounds::Empty());
    EXPECT_EQ(b.GetParts().GetBounds(), mine > 0 ? (TBounds{-99, -99, mine - 1.0, mine - 1.0}) : TBounds::Empty());
  }
}

/// The displayed objects beside a plain list of them, which holds each once.
void ChangeAtRandom(TDisplayedObjects &list, std::vector<TCustomMapObject *> &model, TCustomMapObject *object,
                    std::mt19937 &random) {
  const auto found = std::find(model.begin(), model.end(), object);
  const bool isThere = found != model.end();
  const int one = model.empty() ? 0 : int(random() % model.size());
  const int other = model.empty() ? 0 : int(random() % model.size());
  const auto action = model.empty() ? 14 + random() % 10 : random() % 24;
  if (action == 0) {
    list.Clear();
    model.clear();
  } else if (action < 8) {
    list.Remove(object);
    if (isThere) model.erase(found);
  } else if (action < 10) {
    list.Delete(one);
    model.erase(model.begin() + one);
  } else if (action < 12) {
    list.Move(one, other);
    TCustomMapObject *moved = model[std::size_t(one)];
    model.erase(model.begin() + one);
    model.insert(model.begin() + other, moved);
  } else if (action < 14) {
    list.Exchange(one, other);
    std::swap(model[std::size_t(one)], model[std::size_t(other)]);
  } else if (action < 16) {
    list.Insert(one, object);
    if (!isThere) model.insert(model.begin() + one, object);
  } else {
    list.Add(object);
    if (!isThere) model.push_back(object);
  }
}

TEST(TMapObjectsListTest, HasNoObjectOutsideTheCount) {
  TPolyline object;
  TMapObjectsList list;
  list.Add(&object);
  for (const int index : {-1, 1}) {
    EXPECT_EQ(list.GetItem(index), nullptr);
    EXPECT_THROW(list.SetItem(index, &object), ERangeError);
  }
  EXPECT_EQ(list.IndexOf(nullptr), -1);
  EXPECT_THROW(static_cast<void>(TMapObjectsList().Last()), ERangeError);
}

TEST(TDisplayedObjectsTest, FollowsAListThroughRandomChanges) {
  std::mt19937 random(5);
  std::array<TPolyline, 12> objects;
  TDisplayedObjects displayed;
  std::vector<TCustomMapObject *> model;
  for (int step = 0; step < 5000; ++step) {
    TPolyline *object = &objects[random() % objects.size()];
    ChangeAtRandom(displayed, model, object, random);
    ASSERT_EQ(displayed.GetCount(), int(model.size()));
    ASSERT_EQ(displayed.Holds(object), std::find(model.begin(), model.end(), object) != model.end());
    if (random() % 2 == 0) continue;  // gaps may pile up
    ASSERT_EQ(displayed.GetItem(int(model.size())), nullptr);
    ASSERT_TRUE(std::ranges::equal(displayed.Items(), model));
  }
}

}  // namespace
}  // namespace tessera
