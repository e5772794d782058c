// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/map/TTessera.h>

#include <optional>

namespace tessera::apps {

/// The bounds of all objects of a layer in map units; none without objects that have vertices.
[[nodiscard]] std::optional<TBounds> BoundsOf(const TMapLayer &layer);
/// The bounds of the objects of all layers; none without objects that have vertices.
[[nodiscard]] std::optional<TBounds> BoundsOf(const TMapLayers &layers);

/// Makes the data the map's reference extent, so that zoom 1 shows all of it with a small margin, and looks at its
/// middle with zoom 1. The control's scale follows its width alone: for data that is taller than the control in shape,
/// the extent is as much wider as it takes. Data without width and height gets an extent of one map unit. A map without
/// data stays as it is.
void FitView(TTessera &map);

}  // namespace tessera::apps
