// SPDX-License-Identifier: MIT
#include "../support/FourCuts.h"
#include "../support/Printers.h"
#include "../support/RandomShapes.h"

#include <tessera/geometry/detail/RectClipper.h>

#include <gtest/gtest.h>

#include <cstring>

namespace tessera::test {
namespace {

using Points = std::vector<TMapPoint>;

Points Clipped(detail::RectClipper &clipper, const Points &points) {
  Points clipped;
  const auto boxes = detail::VertexRuns::MakeBoxes(points);
  for (const auto stretch : clipper.Clip({points, boxes.get()}))
    clipped.insert(clipped.end(), stretch.begin(), stretch.end());
  return clipped;
}

TBounds Inflated(const TBounds &rect, double by) {
  const double dx = (rect.MaxX - rect.MinX) * by;
  const double dy = (rect.MaxY - rect.MinY) * by;
  return {rect.MinX - dx, rect.MinY - dy, rect.MaxX + dx, rect.MaxY + dy};
}

Points Anywhere(TRandomShapes &random, const TBounds &rect) {
  return random.Tangle(Inflated(rect, 1), random.Whole(1, 12));
}
Points BeyondACorner(TRandomShapes &random, const TBounds &rect) {
  const double dx = (rect.MaxX - rect.MinX) * (random.Whole(0, 1) == 0 ? -1.3 : 1.3);
  const double dy = (rect.MaxY - rect.MinY) * (random.Whole(0, 1) == 0 ? -1.3 : 1.3);
  return random.Tangle({rect.MinX + dx, rect.MinY + dy, rect.MaxX + dx, rect.MaxY + dy}, random.Whole(1, 12));
}
/// Every fourth grid line is a side of the rectangle.
Points OnTheSides(TRandomShapes &random, const TBounds &rect) {
  return random.OnGrid(Inflated(rect, 1), 12, random.Whole(1, 12));
}
Points OfOddNumbers(TRandomShapes &random, const TBounds &rect) {
  Points points = Anywhere(random, rect);
  const double odd[] = {std::nan(""), HUGE_VAL, -HUGE_VAL, 1e308};
  points[0].X = odd[random.Whole(0, 3)];
  points.back().Y = odd[random.Whole(0, 3)];
  return points;
}

bool SameBits(const Points &a, const Points &b) {
  return a.size() == b.size() && (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof a[0]) == 0);
}

TEST(TRectClipperTest, GivesThePointsOfFourCuts) {
  static constexpr TBounds Near{-3, -2, 5, 7};
  constexpr TBounds Far{4.5e8, -7.1e8, 4.5e8 + 0.02, -7.1e8 + 0.01};
  constexpr auto Nearby = [](TRandomShapes &random, const TBounds &) { return Anywhere(random, Near); };
  struct Row {
    const char *name;
    TBounds rect;
    int count;
    Points (*make)(TRandomShapes &, const TBounds &rect);
  };
  const Row rows[] = {{"anywhere", Near, 3000, Anywhere},
                      {"beyond a corner", Near, 2000, BeyondACorner},
                      {"on the sides", Near, 5000, OnTheSides},
                      {"of odd numbers", Near, 2000, OfOddNumbers},
                      {"far from the origin", Far, 3000, Anywhere},
                      {"on the sides far from the origin", Far, 3000, OnTheSides},
                      {"of a rectangle without height", {-3, 1, 5, 1}, 2000, Nearby},
                      {"of an inverted rectangle", {5, 7, -3, -2}, 2000, Nearby}};
  for (const Row &row : rows) {
    TRandomShapes random(77);
    detail::RectClipper clipper(row.rect);
    for (int i = 0; i < row.count; ++i) {
      const Points points = row.make(random, row.rect);
      const Points clipped = Clipped(clipper, points);
      const Points expected = FourCuts(row.rect, points);
      ASSERT_TRUE(SameBits(clipped, expected))
          << row.name << ' ' << i << testing::PrintToString(points) << " became " << testing::PrintToString(clipped)
          << ", not " << testing::PrintToString(expected);
    }
  }
}

}  // namespace
}  // namespace tessera::test
