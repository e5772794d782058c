// SPDX-License-Identifier: MIT
#include <tessera/base/detail/FarPixels.h>
#include <tessera/editing/TMapEdits.h>
#include <tessera/editing/detail/ShownBounds.h>
#include <tessera/graphics/TCanvas.h>
#include <tessera/map/TTessera.h>
#include <tessera/tools/TMoveTool.h>
#include <tessera/tools/detail/KeptWays.h>

#include <algorithm>

namespace tessera {

TMoveTool::TMoveTool(QObject *parent) : TCustomPressMoveAndReleaseTool(parent) {
  SetDisplayName(QStringLiteral("Move Tool"));
  SetCursor(crSizeAll);
}

bool TMoveTool::GetEnabled() const {
  return TCustomPressMoveAndReleaseTool::GetEnabled() && GetEditableLayer() != nullptr;
}

std::vector<TCustomMapObject *> TMoveTool::GetMovable() const {
  std::vector<TCustomMapObject *> movable;
  const TMapLayer *layer = GetEditableLayer();
  if (layer == nullptr) return movable;
  for (TCustomMapObject *object : GetTessera()->GetSelection()->Items()) {
    if (object->GetObjectLayer() == layer) movable.push_back(object);
  }
  return movable;
}

TBounds TMoveTool::GetBoundsOfMovable() const {
  TBounds bounds = TBounds::Empty();
  for (const TCustomMapObject *object : GetMovable()) bounds.Widen(detail::ShownBounds(*object));
  return bounds;
}

void TMoveTool::MouseDown(Qt::MouseButton button, TShiftState shift, int x, int y) {
  if (button != Qt::LeftButton || GetTessera() == nullptr) return;
  EndGesture();
  const TMapPoint at = GetTessera()->GetViewport().ScreenToMap(x, y);
  const auto movable = GetMovable();
  if (std::ranges::none_of(movable, [&](const auto *object) { return object->ContainsPoint(at.X, at.Y); })) return;
  m_frame = GetBoundsOfMovable();
  TCustomPressMoveAndReleaseTool::MouseDown(button, shift, x, y);
}

std::optional<QPoint> TMoveTool::KeepWay(TShiftState shift, const QPoint &way) const {
  return shift.testFlag(ssShift) ? std::optional(detail::KeptToDirections(way)) : std::nullopt;
}

void TMoveTool::Draw() {
  constexpr int MarginPx = 3;  // so that a single point has a frame, too
  const TMapHost *map = GetTessera();
  if (map == nullptr) return;
  const TViewport &viewport = map->GetViewport();
  const TPoint topLeft = viewport.MapToScreen(m_frame.MinX, m_frame.MaxY);
  const TPoint bottomRight = viewport.MapToScreen(m_frame.MaxX, m_frame.MinY);
  const TPoint from = detail::MovedBy(topLeft, X2 - X1 - MarginPx, Y2 - Y1 - MarginPx);
  const TPoint to = detail::MovedBy(bottomRight, X2 - X1 + MarginPx, Y2 - Y1 + MarginPx);
  DrawInverted([&](TCanvas &canvas) { canvas.Rectangle(from.x(), from.y(), to.x(), to.y()); });
}

bool TMoveTool::IsSnapTarget(const TCustomMapObject &object) const {
  const bool isMovable = object.GetObjectLayer() == GetEditableLayer() && GetTessera()->GetSelection()->Holds(&object);
  return isMovable != GetInGesture();
}

bool TMoveTool::CreateObject() {
  const std::vector<TCustomMapObject *> movable = GetMovable();
  if (movable.empty() || (X1 == X2 && Y1 == Y2)) return false;
  const TMapPoint press = GetPressPoint();
  const TMapPoint release = GetReleasePoint();
  TMapEdits(GetTessera()).MoveObjects(movable, release.X - press.X, release.Y - press.Y);
  return false;
}

}  // namespace tessera
