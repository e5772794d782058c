// SPDX-License-Identifier: MIT
#include <tessera/map/TTessera.h>
#include <tessera/objects/TMapScopes.h>
#include <tessera/tools/TCustomZoomTool.h>

namespace tessera {
namespace {

void ZoomTo(TTessera &map, double zoom, const TMapPoint &center) {
  const TUpdateScope update(map);
  map.SetZoom(zoom);
  const bool isHome = map.GetZoom() == 1;
  map.SetCenterX(isHome ? 0 : center.X);
  map.SetCenterY(isHome ? 0 : center.Y);
}

}  // namespace

TCustomZoomTool::TCustomZoomTool(QObject *parent) : TCustomRectTool(parent) {
  SetCursor(crHandPoint);
}

bool TCustomZoomTool::Complete() {
  EndGesture();
  TTessera *map = GetTessera();
  if (map == nullptr) return false;
  return CompleteWith([this, map] {
    const TMapPoint center = map->GetViewport().ScreenToMap(X1 + (X2 - X1) / 2, Y1 + (Y2 - Y1) / 2);
    const double zoom = GetNewZoom();
    if (zoom != map->GetZoom()) ZoomTo(*map, zoom, center);
    return false;
  });
}

}  // namespace tessera
