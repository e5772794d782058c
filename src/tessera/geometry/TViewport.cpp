// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/base/detail/FarPixels.h>
#include <tessera/geometry/TViewport.h>
#include <tessera/geometry/detail/PixelTransform.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace tessera {
namespace {

constexpr long double MinPixel = std::numeric_limits<std::int32_t>::min();
constexpr long double MaxPixel = std::numeric_limits<std::int32_t>::max();

std::int64_t PixelOf(long double position) {
  // Doubles still hold every integer up to here.
  constexpr std::int64_t Furthest = std::int64_t(1) << 52;
  const long double rounded = std::rint(position);
  if (!(rounded > -static_cast<long double>(Furthest))) return -Furthest;
  return rounded < static_cast<long double>(Furthest) ? std::int64_t(rounded) : Furthest;
}

int CheckedPixelOf(long double position) {
  const long double rounded = std::rint(position);
  if (!(rounded >= MinPixel && rounded <= MaxPixel)) {
    throw ERangeError(QStringLiteral("Screen coordinate out of range"));
  }
  return int(rounded);
}

}  // namespace

TViewport::Scale TViewport::GetScale() const {
  const long double width = static_cast<long double>(MaxX) - MinX;
  const long double height = static_cast<long double>(MaxY) - MinY;
  if (width == 0 || height == 0) throw EZeroDivide(QStringLiteral("The map's reference extent has no width or height"));
  const long double ratio = height / width;
  return {ClientWidth / width * Zoom, ClientWidth * ratio / height * Zoom};
}

TMapPoint TViewport::ScreenToMap(int x, int y) const {
  const Scale scale = GetScale();
  if (scale.Kx == 0 || scale.Ky == 0) throw EZeroDivide(QStringLiteral("The map's scale is zero"));
  return {double((x - ClientWidth / 2.0L) / scale.Kx + CenterX),
          double(-(y - ClientHeight / 2.0L) / scale.Ky + CenterY)};
}

QPoint TViewport::MapToScreen(double mx, double my) const {
  const FarPixel pixel = MapToFarScreen(mx, my);
  return {detail::Saturated(pixel.x), detail::Saturated(pixel.y)};
}

TViewport::FarPixel TViewport::MapToFarScreen(double mx, double my) const {
  const Scale scale = GetScale();
  return {PixelOf(ClientWidth / 2.0L + (static_cast<long double>(mx) - CenterX) * scale.Kx),
          PixelOf(ClientHeight / 2.0L - (static_cast<long double>(my) - CenterY) * scale.Ky)};
}

QPoint TViewport::MapToScreenClipped(double mx, double my) const {
  const Scale scale = GetScale();
  const TMapPoint leftTop = ScreenToMap(0, 0);
  const TMapPoint rightBottom = ScreenToMap(ClientWidth, ClientHeight);
  QPoint pixel;
  if (mx < leftTop.X) {
    pixel.setX(-1);
  } else if (mx > rightBottom.X) {
    pixel.setX(ClientWidth);
  } else {
    pixel.setX(CheckedPixelOf(ClientWidth / 2.0L + (static_cast<long double>(mx) - CenterX) * scale.Kx));
  }
  if (my > leftTop.Y) {
    pixel.setY(-1);
  } else if (my < rightBottom.Y) {
    pixel.setY(ClientHeight);
  } else {
    pixel.setY(CheckedPixelOf(ClientHeight / 2.0L - (static_cast<long double>(my) - CenterY) * scale.Ky));
  }
  return pixel;
}

void TViewport::MapToScreen(std::span<const TMapPoint> points, QPoint *out) const {
  const detail::PixelTransform transform(*this);
  constexpr std::size_t BlockSize = 64;
  for (std::size_t first = 0; first < points.size(); first += BlockSize) {
    const auto block = points.subspan(first, std::min(BlockSize, points.size() - first));
    bool isSettled = true;
    for (std::size_t i = 0; i < block.size(); ++i) isSettled &= transform.Settle(block[i], out[first + i]);
    if (isSettled) continue;
    for (std::size_t i = 0; i < block.size(); ++i) out[first + i] = MapToScreen(block[i].X, block[i].Y);
  }
}

TMapPoint TViewport::MovedByPixels(const TMapPoint &point, std::int64_t right, std::int64_t down) const {
  const QPoint moved = detail::MovedBy(MapToScreen(point.X, point.Y), right, down);
  return ScreenToMap(moved.x(), moved.y());
}

TBounds TViewport::GetViewBounds() const {
  const TMapPoint leftTop = ScreenToMap(0, 0);
  const TMapPoint rightBottom = ScreenToMap(ClientWidth, ClientHeight);
  return {leftTop.X, rightBottom.Y, rightBottom.X, leftTop.Y};
}

}  // namespace tessera
