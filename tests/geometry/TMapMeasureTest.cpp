// SPDX-License-Identifier: MIT
#include <tessera/geometry/Geodesy.h>
#include <tessera/geometry/TMapMeasure.h>

#include <QLocale>
#include <gtest/gtest.h>

#include <cmath>
#include <vector>

namespace tessera {
namespace {

using Points = std::vector<TMapPoint>;

TMapMeasure In(TMapMeasure::TUnit unit, bool isGeodetic) {
  TMapMeasure measure;
  measure.Unit = unit;
  measure.Geodetic = isGeodetic;
  return measure;
}

/// The quarter of a meridian, of which the metre was once made, and the equatorial radius of WGS84.
constexpr double QuarterMeridian = 10001965.729;
constexpr double EquatorialRadius = 6378137;

TEST(GeodesyTest, MeasuresOnTheEllipsoid) {
  constexpr double Millimetre = 0.001;
  EXPECT_NEAR(GeodesicLength(Points{{10, 0}, {10, 45}, {10, 90}}), QuarterMeridian, Millimetre);
  EXPECT_NEAR(GeodesicLength(Points{{179, 0}, {-179, 0}}), EquatorialRadius * 2 * M_PI / 180, Millimetre);
  EXPECT_NEAR(LengthOfDegree(0), EquatorialRadius * M_PI / 180, Millimetre);
  EXPECT_NEAR(LengthOfDegree(90), 0, Millimetre);
  // An eighth of the ellipsoid, of 510065621.724 km².
  const Points octant{{0, 0}, {90, 0}, {0, 90}};
  const Points closedBackwards{{0, 0}, {0, 90}, {90, 0}, {0, 0}};
  constexpr double SquareMetre = 1e6;  // of so many
  EXPECT_NEAR(GeodesicArea(octant), 510065621724088.0 / 8, SquareMetre);
  EXPECT_NEAR(GeodesicArea(closedBackwards), 510065621724088.0 / 8, SquareMetre);
  EXPECT_EQ(GeodesicLength(Points{{1, 1}}) + GeodesicArea(Points{{1, 1}, {2, 2}}) + GeodesicArea({}), 0);
  const Points beyondThePole{{0, 0}, {1, 91}, {2, 0}};
  EXPECT_TRUE(std::isnan(GeodesicLength(beyondThePole)));
  EXPECT_TRUE(std::isnan(GeodesicArea(beyondThePole)));
  EXPECT_TRUE(std::isnan(LengthOfDegree(91)));
}

TEST(TMapMeasureTest, ToldInTheUnitOfTheProgram) {
  // A right-angled triangle far from the origin, of 3, 4 and 5.
  constexpr double Far = 6e6;
  const Points triangle{{Far, Far}, {Far + 4, Far}, {Far + 4, Far + 3}};
  const Points degree{{0, 0}, {1, 0}};
  const struct {
    TMapMeasure::TUnit unit;
    double metres;
    QString symbol;
  } rows[] = {{TMapMeasure::muMetre, 1, QStringLiteral("m")},
              {TMapMeasure::muKilometre, 1000, QStringLiteral("km")},
              {TMapMeasure::muFoot, 0.3048, QStringLiteral("ft")},
              {TMapMeasure::muMile, 1609.344, QStringLiteral("mi")}};
  for (const auto &row : rows) {
    TMapMeasure plane = In(row.unit, false);
    plane.MetresPerUnit = 100;
    EXPECT_DOUBLE_EQ(plane.Length(triangle), 700 / row.metres);
    EXPECT_DOUBLE_EQ(plane.Area(triangle), 60000 / row.metres / row.metres);
    EXPECT_DOUBLE_EQ(plane.LengthOfUnit(50), 100 / row.metres);
    EXPECT_EQ(plane.GetSymbol(), row.symbol);
    EXPECT_DOUBLE_EQ(In(row.unit, true).Length(degree), LengthOfDegree(0) / row.metres);
    EXPECT_DOUBLE_EQ(In(row.unit, true).LengthOfUnit(60), LengthOfDegree(60) / row.metres);
  }
  const TMapMeasure mapUnits = In(TMapMeasure::muMap, true);
  EXPECT_EQ(mapUnits.Length(triangle), 7);
  EXPECT_EQ(mapUnits.Area(triangle), 6);
  EXPECT_EQ(mapUnits.LengthOfUnit(60), 1);
  EXPECT_EQ(mapUnits.Area({}), 0);
}

TEST(TMapMeasureTest, WritesNumbersAsTheLocaleDoes) {
  const QLocale before;
  QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));
  const TMapMeasure km = In(TMapMeasure::muKilometre, false);
  EXPECT_EQ(km.LengthText(12345.67), QStringLiteral("12.345,7 km"));
  EXPECT_EQ(km.AreaText(1234567), QStringLiteral("1.234.567 km²"));
  EXPECT_EQ(TMapMeasure().LengthText(0.5), QStringLiteral("0,500000"));
  EXPECT_EQ(km.LengthText(std::nan("")), QStringLiteral("– km"));
  QLocale::setDefault(before);
}

TEST(TMapMeasureTest, RoundsDownToOneTwoAndFive) {
  const std::pair<double, double> rows[] = {{1, 1},   {1.99, 1},  {2, 2},       {4.9, 2},          {5, 5}, {9.99, 5},
                                            {10, 10}, {999, 500}, {1000, 1000}, {0.00034, 0.0002}, {0, 0}, {-3, 0}};
  for (const auto &[limit, expected] : rows) EXPECT_DOUBLE_EQ(RoundBelow(limit), expected) << limit;
  EXPECT_EQ(RoundBelow(std::nan("")), 0);
}

}  // namespace
}  // namespace tessera
