// SPDX-License-Identifier: MIT
#include <tessera/geometry/Geodesy.h>
#include <tessera/geometry/TMapMeasure.h>

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

namespace tessera {
namespace {

struct Unit {
  double metres;
  const char *symbol;
};

/// In the order of TMapMeasure::TUnit.
constexpr Unit Units[] = {{1, ""},
                          {1, QT_TRANSLATE_NOOP("tessera::TMapMeasure", "m")},
                          {1000, QT_TRANSLATE_NOOP("tessera::TMapMeasure", "km")},
                          {0.3048, QT_TRANSLATE_NOOP("tessera::TMapMeasure", "ft")},
                          {1609.344, QT_TRANSLATE_NOOP("tessera::TMapMeasure", "mi")}};

double PlaneLength(std::span<const TMapPoint> chain) {
  double length = 0;
  for (std::size_t i = 1; i < chain.size(); ++i) {
    length += std::hypot(chain[i].X - chain[i - 1].X, chain[i].Y - chain[i - 1].Y);
  }
  return length;
}

double PlaneArea(std::span<const TMapPoint> ring) {
  if (ring.empty()) return 0;
  // About the first point, so that a ring far from the origin keeps its digits.
  const TMapPoint origin = ring.front();
  double twice = 0;
  for (std::size_t i = 1; i < ring.size(); ++i) {
    twice += (ring[i - 1].X - origin.X) * (ring[i].Y - origin.Y) - (ring[i].X - origin.X) * (ring[i - 1].Y - origin.Y);
  }
  return std::abs(twice) / 2;
}

QString NumberText(double value, const QLocale &locale) {
  constexpr int FewestDigits = 5;
  if (!std::isfinite(value)) return QStringLiteral("–");
  const int digitsBefore = value == 0 ? 1 : int(std::floor(std::log10(std::abs(value)))) + 1;
  return locale.toString(value, 'f', std::clamp(FewestDigits + 1 - digitsBefore, 0, 9));
}

QString WithSymbol(const QString &number, const QString &symbol) {
  return symbol.isEmpty() ? number : number + u' ' + symbol;
}

}  // namespace

double TMapMeasure::Length(std::span<const TMapPoint> chain) const {
  if (Unit == muMap) return PlaneLength(chain);
  return (Geodetic ? GeodesicLength(chain) : PlaneLength(chain) * MetresPerUnit) / Units[Unit].metres;
}

double TMapMeasure::Area(std::span<const TMapPoint> ring) const {
  if (Unit == muMap) return PlaneArea(ring);
  const double squareMetres = Geodetic ? GeodesicArea(ring) : PlaneArea(ring) * MetresPerUnit * MetresPerUnit;
  return squareMetres / (Units[Unit].metres * Units[Unit].metres);
}

double TMapMeasure::LengthOfUnit(double y) const {
  if (Unit == muMap) return 1;
  return (Geodetic ? LengthOfDegree(y) : MetresPerUnit) / Units[Unit].metres;
}

QString TMapMeasure::GetSymbol() const {
  return QCoreApplication::translate("tessera::TMapMeasure", Units[Unit].symbol);
}

QString TMapMeasure::LengthText(double length, const QLocale &locale) const {
  return WithSymbol(NumberText(length, locale), GetSymbol());
}

QString TMapMeasure::AreaText(double area, const QLocale &locale) const {
  return WithSymbol(NumberText(area, locale), Unit == muMap ? QString() : GetSymbol() + u'²');
}

double RoundBelow(double limit) {
  if (!(limit > 0) || !std::isfinite(limit)) return 0;
  const double power = std::floor(std::log10(limit));
  for (const double decade : {power + 1, power, power - 1}) {
    for (const double digit : {5.0, 2.0, 1.0}) {
      const double number = digit * std::pow(10, decade);
      if (number > 0 && number <= limit) return number;
    }
  }
  return 0;
}

}  // namespace tessera
