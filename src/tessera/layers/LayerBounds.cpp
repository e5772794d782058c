// SPDX-License-Identifier: MIT
#include <tessera/layers/LayerBounds.h>
#include <tessera/layers/TMapLayers.h>

namespace tessera {
namespace {

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

}  // namespace tessera
