// SPDX-License-Identifier: MIT
// Bringing things into view.
#include <tessera/layers/LayerBounds.h>
#include <tessera/map/detail/TesseraPrivate.h>
#include <tessera/map/detail/ViewFit.h>
#include <tessera/objects/TMapScopes.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace tessera {
namespace {

using Limits = std::numeric_limits<double>;

double Held(long double value) {
  return double(std::clamp<long double>(value, Limits::lowest(), Limits::max()));
}

/// In extended precision, for the difference of two doubles may exceed the largest one.
long double WidthOf(const TBounds &bounds) {
  return static_cast<long double>(bounds.MaxX) - bounds.MinX;
}

/// The reference extent of a control that shows a box whole at zoom 1, as far as doubles reach.
TBounds ExtentFor(const detail::ViewFit &fit, const QSize &clientPx) {
  // Far from the origin narrower extents would have bounds that doubles cannot tell apart.
  constexpr double NarrowestPart = 0x1p-40;
  const long double width = fit.width > 0 ? fit.width : 1;
  const auto halfWidth = std::max<long double>(
      {width / 2, std::fabs(fit.centerX) * NarrowestPart, std::fabs(fit.centerY) * NarrowestPart});
  const long double halfHeight = halfWidth * clientPx.height() / clientPx.width();
  return {Held(fit.centerX - halfWidth), Held(fit.centerY - halfHeight), Held(fit.centerX + halfWidth),
          Held(fit.centerY + halfHeight)};
}

}  // namespace

void TTessera::ShowBounds(const TBounds &bounds) {
  if (bounds.IsInverted() || size().isEmpty()) return;
  const detail::ViewFit fit = detail::FitToClient(bounds, size());
  const long double extentWidth = WidthOf({GetMinX(), GetMinY(), GetMaxX(), GetMaxY()});
  const TUpdateScope update(*this);
  SetCenterX(fit.centerX);
  SetCenterY(fit.centerY);
  if (fit.width > 0 && extentWidth != 0) {
    const double zoom = std::max(Held(std::fabs(extentWidth) / fit.width), Limits::denorm_min());
    SetZoom(std::copysign(zoom, double(extentWidth)));
  }
}

void TTessera::ShowLayer(const TMapLayer &layer) {
  if (const auto bounds = BoundsOf(layer)) ShowBounds(*bounds);
}

void TTessera::ShowAll() {
  const auto bounds = BoundsOf(*d->layers);
  if (!bounds || size().isEmpty()) return;
  const detail::ViewFit fit = detail::FitToClient(*bounds, size());
  const TBounds extent = ExtentFor(fit, size());
  {
    const TUpdateScope update(*this);
    SetMinX(extent.MinX);
    SetMinY(extent.MinY);
    SetMaxX(extent.MaxX);
    SetMaxY(extent.MaxY);
    SetCenterX(fit.centerX);
    SetCenterY(fit.centerY);
    SetZoom(1);
  }
  // An extent can be no wider than doubles reach; the zoom can be smaller. Roundings do not count.
  constexpr long double Nearly = 0.999L;
  if (WidthOf(extent) < fit.width * Nearly) ShowBounds(*bounds);
}

}  // namespace tessera
