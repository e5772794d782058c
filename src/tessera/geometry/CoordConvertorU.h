// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

namespace tessera {

// Geodetic coordinates on the Krassovsky ellipsoid and Gauss-Krueger plane coordinates in zones of 6 degrees, by closed
// series. Latitude and longitude are degrees; X points north and Y east, in metres, with the number of the zone (1 from
// the Greenwich meridian eastwards, 60 before it) in the millions of Y and half a million metres at the central
// meridian of the zone. Both routines take any input and answer what the series give.

/// The plane coordinates of a point, in the zone it lies in or, with `shift`, in the one as many zones further west.
///
/// A longitude west of Greenwich counts on from 180. A zone is wider than 6 degrees by 1e-9 of them, so a point right
/// on the border between two zones belongs to the western one.
/// From the equator to 80 degrees and within a zone, X is within 1 mm and Y within 5 mm of the projection (measured
/// against PROJ); one zone to the side, within 25 cm.
TESSERA_CORE_EXPORT void BL2XY(double b, double l, double &x, double &y, int shift);

/// The point of plane coordinates; the zone is read from the millions of `y`.
///
/// A closed series without iteration: fast, and good for showing where a point lies, but not the inverse of BL2XY. Two
/// properties are intended, and what takes points there and back has to reckon with them: the easting counts in whole
/// metres, a fraction is cut off; and it is scaled by (1 + e'^2 cos^2 B) to the power of 1.5 about the central
/// meridian, e'^2 = 0.00673853 being the second eccentricity squared, so that points come out too far from it by 1 % at
/// the equator (3.4 km at the border of the zone), 0.25 % at 60 degrees (0.4 km) and nothing at the pole. Beside that
/// the result is within 5 cm in latitude and 12 cm in longitude of the projection, from the equator to 80 degrees and
/// within a zone.
/// Zones are counted eastwards all around: the longitude of a point west of Greenwich is above 180, that of a point
/// that leaves the first zone to the west below 0.
TESSERA_CORE_EXPORT void XY2BL(double x, double y, double &b, double &l);

}  // namespace tessera
