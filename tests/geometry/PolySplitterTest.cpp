// SPDX-License-Identifier: MIT
#include "../support/Printers.h"

#include <tessera/base/Exceptions.h>
#include <tessera/geometry/PolySplitter.h>
#include <tessera/graphics/TCanvas.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <optional>

namespace tessera {
namespace {

using Outline = std::vector<TPointEx>;

constexpr TVectorEx MiddleUp{{1, -5}, {1, 5}};
constexpr TVectorEx MiddleAcross{{-5, 1}, {5, 1}};
const Outline Square{{0, 0}, {0, 2}, {2, 2}, {2, 0}};
const Outline Triangle{{0, 0}, {0.5L, 1}, {1, 0}};

Outline PointsOf(const TPointsArray &points) {
  return {points.Points().begin(), points.Points().end()};
}

TEST(TPolySplitterTest, KeepsOneSideOfTheLine) {
  using enum TSplitMode;
  constexpr long double F = 1e9L;
  struct Row {
    const char *name;
    Outline source;
    TVectorEx line;
    TSplitMode mode;
    Outline left;
  };
  const Row rows[] = {
      {"left half", Square, MiddleUp, smLeft, {{0, 0}, {0, 2}, {1, 2}, {1, 0}}},
      {"right half", Square, MiddleUp, smRight, {{1, 0}, {1, 2}, {2, 2}, {2, 0}}},
      {"upper half", Square, MiddleAcross, smAbove, {{0, 1}, {0, 2}, {2, 2}, {2, 1}}},
      {"corner beyond", {{0, 0}, {0, 2}, {2, 1}}, MiddleUp, smLeft, {{0, 0}, {0, 2}, {1, 1.5L}, {1, 0.5L}}},
      {"wholly on the kept side", Triangle, MiddleUp, smLeft, Triangle},
      {"met twice", {{0, 0}, {1, 1}, {2, 0}}, MiddleUp, smLeft, {{0, 0}, {1, 1}, {1, 1}, {1, 0}}},
      {"far away",
       {{F, F}, {F, F + 2}, {F + 2, F}},
       {{F + 1, 0}, {F + 1, 1}},
       smLeft,
       {{F, F}, {F, F + 2}, {F + 1, F + 1}, {F + 1, F}}}};
  for (const Row &row : rows) {
    TPolySplitter splitter;
    splitter.GetSource().Add(row.source);
    EXPECT_TRUE(splitter.Split(row.line, row.mode)) << row.name;
    EXPECT_EQ(PointsOf(splitter.GetSource()), row.left) << row.name;
    EXPECT_EQ(PointsOf(splitter.GetDestination()), row.left) << row.name;
  }
}

TEST(TPolySplitterTest, KeepsAnOutlineOnTheDiscardedSideWholeAndCutsNothingOffNothing) {
  TPolySplitter splitter;
  splitter.GetSource().Add(Triangle);
  EXPECT_FALSE(splitter.Split({{2, 0}, {2, 1}}, TSplitMode::smRight));
  EXPECT_EQ(PointsOf(splitter.GetSource()), Triangle);
  EXPECT_EQ(splitter.GetDestination().GetCount(), 0);
  splitter.Reset();
  EXPECT_FALSE(splitter.Split(MiddleUp, TSplitMode::smLeft));
}

TEST(TVectorOperationsTest, ComparesWithBothEndsInclusively) {
  using enum TSplitMode;
  const TVectorOperations slanted(VectorEx({1, 1}, {3, 2}));
  const std::pair<TPointEx, std::vector<TSplitMode>> rows[] = {
      {{2, 2}, {smAbove}}, {{2, 1.9L}, {}}, {{1, 1}, {smBelow, smLeft}}, {{3, 2}, {smAbove, smRight}}};
  for (const auto &[point, sides] : rows) {
    for (const TSplitMode mode : {smAbove, smBelow, smLeft, smRight, TSplitMode(7)}) {
      const bool isValid = std::find(sides.begin(), sides.end(), mode) != sides.end();
      EXPECT_EQ(slanted.IsPointValid(point, mode), isValid) << testing::PrintToString(point) << int(mode);
    }
  }
}

TEST(TVectorOperationsTest, FindsWhereTheEndlessLineMeetsASegment) {
  struct Row {
    const char *name;
    TVectorEx line, segment;
    std::optional<TPointEx> meeting;
  };
  const Row rows[] = {{"far from the vector", {{0, 0}, {1, 1}}, {{9, 0}, {9, 20}}, TPointEx{9, 9}},
                      {"short of the line", {{0, 0}, {1, 1}}, {{9, 0}, {9, 8}}, {}},
                      {"parallel", {{0, 0}, {1, 1}}, {{0, 1}, {1, 2}}, {}},
                      {"on the line", {{0, 0}, {0, 1}}, {{0, 3}, {0, 7}}, {}},
                      {"no vector, taken as level", {{2, 2}, {2, 2}}, {{5, 0}, {7, 4}}, TPointEx{6, 2}}};
  for (const Row &row : rows) {
    TPointEx found{};
    EXPECT_EQ(TVectorOperations(row.line).IsIntersected(row.segment, found), row.meeting.has_value()) << row.name;
    EXPECT_EQ(found, row.meeting.value_or(TPointEx{})) << row.name;
  }
}

TEST(TPointsArrayTest, ListsPoints) {
  TPointsArray points;
  points.Add(Triangle);
  points.Delete(1);
  points.Offset(10, -1);
  EXPECT_EQ(PointsOf(points), (Outline{{10, -1}, {11, -1}}));
  EXPECT_THROW(points.Delete(2), ERangeError);
}

TEST(TPointsArrayTest, MarksPointsWithSmallCrosses) {
  TBitmap picture;
  picture.SetSize(20, 20);
  TCanvas canvas(&picture);
  TPointsArray points;
  points.Add(14.4L, 9.6L);
  DrawPoints(canvas, points, clRed);
  for (int i = 0; i < 400; ++i) {
    const int x = i % 20;
    const int y = i / 20;
    const bool isMarked = (y == 10 && std::abs(x - 14) <= 2) || (x == 14 && std::abs(y - 10) <= 2);
    EXPECT_EQ(picture.GetImage().pixel(x, y) == ToRgb(clRed), isMarked) << x << ' ' << y;
  }
}

}  // namespace
}  // namespace tessera
