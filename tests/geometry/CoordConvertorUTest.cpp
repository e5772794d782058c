// SPDX-License-Identifier: MIT
#include <tessera/geometry/CoordConvertorU.h>

#include <gtest/gtest.h>

#include <cmath>

namespace tessera {
namespace {

// The figures of the projection are those of PROJ 9.1.1, for zone 7
//   cs2cs +proj=longlat +ellps=krass +to +proj=tmerc +ellps=krass +lon_0=39 +x_0=7500000 +k=1
// Those compared most closely are worked out with 30 digits from the rounded coefficients of the series.

/// Two coordinates, and how far they may be off.
struct Place {
  double first, second, tolerance = 0;
};

void ExpectPlace(const Place &place, const Place &expected) {
  EXPECT_NEAR(place.first, expected.first, expected.tolerance);
  EXPECT_NEAR(place.second, expected.second, expected.tolerance);
}

Place Plane(double b, double l, int shift = 0) {
  Place point{};
  BL2XY(b, l, point.first, point.second, shift);
  return point;
}

Place Geodetic(double x, double y) {
  Place point{};
  XY2BL(x, y, point.first, point.second);
  return point;
}

TEST(CoordConvertorUTest, ProjectsLikeTheExactProjection) {
  constexpr double InZone = 0.005;
  constexpr double BesideZone = 0.25;
  ExpectPlace(Plane(55.75, 37.6173), {6181702.4677, 7413175.0888, InZone});
  ExpectPlace(Plane(-33.9, 18.4), {-3755680.8256, 4259482.9799, InZone});
  ExpectPlace(Plane(10, -3), {1105874.6094, 60500000, InZone});
  ExpectPlace(Plane(55.75, 37.6173, 1), {6190498.2165, 6789832.7477, BesideZone});
  ExpectPlace(Plane(50, 30 + 5.9), {5544976.61215074, 6707905.79643919, 1e-6});
}

TEST(CoordConvertorUTest, CountsZonesEastwardsFromGreenwich) {
  // Zones are a trifle wider than 6 degrees.
  for (const auto &[l, zone] : {std::pair(0.0, 1), {6.0, 1}, {6.0000001, 2}, {-180.0, 31}, {-0.0001, 60}}) {
    EXPECT_EQ(std::floor(Plane(0, l).second / 1e6), zone) << l;
  }
}

TEST(CoordConvertorUTest, TakesPlanePointsBackWithScaledEastingsCutToWholeMetres) {
  // Beside the plane point stand the latitude and longitude that PROJ gives for the easting scaled about the central
  // meridian by (1 + 0.00673853 cos^2 B)^1.5, with B the latitude of the northing there.
  constexpr double Tolerance = 1.1e-6;  // 12 cm, in degrees at the equator
  ExpectPlace(Geodetic(0, 1800000), {0, 5.721155104, Tolerance});
  ExpectPlace(Geodetic(1105874, 60612345), {9.998386489, 358.034663098, Tolerance});
  ExpectPlace(Geodetic(-3755680, 4259482), {-33.899608791, 18.38189176, Tolerance});
  ExpectPlace(Geodetic(5500000, 6700000.99), {49.59852966553424, 35.77846233566674, 1e-12});
}

}  // namespace
}  // namespace tessera
