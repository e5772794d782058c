// SPDX-License-Identifier: MIT
#include <tessera/geometry/CoordConvertorU.h>

#include <gtest/gtest.h>

#include <cmath>

namespace tessera {
namespace {

// The figures of the projection are those of PROJ 9.1.1, for zone 7
//   cs2cs +proj=longlat +ellps=krass +to +proj=tmerc +ellps=krass +lon_0=39 +x_0=7500000 +k=1

struct TPlanePoint {
  double x, y;
};

TPlanePoint Plane(double b, double l, int shift = 0) {
  TPlanePoint point{};
  BL2XY(b, l, point.x, point.y, shift);
  return point;
}

struct TGeodeticPoint {
  double b, l;
};

TGeodeticPoint Geodetic(double x, double y) {
  TGeodeticPoint point{};
  XY2BL(x, y, point.b, point.l);
  return point;
}

TEST(CoordConvertorUTest, ProjectsLikeTheExactProjection) {
  struct Row {
    double b, l;
    int shift;
    double x, y;
    double tolerance;
  };
  constexpr double InZone = 0.005;
  constexpr double BesideZone = 0.25;
  for (const Row &row : {Row{0, 3, 0, 0, 1500000, InZone},
                         {55.75, 37.6173, 0, 6181702.4677, 7413175.0888, InZone},
                         {-33.9, 18.4, 0, -3755680.8256, 4259482.9799, InZone},
                         {10, -3, 0, 1105874.6094, 60500000, InZone},
                         {55.75, 37.6173, 1, 6190498.2165, 6789832.7477, BesideZone},
                         {45, 9, 1, 5002580.2076, 1973088.9203, BesideZone}}) {
    const TPlanePoint point = Plane(row.b, row.l, row.shift);
    EXPECT_NEAR(point.x, row.x, row.tolerance) << row.b << ' ' << row.l;
    EXPECT_NEAR(point.y, row.y, row.tolerance) << row.b << ' ' << row.l;
  }
}

TEST(CoordConvertorUTest, KeepsTheCoefficientsOfItsSeries) {
  // What sharper coefficients would change: worked out with 30 digits from the rounded ones.
  constexpr double SameSeries = 1e-6;
  const TPlanePoint point = Plane(50, 30 + 5.9);
  EXPECT_NEAR(point.x, 5544976.61215074, SameSeries);
  EXPECT_NEAR(point.y, 6707905.79643919, SameSeries);
  const TGeodeticPoint back = Geodetic(5500000, 6700000);
  constexpr double SameAngle = 1e-12;
  EXPECT_NEAR(back.b, 49.59852966553424, SameAngle);
  EXPECT_NEAR(back.l, 35.77846233566674, SameAngle);
}

TEST(CoordConvertorUTest, CountsZonesEastwardsFromGreenwich) {
  // Zones are a trifle wider than 6 degrees.
  for (const auto &[l, zone] :
       {std::pair(0.0, 1), {6.0, 1}, {6.0000001, 2}, {180.0, 30}, {-180.0, 31}, {357.0, 60}, {-0.0001, 60}}) {
    EXPECT_EQ(std::floor(Plane(0, l).y / 1e6), zone) << l;
  }
  EXPECT_NEAR(Plane(60, 9, 1).y - Plane(60, 9).y, -1e6 + 334e3, 1e3) << "six degrees from the shifted zone's meridian";
}

TEST(CoordConvertorUTest, TakesPlanePointsBackWithScaledEastings) {
  // Beside the plane point stand the latitude and longitude that PROJ gives for the easting scaled about the central
  // meridian by (1 + 0.00673853 cos^2 B)^1.5, with B the latitude of the northing there.
  struct Row {
    double x, y;
    double b, l;
  };
  constexpr double Tolerance = 1.1e-6;  // 12 cm, in degrees at the equator
  for (const Row &row : {Row{0, 1500000, 0, 3},
                         {0, 1800000, 0, 5.721155104},
                         {6181702, 7413175, 55.749945899, 37.612872685},
                         {1105874, 60612345, 9.998386489, 358.034663098},
                         {-3755680, 4259482, -33.899608791, 18.38189176}}) {
    const TGeodeticPoint point = Geodetic(row.x, row.y);
    EXPECT_NEAR(point.b, row.b, Tolerance) << row.x << ' ' << row.y;
    EXPECT_NEAR(point.l, row.l, Tolerance) << row.x << ' ' << row.y;
  }
}

TEST(CoordConvertorUTest, CutsTheEastingToWholeMetres) {
  EXPECT_EQ(Geodetic(5e6, 6400000.99).l, Geodetic(5e6, 6400000).l);
  EXPECT_NE(Geodetic(5e6, 6400001).l, Geodetic(5e6, 6400000).l);
  EXPECT_NE(Geodetic(5e6 + 0.5, 6400000).b, Geodetic(5e6, 6400000).b);
}

}  // namespace
}  // namespace tessera
