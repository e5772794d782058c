// SPDX-License-Identifier: MIT
#pragma once

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

namespace tessera::test {

/// A seeded source of the doubles that conversions go wrong with.
class TRandomNumbers {
 public:
  explicit TRandomNumbers(unsigned seed) : m_engine(seed) {}

  std::uint64_t Bits() { return m_engine(); }
  /// Any double, infinities and nan among them.
  double AnyBits() { return std::bit_cast<double>(m_engine()); }
  /// What maps hold: up to nine digits before and six behind the separator.
  double Coordinate() { return std::uniform_real_distribution<double>(-1e9, 1e9)(m_engine) / Scale(); }
  double SixDecimals() { return std::round(Coordinate() * 1e6) / 1e6; }
  /// k / 128 and the like: half a millionth is hit exactly.
  double Tie() { return double(std::int32_t(m_engine())) / double(std::uint64_t(1) << (1 + m_engine() % 20)); }
  /// The doubles beside the middle between two numbers of six decimals.
  double NearTie() {
    const double middle = (double(m_engine() % 4'000'000'000'000) + 0.5) / 1e6 / Scale();
    const double towards = m_engine() % 2 == 0 ? 0.0 : std::numeric_limits<double>::infinity();
    return m_engine() % 3 == 0 ? middle : std::nextafter(middle, towards);
  }
  double Denormal() { return std::bit_cast<double>(m_engine() >> 12U); }

 private:
  double Scale() { return std::pow(10.0, double(m_engine() % 10)); }

  std::mt19937_64 m_engine;
};

/// A distribution with its name for messages.
struct TNumberKind {
  const char *name;
  double (TRandomNumbers::*next)();
};

inline constexpr TNumberKind NumberKinds[] = {
    {"any bits", &TRandomNumbers::AnyBits},         {"coordinate", &TRandomNumbers::Coordinate},
    {"six decimals", &TRandomNumbers::SixDecimals}, {"tie", &TRandomNumbers::Tie},
    {"near tie", &TRandomNumbers::NearTie},         {"denormal", &TRandomNumbers::Denormal},
};

}  // namespace tessera::test
