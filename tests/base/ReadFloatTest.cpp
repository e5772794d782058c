// SPDX-License-Identifier: MIT
#include "RandomNumbers.h"

#include <tessera/base/detail/Numbers.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <charconv>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <tuple>
#include <utility>

namespace tessera {
namespace {

/// What a reading gave: the bits of the number, so that -0 is not 0, and how many bytes it took.
using TReading = std::pair<std::uint64_t, std::ptrdiff_t>;

TReading Reading(double value, std::ptrdiff_t size) {
  return {std::bit_cast<std::uint64_t>(value), size};
}

std::optional<TReading> Read(std::string_view text, char separator = '.') {
  // A block of its own, so that a sanitizer sees a look past its end.
  const auto bytes = std::make_unique<char[]>(text.size());
  std::copy(text.begin(), text.end(), bytes.get());
  double value = 0;
  const char *end = detail::ReadFloat(bytes.get(), bytes.get() + text.size(), separator, value);
  if (end == nullptr) return std::nullopt;
  return Reading(value, end - bytes.get());
}

std::optional<TReading> ReadPlainly(std::string_view text) {
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc{}) return std::nullopt;
  return Reading(value, end - text.data());
}

TEST(ReadFloatTest, TakesTheNumberAndLeavesTheRest) {
  // What is not compared with from_chars on random texts: a plus in front, hexadecimal digits and long numbers.
  const std::tuple<const char *, char, double, std::ptrdiff_t> cases[] = {
      {"+2.5", '.', 2.5, 4},
      {"+2,5e1;", ',', 25, 6},
      {"0x10", '.', 0, 1},
      {"9007199254740993", '.', 9007199254740992, 16},
      {"0000000000000000000000000000012", '.', 12, 31},
      {"0,00000000000000000000000000125", ',', 1.25e-27, 31},
  };
  for (const auto &[text, separator, value, size] : cases)
    EXPECT_EQ(Read(text, separator), Reading(value, size)) << text;
  // The middle between 1 and the next double, and a hair above it.
  const std::string middle = "1.00000000000000011102230246251565404236316680908203125";
  EXPECT_EQ(Read(middle), Reading(1.0, std::ssize(middle)));
  const std::string above = middle + std::string(500, '0') + "1";
  EXPECT_EQ(Read(above), Reading(1.0000000000000002, std::ssize(above)));
}

TEST(ReadFloatTest, RefusesWhatIsNoNumberAndLeavesTheValueAlone) {
  for (const std::string_view text :
       {"", "+", ".", "-.", "+-1", "-+1", " 1", ".e5", "nan", "inf", "-inf", "infinity", "1e400", "1e-400"}) {
    double value = 7;
    EXPECT_EQ(detail::ReadFloat(text.data(), text.data() + text.size(), '.', value), nullptr) << text;
    EXPECT_EQ(value, 7) << text;
  }
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
    for (int i = 0; i < 400'000; ++i) {
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
  constexpr int Count = 100'000;
  char buffer[detail::Fixed6Size];
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
      const std::string_view fixed(buffer, detail::WriteFixed6(buffer, value, '.'));
      ASSERT_EQ(Read(fixed), ReadPlainly(fixed)) << kind.name;
    }
  }
}

TEST(ReadIntTest, TakesAsManyDigitsAsFitInto32BitsOrNothing) {
  const std::tuple<std::string_view, int, int> numbers[] = {{"0", 0, 1},
                                                            {"+5 x", 5, 2},
                                                            {"-12.5", -12, 3},
                                                            {"2147483647", 2147483647, 10},
                                                            {"-2147483648", -2147483647 - 1, 11},
                                                            {"00000000000000007;", 7, 17}};
  int value = -1;
  for (const auto &[text, expected, size] : numbers) {
    EXPECT_EQ(detail::ReadInt(text.begin(), text.end(), value), text.begin() + size) << text;
    EXPECT_EQ(value, expected) << text;
  }
  for (const std::string_view text :
       {"", "+", "-", "+-1", " 1", "x", "2147483648", "-2147483649", "99999999999999999999"}) {
    EXPECT_EQ(detail::ReadInt(text.begin(), text.end(), value), nullptr) << text;
    EXPECT_EQ(value, 7) << "a refused text leaves the value alone";
  }
}

}  // namespace
}  // namespace tessera
