// SPDX-License-Identifier: MIT
#include "BenchShapes.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>

namespace tessera::bench {
namespace {

/// A point of the distribution of sizes: this share of the rings has fewer vertices.
struct Quantile {
  double share;
  double size;
};
constexpr std::array<Quantile, 5> CoastQuantiles = {{{0, 4}, {0.5, 10}, {0.9, 44}, {0.99, 390}, {0.999, 3000}}};
/// The land masses and the largest islands.
constexpr std::array<std::size_t, 10> LargestCoasts = {1'180'000, 880'000, 340'000, 260'000, 250'000,
                                                       240'000,   210'000, 190'000, 160'000, 140'000};
constexpr std::size_t CoastCount = 189'000;
constexpr std::size_t CoastVertices = 11'000'000;

/// The size below which a share of the rings lies. Between two quantiles its logarithm rises the later, the higher
/// `bend`; beyond the last one there is a long tail.
double CoastSizeAt(double share, double bend) {
  constexpr double TailExponent = 0.55;
  const Quantile &last = CoastQuantiles.back();
  if (share >= last.share) {
    const double left = std::max((1 - share) / (1 - last.share), 1e-3);
    return last.size * std::pow(left, -TailExponent);
  }
  std::size_t i = 1;
  while (CoastQuantiles[i].share <= share) ++i;
  const Quantile &low = CoastQuantiles[i - 1];
  const Quantile &high = CoastQuantiles[i];
  const double along = std::pow((share - low.share) / (high.share - low.share), bend);
  return low.size * std::pow(high.size / low.size, along);
}

/// Puts the vertices between two that are there already: in the middle, off the straight line by a share of its length,
/// and so on between these.
void AppendBetween(const FlatVertex &from, const FlatVertex &to, std::size_t count, Random &random,
                   std::vector<FlatVertex> &ring) {
  constexpr double Roughness = 0.2;
  if (count == 0) return;
  const double off = Roughness * random.Bell();
  const FlatVertex middle = {(from.x + to.x) / 2 + off * (from.y - to.y), (from.y + to.y) / 2 + off * (to.x - from.x)};
  const std::size_t before = (count - 1) / 2;
  AppendBetween(from, middle, before, random, ring);
  ring.push_back(middle);
  AppendBetween(middle, to, count - 1 - before, random, ring);
}

}  // namespace

std::vector<std::size_t> CoastSizes(std::size_t divisor) {
  std::vector<std::size_t> sizes;
  sizes.reserve(LargestCoasts.size());
  for (const std::size_t size : LargestCoasts) sizes.push_back(size / divisor);
  const std::size_t count = CoastCount / divisor - sizes.size();
  const std::size_t total = CoastVertices / divisor - std::accumulate(sizes.begin(), sizes.end(), std::size_t{0});
  std::vector<std::size_t> others(count);
  const auto fill = [&](double bend) {
    for (std::size_t i = 0; i < count; ++i) {
      const double share = (static_cast<double>(i) + 0.5) / static_cast<double>(count);
      others[i] = static_cast<std::size_t>(CoastSizeAt(share, bend));
    }
    return std::accumulate(others.begin(), others.end(), std::size_t{0});
  };
  double low = 0.5;
  double high = 4;
  for (int step = 0; step < 40; ++step) {
    const double middle = (low + high) / 2;
    (fill(middle) > total ? low : high) = middle;
  }
  fill(high);
  sizes.insert(sizes.end(), others.rbegin(), others.rend());
  return sizes;
}

std::vector<std::size_t> RiverSizes(std::size_t count, Random &random) {
  constexpr double Median = 60;
  constexpr double Spread = 0.9;
  constexpr double Largest = 900;
  std::vector<std::size_t> sizes(count);
  for (std::size_t &size : sizes) {
    size = static_cast<std::size_t>(std::clamp(Median * std::exp(Spread * random.Bell()), 2.0, Largest));
  }
  return sizes;
}

std::vector<FlatVertex> CoastRing(FlatVertex centre, double radius, std::size_t vertexCount, Random &random) {
  const std::size_t sides = vertexCount - 1;
  const std::size_t corners = std::min<std::size_t>(sides, 8);
  std::vector<FlatVertex> octagon;
  for (std::size_t i = 0; i < corners; ++i) {
    const double angle = 2 * std::numbers::pi * static_cast<double>(i) / static_cast<double>(corners);
    const double reach = radius * random.Between(0.6, 1.0);
    octagon.push_back({centre.x + reach * std::cos(angle), centre.y + reach * std::sin(angle)});
  }
  std::vector<FlatVertex> ring;
  ring.reserve(vertexCount);
  for (std::size_t i = 0; i < corners; ++i) {
    const std::size_t end = (i + 1) * (sides - corners) / corners;
    ring.push_back(octagon[i]);
    AppendBetween(octagon[i], octagon[(i + 1) % corners], end - i * (sides - corners) / corners, random, ring);
  }
  ring.push_back(ring.front());
  return ring;
}

std::vector<FlatVertex> WindingLine(FlatVertex start, std::size_t vertexCount, double stepLength, const TBounds &area,
                                    Random &random) {
  std::vector<FlatVertex> line = {start};
  line.reserve(vertexCount);
  double heading = random.Between(0, 2 * std::numbers::pi);
  while (line.size() < vertexCount) {
    const FlatVertex last = line.back();
    const FlatVertex middle = {(area.MinX + area.MaxX) / 2, (area.MinY + area.MaxY) / 2};
    const bool isOutside = !area.ContainsPoint(last.x, last.y);
    heading = isOutside ? std::atan2(middle.y - last.y, middle.x - last.x) : heading + random.Between(-0.18, 0.18);
    const double length = stepLength * random.Between(0.3, 1.7);
    line.push_back({last.x + length * std::cos(heading), last.y + length * std::sin(heading)});
  }
  return line;
}

}  // namespace tessera::bench
