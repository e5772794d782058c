// SPDX-License-Identifier: MIT
#include <tessera/graphics/TCanvas.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/detail/ScreenOutliner.h>
#include <tessera/objects/detail/SmallObject.h>

namespace tessera {

std::unique_ptr<TCustomMapObject> TPolyline::Clone() const {
  return CloneInto(std::make_unique<TPolyline>());
}

void TPolyline::Draw() {
  TCustomMapObject::Draw();
  TMapHost *map = GetMapHost();
  if (map == nullptr) return;
  detail::ScreenOutliner &outliner = map->GetOutliner();
  TCanvas &canvas = map->GetCanvas();
  detail::SmallObject small(*this, detail::ObjectFigure::Line);
  std::vector<TPoint> &outline = outliner.Scratch();
  for (const TPart &part : std::as_const(*this).GetParts().Items()) {
    outline.clear();
    outliner.PartToScreen(part.GetPoints().GetRuns(), GetBounds(), outline);
    canvas.Polyline(outline);
    small.See(outline);
  }
  small.Draw();
}

}  // namespace tessera
