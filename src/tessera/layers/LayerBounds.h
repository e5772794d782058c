// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>
#include <tessera/base/TBounds.h>

#include <optional>

namespace tessera {

class TMapLayer;
class TMapLayers;

/// The bounds of all objects of a layer in map units; none without objects that have vertices. Asks every object.
[[nodiscard]] TESSERA_CORE_EXPORT std::optional<TBounds> BoundsOf(const TMapLayer &layer);
/// The bounds of the objects of all layers; none without objects that have vertices.
[[nodiscard]] TESSERA_CORE_EXPORT std::optional<TBounds> BoundsOf(const TMapLayers &layers);

}  // namespace tessera
