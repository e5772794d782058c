// SPDX-License-Identifier: MIT
#include "../support/Printers.h"
#include "../support/RandomShapes.h"

#include <tessera/objects/detail/RectTests.h>

#include <gtest/gtest.h>

namespace tessera::test {
namespace {

TEST(RectTestsTest, TellsWhetherTwoRectanglesMeet) {
  constexpr TBounds Box{0, 0, 10, 10};
  struct Row {
    const char *name;
    TBounds rect;
    bool meets;
  };
  const Row rows[] = {{"around", {-1, -1, 11, 11}, true},
                      {"the same", Box, true},
                      {"touching a side", {10, 3, 12, 4}, true},
                      {"touching a corner", {10, 10, 12, 12}, true},
                      {"crossing like a plus", {4, -5, 6, 15}, true},
                      {"an upright line across", {5, -5, 5, 15}, true},
                      {"a point within", {5, 5, 5, 5}, true},
                      {"beside", {10.001, 0, 12, 10}, false},
                      {"inverted within", {6, 6, 4, 4}, true},
                      {"inverted around", {11, 11, -1, -1}, false},
                      {"of an object without vertices", TBounds::Empty(), false}};
  for (const Row &row : rows) {
    EXPECT_EQ(detail::BoundsMeetRect(Box, row.rect), row.meets) << row.name;
    EXPECT_EQ(detail::BoundsMeetRect(row.rect, Box), row.meets) << row.name;
    EXPECT_EQ(detail::CornersOrSidesMeet(Box, row.rect), row.meets) << row.name;
  }
}

TEST(RectTestsTest, AnswersAsCornersAndSidesDo) {
  TRandomShapes random(8);
  const auto any = [&](int kind) {
    if (kind == 0) {
      return TBounds{double(random.Whole(0, 5)), double(random.Whole(0, 5)), double(random.Whole(0, 5)),
                     double(random.Whole(0, 5))};
    }
    const double origin = kind == 1 ? 0 : 5e8;
    const double x = origin + random.Real(-1, 1);
    const double y = origin + random.Real(-1, 1);
    return TBounds{x, y, x + random.Real(-0.1, 1), y + random.Real(-0.1, 1)};
  };
  int met = 0;
  for (int i = 0; i < 60000; ++i) {
    const TBounds a = any(i % 3);
    const TBounds b = any(i % 3);
    const bool meets = detail::CornersOrSidesMeet(a, b);
    ASSERT_EQ(detail::BoundsMeetRect(a, b), meets) << testing::PrintToString(a) << testing::PrintToString(b);
    met += meets ? 1 : 0;
  }
  EXPECT_GT(met, 10000);
  EXPECT_LT(met, 50000);
}

}  // namespace
}  // namespace tessera::test
