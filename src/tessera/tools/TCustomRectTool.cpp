// SPDX-License-Identifier: MIT
#include <tessera/graphics/TCanvas.h>
#include <tessera/tools/TCustomRectTool.h>

namespace tessera {

void TCustomRectTool::Draw() {
  DrawInverted([this](TCanvas &canvas) { canvas.Rectangle(X1, Y1, X2, Y2); });
}

}  // namespace tessera
