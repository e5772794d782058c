// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>
#include <tessera/base/THandle.h>
#include <tessera/objects/TCustomMapObject.h>

#include <vector>

namespace tessera {

class TTessera;

using TObjectHandles = std::vector<THandle<TCustomMapObject>>;

/// Deselects objects of a map and selects others; many at once cost one new picture. Handlers may do anything: objects
/// that are gone, or off the map, by their turn are passed over. What handlers throw goes on when all is done.
TESSERA_WIDGETS_EXPORT void ChangeSelection(TTessera &map, const TObjectHandles &gone, const TObjectHandles &come);

}  // namespace tessera
