// SPDX-License-Identifier: MIT
#include "../support/FourCuts.h"
#include "../support/Printers.h"
#include "../support/RandomShapes.h"

#include <tessera/geometry/RectClipper.h>

#include <gtest/gtest.h>

#include <string>

namespace tessera {
namespace {

using Points = std::vector<TMapPoint>;
using test::TRandomShapes;

Points Clipped(TRectClipper &clipper, const Points &points) {
  Points clipped;
  for (const auto stretch : clipper.Clip(points)) clipped.insert(clipped.end(), stretch.begin(), stretch.end());
  return clipped;
}

TEST(TRectClipperTest, CutsTheCornersOffADiamond) {
  TRectClipper clipper({-2, -2, 2, 2});
  EXPECT_EQ(Clipped(clipper, {{-3, 0}, {0, 3}, {3, 0}, {0, -3}}),
            (Points{{-2, -1}, {-2, 1}, {-1, 2}, {1, 2}, {2, 1}, {2, -1}, {1, -2}, {-1, -2}}));
}

TEST(TRectClipperTest, LeavesAnOutlineBeyondOneSideWholeInThatCut) {
  TRectClipper clipper({0, 0, 10, 10});
  const Points beyond{{-5, 2}, {-3, 2}, {-3, 4}};
  EXPECT_EQ(Clipped(clipper, beyond), beyond);
  EXPECT_TRUE(Clipped(clipper, {}).empty());
}

/// Rectangles and random outlines of one kind.
struct OutlineKind {
  std::string name;
  TBounds rect;
  int count;
  Points (*make)(TRandomShapes &, const TBounds &rect);
};

void PrintTo(const OutlineKind &kind, std::ostream *stream) {
  *stream << kind.name;
}

TBounds Inflated(const TBounds &rect, double by) {
  const double dx = (rect.MaxX - rect.MinX) * by;
  const double dy = (rect.MaxY - rect.MinY) * by;
  return {rect.MinX - dx, rect.MinY - dy, rect.MaxX + dx, rect.MaxY + dy};
}

Points Anywhere(TRandomShapes &random, const TBounds &rect) {
  return random.Tangle(Inflated(rect, 1), random.Whole(1, 12));
}
Points Inside(TRandomShapes &random, const TBounds &rect) {
  return random.Tangle(rect, random.Whole(1, 12));
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
Points WithThousandsOfVertices(TRandomShapes &random, const TBounds &rect) {
  const TMapPoint centre = random.Tangle(rect, 1)[0];
  return random.Ring(centre, (rect.MaxX - rect.MinX) * random.Real(0.3, 1.5), 5000);
}
Points OfOddNumbers(TRandomShapes &random, const TBounds &rect) {
  Points points = Anywhere(random, rect);
  const double odd[] = {std::nan(""), HUGE_VAL, -HUGE_VAL, 1e308};
  points[0].X = odd[random.Whole(0, 3)];
  points.back().Y = odd[random.Whole(0, 3)];
  return points;
}

class TRectClipperRandomTest : public testing::TestWithParam<OutlineKind> {};

bool SameBits(const Points &a, const Points &b) {
  return a.size() == b.size() && (a.empty() || std::memcmp(a.data(), b.data(), a.size() * sizeof a[0]) == 0);
}

TEST_P(TRectClipperRandomTest, GivesThePointsOfFourCuts) {
  const OutlineKind &kind = GetParam();
  TRandomShapes random(77);
  TRectClipper clipper(kind.rect);
  for (int i = 0; i < kind.count; ++i) {
    const Points points = kind.make(random, kind.rect);
    const Points clipped = Clipped(clipper, points);
    const Points expected = test::FourCuts(kind.rect, points);
    ASSERT_TRUE(SameBits(clipped, expected))
        << "outline " << i << testing::PrintToString(points) << " became " << testing::PrintToString(clipped)
        << ", not " << testing::PrintToString(expected);
  }
}

constexpr TBounds Near{-3, -2, 5, 7};
constexpr TBounds Far{4.5e8, -7.1e8, 4.5e8 + 0.02, -7.1e8 + 0.01};

INSTANTIATE_TEST_SUITE_P(
    Outlines, TRectClipperRandomTest,
    testing::Values(OutlineKind{"Anywhere", Near, 3000, Anywhere}, OutlineKind{"Inside", Near, 500, Inside},
                    OutlineKind{"BeyondACorner", Near, 2000, BeyondACorner},
                    OutlineKind{"OnTheSides", Near, 5000, OnTheSides},
                    OutlineKind{"WithThousandsOfVertices", Near, 20, WithThousandsOfVertices},
                    OutlineKind{"OfOddNumbers", Near, 2000, OfOddNumbers},
                    OutlineKind{"FarFromTheOrigin", Far, 3000, Anywhere},
                    OutlineKind{"OnTheSidesFarFromTheOrigin", Far, 3000, OnTheSides},
                    OutlineKind{"OfARectangleWithoutHeight",
                                {-3, 1, 5, 1},
                                2000,
                                [](TRandomShapes &random, const TBounds &) { return Anywhere(random, Near); }},
                    OutlineKind{"OfARectangleWithoutWidth",
                                {1, -2, 1, 7},
                                2000,
                                [](TRandomShapes &random, const TBounds &) { return Anywhere(random, Near); }},
                    OutlineKind{"OfAnInvertedRectangle",
                                {5, 7, -3, -2},
                                2000,
                                [](TRandomShapes &random, const TBounds &) { return Anywhere(random, Near); }}),
    [](const auto &row) { return row.param.name; });

}  // namespace
}  // namespace tessera
