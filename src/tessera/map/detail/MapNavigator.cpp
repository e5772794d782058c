// SPDX-License-Identifier: MIT
#include <tessera/map/TMapToolsManager.h>
#include <tessera/map/TTessera.h>
#include <tessera/map/detail/MapNavigator.h>
#include <tessera/objects/TMapScopes.h>

#include <QMouseEvent>
#include <QNativeGestureEvent>
#include <QPinchGesture>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tessera::detail {
namespace {

constexpr double WheelFactor = 2;
constexpr int PanPart = 10;  // of the client area, for a press of an arrow key

/// Ends the batch of updates it began, with a new picture, however the block is left; the map may be gone by then.
class UpdateScope {
 public:
  explicit UpdateScope(TTessera &map) : m_map(&map) { map.BeginUpdate(); }
  ~UpdateScope() {
    if (m_map) m_map->EndUpdate(true);
  }
  UpdateScope(const UpdateScope &) = delete;
  UpdateScope &operator=(const UpdateScope &) = delete;

 private:
  QPointer<TTessera> m_map;
};

double LimitedZoom(const TTessera &map, double factor) {
  const double zoom = map.GetZoom() * factor;
  return factor > 1 ? std::min(map.GetMaxZoom(), zoom) : std::max(map.GetMinZoom(), zoom);
}

}  // namespace

MapNavigator::MapNavigator(TTessera &map)
    : m_map(map),
      m_drag(
          [this] {
            m_picture.Take(m_map);
            m_picture.ShowMoved(m_map, m_to - m_from);
          },
          [this] { Stop(); }) {}

void MapNavigator::ZoomAsTheWheel(const QPoint &desktopPosition, double factor) {
  const UpdateScope update(m_map);
  if (m_map.GetZoomType() == TTessera::wmCursor) {
    // The position is taken as the platform gives it, in coordinates of the desktop; this is intended.
    double x = 0;
    double y = 0;
    m_map.ScreenToMap(desktopPosition.x(), desktopPosition.y(), x, y);
    m_map.SetCenterX(x);
    m_map.SetCenterY(y);
  } else if (m_map.GetZoomType() == TTessera::wmSelected && m_map.GetSelection()->GetCount() > 0) {
    const TBounds bounds = m_map.GetSelection()->GetItem(0)->GetBounds();
    m_map.SetCenterX((bounds.MaxX - bounds.MinX) / 2 + bounds.MinX);
    m_map.SetCenterY((bounds.MaxY - bounds.MinY) / 2 + bounds.MinY);
  }
  m_map.SetZoom(LimitedZoom(m_map, factor));
}

void MapNavigator::ZoomAbout(const QPointF &client, double factor) {
  const UpdateScope update(m_map);
  const QPoint pixel = client.toPoint();
  const TViewport before = m_map.GetViewport();
  TViewport after = before;
  after.Zoom = LimitedZoom(m_map, factor);
  const TMapPoint place = before.ScreenToMap(pixel.x(), pixel.y());
  const TMapPoint moved = after.ScreenToMap(pixel.x(), pixel.y());
  m_map.SetCenterX(before.CenterX + (place.X - moved.X));
  m_map.SetCenterY(before.CenterY + (place.Y - moved.Y));
  m_map.SetZoom(after.Zoom);
}

int MapNavigator::StepsOf(const QWheelEvent &event) {
  const int delta = event.angleDelta().y();
  if (!m_map.GetNavigation()->GetWheelAddsUp()) return delta > 0 ? 1 : -1;
  // A turn the other way does not first have to make up for what was left.
  if ((delta > 0) != (m_wheelRest > 0)) m_wheelRest = 0;
  m_wheelRest += delta;
  return std::exchange(m_wheelRest, m_wheelRest % QWheelEvent::DefaultDeltasPerStep) /
         QWheelEvent::DefaultDeltasPerStep;
}

void MapNavigator::Wheel(const QWheelEvent &event) {
  const int steps = StepsOf(event);
  if (steps == 0) return;
  const double factor = std::pow(WheelFactor, steps);
  if (m_map.GetNavigation()->GetWheelKeepsPlace()) {
    ZoomAbout(event.position(), factor);
  } else {
    ZoomAsTheWheel(event.globalPosition().toPoint(), factor);
  }
}

void MapNavigator::PanBy(const QPoint &way) {
  PanPicture::MoveView(m_map, {0, 0}, way);
}

void MapNavigator::Key(int key) {
  if (!m_map.GetNavigation()->GetKeys()) return;
  const QPointF middle(m_map.width() / 2., m_map.height() / 2.);
  const int right = std::max(1, m_map.width() / PanPart);
  const int down = std::max(1, m_map.height() / PanPart);
  switch (key) {
    case Qt::Key_Left:
      return PanBy({right, 0});
    case Qt::Key_Right:
      return PanBy({-right, 0});
    case Qt::Key_Up:
      return PanBy({0, down});
    case Qt::Key_Down:
      return PanBy({0, -down});
    case Qt::Key_Plus:
    case Qt::Key_Equal:  // the key of the plus, without Shift
      return m_map.SetZoom(LimitedZoom(m_map, WheelFactor));
    case Qt::Key_Minus:
      return m_map.SetZoom(LimitedZoom(m_map, 1 / WheelFactor));
    case Qt::Key_Home:
      return m_map.ShowAll();
    case Qt::Key_Escape:
      if (m_drag.IsRunning()) return Stop();
      if (auto *tool = m_map.GetMapToolsManager()->GetActiveMapTool(); tool != nullptr && tool->GetInGesture()) {
        tool->Cancel();
      }
      return;
    default:
      return;
  }
}

bool MapNavigator::Press(const QMouseEvent &event) {
  if (event.button() != Qt::MiddleButton || !m_map.GetNavigation()->GetMiddleButton()) return false;
  m_from = m_to = event.position().toPoint();
  m_picture.Take(m_map);
  m_drag.Begin(m_map, Qt::MiddleButton);
  return true;
}

bool MapNavigator::Move(const QMouseEvent &event) {
  if (!m_drag.IsRunning()) return false;
  m_to = event.position().toPoint();
  m_picture.ShowMoved(m_map, m_to - m_from);
  return true;
}

bool MapNavigator::Release(const QMouseEvent &event) {
  if (!m_drag.IsRunning() || event.button() != Qt::MiddleButton) return false;
  Stop();
  if (m_from != m_to) PanPicture::MoveView(m_map, m_from, m_to);
  return true;
}

void MapNavigator::Stop() {
  m_drag.End();
  m_picture.Drop();
  m_map.Invalidate();
}

void MapNavigator::Pinch(const QPinchGesture &gesture) {
  const auto client = [this](const QPointF &desktop) { return m_map.mapFromGlobal(desktop).toPoint(); };
  const QPoint center = client(gesture.centerPoint());
  // What has not changed is still that of the event before.
  const QPinchGesture::ChangeFlags changed = gesture.changeFlags();
  if (changed.testFlag(QPinchGesture::CenterPointChanged)) {
    PanPicture::MoveView(m_map, client(gesture.lastCenterPoint()), center);
  }
  if (changed.testFlag(QPinchGesture::ScaleFactorChanged) && gesture.scaleFactor() > 0) {
    ZoomAbout(center, gesture.scaleFactor());
  }
}

void MapNavigator::Magnify(const QNativeGestureEvent &event) {
  // A native gesture tells by how much of itself the picture grows.
  ZoomAbout(event.position(), std::max(1 + event.value(), 1 / WheelFactor));
}

}  // namespace tessera::detail
