// SPDX-License-Identifier: MIT
#include <tessera/base/detail/FarPixels.h>
#include <tessera/editing/TMapEdits.h>
#include <tessera/map/TTessera.h>
#include <tessera/tools/TTransformTool.h>
#include <tessera/tools/detail/StandingFigure.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

namespace tessera {
namespace {

constexpr int MarginPx = 10;  // so that the handles of a single point stand apart
constexpr int HandlePx = 3;   // from the middle of a handle
constexpr int PressPx = 5;    // how far from there a press still means it
constexpr int TurningAbovePx = 20;
constexpr double TurnStepDeg = 15;

/// Where something at -1, 0 or 1 lies between two ends.
template <typename Number>
Number EndOrMiddle(int at, Number low, Number high) {
  if (at == 0) return std::midpoint(low, high);
  return at < 0 ? low : high;
}

/// How much longer the way from `fixed` to `handle` becomes when its end is dragged by `way`; 1 where there is none.
double Factor(double fixed, double handle, double way) {
  return handle == fixed ? 1 : (handle - fixed + way) / (handle - fixed);
}

double DirectionDeg(const TMapPoint &from, const TMapPoint &to) {
  return std::atan2(to.Y - from.Y, to.X - from.X) * 180 / std::numbers::pi;
}

QRect PixelsOf(const TBounds &bounds, const TViewport &viewport) {
  const TPoint topLeft = viewport.MapToScreen(bounds.MinX, bounds.MaxY);
  const TPoint bottomRight = viewport.MapToScreen(bounds.MaxX, bounds.MinY);
  return {detail::MovedBy(topLeft, -MarginPx, -MarginPx), detail::MovedBy(bottomRight, MarginPx, MarginPx)};
}

TMapPoint MiddleOf(const TBounds &bounds) {
  return {std::midpoint(bounds.MinX, bounds.MaxX), std::midpoint(bounds.MinY, bounds.MaxY)};
}

}  // namespace

TTransformTool::TTransformTool(QObject *parent)
    : TMoveTool(parent),
      m_handles(std::make_unique<detail::StandingFigure>([this] { UpdateHandles(); }, [this] { DrawHandles(); })) {
  SetDisplayName(QStringLiteral("Transform Tool"));
  SetCursor(crArrow);
}

TTransformTool::~TTransformTool() = default;

void TTransformTool::Init() {
  TMoveTool::Init();
  if (GetTessera()) m_handles->StandOn(*GetTessera());
}

void TTransformTool::Done() {
  m_handles->Leave();
  TMoveTool::Done();
}

void TTransformTool::UpdateHandles() {
  m_handled = GetBoundsOfMovable();
}

TPoint TTransformTool::GetPlaceOf(const Grip &grip) const {
  const QRect frame = PixelsOf(m_handled, GetTessera()->GetViewport());
  const int up = std::min(grip.up, 1);
  const TPoint place(EndOrMiddle(grip.right, frame.left(), frame.right()),
                     EndOrMiddle(-up, frame.top(), frame.bottom()));
  return grip == Turning ? detail::MovedBy(place, 0, -TurningAbovePx) : place;
}

void TTransformTool::DrawHandles() {
  if (m_handled.IsInverted()) return;
  detail::DrawInverted(*GetTessera(), [this](TCanvas &canvas) {
    for (const Grip &grip : Grips) {
      const TPoint from = detail::MovedBy(GetPlaceOf(grip), -HandlePx, -HandlePx);
      const TPoint to = detail::MovedBy(from, 2 * HandlePx + 1, 2 * HandlePx + 1);
      if (grip == Turning) {
        canvas.Ellipse(from.x(), from.y(), to.x(), to.y());
      } else {
        canvas.Rectangle(from.x(), from.y(), to.x(), to.y());
      }
    }
  });
}

std::optional<TTransformTool::Grip> TTransformTool::GetGripAt(const QPoint &pixel) const {
  if (m_handled.IsInverted()) return std::nullopt;
  for (const Grip &grip : Grips) {
    const TPoint place = GetPlaceOf(grip);
    const QRect reach(detail::MovedBy(place, -PressPx, -PressPx), detail::MovedBy(place, PressPx, PressPx));
    if (reach.contains(pixel)) return grip;
  }
  const bool isBetween = PixelsOf(m_handled, GetTessera()->GetViewport()).contains(pixel);
  return isBetween ? std::optional(Between) : std::nullopt;
}

void TTransformTool::MouseDown(Qt::MouseButton button, TShiftState shift, int x, int y) {
  if (button != Qt::LeftButton || GetTessera() == nullptr) return;
  EndGesture();
  m_handles->Refresh();
  const std::optional<Grip> grip = GetGripAt({x, y});
  if (!grip) return;
  m_grip = *grip;
  m_isShiftHeld = shift.testFlag(ssShift);
  // NOLINTNEXTLINE(bugprone-parent-virtual-call): a drag of a handle begins beside what is moved
  TCustomPressMoveAndReleaseTool::MouseDown(button, shift, x, y);
}

void TTransformTool::MouseMove(TShiftState shift, int x, int y) {
  if (GetInGesture()) ChangeFigure([&] { m_isShiftHeld = shift.testFlag(ssShift); });
  TMoveTool::MouseMove(shift, x, y);
}

std::optional<QPoint> TTransformTool::KeepWay(TShiftState shift, const QPoint &way) const {
  return m_grip == Between ? TMoveTool::KeepWay(shift, way) : std::nullopt;
}

TMapTransform TTransformTool::GetScaling(const TMapPoint &way) const {
  const TMapPoint handle{EndOrMiddle(m_grip.right, m_handled.MinX, m_handled.MaxX),
                         EndOrMiddle(m_grip.up, m_handled.MinY, m_handled.MaxY)};
  const TMapPoint fixed{EndOrMiddle(-m_grip.right, m_handled.MinX, m_handled.MaxX),
                        EndOrMiddle(-m_grip.up, m_handled.MinY, m_handled.MaxY)};
  // A snap means the corner, wherever its handle was pressed.
  const auto &snap = GetReleaseSnap();
  double factorX = Factor(fixed.X, handle.X, snap ? snap->X - handle.X : way.X);
  double factorY = Factor(fixed.Y, handle.Y, snap ? snap->Y - handle.Y : way.Y);
  if (m_isShiftHeld && m_grip.right != 0 && m_grip.up != 0) {
    const double both =
        std::max(handle.X == fixed.X ? 0 : std::abs(factorX), handle.Y == fixed.Y ? 0 : std::abs(factorY));
    factorX = std::copysign(both, factorX);
    factorY = std::copysign(both, factorY);
  }
  return TMapTransform::Scaling(factorX, factorY, fixed);
}

TMapTransform TTransformTool::GetRotation(const TMapPoint &from, const TMapPoint &to) const {
  const TMapPoint middle = MiddleOf(m_handled);
  double angleDeg = DirectionDeg(middle, to) - DirectionDeg(middle, from);
  if (m_isShiftHeld) angleDeg = std::round(angleDeg / TurnStepDeg) * TurnStepDeg;
  return TMapTransform::Rotation(angleDeg, middle);
}

TMapTransform TTransformTool::GetTransform() const {
  const TMapPoint from = m_grip == Between ? GetPressPoint() : GetTessera()->GetViewport().ScreenToMap(X1, Y1);
  const TMapPoint to = GetReleasePoint();
  const TMapPoint way{to.X - from.X, to.Y - from.Y};
  if (m_grip == Between) return TMapTransform::Translation(way.X, way.Y);
  return m_grip == Turning ? GetRotation(from, to) : GetScaling(way);
}

void TTransformTool::Draw() {
  if (GetTessera() == nullptr) return;
  const TViewport &viewport = GetTessera()->GetViewport();
  const QRect frame = PixelsOf(m_handled, viewport);
  const TMapTransform transform = GetTransform();
  std::array<TPoint, 5> corners{frame.topLeft(), frame.topRight(), frame.bottomRight(), frame.bottomLeft()};
  for (TPoint &corner : corners) {
    const TMapPoint place = transform(viewport.ScreenToMap(corner.x(), corner.y()));
    corner = viewport.MapToScreen(place.X, place.Y);
  }
  corners.back() = corners.front();
  DrawInverted([&corners](TCanvas &canvas) { canvas.Polyline(corners); });
}

bool TTransformTool::CreateObject() {
  const std::vector<TCustomMapObject *> objects = GetMovable();
  if (objects.empty() || (X1 == X2 && Y1 == Y2)) return false;
  const TMapTransform transform = GetTransform();
  if (transform.GetDeterminant() != 0) TMapEdits(GetTessera()).TransformObjects(objects, transform);
  return false;
}

}  // namespace tessera
