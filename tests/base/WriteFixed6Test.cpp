// SPDX-License-Identifier: MIT
#include "RandomNumbers.h"

#include <tessera/base/detail/Numbers.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>

namespace tessera {
namespace {

std::string Written(double value, char separator = '.') {
  char buffer[detail::Fixed6Size];
  return {buffer, detail::WriteFixed6(buffer, value, separator)};
}

std::string Printed(double value, char separator = '.') {
  char buffer[detail::Fixed6Size];
  std::snprintf(buffer, sizeof buffer, "%.6f", value);
  std::string text = buffer;
  std::replace(text.begin(), text.end(), '.', separator);
  return text;
}

TEST(WriteFixed6Test, WritesWhatPrintfWritesAtTheBorders) {
  // Zeros, ties, carries, and the ends of what the fast way takes and of all numbers.
  for (const double value : {0.0, -0.0, -1e-9, 0.0000005, 0.0078125, 0.0234375, 0.9999995, 0.99999951, 9.5, 10.0,
                             99.9999999, 3999999999.9999995, 4e9, std::numeric_limits<double>::infinity()}) {
    EXPECT_EQ(Written(value), Printed(value));
  }
  const std::string longest = Written(-std::numeric_limits<double>::max(), ',');
  EXPECT_LT(longest.size(), detail::Fixed6Size);
  EXPECT_EQ(longest, Printed(-std::numeric_limits<double>::max(), ','));
}

TEST(WriteFixed6Test, EqualsPrintfOnRandomNumbers) {
  constexpr int Count = 250'000;
  for (const test::TNumberKind &kind : test::NumberKinds) {
    test::TRandomNumbers random(6);
    for (int i = 0; i < Count; ++i) {
      const double value = (random.*kind.next)();
      const char separator = i % 2 == 0 ? '.' : ',';
      ASSERT_EQ(Written(value, separator), Printed(value, separator)) << kind.name;
    }
  }
}

}  // namespace
}  // namespace tessera
