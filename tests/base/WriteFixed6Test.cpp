// SPDX-License-Identifier: MIT
#include "RandomNumbers.h"

#include <tessera/base/Numbers.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <limits>
#include <string>

namespace tessera {
namespace {

std::string Written(double value, char separator = '.') {
  char buffer[Fixed6Size];
  return {buffer, WriteFixed6(buffer, value, separator)};
}

std::string Printed(double value, char separator = '.') {
  char buffer[Fixed6Size];
  std::snprintf(buffer, sizeof buffer, "%.6f", value);
  std::string text = buffer;
  std::replace(text.begin(), text.end(), '.', separator);
  return text;
}

struct TWriteCase {
  double value;
  const char *text;
};

TEST(WriteFixed6Test, WritesWhatPrintfWritesAtTheBorders) {
  const TWriteCase cases[] = {
      {0.0, "0.000000"},
      {-0.0, "-0.000000"},
      {178.124381, "178.124381"},
      {-1e-9, "-0.000000"},
      {0.9999995, "1.000000"},
      {0.99999951, "1.000000"},
      {0.0000005, "0.000000"},  // just below
      {0.0078125, "0.007812"},  // an exact tie goes to the even digit
      {0.0234375, "0.023438"},
      {9.5, "9.500000"},
      {10.0, "10.000000"},
      {99.9999999, "100.000000"},
      {3999999999.9999995, "4000000000.000000"},  // the last number of the fast way carries
      {4000000000.0, "4000000000.000000"},
      {std::numeric_limits<double>::infinity(), "inf"},
  };
  for (const TWriteCase &test : cases) {
    EXPECT_EQ(Written(test.value), test.text);
    EXPECT_EQ(Printed(test.value), test.text) << "the table is wrong";
  }
}

TEST(WriteFixed6Test, FitsTheLongestNumberIntoItsBuffer) {
  const std::string text = Written(-std::numeric_limits<double>::max(), ',');
  EXPECT_EQ(text.size(), 317U);
  EXPECT_LT(text.size(), Fixed6Size);
  EXPECT_EQ(text, Printed(-std::numeric_limits<double>::max(), ','));
}

TEST(WriteFixed6Test, EqualsPrintfOnRandomNumbers) {
  constexpr int Count = 500'000;
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
