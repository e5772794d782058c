// SPDX-License-Identifier: MIT
#include <tessera/objects/ObjectMeasure.h>
#include <tessera/objects/TCircle.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRectangle.h>
#include <tessera/objects/TSprite.h>
#include <tessera/objects/TSymbol.h>
#include <tessera/objects/detail/GeoRing.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace tessera {
namespace {

using Ring = std::span<const TMapPoint>;

double ClosedLength(Ring ring, const TMapMeasure &measure) {
  const TMapPoint ends[] = {ring.back(), ring.front()};
  return measure.Length(ring) + measure.Length(ends);
}

TObjectSize SizeOfChains(const TCustomMapObject &object, const TMapMeasure &measure) {
  TObjectSize size;
  for (const TPart &part : object.GetParts().Items()) size.length += measure.Length(part.GetPoints().Points());
  return size;
}

/// Whether a ring counts with its area, and not as a hole.
bool IsFilled(std::span<const TPart> rings, std::size_t ring) {
  const TMapPoint &first = rings[ring].GetPoints().GetPoint(0);
  int depth = 0;
  for (std::size_t i = 0; i < rings.size(); ++i) {
    const TMapPoints &other = rings[i].GetPoints();
    const bool isInside = i != ring && other.GetBounds().ContainsPoint(first.X, first.Y) &&
                          detail::IsInRing(other.Points(), first.X, first.Y);
    if (isInside) ++depth;
  }
  return depth % 2 == 0;
}

TObjectSize SizeOfRings(const TCustomMapObject &object, const TMapMeasure &measure) {
  TObjectSize size;
  const auto rings = object.GetParts().Items();
  for (std::size_t i = 0; i < rings.size(); ++i) {
    const Ring ring = rings[i].GetPoints().Points();
    if (ring.empty()) continue;
    size.length += ClosedLength(ring, measure);
    size.area += IsFilled(rings, i) ? measure.Area(ring) : -measure.Area(ring);
  }
  return size;
}

TObjectSize SizeOfRing(Ring ring, const TMapMeasure &measure) {
  return {ClosedLength(ring, measure), measure.Area(ring)};
}

TObjectSize SizeOf(const TRectangle &rectangle, const TMapMeasure &measure) {
  const TBounds box = rectangle.GetCorners();
  const TMapPoint corners[] = {{box.MinX, box.MinY}, {box.MaxX, box.MinY}, {box.MaxX, box.MaxY}, {box.MinX, box.MaxY}};
  return SizeOfRing(corners, measure);
}

TObjectSize SizeOf(const TCircle &circle, const TMapMeasure &measure) {
  constexpr int Points = 720;
  constexpr double Pi = std::numbers::pi;
  const double radius = std::abs(circle.GetRadius());
  const auto parts = circle.GetParts().Items();
  if (parts.empty() || parts[0].GetPoints().GetCount() == 0) return {};
  const TMapPoint &centre = parts[0].GetPoints().GetPoint(0);
  if (!measure.Geodetic || measure.Unit == TMapMeasure::muMap) {
    const double inUnit = radius * measure.LengthOfUnit(centre.Y);
    return {2 * Pi * inUnit, Pi * inUnit * inUnit};
  }
  std::vector<TMapPoint> ring;
  for (int i = 0; i < Points; ++i) {
    const double angle = 2 * Pi * i / Points;
    ring.push_back({centre.X + radius * std::cos(angle), centre.Y + radius * std::sin(angle)});
  }
  return SizeOfRing(ring, measure);
}

}  // namespace

TObjectSize MeasureObject(const TCustomMapObject &object, const TMapMeasure &measure) {
  if (dynamic_cast<const TSymbol *>(&object) || dynamic_cast<const TSprite *>(&object)) return {};
  if (dynamic_cast<const TPolyline *>(&object)) return SizeOfChains(object, measure);
  if (const auto *circle = dynamic_cast<const TCircle *>(&object)) return SizeOf(*circle, measure);
  if (const auto *rectangle = dynamic_cast<const TRectangle *>(&object)) return SizeOf(*rectangle, measure);
  return SizeOfRings(object, measure);
}

}  // namespace tessera
