// SPDX-License-Identifier: MIT
#include <tessera/map/TTessera.h>
#include <tessera/tools/TZoomInTool.h>

#include <algorithm>
#include <cmath>

namespace tessera {

TZoomInTool::TZoomInTool(QObject *parent) : TCustomZoomTool(parent) {
  SetDisplayName(QStringLiteral("ZoomIn Tool"));
}

double TZoomInTool::GetNewZoom() const {
  const TTessera *map = GetTessera();
  if (map == nullptr) return 1;
  const double width = std::fabs(double(X2) - X1);
  const double height = std::fabs(double(Y2) - Y1);
  if (width == 0 || height == 0) return std::min(map->GetMaxZoom(), map->GetZoom() * 2);
  return std::min(map->width() / width, map->height() / height) * map->GetZoom();
}

}  // namespace tessera
