// SPDX-License-Identifier: MIT
#include <tessera/layers/ObjectsAt.h>
#include <tessera/layers/detail/PointPick.h>

#include <algorithm>

namespace tessera {

std::vector<TCustomMapObject *> ObjectsAt(const TMapLayers &layers, const TMapPoint &point, int tolerancePx) {
  std::vector<TCustomMapObject *> objects;
  for (int i = layers.GetCount() - 1; i >= 0; --i) {
    const TMapLayer &layer = *layers.GetLayer(i);
    const TMapHost *map = layer.GetMapHost();
    if (!layer.GetVisible() || map == nullptr || !layer.ValidZoom()) continue;
    const detail::PointPick pick(map->GetViewport(), point, tolerancePx);
    TCardinalArray near;
    layer.GetIdsNear(point, pick.GetTolerancePx(), near);
    const auto ids = near.Ids();
    std::for_each(ids.rbegin(), ids.rend(), [&](std::uint32_t id) {
      TCustomMapObject *object = layer.GetObjects(int(id));
      if (pick.Hits(*object)) objects.push_back(object);
    });
  }
  return objects;
}

}  // namespace tessera
