// SPDX-License-Identifier: MIT
#include "../support/Printers.h"

#include <tessera/base/Exceptions.h>
#include <tessera/objects/TPolyline.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <random>

namespace tessera {
namespace {

using Points = std::vector<TMapPoint>;

Points PointsOf(const TMapPoints &points) {
  return {points.Points().begin(), points.Points().end()};
}

TEST(TMapPointsTest, WidensItsBoundsFromTheSentinelsOnAndNotBeyondThem) {
  constexpr double Sentinel = 2147483647.0;
  constexpr double NaN = std::numeric_limits<double>::quiet_NaN();
  TMapPoints points;
  EXPECT_EQ(points.GetBounds(), (TBounds{Sentinel, Sentinel, -Sentinel, -Sentinel}));
  EXPECT_EQ(points.Add(3e9, -3e9), (TMapPoint{3e9, -3e9}));
  EXPECT_EQ(points.GetBounds(), (TBounds{Sentinel, -3e9, 3e9, -Sentinel}));
  points.Restart();
  for (const TMapPoint &vertex : Points{{3, 4}, {-1, 9}, {NaN, NaN}, {0, 5}}) points.Add(vertex.X, vertex.Y);
  EXPECT_EQ(points.GetBounds(), (TBounds{-1, 4, 3, 9}));
}

TEST(TMapPointsTest, RefusesVerticesThatDoNotExist) {
  TMapPoints points;
  for (int count = 0; count < 2; ++count) {
    for (const int index : {-1, count}) {
      EXPECT_THROW(static_cast<void>(points.GetPoint(index)), ERangeError);
      EXPECT_THROW(points.SetPoint(index, {0, 0}), ERangeError);
      EXPECT_THROW(points.Delete(index), ERangeError);
    }
    points.Add(0, 0);
  }
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
    } else if (action < 20) {
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
    } else {
      m_points.Add(vertex);
      Append(vertex);
    }
  }
  void Check() {
    ASSERT_EQ(PointsOf(m_points), m_model);
    ASSERT_EQ(m_points.GetBounds(), m_bounds);
    const TMapPoints clone = m_points.Clone();
    ASSERT_EQ(PointsOf(clone), m_model);
    ASSERT_EQ(clone.GetBounds(), BoundsOf(m_model)) << "of a clone, which are those of its vertices";
    ASSERT_EQ(m_parts.GetBounds(), m_added) << "of the parts list, which only hears of what is added";
  }

 private:
  /// Writes the first vertices into room for all of them.
  void AppendInPlace(const Points &vertices, std::size_t count) {
    const Points written(vertices.begin(), vertices.begin() + std::ptrdiff_t(count));
    m_points.AppendInPlace(vertices.size(), [&](TMapPoint *first, TBounds &bounds) {
      std::ranges::copy(written, first);
      bounds = BoundsOf(written);
      return count;
    });
    for (const TMapPoint &vertex : written) Append(vertex);
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
  for (int run = 0; run < 50; ++run) {
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

TEST(TPartsTest, KeepsPartsInOrderWithNoneOneAndMany) {
  std::mt19937 random(4);
  TPolyline partsOwner;
  TParts &parts = partsOwner.GetParts();
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

TEST(TPartsTest, RefusesPartsThatDoNotExist) {
  TPolyline partsOwner;
  TParts &parts = partsOwner.GetParts();
  for (int count = 0; count < 3; ++count) {
    for (const int index : {-1, count}) {
      EXPECT_THROW(static_cast<void>(std::as_const(parts).GetItems(index)), ERangeError);
      EXPECT_THROW(parts.Delete(index), ERangeError);
      EXPECT_THROW(parts.Insert(index < 0 ? index : count + 1), ERangeError);
    }
    parts.Add();
  }
}

TEST(TPartsTest, TakesOverListsWithoutWideningItsBoundsAndNoLongerHearsOfWhatItGaveAway) {
  TMapPoints list;
  TPolyline otherOwner;
  TParts &other = otherOwner.GetParts();
  {
    TPolyline partsOwner;
    TParts &parts = partsOwner.GetParts();
    Mark(parts.Add(), 3);
    Mark(parts.Add(), 5);
    list.Add(50, 50);
    parts.GetFirst().SetPoints(std::move(list));
    EXPECT_EQ(Marks(parts), (std::vector<double>{50, 5}));
    EXPECT_EQ(parts.GetBounds(), (TBounds{3, 3, 5, 5}));
    Mark(parts.GetFirst(), 1);
    parts.AddPoint(4, 9, 77);
    Mark(other.Add(), 3);
    parts.GetFirst().SetPoints(std::move(other.GetFirst().GetPoints()));
    Mark(other.GetFirst(), 4);
    parts.Delete(0);
    parts.AddBounds(TBounds::Empty());
    EXPECT_EQ(parts.GetBounds(), (TBounds{1, 1, 5, 9}));
  }
  EXPECT_EQ(other.GetBounds(), (TBounds{3, 3, 4, 4}));
  list.Restart();
  list.Add(2, 2);
  EXPECT_EQ(list.GetBounds(), (TBounds{2, 2, 2, 2}));
}

TEST(TPartsTest, AssignsCopiesOfPartsOfOtherLists) {
  TPolyline sourceOwner;
  TParts &source = sourceOwner.GetParts();
  Mark(source.Add(), 7);
  TPolyline partsOwner;
  TParts &parts = partsOwner.GetParts();
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
      TPolyline aOwner;
      TParts &a = aOwner.GetParts();
      TPolyline bOwner;
      TParts &b = bOwner.GetParts();
      for (int i = 0; i < mine; ++i) Mark(a.Add(), i);
      for (int i = 0; i < theirs; ++i) Mark(b.Add(), 10 + i);
      a.Swap(b);
      EXPECT_EQ(a.GetCount(), theirs);
      EXPECT_EQ(b.GetCount(), mine);
      if (theirs > 0) Mark(a.GetLast(), 99);
      if (mine > 0) Mark(b.GetLast(), -99);
      EXPECT_EQ(a.GetBounds(), theirs > 0 ? (TBounds{10, 10, 99, 99}) : TBounds::Empty());
      EXPECT_EQ(b.GetBounds(), mine > 0 ? (TBounds{-99, -99, mine - 1.0, mine - 1.0}) : TBounds::Empty());
    }
  }
}

}  // namespace
}  // namespace tessera
