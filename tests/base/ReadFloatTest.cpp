// SPDX-License-Identifier: MIT
#include "RandomNumbers.h"

#include <tessera/base/Numbers.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace tessera {
namespace {

/// What a reading gave: the bits of the number, so that -0 is not 0, and how many bytes it took.
struct TReading {
  std::uint64_t bits;
  std::ptrdiff_t size;

  bool operator==(const TReading &) const = default;
};

std::optional<TReading> Read(std::string_view text, char separator = '.') {
  // A block of its own, so that a sanitizer sees a look past its end.
  const auto bytes = std::make_unique<char[]>(text.size());
  std::copy(text.begin(), text.end(), bytes.get());
  double value = 0;
  const char *end = ReadFloat(bytes.get(), bytes.get() + text.size(), separator, value);
  if (end == nullptr) return std::nullopt;
  return TReading{std::bit_cast<std::uint64_t>(value), end - bytes.get()};
}

std::optional<TReading> ReadPlainly(std::string_view text) {
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc{}) return std::nullopt;
  return TReading{std::bit_cast<std::uint64_t>(value), end - text.data()};
}

TReading Reading(double value, std::ptrdiff_t size) {
  return {std::bit_cast<std::uint64_t>(value), size};
}

struct TReadCase {
  const char *text;
  char separator;
  double value;
  std::ptrdiff_t size;
};

TEST(ReadFloatTest, TakesTheNumberAndLeavesTheRest) {
  const TReadCase cases[] = {
      {"178.124381 57.5", '.', 178.124381, 10},
      {"178,124381 57,5", ',', 178.124381, 10},
      {"1.5", ',', 1, 1},
      {"1,5", '.', 1, 1},
      {"+2.5", '.', 2.5, 4},
      {"+2,5e1;", ',', 25, 6},
      {"-0", '.', -0.0, 2},
      {"5.", '.', 5, 2},
      {".5", '.', 0.5, 2},
      {"-.5e-1x", '.', -0.05, 6},
      {"1e", '.', 1, 1},
      {"1e+", '.', 1, 1},
      {"1,25E+2E", ',', 125, 7},
      {"0x10", '.', 0, 1},
      {"1.2.3", '.', 1.2, 3},
      {"9007199254740993", '.', 9007199254740992, 16},
      {"0000000000000000000000000000012", '.', 12, 31},
      {"0,00000000000000000000000000125", ',', 1.25e-27, 31},
  };
  for (const TReadCase &test : cases) {
    EXPECT_EQ(Read(test.text, test.separator), Reading(test.value, test.size)) << test.text;
  }
}

TEST(ReadFloatTest, RefusesWhatIsNoNumberAndLeavesTheValueAlone) {
  for (const std::string_view text : {"", "+", "-", ".", "-.", "+-1", "-+1", "--1", " 1", "e5", ".e5", "nan", "inf",
                                      "-inf", "infinity", "abc", "1e400", "-1e999999999999", "1e-400"}) {
    double value = 7;
    EXPECT_EQ(ReadFloat(text.data(), text.data() + text.size(), '.', value), nullptr) << text;
    EXPECT_EQ(value, 7) << text;
  }
}

TEST(ReadFloatTest, RoundsLongNumbersByAllTheirDigits) {
  // The middle between 1 and the next double, and a hair above it.
  const std::string middle = "1.00000000000000011102230246251565404236316680908203125";
  EXPECT_EQ(Read(middle), Reading(1.0, std::ssize(middle)));
  const std::string above = middle + std::string(500, '0') + "1";
  EXPECT_EQ(Read(above), Reading(1.0000000000000002, std::ssize(above)));
}

/// Digits with a separator, a sign and an exponent now and then, and other bytes among them.
std::string RandomText(test::TRandomNumbers &random, char separator) {
  const std::string_view usual = "0123456789012345678901234567890123456789";
  std::string text;
  for (auto length = random.Bits() % 30; length > 0; --length) {
    const auto choice = random.Bits() % 64;
    if (choice < usual.size()) text += usual[choice];
    if (choice == 40 || choice == 41) text += separator;
    if (choice == 42) text += 'e';
    if (choice == 43) text += '-';
    if (choice == 44) text += char(random.Bits());
  }
  return text;
}

TEST(ReadFloatTest, EqualsFromCharsOnRandomTexts) {
  for (const char separator : {'.', ','}) {
    test::TRandomNumbers random(11);
    for (int i = 0; i < 1'000'000; ++i) {
      const std::string text = RandomText(random, separator);
      std::string plain = text;
      for (char &c : plain) c = c == separator ? '.' : c == '.' ? '\x01' : c;
      // These forms are from_chars' own, and the plus in front is ours.
      if (plain.find_first_of("iInN+") == 0 || plain.find_first_of("iInN") == 1) continue;
      ASSERT_EQ(Read(text, separator), ReadPlainly(plain)) << text;
    }
  }
}

TEST(ReadFloatTest, ReadsBackEveryKindOfNumber) {
  constexpr int Count = 200'000;
  char buffer[Fixed6Size];
  for (const test::TNumberKind &kind : test::NumberKinds) {
    test::TRandomNumbers random(12);
    for (int i = 0; i < Count; ++i) {
      const double value = (random.*kind.next)();
      if (!std::isfinite(value)) continue;
      // The shortest form, 17 digits, and what the writer of files makes of it.
      const std::string_view shortest(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
      ASSERT_EQ(Read(shortest), Reading(value, std::ssize(shortest))) << kind.name;
      const auto *end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific, 16).ptr;
      ASSERT_EQ(Read({buffer, end}), Reading(value, end - buffer)) << kind.name;
      const std::string_view fixed(buffer, WriteFixed6(buffer, value, '.'));
      ASSERT_EQ(Read(fixed), ReadPlainly(fixed)) << kind.name;
    }
  }
}

struct TIntCase {
  const char *text;
  int value;
  std::ptrdiff_t size;
};

TEST(ReadIntTest, TakesAsManyDigitsAsFitInto32Bits) {
  const TIntCase cases[] = {
      {"0", 0, 1},
      {"+5 x", 5, 2},
      {"-12.5", -12, 3},
      {"2147483647", 2147483647, 10},
      {"-2147483648", -2147483647 - 1, 11},
      {"00000000000000007;", 7, 17},
  };
  for (const TIntCase &test : cases) {
    const std::string_view text = test.text;
    int value = -1;
    EXPECT_EQ(ReadInt(text.data(), text.data() + text.size(), value), text.data() + test.size) << text;
    EXPECT_EQ(value, test.value) << text;
  }
}

TEST(ReadIntTest, RefusesWhatIsNoIntegerAndLeavesTheValueAlone) {
  for (const std::string_view text :
       {"", "+", "-", "+-1", " 1", "x", "2147483648", "-2147483649", "99999999999999999999"}) {
    int value = 7;
    EXPECT_EQ(ReadInt(text.data(), text.data() + text.size(), value), nullptr) << text;
    EXPECT_EQ(value, 7) << text;
  }
}

}  // namespace
}  // namespace tessera
