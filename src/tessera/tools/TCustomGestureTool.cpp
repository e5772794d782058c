// SPDX-License-Identifier: MIT
#include <tessera/map/TTessera.h>
#include <tessera/map/detail/MapGesture.h>
#include <tessera/map/detail/ScreenFigure.h>
#include <tessera/tools/TCustomGestureTool.h>

#include <utility>

namespace tessera {

TCustomGestureTool::TCustomGestureTool(QObject *parent)
    : TCustomMapTool(parent),
      m_gesture(std::make_unique<detail::MapGesture>([this] { ScreenRepainted(); }, [this] { Abandon(); })),
      m_figure(std::make_unique<detail::ScreenFigure>([this] { Draw(); })) {}

TCustomGestureTool::~TCustomGestureTool() {
  // What draws the figure is gone already.
  if (m_gesture->IsRunning() && GetTessera() != nullptr) GetTessera()->Invalidate();
}

bool TCustomGestureTool::GetInGesture() const {
  return m_gesture->IsRunning();
}

void TCustomGestureTool::BeginGesture(Qt::MouseButton heldBy) {
  EndGesture();
  m_gesture->Begin(*GetTessera(), heldBy);
  m_figure->Show(*GetTessera());
}

void TCustomGestureTool::EndGesture() {
  if (!m_gesture->IsRunning()) return;
  m_gesture->End();
  m_figure->Hide(*GetTessera());
}

void TCustomGestureTool::ChangeFigure(const std::function<void()> &change) {
  m_figure->Hide(*GetTessera());
  change();
  m_figure->Show(*GetTessera());
}

void TCustomGestureTool::ScreenRepainted() {
  m_figure->ShowAnew(*GetTessera());
}

bool TCustomGestureTool::IsConstraining(TShiftState shift) const {
  return shift.testFlag(ssShift) && GetTessera() != nullptr && GetTessera()->GetSnapping()->GetShiftConstrains();
}

void TCustomGestureTool::DrawInverted(const std::function<void(TCanvas &canvas)> &draw) {
  if (GetTessera()) detail::DrawInverted(*GetTessera(), draw);
}

void TCustomGestureTool::Abandon() {
  EndGesture();
  Forget();
}

bool TCustomGestureTool::Complete() {
  EndGesture();
  return CompleteWith([this] { return CreateObject(); });
}

void TCustomGestureTool::Cancel() {
  Abandon();
  TCustomMapTool::Cancel();
}

void TCustomGestureTool::Init() {
  Abandon();
  TCustomMapTool::Init();
}

void TCustomGestureTool::Done() {
  Abandon();
  TCustomMapTool::Done();
}

}  // namespace tessera
