// SPDX-License-Identifier: MIT
#include <tessera/geometry/CoordConvertorU.h>

#include <cmath>
#include <numbers>

namespace tessera {
namespace {

constexpr double DegreesPerRadian = 180 / std::numbers::pi;
/// Slightly more than 6 degrees.
constexpr double ZoneWidth = 0.10471975514357039;
constexpr double FullCircle = 6.283185308;
constexpr double ZoneMillion = 1000000;
constexpr double FalseEasting = 500000;
/// Metres per radian of the meridian; single precision is enough for it.
constexpr float MeridianRadius = 6367558.5F;
/// Zones of 6 degrees per radian.
constexpr double ZonesPerRadian = 9.5492966;

}  // namespace

void BL2XY(double b, double l, double &x, double &y, int shift) {
  const double lat = b / DegreesPerRadian;
  double lon = l / DegreesPerRadian;
  if (lon < 0) lon += FullCircle;
  const double zone = std::floor(lon / ZoneWidth) - shift;
  const double off = lon - zone * ZoneWidth - ZoneWidth / 2;
  const double off2 = off * off;
  const double sinB = std::sin(lat);
  const double cosB = std::cos(lat);
  const double c = cosB * cosB;

  const double a3 = (0.333333 + 0.001123 * c) * c - 0.166667;
  const double a4 = (0.25 + 0.00252 * c) * c - 0.04166;
  const double a0 = 32140.404 - (135.3302 - (0.7092 - 0.004 * c) * c) * c;
  const double a5 = 0.0083 - (0.1667 - (0.1968 + 0.004 * c) * c) * c;
  const double a6 = (0.166 * c - 0.084) * c;
  const double n = 6399698.902 - (21562.267 - (108.973 - 0.612 * c) * c) * c;

  x = 6367558.4969 * lat - (a0 - (0.5 + (a4 + a6 * off2) * off2) * off2 * n) * sinB * cosB;
  y = (1 + (a3 + a5 * off2) * off2) * off * n * cosB;
  y += (zone + 1) * ZoneMillion + FalseEasting;
}

void XY2BL(double x, double y, double &b, double &l) {
  const double beta = x / MeridianRadius;
  const double easting = std::fmod(std::floor(y), ZoneMillion) / ZoneMillion;
  const double zone = std::floor(y / ZoneMillion);
  const double centralMeridian = (zone - 0.5) / ZonesPerRadian;

  const double sinBeta = std::sin(beta);
  const double cosBeta = std::cos(beta);
  const double cBeta = cosBeta * cosBeta;
  const double foot = beta + sinBeta * cosBeta * (502217 + (2936 + 24 * cBeta) * cBeta) / 10000 / 10000;
  const double sinB = std::sin(foot);
  const double cosB = std::cos(foot);
  const double c = cosB * cosB;

  const double curvature = 1 + 0.00673853 * c;
  const double z = (easting - 0.5) * (curvature * curvature) / cosB / 6.3996989;
  const double z2 = z * z;
  const double b2 = (0.5 + 0.00337 * c) * sinB * cosB;
  const double b3 = 0.3333 + (0.0011 * c - 0.1667) * c;
  const double b4 = 0.25 + 0.162 * c;
  const double b5 = 0.17 * c - 0.2;

  b = (foot + (b4 * z2 - 1) * b2 * z2) * DegreesPerRadian;
  l = (centralMeridian + (1 - (b3 + b5 * z2) * z2) * z) * DegreesPerRadian;
}

}  // namespace tessera
