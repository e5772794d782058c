// SPDX-License-Identifier: MIT
#include <tessera/tools/detail/KeptWays.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <numbers>

namespace tessera::detail {

std::optional<QPoint> WayTo(const TViewport &viewport, const TMapPoint &from, const QPoint &to) {
  constexpr std::int64_t LongestPx = 1 << 28;
  const TViewport::FarPixel begin = viewport.MapToFarScreen(from.X, from.Y);
  const auto isFar = [](std::int64_t place) { return place < -LongestPx || place > LongestPx; };
  if (isFar(begin.x) || isFar(begin.y)) return std::nullopt;
  return to - QPoint(int(begin.x), int(begin.y));
}

QPoint KeptToDirections(const QPoint &way) {
  const double slope = std::tan(std::numbers::pi / 8);  // the border between a straight way and a slanting one
  const double width = std::abs(double(way.x()));
  const double height = std::abs(double(way.y()));
  if (height <= width * slope) return {way.x(), 0};
  if (width <= height * slope) return {0, way.y()};
  const int length = int(std::lround((width + height) / 2));
  return {way.x() < 0 ? -length : length, way.y() < 0 ? -length : length};
}

QPoint KeptToSquare(const QPoint &way) {
  const int side = std::max(std::abs(way.x()), std::abs(way.y()));
  return {way.x() < 0 ? -side : side, way.y() < 0 ? -side : side};
}

TMapPoint EndOfWay(const TViewport &viewport, const TMapPoint &from, const QPoint &way) {
  const TMapPoint begin = viewport.ScreenToMap(0, 0);
  const TMapPoint end = viewport.ScreenToMap(way.x(), way.y());
  return {from.X + (end.X - begin.X), from.Y + (end.Y - begin.Y)};
}

}  // namespace tessera::detail
