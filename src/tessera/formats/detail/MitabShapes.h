// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/objects/TParts.h>

#include <optional>
#include <span>
#include <vector>

namespace tessera::detail {

struct CircleFigure {
  TMapPoint center;
  double radius;
};

/// The circle that all the points lie on, to a millionth of its radius and to what coordinates of 32 bits allow; none
/// when there is no such circle or there are fewer than 8 points.
[[nodiscard]] TESSERA_CORE_EXPORT std::optional<CircleFigure> CircleThrough(std::span<const TMapPoint> points);

/// Rings put together: an outer one and the holes in it, by their numbers. A ring within an odd number of others is a
/// hole in the smallest of those that are outer ones themselves. A ring is where its first point is.
[[nodiscard]] TESSERA_CORE_EXPORT std::vector<std::vector<int>> IslandsOf(std::span<const TPart> rings);

/// Bounds for a file that keeps coordinates as integers of 32 bits: they hold `bounds` with room to spare, and decimals
/// of map units lie on the integers' steps.
[[nodiscard]] TESSERA_CORE_EXPORT TBounds RoundBounds(const TBounds &bounds);

// Texts stand on their lower left corner in a file, turned or not, and are turned about the upper left one here.

/// The anchor of a text whose turned box has its lower left corner there.
[[nodiscard]] TESSERA_CORE_EXPORT TMapPoint TextAnchor(const TMapPoint &corner, double angleDeg, double height);
[[nodiscard]] TESSERA_CORE_EXPORT TMapPoint TextCorner(const TMapPoint &anchor, double angleDeg, double height);

}  // namespace tessera::detail
