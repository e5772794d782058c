// SPDX-License-Identifier: MIT
#include <tessera/graphics/TCanvas.h>
#include <tessera/map/TTessera.h>
#include <tessera/map/detail/PanPicture.h>
#include <tessera/objects/TMapScopes.h>

namespace tessera::detail {

void PanPicture::Take(TTessera &map) {
  // While a new picture is being made there is none to take; what is shown is told when it is there.
  m_picture = map.GetIsBusy() ? TBitmap() : map.GetCanvas().CopyOf(map.rect());
}

void PanPicture::ShowMoved(TTessera &map, const QPoint &by) const {
  if (map.GetIsBusy()) return map.Invalidate();
  const int width = map.width();
  const int height = map.height();
  TCanvas &canvas = map.GetCanvas();
  const TBrush brushBefore = canvas.Brush();
  canvas.Brush().SetStyle(TBrushStyle::bsSolid);
  canvas.Brush().SetColor(map.GetColor());
  if (by.x() > 0) canvas.FillRect(QRect(0, 0, by.x(), height));
  if (by.y() > 0) canvas.FillRect(QRect(0, 0, width, by.y()));
  if (by.x() < 0) canvas.FillRect(QRect(width + by.x(), 0, -by.x(), height));
  if (by.y() < 0) canvas.FillRect(QRect(0, height + by.y(), width, -by.y()));
  canvas.Brush() = brushBefore;
  canvas.StretchDraw(map.rect().translated(by), m_picture);
}

void PanPicture::Drop() {
  m_picture = TBitmap();
}

void PanPicture::MoveView(TTessera &map, const QPoint &from, const QPoint &to) {
  const TViewport &viewport = map.GetViewport();
  const TMapPoint after = viewport.ScreenToMap(to.x(), to.y());
  const TMapPoint before = viewport.ScreenToMap(from.x(), from.y());
  const TUpdateScope update(map);
  map.SetCenterX(map.GetCenterX() - (after.X - before.X));
  map.SetCenterY(map.GetCenterY() - (after.Y - before.Y));
}

}  // namespace tessera::detail
