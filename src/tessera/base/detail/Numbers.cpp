// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/base/detail/Numbers.h>
#include <tessera/base/detail/PlainNumber.h>

#include <QLocale>
#include <QVarLengthArray>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

namespace tessera::detail {
namespace {

static_assert(std::numeric_limits<double>::is_iec559, "the exact conversions count on IEEE doubles");

bool IsDigit(char c) {
  return c >= '0' && c <= '9';
}

// ---- Reading

/// Every integer up to here is a double.
constexpr std::uint64_t LargestExactInteger = std::uint64_t(1) << 53U;
/// So many decimal digits fit in 64 bits whatever they are.
constexpr std::ptrdiff_t SafeDigits = 19;

/// Appends the decimal digits at `at` to `mantissa`, which wraps around beyond SafeDigits, and passes over them.
/// Eight bytes are looked at together, without a branch on the number of digits among them.
const char *ReadDigits(const char *at, const char *last, std::uint64_t &mantissa) {
  while (last - at >= 8) {
    const std::uint64_t digits = LoadDigits(at);
    const unsigned count = CountDigits(digits);
    if (count == 0) return at;
    mantissa = mantissa * IntegerPowers[count] + ValueOfEightDigits(digits << (64 - 8 * count));
    at += count;
    if (count < 8) return at;
  }
  for (; at != last && IsDigit(*at); ++at) mantissa = mantissa * 10 + std::uint64_t(*at - '0');
  return at;
}

const char *SkipDigits(const char *at, const char *last) {
  return std::find_if_not(at, last, IsDigit);
}

/// One past the exponent at `at`, or `at` when there is none.
const char *SkipExponent(const char *at, const char *last) {
  if (at == last || (*at != 'e' && *at != 'E')) return at;
  const char *digits = at + 1;
  if (digits != last && (*digits == '+' || *digits == '-')) ++digits;
  const char *end = SkipDigits(digits, last);
  return end == digits ? at : end;
}

/// ReadFloat for the numbers that the fast way leaves: long ones and those with an exponent.
const char *ReadAnyFloat(const char *first, const char *last, char separator, double &value) {
  const bool hasPlus = first != last && *first == '+';
  if (hasPlus) ++first;
  const char *digits = !hasPlus && first != last && *first == '-' ? first + 1 : first;
  const char *point = SkipDigits(digits, last);
  const char *mantissaEnd = point != last && *point == separator ? SkipDigits(point + 1, last) : point;
  if (mantissaEnd - digits - (mantissaEnd != point ? 1 : 0) == 0) return nullptr;
  const char *end = SkipExponent(mantissaEnd, last);

  double result = 0;
  std::errc error{};
  if (separator == '.' || mantissaEnd == point) {
    error = std::from_chars(first, end, result).ec;
  } else {
    QVarLengthArray<char, 128> text(first, end);
    text[point - first] = '.';
    error = std::from_chars(text.cbegin(), text.cend(), result).ec;
  }
  if (error != std::errc{}) return nullptr;
  value = result;
  return end;
}

// ---- Writing

/// "00" "01" … "99".
constexpr std::array<char, 200> DigitPairs = [] {
  std::array<char, 200> pairs{};
  for (std::size_t i = 0; i < 100; ++i) {
    pairs[2 * i] = char('0' + i / 10);
    pairs[2 * i + 1] = char('0' + i % 10);
  }
  return pairs;
}();

void WritePair(char *out, std::uint32_t value) {
  std::memcpy(out, &DigitPairs[std::size_t(value) * 2], 2);
}

char *WriteUnsigned(char *out, std::uint32_t value) {
  if (value < 10) {
    *out = char('0' + value);
    return out + 1;
  }
  if (value < 100) {
    WritePair(out, value);
    return out + 2;
  }
  out = WriteUnsigned(out, value / 100);
  WritePair(out, value % 100);
  return out + 2;
}

/// Below this, a number of millionths is less than 2^52, so that halves of it are doubles too.
constexpr double Fixed6Limit = 4e9;

/// The number of millionths nearest to `magnitude`, the even one of two. @pre 0 <= magnitude < Fixed6Limit
std::int64_t RoundToMillionths(double magnitude) {
  const double product = magnitude * 1e6;
  const auto whole = std::int64_t(product);
  const double beyondHalf = (product - double(whole)) - 0.5;
  if (beyondHalf != 0) return whole + (beyondHalf > 0 ? 1 : 0);
  // The rounded product lies on the border: what its rounding dropped decides.
  const double dropped = std::fma(magnitude, 1e6, -product);
  const bool up = dropped > 0 || (dropped == 0 && whole % 2 == 1);
  return whole + (up ? 1 : 0);
}

// ---- Texts

/// A message quotes this much of a bad text.
constexpr qsizetype QuotedLength = 60;

[[noreturn]] void ThrowConvertError(const QString &format, QStringView text) {
  const QString quoted =
      text.size() <= QuotedLength ? text.toString() : QString(text.first(QuotedLength) + QStringLiteral("..."));
  throw EConvertError(format.arg(quoted));
}

using TBytes = QVarLengthArray<char, 64>;

/// `text` as bytes; what is not ASCII becomes a byte that no number contains.
TBytes ToBytes(QStringView text) {
  TBytes bytes(text.size());
  std::transform(text.begin(), text.end(), bytes.begin(),
                 [](QChar c) { return c.unicode() < 0x80 ? char(c.unicode()) : '?'; });
  return bytes;
}

QStringView WithoutBlanksInFront(QStringView text) {
  const auto *first = std::find_if(text.begin(), text.end(), [](QChar c) { return c != u' '; });
  return text.sliced(first - text.begin());
}

QStringView WithoutBlanks(QStringView text) {
  text = WithoutBlanksInFront(text);
  while (!text.isEmpty() && text.back() == u' ') text.chop(1);
  return text;
}

}  // namespace

const char *ReadFloat(const char *first, const char *last, char separator, double &value) {
  const char *at = first;
  const bool negative = at != last && *at == '-';
  if (at != last && (*at == '-' || *at == '+')) ++at;

  std::uint64_t mantissa = 0;
  const char *point = ReadDigits(at, last, mantissa);
  const char *end = point;
  std::ptrdiff_t decimals = 0;
  if (point != last && *point == separator) {
    end = ReadDigits(point + 1, last, mantissa);
    decimals = end - point - 1;
  }
  const std::ptrdiff_t digits = (point - at) + decimals;
  const bool hasExponent = end != last && (*end == 'e' || *end == 'E');
  if (digits == 0 || digits > SafeDigits || mantissa > LargestExactInteger || hasExponent) {
    return ReadAnyFloat(first, last, separator, value);
  }
  // Both operands are exact, so the one rounding of the division is the correct one.
  const double magnitude = double(std::int64_t(mantissa)) / ExactPowers[std::size_t(decimals)];
  value = negative ? -magnitude : magnitude;
  return end;
}

const char *ReadInt(const char *first, const char *last, int &value) {
  const char *at = first != last && *first == '+' ? first + 1 : first;
  if (at != first && at != last && *at == '-') return nullptr;
  const auto [end, error] = std::from_chars(at, last, value);
  return error == std::errc{} ? end : nullptr;
}

char *WriteFixed6(char *out, double value, char separator) {
  const double magnitude = std::fabs(value);
  if (!(magnitude < Fixed6Limit)) {
    char *end = std::to_chars(out, out + Fixed6Size, value, std::chars_format::fixed, 6).ptr;
    if (std::isfinite(value)) end[-7] = separator;
    return end;
  }
  if (std::signbit(value)) *out++ = '-';
  const std::int64_t millionths = RoundToMillionths(magnitude);
  const auto decimals = std::uint32_t(millionths % 1'000'000);
  out = WriteUnsigned(out, std::uint32_t(millionths / 1'000'000));
  *out = separator;
  WritePair(out + 1, decimals / 10'000);
  WritePair(out + 3, decimals / 100 % 100);
  WritePair(out + 5, decimals % 100);
  return out + 7;
}

char DecimalSeparator(const QLocale &locale) {
  const QString point = locale.decimalPoint();
  return point.size() == 1 && point.front().unicode() < 0x80 ? char(point.front().unicode()) : '.';
}

bool TryStrToFloat(QStringView text, double &value, const QLocale &locale) {
  const TBytes bytes = ToBytes(WithoutBlanks(text));
  double result = 0;
  if (ReadFloat(bytes.cbegin(), bytes.cend(), DecimalSeparator(locale), result) != bytes.cend()) return false;
  value = result;
  return true;
}

double StrToFloat(QStringView text, const QLocale &locale) {
  double value = 0;
  if (!TryStrToFloat(text, value, locale))
    ThrowConvertError(QStringLiteral("'%1' is not a valid floating point value"), text);
  return value;
}

bool TryStrToInt(QStringView text, int &value) {
  const TBytes bytes = ToBytes(WithoutBlanksInFront(text));
  int result = 0;
  if (ReadInt(bytes.cbegin(), bytes.cend(), result) != bytes.cend()) return false;
  value = result;
  return true;
}

int StrToInt(QStringView text) {
  int value = 0;
  if (!TryStrToInt(text, value)) ThrowConvertError(QStringLiteral("'%1' is not a valid integer value"), text);
  return value;
}

QString FloatToStr(double value, const QLocale &locale) {
  if (std::isnan(value)) return QStringLiteral("NAN");
  if (std::isinf(value)) return value < 0 ? QStringLiteral("-INF") : QStringLiteral("INF");
  if (value == 0) return QStringLiteral("0");
  std::array<char, 32> buffer{};
  const char *end =
      std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::general, 15).ptr;
  QString text = QString::fromLatin1(buffer.data(), end - buffer.data());
  if (const qsizetype exponent = text.indexOf(u'e'); exponent >= 0) {
    const int power = text.sliced(exponent + 1).toInt();
    text = text.first(exponent) + u'E' + QString::number(power);
  }
  return text.replace(u'.', QLatin1Char(DecimalSeparator(locale)));
}

}  // namespace tessera::detail
