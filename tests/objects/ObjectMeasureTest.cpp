// SPDX-License-Identifier: MIT
#include <tessera/geometry/Geodesy.h>
#include <tessera/objects/GeoCircle.h>
#include <tessera/objects/ObjectMeasure.h>
#include <tessera/objects/TCircle.h>
#include <tessera/objects/TGeoCircle.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRectangle.h>
#include <tessera/objects/TSymbol.h>

#include <gtest/gtest.h>

#include <cmath>

namespace tessera {
namespace {

TMapMeasure Metres(bool isGeodetic) {
  TMapMeasure measure;
  measure.Unit = TMapMeasure::muMetre;
  measure.Geodetic = isGeodetic;
  measure.MetresPerUnit = 2;
  return measure;
}

/// A square about (10, 10), one way round or the other, closed by a last vertex or not.
void AddSquare(TCustomMapObject &object, double halfSide, bool isClockwise, bool isClosed) {
  TMapPoints &points = object.GetParts().Add().GetPoints();
  constexpr TMapPoint Corners[] = {{-1, -1}, {1, -1}, {1, 1}, {-1, 1}};
  for (int i = 0; i < 4 + int(isClosed); ++i) {
    const TMapPoint &corner = Corners[(isClockwise ? 8 - i : i) % 4];
    points.Add(10 + corner.X * halfSide, 10 + corner.Y * halfSide);
  }
}

TEST(ObjectMeasureTest, TakesRingsWithinOthersForHolesAndIslandsWhicheverWayTheyRun) {
  for (const bool isClockwise : {false, true}) {
    TRegion region;
    AddSquare(region, 1, false, true);  // an island in the hole, before what holds it
    AddSquare(region, 4, isClockwise, true);
    AddSquare(region, 2, false, false);
    AddSquare(region, 1, isClockwise, true);
    region.GetParts().GetLast().GetPoints().Restart();
    region.GetParts().GetLast().GetPoints().Add(30, 30);
    region.GetParts().Add();
    const TObjectSize size = MeasureObject(region, TMapMeasure());
    EXPECT_DOUBLE_EQ(size.area, 64 - 16 + 4);
    EXPECT_DOUBLE_EQ(size.length, 32 + 16 + 8);
    EXPECT_DOUBLE_EQ(MeasureObject(region, Metres(false)).area, 4 * size.area);
  }
}

TEST(ObjectMeasureTest, MeasuresEveryKind) {
  TPolyline line;
  AddSquare(line, 1, false, false);
  AddSquare(line, 2, false, true);
  EXPECT_DOUBLE_EQ(MeasureObject(line, TMapMeasure()).length, 6 + 16);
  EXPECT_EQ(MeasureObject(line, TMapMeasure()).area, 0);
  TRectangle rectangle;
  rectangle.SetX1(3);
  rectangle.SetY1(4);
  EXPECT_DOUBLE_EQ(MeasureObject(rectangle, Metres(false)).area, 48);
  EXPECT_DOUBLE_EQ(MeasureObject(rectangle, Metres(false)).length, 28);
  TCircle circle;
  circle.SetRadius(-3);
  EXPECT_DOUBLE_EQ(MeasureObject(circle, Metres(false)).area, M_PI * 36);
  EXPECT_DOUBLE_EQ(MeasureObject(circle, Metres(false)).length, M_PI * 12);
  circle.SetRadius(1e-3);
  constexpr double OfTheRing = 1e-3;  // which lies within the circle, on an ellipsoid
  const double plane = M_PI * std::pow(LengthOfDegree(0) * 1e-3, 2);
  EXPECT_NEAR(MeasureObject(circle, Metres(true)).area / plane, 110574.0 / LengthOfDegree(0), OfTheRing);
  TSymbol symbol;
  symbol.MoveTo(1, 2);
  EXPECT_EQ(MeasureObject(symbol, TMapMeasure()).length, 0);
  TGeoCircle onTheGround;
  onTheGround.SetCenterX(30);
  onTheGround.SetCenterY(55);
  const double disc = M_PI * TGeoCircle::DefaultRadius * TGeoCircle::DefaultRadius;
  constexpr double OfTheProjection = 0.02;
  EXPECT_NEAR(MeasureObject(onTheGround, Metres(true)).area / disc, 1, OfTheProjection);
}

}  // namespace
}  // namespace tessera
