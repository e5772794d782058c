// SPDX-License-Identifier: MIT
#include <tessera/graphics/TCanvas.h>
#include <tessera/tools/TCircleSelectionTool.h>
#include <tessera/tools/detail/SelectionArea.h>

#include <cmath>

namespace tessera {

TCircleSelectionTool::TCircleSelectionTool(QObject *parent) : TCustomAreaSelectionTool(parent) {
  SetDisplayName(QStringLiteral("Circle Selection Tool"));
}

void TCircleSelectionTool::Draw() {
  const auto radius = std::int64_t(std::llround(std::hypot(double(X2) - X1, double(Y2) - Y1)));
  DrawInverted([&](TCanvas &canvas) { canvas.Circle(X1, Y1, radius); });
}

detail::SelectionArea TCircleSelectionTool::AreaOf(const TMapPoint &press, const TMapPoint &release) const {
  return detail::SelectionArea::Circle(press, std::hypot(release.X - press.X, release.Y - press.Y));
}

}  // namespace tessera
