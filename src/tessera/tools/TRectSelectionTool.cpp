// SPDX-License-Identifier: MIT
#include <tessera/tools/TRectSelectionTool.h>
#include <tessera/tools/detail/SelectionArea.h>

namespace tessera {

TRectSelectionTool::TRectSelectionTool(QObject *parent) : TCustomAreaSelectionTool(parent) {
  SetDisplayName(QStringLiteral("Rectangle Selection Tool"));
}

detail::SelectionArea TRectSelectionTool::AreaOf(const TMapPoint &press, const TMapPoint &release) const {
  return detail::SelectionArea::Rectangle(press, release);
}

}  // namespace tessera
