// SPDX-License-Identifier: MIT
#include <tessera/map/TTessera.h>
#include <tessera/tools/TCustomClickTool.h>

#include <utility>

namespace tessera {

TCustomClickTool::TCustomClickTool(QObject *parent) : TCustomMapTool(parent) {
  SetCursor(crCross);
}

bool TCustomClickTool::GetEnabled() const {
  return TCustomMapTool::GetEnabled() && GetEditableLayer() != nullptr;
}

void TCustomClickTool::MouseDown(Qt::MouseButton button, TShiftState /*shift*/, int x, int y) {
  if (button != Qt::LeftButton || std::exchange(m_isSecondPressDue, false)) return;
  m_clicked = QPoint(x, y);
  Complete();
}

void TCustomClickTool::MouseMove(TShiftState /*shift*/, int /*x*/, int /*y*/) {
  m_isSecondPressDue = false;
}

void TCustomClickTool::DblClick() {
  m_isSecondPressDue = true;
  Complete();
}

bool TCustomClickTool::Complete() {
  return CompleteWith([this] {
    TMapLayer *layer = GetEditableLayer();
    if (layer == nullptr) return false;
    PutObject(*layer, GetMapPoint(m_clicked.x(), m_clicked.y()));
    return true;
  });
}

}  // namespace tessera
