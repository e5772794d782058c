// SPDX-License-Identifier: MIT
#include <tessera/base/GuardedCall.h>
#include <tessera/map/TCustomMapTool.h>
#include <tessera/map/TMapToolsManager.h>
#include <tessera/map/TTessera.h>
#include <tessera/map/detail/SnapMark.h>

#include <utility>

namespace tessera {
namespace {

Qt::CursorShape ShapeOf(TCustomMapTool::TCursor cursor) {
  switch (cursor) {
    case TCustomMapTool::crNone:
      return Qt::BlankCursor;
    case TCustomMapTool::crCross:
      return Qt::CrossCursor;
    case TCustomMapTool::crIBeam:
      return Qt::IBeamCursor;
    case TCustomMapTool::crHourGlass:
      return Qt::WaitCursor;
    case TCustomMapTool::crHandPoint:
      return Qt::PointingHandCursor;
    case TCustomMapTool::crSizeAll:
      return Qt::SizeAllCursor;
    default:
      return Qt::ArrowCursor;
  }
}

}  // namespace

TCustomMapTool::TCustomMapTool(QObject *parent) : QObject(parent) {}

TCustomMapTool::~TCustomMapTool() {
  if (m_manager) m_manager->Remove(this);
  if (m_isActive && m_map) m_map->unsetCursor();
}

void TCustomMapTool::MouseDown(Qt::MouseButton /*button*/, TShiftState /*shift*/, int /*x*/, int /*y*/) {}
void TCustomMapTool::MouseMove(TShiftState /*shift*/, int /*x*/, int /*y*/) {}
void TCustomMapTool::MouseUp(Qt::MouseButton /*button*/, TShiftState /*shift*/, int /*x*/, int /*y*/) {}
void TCustomMapTool::KeyDown(int & /*key*/, TShiftState /*shift*/) {}
void TCustomMapTool::KeyUp(int & /*key*/, TShiftState /*shift*/) {}
void TCustomMapTool::KeyPress(QChar & /*key*/) {}
void TCustomMapTool::Preedit(const QString & /*text*/, int /*cursor*/) {}

bool TCustomMapTool::Complete() {
  Q_EMIT OnComplete(this);
  return true;
}

bool TCustomMapTool::CompleteWith(const std::function<bool()> &create) {
  const QPointer<TCustomMapTool> self(this);
  bool isCreated = false;
  AllSteps steps;
  steps.Try([&] { isCreated = create(); });
  if (self) steps.Try([this] { Q_EMIT OnComplete(this); });
  steps.Rethrow();
  return isCreated;
}

void TCustomMapTool::Cancel() {
  Q_EMIT OnCancel(this);
}

void TCustomMapTool::Init() {
  if (!m_map) return;
  if (m_cursor == crDefault) {
    m_map->unsetCursor();
  } else {
    m_map->setCursor(ShapeOf(m_cursor));
  }
}

void TCustomMapTool::Done() {
  if (m_map) m_map->unsetCursor();
}

bool TCustomMapTool::GetEnabled() const {
  return m_map && m_map->GetLayers()->GetCount() > 0;
}

std::optional<TMapPoint> TCustomMapTool::GetSnapPoint(int x, int y) const {
  return m_map ? detail::FindSnapPlace(*m_map, *this, x, y) : std::nullopt;
}

TMapPoint TCustomMapTool::GetMapPoint(int x, int y) const {
  const auto place = GetSnapPoint(x, y);
  return place ? *place : m_map->GetViewport().ScreenToMap(x, y);
}

TMapLayer *TCustomMapTool::GetEditableLayer() const {
  return m_map ? m_map->GetLayers()->GetEditableLayer() : nullptr;
}

TTessera *TCustomMapTool::GetTessera() const {
  return m_map;
}
TMapToolsManager *TCustomMapTool::GetMapToolsManager() const {
  return m_manager;
}
void TCustomMapTool::SetMapToolsManager(TMapToolsManager *manager) {
  m_manager = manager;
}

void TCustomMapTool::SetActive(bool isActive) {
  if (std::exchange(m_isActive, isActive) == isActive || !m_map || !m_manager) return;
  const QPointer<TCustomMapTool> self(this);
  const QPointer<TTessera> map = m_map;
  AllSteps steps;
  steps.Try([this] { Q_EMIT OnToolStateChanged(this); });
  if (map) steps.Try([&] { Q_EMIT map->OnMapToolChanged(map); });
  // A handler may have moved the tool, or set it back, which has run its course by then.
  const auto isUnchanged = [&] { return self && m_isActive == isActive && m_map && m_map == map && m_manager; };
  if (isActive && isUnchanged()) steps.Try([this] { m_manager->DeactivateAllBut(*this); });
  if (isUnchanged()) steps.Try([&] { isActive ? Init() : Done(); });
  steps.Rethrow();
}

void TCustomMapTool::SetTessera(TTessera *map) {
  if (map == m_map) return;
  LeaveMap();
  m_map = map;
  EnterMap();
}

void TCustomMapTool::LeaveMap() {
  if (m_map) {
    Abandon();
    if (m_isActive) Done();
  }
  if (m_manager) m_manager->Remove(this);
  m_manager = nullptr;
}

void TCustomMapTool::EnterMap() {
  if (!m_map) return;
  m_manager = m_map->GetMapToolsManager();
  m_manager->Add(this);
  if (!m_isActive) return;
  const QPointer<TCustomMapTool> self(this);
  AllSteps steps;
  steps.Try([this] { m_manager->DeactivateAllBut(*this); });
  if (self && m_isActive) steps.Try([this] { Init(); });
  steps.Rethrow();
}

void TCustomMapTool::ForgetMap() {
  if (m_map) Abandon();
  m_map = nullptr;
  m_manager = nullptr;
}

TTessera *TCustomMapTool::FindTessera(const QObject &component) {
  TTessera *found = nullptr;
  for (QObject *child : component.children()) {
    if (auto *map = qobject_cast<TTessera *>(child)) return map;
    found = FindTessera(*child);
  }
  return found;
}

}  // namespace tessera
