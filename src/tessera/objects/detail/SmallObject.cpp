// SPDX-License-Identifier: MIT
#include <tessera/graphics/TCanvas.h>
#include <tessera/objects/detail/ScreenOutliner.h>
#include <tessera/objects/detail/SmallObject.h>

namespace tessera::detail {

std::optional<TColor> ColorOfSmall(const TCustomMapObject &object, ObjectFigure figure, const TPen &pen,
                                   const TBrush &brush) {
  if (pen.GetStyle() != TPenStyle::psClear) return pen.GetColor();
  if (figure == ObjectFigure::Line) return std::nullopt;
  if (brush.GetBitmap() || brush.GetStyle() != TBrushStyle::bsClear) return brush.GetColor();
  return object.GetUseBGColor() ? std::optional(object.GetBGColor()) : std::nullopt;
}

void SmallObject::Draw() const {
  TMapHost &map = *m_object.GetMapHost();
  if (m_leavesInk || !map.GetViewFlags().ShowSmallObjects) return;
  const std::optional<TBounds> extent = m_object.GetExtent();
  if (!extent) return;
  const ScreenOutliner &outliner = map.GetOutliner();
  const RoundedBox box = RoundedBox::Of(*extent);
  const std::optional<TPoint> place = outliner.ThinsToOne(box) ? outliner.MiddleOf(box) : m_place;
  TCanvas &canvas = map.GetCanvas();
  const std::optional<TColor> color = ColorOfSmall(m_object, m_figure, canvas.Pen(), canvas.Brush());
  if (!place || !color) return;
  const TPixel dot{*place, *color};
  canvas.SetPixels({&dot, 1});
}

}  // namespace tessera::detail
