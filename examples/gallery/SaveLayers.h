// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/map/TTessera.h>

namespace tessera::gallery {

/// Writes every layer whose objects a MIF file can hold to a file in `folder`, which is made when missing, named as the
/// layer. @throws EInOutError when one cannot be written.
void SaveLayers(TTessera &map, const QString &folder);

}  // namespace tessera::gallery
