// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/map/detail/MapAccessible.h>
#include <tessera/map/detail/MapChildrenAccessible.h>

#include <algorithm>

namespace tessera::detail {
namespace {

QAccessibleInterface *MakeMapAccessible(const QString &className, QObject *object) {
  if (className != QLatin1String(TTessera::staticMetaObject.className())) return nullptr;
  auto *map = qobject_cast<TTessera *>(object);
  return map ? new MapAccessible(*map) : nullptr;
}

/// Taken back when the library is unloaded.
struct FactoryEntry {
  FactoryEntry() { QAccessible::installFactory(MakeMapAccessible); }
  FactoryEntry(const FactoryEntry &) = delete;
  FactoryEntry &operator=(const FactoryEntry &) = delete;
  ~FactoryEntry() { QAccessible::removeFactory(MakeMapAccessible); }
};

}  // namespace

void InstallMapAccessibility() {
  static const FactoryEntry entry;
}

MapAccessible::MapAccessible(TTessera &map)
    : QAccessibleWidget(&map, QAccessible::Canvas), m_map(&map), m_isWhole(map.GetNavigation()) {
  QObject::connect(&map, &TTessera::OnScreenRepainted, &m_connections, [this] { m_displayedCount = -1; });
}

MapAccessible::~MapAccessible() {
  for (const auto &[subject, child] : m_children) QAccessible::deleteAccessibleInterface(child.id);
}

bool MapAccessible::isValid() const {
  return GetMap() && QAccessibleWidget::isValid();
}

int MapAccessible::childCount() const {
  return GetLayerCount() + QAccessibleWidget::childCount();
}

QAccessibleInterface *MapAccessible::child(int index) const {
  if (index < 0) return nullptr;
  const int count = GetLayerCount();
  return index < count ? InterfaceOf(*GetLayers()->GetLayer(index)) : QAccessibleWidget::child(index - count);
}

int MapAccessible::indexOfChild(const QAccessibleInterface *child) const {
  const int count = GetLayerCount();
  for (int i = 0; i < count; ++i) {
    if (InterfaceOf(*GetLayers()->GetLayer(i)) == child) return i;
  }
  const int index = QAccessibleWidget::indexOfChild(child);
  return index < 0 ? index : count + index;
}

QAccessibleInterface *MapAccessible::childAt(int x, int y) const {
  if (GetMap() == nullptr || !m_map->rect().contains(m_map->mapFromGlobal(QPoint(x, y)))) return nullptr;
  const QPoint at = m_map->mapFromGlobal(QPoint(x, y));
  try {
    const TMapPoint point = m_map->GetViewport().ScreenToMap(at.x(), at.y());
    const auto objects = m_map->GetDisplayed()->Items();
    const auto hit = std::find_if(objects.rbegin(), objects.rend(), [&](TCustomMapObject *object) {
      return object->GetObjectLayer() != nullptr && object->ContainsPoint(point.X, point.Y);
    });
    return hit == objects.rend() ? nullptr : InterfaceOf(**hit);
  } catch (const EZeroDivide &) {
    return nullptr;  // a view without an extent shows nothing
  }
}

QString MapAccessible::text(QAccessible::Text kind) const {
  const QString own = QAccessibleWidget::text(kind);
  return kind == QAccessible::Name && own.isEmpty() ? TTessera::tr("Map") : own;
}

void MapAccessible::ReadDisplayed() const {
  const auto objects = m_map->GetDisplayed()->Items();
  if (m_displayedCount == int(objects.size())) return;
  ForgetGoneChildren();
  m_displayed.clear();
  for (TCustomMapObject *object : objects) {
    if (object->GetObjectLayer()) m_displayed[object->GetObjectLayer()].emplace_back(object);
  }
  m_displayedCount = int(objects.size());
}

const MapAccessible::Handles &MapAccessible::DisplayedOf(const TMapLayer &layer) const {
  ReadDisplayed();
  return m_displayed[&layer];
}

void MapAccessible::ForgetGoneChildren() const {
  for (auto child = m_children.begin(); child != m_children.end();) {
    if (child->second.subject) {
      ++child;
    } else {
      QAccessible::deleteAccessibleInterface(child->second.id);
      child = m_children.erase(child);
    }
  }
}

template <class Interface, class Subject>
QAccessibleInterface *MapAccessible::FindOrMake(Subject &subject) const {
  Child &child = m_children[&subject];
  if (!child.subject) {
    if (child.id != 0) QAccessible::deleteAccessibleInterface(child.id);
    child.subject = THandle<TObject>(&subject);
    child.id = QAccessible::registerAccessibleInterface(new Interface(*this, subject));
  }
  return QAccessible::accessibleInterface(child.id);
}

QAccessibleInterface *MapAccessible::InterfaceOf(TMapLayer &layer) const {
  return FindOrMake<LayerAccessible>(layer);
}

QAccessibleInterface *MapAccessible::InterfaceOf(TCustomMapObject &object) const {
  return FindOrMake<ObjectAccessible>(object);
}

}  // namespace tessera::detail
