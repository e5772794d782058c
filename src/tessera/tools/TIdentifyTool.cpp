// SPDX-License-Identifier: MIT
#include <tessera/layers/ObjectsAt.h>
#include <tessera/map/TTessera.h>
#include <tessera/tools/TIdentifyTool.h>

namespace tessera {

TIdentifyTool::TIdentifyTool(QObject *parent) : TCustomMapTool(parent) {
  SetDisplayName(QStringLiteral("Identify Tool"));
}

void TIdentifyTool::MouseDown(Qt::MouseButton button, TShiftState /*shift*/, int x, int y) {
  const TTessera *map = GetTessera();
  if (button != Qt::LeftButton || map == nullptr) return;
  const TMapPoint at = map->GetViewport().ScreenToMap(x, y);
  Objects objects;
  for (TCustomMapObject *object : ObjectsAt(*map->GetLayers(), at, map->GetPickTolerancePx())) {
    objects.emplace_back(object);
  }
  Q_EMIT OnIdentify(this, objects);
}

}  // namespace tessera
