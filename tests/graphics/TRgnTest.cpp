// SPDX-License-Identifier: MIT
#include <tessera/graphics/TRgn.h>

#include <QPolygon>
#include <QRegion>
#include <gtest/gtest.h>

#include <limits>
#include <random>

namespace tessera {

void PrintTo(const TRgn::Run &run, std::ostream *stream) {
  *stream << run.y << ':' << run.left << '-' << run.right;
}

namespace {

using Runs = std::vector<TRgn::Run>;
using Points = std::vector<TPoint>;

constexpr int kLowest = std::numeric_limits<int>::min();
constexpr int kHighest = std::numeric_limits<int>::max();

Runs RunsOf(const TRgn &region) {
  return {region.Runs().begin(), region.Runs().end()};
}

TRgn RegionOf(const Points &points, TFillMode mode, const QRect &clip) {
  TRgn region;
  region.SetPolygon(points, mode, clip);
  return region;
}

/// The runs of a Qt region, row by row; it may hold rectangles that touch.
Runs RunsOf(const QRegion &region) {
  Runs runs;
  for (const QRect &rect : region) {
    for (int y = rect.top(); y <= rect.bottom(); ++y) runs.push_back({y, rect.left(), rect.right() + 1});
  }
  std::sort(runs.begin(), runs.end(),
            [](const TRgn::Run &a, const TRgn::Run &b) { return std::pair(a.y, a.left) < std::pair(b.y, b.left); });
  Runs joined;
  for (const TRgn::Run &run : runs) {
    if (!joined.empty() && joined.back().y == run.y && joined.back().right == run.left) {
      joined.back().right = run.right;
    } else {
      joined.push_back(run);
    }
  }
  return joined;
}

Runs ExpectedRuns(const Points &points, TFillMode mode, const QRect &clip) {
  const Qt::FillRule rule = mode == TFillMode::Winding ? Qt::WindingFill : Qt::OddEvenFill;
  return RunsOf(QRegion(QPolygon(QList<QPoint>(points.begin(), points.end())), rule) & clip);
}

/// Random polygons of one kind.
struct PolygonKind {
  std::string name;
  int corners;
  int extent;  ///< Coordinates lie in -extent … extent.
  int count;
};

class TRgnPolygonTest : public testing::TestWithParam<PolygonKind> {};

TEST_P(TRgnPolygonTest, HoldsThePixelsOfQRegion) {
  const PolygonKind kind = GetParam();
  std::mt19937 random(20240607);
  std::uniform_int_distribution<int> coordinate(-kind.extent, kind.extent);
  std::uniform_int_distribution<int> corners(3, kind.corners);
  TRgn region;
  for (int i = 0; i < kind.count; ++i) {
    Points points(std::size_t(corners(random)));
    for (TPoint &point : points) point = {coordinate(random), coordinate(random)};
    const int half = kind.extent / 2 + 1;
    const QRect clip = i % 2 == 0 ? QRect(-half, -half, 2 * half, half) : QRect(-9999, -9999, 20000, 20000);
    for (const TFillMode mode : {TFillMode::Alternate, TFillMode::Winding}) {
      region.SetPolygon(points, mode, clip);
      ASSERT_EQ(RunsOf(region), ExpectedRuns(points, mode, clip)) << "polygon " << i;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Random, TRgnPolygonTest,
                         testing::Values(PolygonKind{"OfOneOrTwoPixels", 5, 1, 3000},
                                         PolygonKind{"WithManyLevelSides", 8, 3, 3000},
                                         PolygonKind{"OfMapSize", 10, 20, 3000}, PolygonKind{"Large", 12, 3000, 40},
                                         PolygonKind{"WithManyCrossings", 300, 60, 40},
                                         PolygonKind{"WithMoreSidesThanColumns", 2000, 15, 20}),
                         [](const auto &row) { return row.param.name; });

void PrintTo(const PolygonKind &kind, std::ostream *stream) {
  *stream << kind.name;
}

struct ShapeCase {
  std::string name;
  Points points;
  TRgnComplexity complexity;
};

class TRgnComplexityTest : public testing::TestWithParam<ShapeCase> {};

TEST_P(TRgnComplexityTest, TellsWhatTheRegionIs) {
  const QRect clip(0, 0, 100, 100);
  EXPECT_EQ(RegionOf(GetParam().points, TFillMode::Winding, clip).GetComplexity(), GetParam().complexity);
}

INSTANTIATE_TEST_SUITE_P(
    Shapes, TRgnComplexityTest,
    testing::Values(ShapeCase{"Nothing", {}, TRgnComplexity::NullRegion},
                    ShapeCase{"TwoPoints", {{0, 0}, {9, 9}}, TRgnComplexity::NullRegion},
                    ShapeCase{"LevelLine", {{0, 3}, {9, 3}, {4, 3}}, TRgnComplexity::NullRegion},
                    ShapeCase{"OutsideTheClip", {{-9, 0}, {-1, 0}, {-1, 9}}, TRgnComplexity::NullRegion},
                    ShapeCase{"Rectangle", {{2, 2}, {2, 8}, {7, 8}, {7, 2}}, TRgnComplexity::SimpleRegion},
                    ShapeCase{"OneRow", {{0, 0}, {9, 0}, {0, 1}}, TRgnComplexity::SimpleRegion},
                    ShapeCase{
                        "CutToARectangle", {{-999, -999}, {3000, -999}, {-999, 3000}}, TRgnComplexity::SimpleRegion},
                    ShapeCase{"Triangle", {{0, 0}, {9, 0}, {0, 9}}, TRgnComplexity::ComplexRegion},
                    ShapeCase{"TwoRectanglesWithAGap",
                              {{0, 0}, {5, 0}, {5, 2}, {0, 2}, {0, 4}, {5, 4}, {5, 6}, {0, 6}},
                              TRgnComplexity::ComplexRegion}),
    [](const auto &row) { return row.param.name; });

TEST(TRgnTest, FillsAnEightDrawnInOneTurnByTheWindingRuleOnly) {
  const Points twice{{0, 0}, {9, 0}, {9, 9}, {0, 9}, {0, 0}, {9, 0}, {9, 9}, {0, 9}};
  const QRect clip(0, 0, 20, 20);
  EXPECT_EQ(RegionOf(twice, TFillMode::Winding, clip).GetComplexity(), TRgnComplexity::SimpleRegion);
  EXPECT_TRUE(RegionOf(twice, TFillMode::Alternate, clip).IsEmpty());
}

TEST(TRgnTest, CutsTheLargestPolygonExactly) {
  // The slanting side runs through (y, y) whatever the distance of its ends.
  const Points below{{kLowest + 1, kLowest + 1}, {kHighest, kHighest}, {kLowest + 1, kHighest}};
  const TRgn region = RegionOf(below, TFillMode::Alternate, QRect(-2, -2, 5, 4));
  EXPECT_EQ(RunsOf(region), (Runs{{-1, -2, -1}, {0, -2, 0}, {1, -2, 1}}));
}

TEST(TRgnTest, CutsSidesOfTheFullCoordinateRangeExactly) {
  // x = -2^31 + k * (2^32 - 1) / (2^32 - 1) and the steepest and flattest sides there are.
  const Points steep{{0, kLowest}, {1, kHighest}, {-5, kHighest}, {-5, kLowest}};
  EXPECT_EQ(RunsOf(RegionOf(steep, TFillMode::Alternate, QRect(-9, 7, 20, 1))), (Runs{{7, -5, 1}}));
  const Points flat{{kLowest, 0}, {kHighest, 2}, {kHighest, 5}, {kLowest, 5}};
  EXPECT_EQ(RunsOf(RegionOf(flat, TFillMode::Alternate, QRect(-9, 0, 20, 3))), (Runs{{1, -9, 0}, {2, -9, 11}}));
}

TEST(TRgnTest, KeepsToAClipAtTheEndOfTheCoordinates) {
  const Points all{{kLowest, kLowest}, {kHighest, kLowest}, {kHighest, kHighest}, {kLowest, kHighest}};
  const QRect corner(QPoint(kHighest - 2, kHighest - 2), QPoint(kHighest - 1, kHighest - 1));
  EXPECT_EQ(RunsOf(RegionOf(all, TFillMode::Winding, corner)),
            (Runs{{kHighest - 2, kHighest - 2, kHighest}, {kHighest - 1, kHighest - 2, kHighest}}));
}

TEST(TRgnTest, XorsLikeQRegion) {
  std::mt19937 random(7);
  std::uniform_int_distribution<int> coordinate(0, 24);
  const QRect clip(0, 0, 25, 25);
  for (int i = 0; i < 500; ++i) {
    TRgn combined;
    QRegion expected;
    for (int ring = 0; ring < 4; ++ring) {
      Points points(4);
      for (TPoint &point : points) point = {coordinate(random), coordinate(random)};
      combined.XorWith(RegionOf(points, TFillMode::Winding, clip));
      expected ^= QRegion(QPolygon(QList<QPoint>(points.begin(), points.end())), Qt::WindingFill);
    }
    ASSERT_EQ(RunsOf(combined), RunsOf(expected)) << i;
  }
}

TEST(TRgnTest, IsEmptyWhenXoredWithItself) {
  TRgn region = RegionOf({{0, 0}, {9, 0}, {3, 9}}, TFillMode::Winding, QRect(0, 0, 10, 10));
  region.XorWith(TRgn(region));
  EXPECT_EQ(region.GetComplexity(), TRgnComplexity::NullRegion);
}

}  // namespace

}  // namespace tessera
