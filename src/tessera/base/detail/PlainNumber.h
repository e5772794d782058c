// SPDX-License-Identifier: MIT
#pragma once

#include <QtEndian>

#include <array>
#include <bit>
#include <cstdint>

namespace tessera::detail {

// Decimal digits, eight at a time.

/// 10^0 … 10^22: the powers of ten that a double holds exactly.
inline constexpr std::array<double, 23> ExactPowers = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                                       1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                                       1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
inline constexpr std::array<std::uint64_t, 9> IntegerPowers = {1,       10,        100,        1'000,      10'000,
                                                               100'000, 1'000'000, 10'000'000, 100'000'000};

/// The eight bytes at `at`, the first lowest, a digit as its value.
[[nodiscard]] inline std::uint64_t LoadDigits(const char *at) {
  return qFromLittleEndian<std::uint64_t>(at) ^ 0x3030303030303030U;
}

/// How many of what LoadDigits gave are digits, before the first that is none.
[[nodiscard]] inline unsigned CountDigits(std::uint64_t bytes) {
  // A byte that is no digit leaves its high half set, here or by the addition. A carry out of it only reaches later
  // bytes.
  const std::uint64_t others = (bytes | (bytes + 0x0606060606060606U)) & 0xF0F0F0F0F0F0F0F0U;
  return unsigned(std::countr_zero(others)) / 8;
}

/// The value of eight digits, the first of them in the lowest byte.
[[nodiscard]] inline std::uint64_t ValueOfEightDigits(std::uint64_t digits) {
  digits = (digits * 10) + (digits >> 8U);  // pairs, in every other byte
  constexpr std::uint64_t Mask = 0x000000FF000000FF;
  constexpr std::uint64_t HundredAndMillion = 100 + (std::uint64_t(1'000'000) << 32U);
  constexpr std::uint64_t OneAndTenThousand = 1 + (std::uint64_t(10'000) << 32U);
  return (((digits & Mask) * HundredAndMillion) + (((digits >> 16U) & Mask) * OneAndTenThousand)) >> 32U;
}

/// Where among the 16 bytes from `at` on the first stands that is a blank or below it; 16 when none does.
[[nodiscard]] inline unsigned FindBlank(const char *at) {
  // Sets the top bit of a byte that is less than '!'. A borrow only reaches bytes behind such a one.
  const auto blanksIn = [](std::uint64_t bytes) {
    return (bytes - 0x2121212121212121U) & ~bytes & 0x8080808080808080U;
  };
  const std::uint64_t first = blanksIn(qFromLittleEndian<std::uint64_t>(at));
  const std::uint64_t second = blanksIn(qFromLittleEndian<std::uint64_t>(at + 8));
  return unsigned(first != 0 ? std::countr_zero(first) : 64 + std::countr_zero(second)) / 8;
}

/// The bytes from the start of a number that ReadPlainNumber may look at.
inline constexpr std::size_t PlainNumberBytes = 18;

/// ReadFloat for numbers as files of coordinates have them: a minus or none, one to seven digits, the separator and
/// further ones or neither, up to 16 bytes. Gives the same bits. Others are for ReadFloat: where the answer is nullptr,
/// and where no blank stands behind the number, to which it points.
///
/// Where the next number begins does not wait for the digits of this one, and there is no branch on how many they are.
/// @pre PlainNumberBytes can be read
[[nodiscard]] inline const char *ReadPlainNumber(const char *at, char separator, double &value) {
  const char *end = at + FindBlank(at);
  const std::uint64_t sign = *at == '-' ? 1 : 0;
  at += sign;
  const std::uint64_t first = LoadDigits(at);
  const std::uint64_t second = LoadDigits(at + 8);
  const unsigned whole = CountDigits(first);
  if (whole == 0 || whole == 8) return nullptr;
  const auto withSign = [sign](double magnitude) {
    return std::bit_cast<double>(std::bit_cast<std::uint64_t>(magnitude) | sign << 63U);
  };
  if (at[whole] != separator) {
    value = withSign(double(std::int64_t(ValueOfEightDigits(first << (64 - 8 * whole)))));
    return at + whole == end ? end : nullptr;
  }
  // The digits close up over the separator; a byte that is no digit comes in from above.
  const std::uint64_t before = (std::uint64_t(1) << 8 * whole) - 1;
  const std::uint64_t low = (first & before) | ((first >> 8U | second << 56U) & ~before);
  const std::uint64_t high = second >> 8U | std::uint64_t(0xFF) << 56U;
  const unsigned lowCount = CountDigits(low);
  const unsigned highCount = lowCount == 8 ? CountDigits(high) : 0;
  const std::uint64_t mantissa = ValueOfEightDigits(low << (64 - 8 * lowCount)) * IntegerPowers[highCount] +
                                 ValueOfEightDigits(high << 8U << (56 - 8 * highCount));
  // Both operands are exact, so the one rounding of the division is the correct one.
  value = withSign(double(std::int64_t(mantissa)) / ExactPowers[lowCount + highCount - whole]);
  return at + 1 + lowCount + highCount == end ? end : nullptr;
}

}  // namespace tessera::detail
