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

constexpr int Lowest = std::numeric_limits<int>::min();
constexpr int Highest = std::numeric_limits<int>::max();

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

QRegion QRegionOf(const Points &points, TFillMode mode) {
  const Qt::FillRule rule = mode == TFillMode::Winding ? Qt::WindingFill : Qt::OddEvenFill;
  return {QPolygon(QList<QPoint>(points.begin(), points.end())), rule};
}

TEST(TRgnTest, HoldsThePixelsOfQRegionForRandomPolygons) {
  struct PolygonKind {
    const char *name;
    int corners;
    int extent;  ///< Coordinates lie in -extent … extent.
    int count;
  };
  const PolygonKind kinds[] = {{"of one or two pixels", 5, 1, 3000},
                               {"of map size", 10, 20, 3000},
                               {"large", 12, 3000, 40},
                               {"with more sides than columns", 2000, 15, 20}};
  for (const PolygonKind &kind : kinds) {
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
        ASSERT_EQ(RunsOf(region), RunsOf(QRegionOf(points, mode) & clip)) << "polygon " << i << ' ' << kind.name;
      }
    }
  }
}

TEST(TRgnTest, TellsWhatTheRegionIs) {
  using enum TRgnComplexity;
  const std::pair<Points, TRgnComplexity> cases[] = {
      {{{0, 3}, {9, 3}, {4, 3}}, NullRegion},
      {{{-9, 0}, {-1, 0}, {-1, 9}}, NullRegion},                   // outside the clip
      {{{0, 0}, {9, 0}, {0, 1}}, SimpleRegion},                    // one row
      {{{-999, -999}, {3000, -999}, {-999, 3000}}, SimpleRegion},  // cut to a rectangle
      {{{0, 0}, {9, 0}, {0, 9}}, ComplexRegion},
      {{{0, 0}, {5, 0}, {5, 2}, {0, 2}, {0, 4}, {5, 4}, {5, 6}, {0, 6}}, ComplexRegion}};  // two, with a gap
  for (const auto &[points, complexity] : cases) {
    const TRgn region = RegionOf(points, TFillMode::Winding, QRect(0, 0, 100, 100));
    EXPECT_EQ(region.GetComplexity(), complexity) << testing::PrintToString(RunsOf(region));
  }
}

TEST(TRgnTest, CutsSidesOfTheFullCoordinateRangeExactly) {
  struct Row {
    Points points;
    QRect clip;
    Runs runs;
  };
  constexpr int Last = Highest - 1;
  const Row rows[] = {
      // The slanting side runs through (y, y) whatever the distance of its ends.
      {{{Lowest + 1, Lowest + 1}, {Highest, Highest}, {Lowest + 1, Highest}},
       QRect(-2, -2, 5, 4),
       {{-1, -2, -1}, {0, -2, 0}, {1, -2, 1}}},
      // The steepest and flattest sides there are.
      {{{0, Lowest}, {1, Highest}, {-5, Highest}, {-5, Lowest}}, QRect(-9, 7, 20, 1), {{7, -5, 1}}},
      {{{Lowest, 0}, {Highest, 2}, {Highest, 5}, {Lowest, 5}}, QRect(-9, 0, 20, 3), {{1, -9, 0}, {2, -9, 11}}},
      {{{Lowest, Lowest}, {Highest, Lowest}, {Highest, Highest}, {Lowest, Highest}},
       QRect(Last, Last, 1, 1),
       {{Last, Last, Highest}}}};
  for (const auto &[points, clip, runs] : rows) EXPECT_EQ(RunsOf(RegionOf(points, TFillMode::Alternate, clip)), runs);
}

TEST(TRgnTest, XorsLikeQRegion) {
  std::mt19937 random(7);
  std::uniform_int_distribution<int> coordinate(0, 24);
  for (int i = 0; i < 500; ++i) {
    TRgn combined;
    QRegion expected;
    for (int ring = 0; ring < 4; ++ring) {
      Points points(4);
      for (TPoint &point : points) point = {coordinate(random), coordinate(random)};
      combined.XorWith(RegionOf(points, TFillMode::Winding, QRect(0, 0, 25, 25)));
      expected ^= QRegionOf(points, TFillMode::Winding);
    }
    ASSERT_EQ(RunsOf(combined), RunsOf(expected)) << i;
    combined.XorWith(TRgn(combined));
    ASSERT_EQ(combined.GetComplexity(), TRgnComplexity::NullRegion) << i;
  }
}

}  // namespace

}  // namespace tessera
