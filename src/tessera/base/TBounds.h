// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>

namespace tessera {

/// Start value of running bounds: the largest 32-bit integer, not infinity. Coordinates beyond it do not widen bounds.
inline constexpr double BoundsSentinel = 2147483647.0;

/// A rectangle in map units, as maps and objects give it. All tests are inclusive; nothing is normalised: an inverted
/// rectangle contains nothing.
struct TBounds {
  double MinX;
  double MinY;
  double MaxX;
  double MaxY;

  /// Inverted sentinels: contains nothing, and takes on the first point it is widened with.
  static constexpr TBounds Empty() { return {BoundsSentinel, BoundsSentinel, -BoundsSentinel, -BoundsSentinel}; }

  /// Takes in a point. Not-a-number widens nothing.
  void Widen(double x, double y) { Widen({x, y, x, y}); }
  /// Takes in all of `other`; nothing when that is Empty.
  void Widen(const TBounds &other) {
    MaxX = std::max(MaxX, other.MaxX);
    MaxY = std::max(MaxY, other.MaxY);
    MinX = std::min(MinX, other.MinX);
    MinY = std::min(MinY, other.MinY);
  }
  [[nodiscard]] bool IsInverted() const { return MinX > MaxX || MinY > MaxY; }
  [[nodiscard]] bool ContainsPoint(double x, double y) const {
    return x >= MinX && x <= MaxX && y >= MinY && y <= MaxY;
  }
  /// Whether all of `inner` lies within; false for an inverted one.
  [[nodiscard]] bool ContainsBounds(const TBounds &inner) const {
    return !inner.IsInverted() && ContainsPoint(inner.MinX, inner.MinY) && ContainsPoint(inner.MaxX, inner.MaxY);
  }

  bool operator==(const TBounds &) const = default;
};

/// A rectangle in map units as the spatial index and its file order it.
struct TCellBounds {
  double MinX;
  double MaxX;
  double MinY;
  double MaxY;

  bool operator==(const TCellBounds &) const = default;
};

[[nodiscard]] constexpr TCellBounds Bounds2CellBounds(const TBounds &bounds) {
  return {bounds.MinX, bounds.MaxX, bounds.MinY, bounds.MaxY};
}
[[nodiscard]] constexpr TBounds CellBounds2Bounds(const TCellBounds &bounds) {
  return {bounds.MinX, bounds.MinY, bounds.MaxX, bounds.MaxY};
}

}  // namespace tessera
