// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/layers/TMapLayers.h>

#include <vector>

namespace tessera {

/// The objects at a map point of all layers that are shown, the topmost first: those whose ContainsPoint says so and,
/// with a tolerance in client pixels, those that come as near on the map of the layers.
[[nodiscard]] TESSERA_CORE_EXPORT std::vector<TCustomMapObject *> ObjectsAt(const TMapLayers &layers,
                                                                            const TMapPoint &point, int tolerancePx);

}  // namespace tessera
