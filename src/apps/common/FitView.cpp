// SPDX-License-Identifier: MIT
#include <apps/common/FitView.h>

#include <algorithm>

namespace tessera::apps {
namespace {

/// Keeps outlines on the border of the data, and half of most symbols, inside the picture.
constexpr int MarginPx = 8;

/// The side of a client area that is left between the margins; small areas have narrower ones.
int WithoutMargins(int sidePx) {
  return sidePx - 2 * std::min(MarginPx, sidePx / 8);
}

/// The width in map units that the client area has to show for the data to lie between the margins.
double WidthToShow(double dataWidth, double dataHeight, int clientWidth, int clientHeight) {
  const double unitsPerPx =
      std::max(dataWidth / WithoutMargins(clientWidth), dataHeight / WithoutMargins(clientHeight));
  return unitsPerPx > 0 ? unitsPerPx * clientWidth : 1.0;
}

std::optional<TBounds> UnlessEmpty(const TBounds &bounds) {
  return bounds.IsInverted() ? std::nullopt : std::optional(bounds);
}

}  // namespace

std::optional<TBounds> BoundsOf(const TMapLayer &layer) {
  TBounds all = TBounds::Empty();
  for (int i = 0; i < layer.GetObjectCount(); ++i) {
    const TBounds bounds = layer.GetObjects(i)->GetBounds();
    if (!bounds.IsInverted()) all.Widen(bounds);
  }
  return UnlessEmpty(all);
}

std::optional<TBounds> BoundsOf(const TMapLayers &layers) {
  TBounds all = TBounds::Empty();
  for (const auto &layer : layers.Items()) {
    if (const auto bounds = BoundsOf(*layer)) all.Widen(*bounds);
  }
  return UnlessEmpty(all);
}

void FitView(TTessera &map) {
  const auto bounds = BoundsOf(*map.GetLayers());
  const QSize client = map.size();
  if (!bounds || client.isEmpty()) return;
  const double centerX = bounds->MinX + (bounds->MaxX - bounds->MinX) / 2;
  const double centerY = bounds->MinY + (bounds->MaxY - bounds->MinY) / 2;
  const double width =
      WidthToShow(bounds->MaxX - bounds->MinX, bounds->MaxY - bounds->MinY, client.width(), client.height());
  const double height = width * client.height() / client.width();
  map.BeginUpdate();
  map.SetMinX(centerX - width / 2);
  map.SetMaxX(centerX + width / 2);
  map.SetMinY(centerY - height / 2);
  map.SetMaxY(centerY + height / 2);
  map.SetCenterX(centerX);
  map.SetCenterY(centerY);
  map.SetZoom(1);
  map.EndUpdate(true);
}

}  // namespace tessera::apps
