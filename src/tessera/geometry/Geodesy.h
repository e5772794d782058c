// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>
#include <tessera/base/TMapPoint.h>

#include <span>

namespace tessera {

// Lengths and areas on the WGS84 ellipsoid, in metres and square metres, of points whose x is the longitude and whose y
// the latitude in degrees. Edges are the shortest lines on the ground, also across the date line. They are right to
// some nanometres for each edge (C. F. F. Karney, Algorithms for geodesics, J. Geodesy 87, 2013). A latitude beyond a
// pole makes the result not a number.

/// From the first point to the last; 0 for fewer than two.
[[nodiscard]] TESSERA_CORE_EXPORT double GeodesicLength(std::span<const TMapPoint> chain);
/// What a ring encloses, whichever way it runs: never negative, and not more than half of the ellipsoid. The ring is
/// closed from the last point to the first, which may be the same. 0 for fewer than three points.
[[nodiscard]] TESSERA_CORE_EXPORT double GeodesicArea(std::span<const TMapPoint> ring);
/// The length of one degree of longitude along the parallel of a latitude.
[[nodiscard]] TESSERA_CORE_EXPORT double LengthOfDegree(double latitude);

}  // namespace tessera
