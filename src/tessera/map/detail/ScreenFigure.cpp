// SPDX-License-Identifier: MIT
#include <tessera/graphics/TCanvas.h>
#include <tessera/map/TTessera.h>
#include <tessera/map/detail/ScreenFigure.h>

namespace tessera::detail {

void DrawInverted(TTessera &map, const std::function<void(TCanvas &canvas)> &draw) {
  TCanvas &canvas = map.GetCanvas();
  const TPen penBefore = canvas.Pen();
  const TBrush brushBefore = canvas.Brush();
  TPen pen;
  pen.SetMode(TPenMode::pmNotXor);
  canvas.Pen() = pen;
  canvas.Brush().SetStyle(TBrushStyle::bsClear);
  draw(canvas);
  canvas.Pen() = penBefore;
  canvas.Brush() = brushBefore;
}

void ScreenFigure::Toggle(TTessera &map) {
  m_isShown = !m_isShown;
  if (!map.GetModified() && !map.GetIsBusy()) {
    m_draw();
  } else {
    // A repaint will put it right.
    m_isShown = false;
    map.Invalidate();
  }
}

void ScreenFigure::Show(TTessera &map) {
  if (!m_isShown) Toggle(map);
}

void ScreenFigure::Hide(TTessera &map) {
  if (m_isShown) Toggle(map);
}

void ScreenFigure::ShowAnew(TTessera &map) {
  Forget();
  Show(map);
}

}  // namespace tessera::detail
