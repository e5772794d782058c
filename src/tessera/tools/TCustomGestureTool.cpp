// SPDX-License-Identifier: MIT
#include <tessera/graphics/TCanvas.h>
#include <tessera/map/TTessera.h>
#include <tessera/map/detail/MapGesture.h>
#include <tessera/tools/TCustomGestureTool.h>

#include <utility>

namespace tessera {

TCustomGestureTool::TCustomGestureTool(QObject *parent)
    : TCustomMapTool(parent),
      m_gesture(std::make_unique<detail::MapGesture>([this] { ScreenRepainted(); }, [this] { Abandon(); })) {}

TCustomGestureTool::~TCustomGestureTool() {
  // What draws the figure is gone already.
  if (m_gesture->IsRunning() && GetTessera() != nullptr) GetTessera()->Invalidate();
}

bool TCustomGestureTool::GetInGesture() const {
  return m_gesture->IsRunning();
}

bool TCustomGestureTool::IsScreenCurrent() const {
  return !GetTessera()->GetModified() && !GetTessera()->GetIsBusy();
}

void TCustomGestureTool::ToggleFigure() {
  m_isShown = !m_isShown;
  if (IsScreenCurrent()) {
    Draw();
  } else {
    // A repaint will put it right.
    m_isShown = false;
    GetTessera()->Invalidate();
  }
}

void TCustomGestureTool::ShowFigure() {
  if (!m_isShown) ToggleFigure();
}

void TCustomGestureTool::HideFigure() {
  if (m_isShown) ToggleFigure();
}

void TCustomGestureTool::BeginGesture(Qt::MouseButton heldBy) {
  EndGesture();
  m_gesture->Begin(*GetTessera(), heldBy);
  ShowFigure();
}

void TCustomGestureTool::EndGesture() {
  if (!m_gesture->IsRunning()) return;
  m_gesture->End();
  HideFigure();
}

void TCustomGestureTool::ChangeFigure(const std::function<void()> &change) {
  HideFigure();
  change();
  ShowFigure();
}

void TCustomGestureTool::ScreenRepainted() {
  m_isShown = false;
  ShowFigure();
}

void TCustomGestureTool::DrawInverted(const std::function<void(TCanvas &canvas)> &draw) {
  if (GetTessera() == nullptr) return;
  TCanvas &canvas = GetTessera()->GetCanvas();
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
