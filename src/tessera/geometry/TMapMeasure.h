// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>
#include <tessera/base/TMapPoint.h>

#include <QLocale>
#include <QMetaType>
#include <QObject>
#include <QString>

#include <span>

namespace tessera {

/// How lengths and areas on a map are measured and told: what its coordinates are, and the unit of the results. A
/// value. As it is made it tells plain map units.
struct TESSERA_CORE_EXPORT TMapMeasure {
  Q_GADGET

 public:
  /// Areas are told in the square of the unit. A mile is the international one of 1609.344 m.
  enum TUnit { muMap, muMetre, muKilometre, muFoot, muMile };
  Q_ENUM(TUnit)

  TUnit Unit = muMap;
  /// Whether x is the longitude and y the latitude, in degrees: then lengths and areas are those on the WGS84
  /// ellipsoid. Map units are plane all the same.
  bool Geodetic = false;
  /// How long a map unit of plane coordinates is.
  double MetresPerUnit = 1;

  /// From the first point to the last; 0 for fewer than two.
  [[nodiscard]] double Length(std::span<const TMapPoint> chain) const;
  /// What a ring encloses, whichever way it runs, never negative. It is closed from the last point to the first, which
  /// may be the same; 0 for fewer than three.
  [[nodiscard]] double Area(std::span<const TMapPoint> ring) const;
  /// How long a step of one map unit along x is at a height y of the map.
  [[nodiscard]] double LengthOfUnit(double y) const;
  /// The unit behind a number: "m", "km", "ft", "mi", or what it is translated to; nothing for map units.
  [[nodiscard]] QString GetSymbol() const;
  /// A length in the number format of a locale, with its unit, to five digits at least: "12,345.7 km".
  [[nodiscard]] QString LengthText(double length, const QLocale &locale = QLocale()) const;
  /// The same of an area: "12,345.7 km²".
  [[nodiscard]] QString AreaText(double area, const QLocale &locale = QLocale()) const;

  bool operator==(const TMapMeasure &) const = default;
};

/// The largest of the numbers 1, 2 and 5 times a power of ten that is not above `limit`; 0 where there is none.
[[nodiscard]] TESSERA_CORE_EXPORT double RoundBelow(double limit);

}  // namespace tessera
