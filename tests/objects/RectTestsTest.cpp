// SPDX-License-Identifier: MIT
#include "../support/Printers.h"
#include "../support/RandomShapes.h"

#include <tessera/objects/detail/RectTests.h>

#include <gtest/gtest.h>

namespace tessera::test {
namespace {

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
