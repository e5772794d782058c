// SPDX-License-Identifier: MIT
#pragma once

#include <QPoint>

#include <algorithm>
#include <cstdint>
#include <limits>

namespace tessera::detail {

// Positions on the screen are pinned to 32 bits, so whatever is added to one may lead beyond. It stays at the end of
// the numbers then, where no picture reaches.

[[nodiscard]] constexpr int Saturated(std::int64_t value) {
  using Limits = std::numeric_limits<int>;
  return int(std::clamp<std::int64_t>(value, Limits::min(), Limits::max()));
}

[[nodiscard]] constexpr QPoint MovedBy(const QPoint &pixel, std::int64_t right, std::int64_t down) {
  return {Saturated(pixel.x() + right), Saturated(pixel.y() + down)};
}

}  // namespace tessera::detail
