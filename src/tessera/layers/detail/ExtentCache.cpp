// SPDX-License-Identifier: MIT
#include <tessera/layers/detail/ExtentCache.h>

#include <cmath>
#include <limits>

namespace tessera::detail {
namespace {

constexpr float Infinity = std::numeric_limits<float>::infinity();

float RoundDown(double value) {
  const auto rounded = float(value);
  return double(rounded) > value ? std::nextafter(rounded, -Infinity) : rounded;
}

float RoundUp(double value) {
  const auto rounded = float(value);
  return double(rounded) < value ? std::nextafter(rounded, Infinity) : rounded;
}

}  // namespace

ExtentCache::Box ExtentCache::BoxOf(const TCustomMapObject &object) {
  const std::optional<TBounds> extent = object.GetExtent();
  if (!extent) return {-Infinity, -Infinity, Infinity, Infinity};
  return {RoundDown(extent->MinX), RoundDown(extent->MinY), RoundUp(extent->MaxX), RoundUp(extent->MaxY)};
}

void ExtentCache::Update(std::span<const std::unique_ptr<TCustomMapObject>> objects) {
  if (IsUpToDate()) return;
  m_boxes.clear();
  m_boxes.reserve(objects.size());
  for (const auto &object : objects) m_boxes.push_back(BoxOf(*object));
  m_version = GeometryVersion::Get();
  m_isValid = true;
}

}  // namespace tessera::detail
