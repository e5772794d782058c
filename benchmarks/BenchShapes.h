// SPDX-License-Identifier: MIT
#pragma once

#include "FlatMap.h"

#include <cstddef>
#include <numbers>
#include <random>
#include <vector>

namespace tessera::bench {

/// The generator of the standard library without its distributions: those differ between library makers.
class Random {
 public:
  explicit Random(unsigned seed) : m_engine(seed) {}
  /// At least 0, less than 1.
  double Unit() { return static_cast<double>(m_engine() >> 11U) * 0x1p-53; }
  double Between(double low, double high) { return low + (high - low) * Unit(); }
  std::size_t Below(std::size_t count) { return static_cast<std::size_t>(m_engine() % count); }
  /// Near enough to a normal distribution, with a deviation of 1.
  double Bell() { return (Unit() + Unit() + Unit() + Unit() - 2) * std::numbers::sqrt3; }

 private:
  std::mt19937_64 m_engine;
};

template <typename Value>
void Shuffle(std::vector<Value> &values, Random &random) {
  for (std::size_t i = values.size(); i > 1; --i) std::swap(values[i - 1], values[random.Below(i)]);
}

/// How many vertices the rings of a set of coastlines have, the largest first, as in the world's: half of them have ten
/// or fewer, nine of ten fewer than 44, all but a thousandth fewer than 3,000, and the ten largest hold a third of all.
/// @param divisor makes a smaller set of the same shape: so many times fewer rings and vertices.
[[nodiscard]] std::vector<std::size_t> CoastSizes(std::size_t divisor);

/// How many vertices the lines of a river net have, in no order: half of them 60 or fewer, none more than 900.
[[nodiscard]] std::vector<std::size_t> RiverSizes(std::size_t count, Random &random);

/// A closed ring around a centre that is rough at every scale, as a coast is: the sides of an octagon are divided and
/// their middles displaced again and again. The last vertex repeats the first.
/// @pre vertexCount >= 4
[[nodiscard]] std::vector<FlatVertex> CoastRing(FlatVertex centre, double radius, std::size_t vertexCount,
                                                Random &random);

/// A line that keeps its heading, more or less, in steps of about `stepLength`, and turns back at the border of `area`.
[[nodiscard]] std::vector<FlatVertex> WindingLine(FlatVertex start, std::size_t vertexCount, double stepLength,
                                                  const TBounds &area, Random &random);

}  // namespace tessera::bench
