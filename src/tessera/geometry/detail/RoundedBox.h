// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/TBounds.h>

#include <bit>
#include <cstdint>
#include <limits>

namespace tessera::detail {

/// A rectangle in map units in half the room of a TBounds. Made of bounds, it is rounded outwards: it holds all that
/// these hold.
struct RoundedBox {
  float minX, minY, maxX, maxY;

  [[nodiscard]] static RoundedBox Of(const TBounds &bounds) {
    return {RoundedDown(bounds.MinX), RoundedDown(bounds.MinY), RoundedUp(bounds.MaxX), RoundedUp(bounds.MaxY)};
  }
  /// Holds every point, those without a number too.
  [[nodiscard]] static constexpr RoundedBox Everywhere() {
    constexpr float Infinity = std::numeric_limits<float>::infinity();
    return {-Infinity, -Infinity, Infinity, Infinity};
  }

  void Widen(const RoundedBox &other) {
    minX = other.minX < minX ? other.minX : minX;
    minY = other.minY < minY ? other.minY : minY;
    maxX = other.maxX > maxX ? other.maxX : maxX;
    maxY = other.maxY > maxY ? other.maxY : maxY;
  }
  [[nodiscard]] bool Meets(const TBounds &rect) const {
    return minX <= rect.MaxX && rect.MinX <= maxX && minY <= rect.MaxY && rect.MinY <= maxY;
  }
  [[nodiscard]] bool LiesWithin(const TBounds &rect) const {
    return rect.MinX <= minX && maxX <= rect.MaxX && rect.MinY <= minY && maxY <= rect.MaxY;
  }

  bool operator==(const RoundedBox &) const = default;

 private:
  // The neighbour of a float is the next integer when its bits are read as one.
  static float RoundedDown(double value) {
    const auto rounded = float(value);
    if (!(double(rounded) > value)) return rounded;
    if (rounded == 0) return -std::numeric_limits<float>::denorm_min();
    return std::bit_cast<float>(std::bit_cast<std::uint32_t>(rounded) + (rounded > 0 ? ~std::uint32_t(0) : 1U));
  }
  static float RoundedUp(double value) { return -RoundedDown(-value); }
};

}  // namespace tessera::detail
