// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/objects/TMapPoints.h>

#include <span>

namespace tessera::detail {

/// A circle on the ground, for maps in degrees of longitude (x) and latitude (y).
struct GeoRing {
  TMapPoint centre;
  double radius;  ///< In metres.
  int pieCount;   ///< Points before the ring is closed.

  /// Appends the ring to `points`: the points at one step, two steps … of 360 / pieCount degrees from north over east,
  /// then the first once more.
  ///
  /// The ring is laid in the plane of BL2XY and taken back with XY2BL, with the properties of both. It is right as long
  /// as it stays within half a million metres of the central meridian of the centre's zone; points further away come
  /// out in another zone. Longitudes from 180 on are reduced by 360.
  /// @throws EZeroDivide for no points and ERangeError for fewer, with nothing appended.
  void AppendTo(TMapPoints &points) const;
};

/// Whether a point lies in a ring, closed or not, by the alternate rule. Points on the ring count as inside.
[[nodiscard]] bool IsInRing(std::span<const TMapPoint> ring, double x, double y);

}  // namespace tessera::detail
