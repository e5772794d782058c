// SPDX-License-Identifier: MIT
#include <tessera/base/GuardedCall.h>
#include <tessera/map/TTessera.h>
#include <tessera/map/detail/MapByName.h>

#include <QEvent>

#include <utility>
#include <vector>

namespace tessera::detail {
namespace {

/// Whether names are looked up no further out. A floating tool window still belongs to the form that it came from.
bool IsForm(const QWidget &widget) {
  switch (widget.windowType()) {
    case Qt::Window:
    case Qt::Dialog:
    case Qt::Sheet:
    case Qt::SubWindow:
      return true;
    default:
      return widget.parentWidget() == nullptr;
  }
}

QWidget &FormOf(QWidget &member) {
  QWidget *form = &member;
  while (!IsForm(*form)) form = form->parentWidget();
  return *form;
}

TTessera *FindMap(QWidget &companion, const QString &name) {
  for (QWidget *around = &companion; !IsForm(*around);) {
    around = around->parentWidget();
    if (around->objectName() == name) {
      if (auto *map = qobject_cast<TTessera *>(around)) return map;
    }
    if (auto *map = around->findChild<TTessera *>(name)) return map;
  }
  return nullptr;
}

}  // namespace

FormWatch::FormWatch(QWidget &member, std::function<void()> changed)
    : QObject(&member), m_member(member), m_changed(std::move(changed)) {
  member.installEventFilter(this);
  WatchForm();
}

void FormWatch::WatchForm() {
  if (m_form && m_form != &m_member) m_form->removeEventFilter(this);
  m_form = &FormOf(m_member);
  if (m_form != &m_member) m_form->installEventFilter(this);
}

bool FormWatch::eventFilter(QObject * /*watched*/, QEvent *event) {
  if (event->type() == QEvent::ParentChange) {
    WatchForm();
    m_changed();
  }
  return false;
}

MapByName::MapByName(QWidget &companion, std::function<void(TTessera *)> setMap, std::function<TTessera *()> getMap)
    : QObject(&companion), m_companion(companion), m_setMap(std::move(setMap)), m_getMap(std::move(getMap)) {
  new FormWatch(companion, [this] { Resolve(); });
}

QByteArray MapByName::GetName() const {
  const TTessera *map = m_getMap();
  return m_waiting.isEmpty() && map ? map->objectName().toUtf8() : m_waiting;
}

void MapByName::SetName(const QByteArray &name) {
  m_setMap(nullptr);
  m_waiting = name;
  Resolve();
}

void MapByName::Forget() {
  m_waiting.clear();
}

void MapByName::Resolve() {
  if (m_waiting.isEmpty()) return;
  TTessera *map = FindMap(m_companion, QString::fromUtf8(m_waiting));
  if (map == nullptr) return;
  m_waiting.clear();
  GuardedCall([&] { m_setMap(map); });
}

void AnnounceMap(TTessera &map) {
  const auto links = FormOf(map).findChildren<MapByName *>();
  const std::vector<QPointer<MapByName>> stillThere(links.begin(), links.end());
  for (const auto &link : stillThere) {
    if (link) link->Resolve();
  }
}

void AnnounceMapAlways(TTessera &map) {
  const auto announce = [&map] { AnnounceMap(map); };
  QObject::connect(&map, &QObject::objectNameChanged, &map, announce);
  new FormWatch(map, announce);
}

}  // namespace tessera::detail
