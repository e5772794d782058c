// SPDX-License-Identifier: MIT
#include "LocaleGuard.h"

#include <tessera/base/Exceptions.h>
#include <tessera/base/detail/Numbers.h>
#include <tessera/base/detail/PlainNumber.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <limits>
#include <memory>
#include <optional>
#include <random>

namespace tessera {
namespace {

constexpr double Infinity = std::numeric_limits<double>::infinity();

TEST(NumbersTest, FollowsTheSeparatorOfTheLocaleWhereThatIsAscii) {
  const test::TLocaleGuard guard(test::Russian());
  EXPECT_EQ(detail::StrToFloat(u"  12,5e1 "), 125);
  EXPECT_EQ(detail::FloatToStr(-12.5), u"-12,5");
  const test::TLocaleGuard persian(QLocale(QLocale::Persian, QLocale::Iran));
  EXPECT_NE(QLocale().decimalPoint(), QStringLiteral(".")) << "the locale does not make the case any more";
  EXPECT_EQ(detail::DecimalSeparator(), '.');
}

TEST(NumbersTest, AcceptsNoGroupsAndNoSpecialValuesAndBlanksOnlyInFrontOfAnInteger) {
  for (const char16_t *text : {u"", u" ", u"1,000.5", u"nan", u"inf", u"0x1p3", u"1.5m", u"1\u0660", u"\u00d71"}) {
    EXPECT_THROW(static_cast<void>(detail::StrToFloat(text)), EConvertError) << QString::fromUtf16(text).toStdString();
  }
  int value = 7;
  for (const char16_t *text : {u"12 ", u"\t12", u"$FF", u"2147483648"}) EXPECT_FALSE(detail::TryStrToInt(text, value));
  EXPECT_EQ(value, 7);
  EXPECT_EQ(detail::StrToInt(u"  -12"), -12);
}

TEST(NumbersTest, WritesFifteenDigitsAndAnExponentOnlyWhereItIsNeeded) {
  const std::pair<double, const char *> cases[] = {
      {-0.0, "0"},         {2.0 / 3, "0.666666666666667"},       {0.0001, "0.0001"},
      {0.00001, "1E-5"},   {123456789012345, "123456789012345"}, {1e15, "1E15"},
      {-Infinity, "-INF"}, {-1234567.890625, "-1234567.890625"}, {std::nan(""), "NAN"}};
  for (const auto &[value, text] : cases) EXPECT_EQ(detail::FloatToStr(value), QLatin1String(text));
}

/// The doubles that conversions go wrong with: `kind` chooses any bits, numbers as maps hold them, halves of a
/// millionth hit exactly or nearly, and denormal ones.
double NextDouble(std::mt19937_64 &random, int kind) {
  const double scale = std::pow(10.0, double(random() % 10));
  const double coordinate = std::uniform_real_distribution<double>(-1e9, 1e9)(random) / scale;
  const double middle = (double(random() % 4'000'000'000'000) + 0.5) / 1e6 / scale;
  const double kinds[] = {std::bit_cast<double>(random()),
                          coordinate,
                          std::round(coordinate * 1e6) / 1e6,
                          double(std::int32_t(random())) / double(std::uint64_t(1) << (1 + random() % 20)),
                          random() % 3 == 0 ? middle : std::nextafter(middle, random() % 2 == 0 ? 0.0 : Infinity),
                          std::bit_cast<double>(random() >> 12U)};
  return kinds[kind % 6];
}

std::string Written(double value, char separator) {
  char buffer[detail::Fixed6Size];
  return {buffer, detail::WriteFixed6(buffer, value, separator)};
}

std::string Printed(double value, char separator) {
  char buffer[detail::Fixed6Size];
  std::snprintf(buffer, sizeof buffer, "%.6f", value);
  std::string text = buffer;
  std::replace(text.begin(), text.end(), '.', separator);
  return text;
}

TEST(WriteFixed6Test, WritesWhatPrintfWrites) {
  // Zeros, ties, carries, and the ends of what the fast way takes and of all numbers.
  for (const double value : {0.0, -0.0, -1e-9, 0.0000005, 0.0078125, 0.9999995, 0.99999951, 9.5, 99.9999999,
                             3999999999.9999995, 4e9, Infinity, -std::numeric_limits<double>::max()}) {
    EXPECT_EQ(Written(value, '.'), Printed(value, '.'));
  }
  std::mt19937_64 random(6);
  for (int i = 0; i < 1'500'000; ++i) {
    const double value = NextDouble(random, i);
    const char separator = i % 4 < 2 ? '.' : ',';
    ASSERT_EQ(Written(value, separator), Printed(value, separator));
  }
}

/// What a reading gave: the bits of the number, so that -0 is not 0, and how many bytes it took.
using TReading = std::pair<std::uint64_t, std::ptrdiff_t>;

TReading Reading(double value, std::ptrdiff_t size) {
  return {std::bit_cast<std::uint64_t>(value), size};
}

std::optional<TReading> Read(std::string_view text, char separator = '.') {
  // A block of its own, so that a sanitizer sees a look past its end.
  const auto bytes = std::make_unique<char[]>(text.size());
  std::copy(text.begin(), text.end(), bytes.get());
  double value = 7;
  const char *end = detail::ReadFloat(bytes.get(), bytes.get() + text.size(), separator, value);
  if (end != nullptr) return Reading(value, end - bytes.get());
  EXPECT_EQ(value, 7) << "a refused text leaves the value alone";
  return std::nullopt;
}

std::optional<TReading> ReadPlainly(std::string_view text) {
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  if (error != std::errc{}) return std::nullopt;
  return Reading(value, end - text.data());
}

TEST(ReadFloatTest, TakesTheNumberAndLeavesTheRestOrRefusesAll) {
  // What is not compared with from_chars on random texts: a plus in front, hexadecimal digits and long numbers.
  EXPECT_EQ(Read("+2,5e1;", ','), Reading(25, 6));
  EXPECT_EQ(Read("0x10"), Reading(0, 1));
  EXPECT_EQ(Read("0,00000000000000000000000000125", ','), Reading(1.25e-27, 31));
  // The middle between 1 and the next double, and a hair above it.
  const std::string middle = "1.00000000000000011102230246251565404236316680908203125";
  EXPECT_EQ(Read(middle), Reading(1.0, std::ssize(middle)));
  const std::string above = middle + std::string(500, '0') + "1";
  EXPECT_EQ(Read(above), Reading(1.0000000000000002, std::ssize(above)));
  for (const char *text : {"", "+", "-.", "+-1", "-+1", " 1", "nan", "-inf", "infinity", "1e400", "1e-400"}) {
    EXPECT_EQ(Read(text), std::nullopt) << text;
  }
}

/// Digits with a separator, a sign and an exponent now and then, and other bytes among them.
std::string RandomText(std::mt19937_64 &random, char separator) {
  std::string text(random() % 30, ' ');
  for (char &c : text) {
    const auto choice = random() % 45;
    c = choice < 40 ? char('0' + choice % 10) : choice == 44 ? char(random()) : "e-.."[choice - 40];
    if (c == '.') c = separator;
  }
  return text;
}

TEST(ReadFloatTest, EqualsFromCharsOnRandomTexts) {
  for (const char separator : {'.', ','}) {
    std::mt19937_64 random(11);
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
  char buffer[detail::Fixed6Size];
  std::mt19937_64 random(12);
  for (int i = 0; i < 600'000; ++i) {
    const double value = NextDouble(random, i);
    if (!std::isfinite(value)) continue;
    // The shortest form, 17 digits, and what the writer of files makes of it.
    const std::string_view shortest(buffer, std::to_chars(buffer, buffer + sizeof buffer, value).ptr);
    ASSERT_EQ(Read(shortest), Reading(value, std::ssize(shortest)));
    const auto *end = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::scientific, 16).ptr;
    ASSERT_EQ(Read({buffer, end}), Reading(value, end - buffer));
    const std::string fixed = Written(value, '.');
    ASSERT_EQ(Read(fixed), ReadPlainly(fixed));
  }
}

/// Reads `text` before a blank the fast way (benchmark rows "load"); nothing where that leaves it to ReadFloat.
std::optional<TReading> ReadFast(std::string_view text, char separator) {
  const auto bytes = std::make_unique<char[]>(text.size() + 1 + detail::PlainNumberBytes);
  std::copy(text.begin(), text.end(), bytes.get());
  bytes[text.size()] = ' ';
  double value = 7;
  const char *end = detail::ReadPlainNumber(bytes.get(), separator, value);
  if (end == nullptr || *end != ' ') return std::nullopt;
  return Reading(value, end - bytes.get());
}

TEST(ReadPlainNumberTest, EqualsReadFloatOrLeavesTheNumberToIt) {
  for (const char *text : {"",       "-",      ".5",  "+1.5", "--1", "12345678.5",        "1e5",
                           "1.5e5",  "1.2.3",  "1,5", "1.5x", "nan", "123456.1234567890", "1\xFF",
                           "\xB1.5", "1.\xB5", "/.5", "1:5",  "1.:", "-1234567.12345678", "1234567.1234567x"}) {
    EXPECT_EQ(ReadFast(text, '.'), std::nullopt) << text;
  }
  for (const char *text :
       {"0", "-0", "-0.0", "7.", "1234567", "1234567.12345678", "-0.0000000000001", "1.9999999", "9999999.99999999"}) {
    EXPECT_EQ(ReadFast(text, '.'), Read(text)) << text;
  }
  for (const char separator : {'.', ','}) {
    std::mt19937_64 random(13);
    int taken = 0;
    constexpr int Count = 2'000'000;
    for (int i = 0; i < Count; ++i) {
      const std::string text = i % 2 == 0 ? RandomText(random, separator).substr(0, 18)
                                          : Written(NextDouble(random, 2) / double(1U << random() % 24), separator);
      const auto fast = ReadFast(text, separator);
      if (!fast || fast->second != std::ssize(text)) continue;
      ++taken;
      ASSERT_EQ(fast, Read(text, separator)) << text;
    }
    EXPECT_GT(taken, Count / 4) << "the fast way is hardly taken";
  }
}

}  // namespace
}  // namespace tessera
