// SPDX-License-Identifier: MIT
#include <tessera/map/detail/ViewFit.h>

#include <algorithm>

namespace tessera::detail {
namespace {

/// The part of a client area's side that lies between the margins. At least one pixel on each side stays free, because
/// the pixel of a point is rounded and the area ends before its last corner.
double BetweenMargins(int sidePx) {
  constexpr int MarginPx = 8;
  constexpr double LeastPart = 0.25;
  return std::max(sidePx - 2.0 * std::clamp(sidePx / 8, 1, MarginPx), sidePx * LeastPart);
}

// Extended precision: the difference of two doubles may exceed the largest one.
double Middle(double low, double high) {
  return double((static_cast<long double>(low) + high) / 2);
}

/// How much has to be shown about the middle, which may be rounded, for the farther end to be seen.
long double Reach(double low, double high, double middle) {
  return 2 * std::max(static_cast<long double>(high) - middle, static_cast<long double>(middle) - low);
}

}  // namespace

ViewFit FitToClient(const TBounds &box, const QSize &clientPx) {
  ViewFit fit{Middle(box.MinX, box.MaxX), Middle(box.MinY, box.MaxY), 0};
  const long double unitsPerPx = std::max(Reach(box.MinX, box.MaxX, fit.centerX) / BetweenMargins(clientPx.width()),
                                          Reach(box.MinY, box.MaxY, fit.centerY) / BetweenMargins(clientPx.height()));
  fit.width = unitsPerPx * clientPx.width();
  return fit;
}

}  // namespace tessera::detail
