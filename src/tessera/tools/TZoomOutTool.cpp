// SPDX-License-Identifier: MIT
#include <tessera/map/TTessera.h>
#include <tessera/tools/TZoomOutTool.h>

#include <algorithm>
#include <cmath>

namespace tessera {

TZoomOutTool::TZoomOutTool(QObject *parent) : TCustomZoomTool(parent) {
  SetDisplayName(QStringLiteral("ZoomOut Tool"));
}

double TZoomOutTool::GetNewZoom() const {
  const TTessera *map = GetTessera();
  if (map == nullptr) return 1;
  const double size = std::fabs(std::max(double(X2) - X1, double(Y2) - Y1));
  const double factor = size == 0 ? 1. / 2 : size / map->width();
  return std::max(map->GetMinZoom(), map->GetZoom() * factor);
}

}  // namespace tessera
