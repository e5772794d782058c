// SPDX-License-Identifier: MIT
#include <tessera/map/TTessera.h>
#include <tessera/map/detail/PanPicture.h>
#include <tessera/tools/TPanTool.h>

namespace tessera {

TPanTool::TPanTool(QObject *parent)
    : TCustomPressMoveAndReleaseTool(parent), m_picture(std::make_unique<detail::PanPicture>()) {
  SetDisplayName(QStringLiteral("Pan Tool"));
  SetCursor(crSizeAll);
}

TPanTool::~TPanTool() = default;

void TPanTool::MouseDown(Qt::MouseButton button, TShiftState shift, int x, int y) {
  if (button != Qt::LeftButton || GetTessera() == nullptr) return;
  Abandon();
  m_picture->Take(*GetTessera());
  TCustomPressMoveAndReleaseTool::MouseDown(button, shift, x, y);
}

void TPanTool::MouseMove(TShiftState shift, int x, int y) {
  TCustomPressMoveAndReleaseTool::MouseMove(shift, x, y);
  if (shift.testFlag(ssLeft) && GetInGesture()) ShowMoved();
}

void TPanTool::MouseUp(Qt::MouseButton button, TShiftState /*shift*/, int /*x*/, int /*y*/) {
  if (button != Qt::LeftButton || !GetInGesture()) return;
  TTessera &map = *GetTessera();
  Abandon();
  if (X1 != X2 || Y1 != Y2) detail::PanPicture::MoveView(map, {X1, Y1}, {X2, Y2});
}

void TPanTool::ShowMoved() {
  m_picture->ShowMoved(*GetTessera(), {X2 - X1, Y2 - Y1});
}

void TPanTool::ScreenRepainted() {
  m_picture->Take(*GetTessera());
  ShowMoved();
}

void TPanTool::Abandon() {
  // What was selected meanwhile does not stand where the picture was dragged to.
  if (GetInGesture()) GetTessera()->Invalidate();
  EndGesture();
  m_picture->Drop();
}

}  // namespace tessera
