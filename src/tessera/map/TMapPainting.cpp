// SPDX-License-Identifier: MIT
#include <tessera/map/TMapPainting.h>

#include <utility>

namespace tessera {

void TMapPainting::SetShowSmallObjects(bool show) {
  if (std::exchange(m_flags.ShowSmallObjects, show) != show) m_map.DoUpdate(true);
}

}  // namespace tessera
