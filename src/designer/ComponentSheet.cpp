// SPDX-License-Identifier: MIT
#include <designer/ComponentSheet.h>
#include <designer/Components.h>

#include <QExtensionManager>
#include <QMetaEnum>
#include <QScopedValueRollback>

#include <algorithm>

namespace tessera::designer {
namespace {

/// The object that a property of a component is; nullptr when it is a value.
QObject *PartOf(const QObject &component, const QMetaProperty &property) {
  return property.metaType().flags().testFlag(QMetaType::PointerToQObject)
             ? property.read(&component).value<QObject *>()
             : nullptr;
}

/// Whether a component is shown on a form as what it is, and not as an icon.
bool IsWidget(const QObject &component) {
  return FindComponent(component)->sizePx.isValid();
}

bool HasParts(const QObject &component) {
  const QMetaObject &type = *component.metaObject();
  for (int i = type.propertyOffset(); i < type.propertyCount(); ++i) {
    if (PartOf(component, type.property(i))) return true;
  }
  return false;
}

}  // namespace

ComponentSheet *ComponentSheet::Find(const QObject &component) {
  return component.findChild<ComponentSheet *>(QString(), Qt::FindDirectChildrenOnly);
}

ComponentSheet::ComponentSheet(QObject &component, QDesignerPropertySheetExtension &own,
                               QDesignerDynamicPropertySheetExtension &dynamic)
    : QObject(&component), m_own(own), m_dynamic(dynamic), m_isWidget(IsWidget(component)) {
  const QMetaObject &type = *component.metaObject();
  for (int i = 0; i < own.count(); ++i) {
    m_places.push_back(i);
    const QString name = own.propertyName(i);
    const int property = type.indexOfProperty(name.toLatin1().constData());
    QObject *part = property < type.propertyOffset() ? nullptr : PartOf(component, type.property(property));
    if (part) AddPart(name, *part);
  }
}

void ComponentSheet::AddPart(const QString &name, QObject &part) {
  const QMetaObject &type = *part.metaObject();
  for (int i = type.propertyOffset(); i < type.propertyCount(); ++i) {
    const QMetaProperty property = type.property(i);
    if (!property.isDesignable()) continue;
    m_rows.push_back({name, property, &part, property.read(&part)});
    m_places.push_back(-int(m_rows.size()));
  }
}

QVariant ComponentSheet::Row::Read() const {
  const QVariant value = property.read(part);
  return property.isEnumType() ? QByteArray(property.enumerator().valueToKey(value.toInt())) : value;
}

const ComponentSheet::Row *ComponentSheet::RowAt(int index) const {
  const bool isRow = index >= 0 && index < int(m_places.size()) && m_places[std::size_t(index)] < 0;
  return isRow ? &m_rows[std::size_t(-m_places[std::size_t(index)] - 1)] : nullptr;
}

int ComponentSheet::ToOwn(int index) const {
  const bool isFixed = index >= 0 && index < int(m_places.size());
  return isFixed ? m_places[std::size_t(index)] : index - int(m_rows.size());
}

int ComponentSheet::FromOwn(int index) const {
  const auto place = std::ranges::find(m_places, index);
  return place == m_places.end() ? index + int(m_rows.size()) : int(place - m_places.begin());
}

int ComponentSheet::indexOf(const QString &name) const {
  const auto row = std::ranges::find(m_rows, name, &Row::GetName);
  if (row != m_rows.end()) return FromOwn(-1 - int(row - m_rows.begin()));
  const int own = m_own.indexOf(name);
  return own < 0 ? -1 : FromOwn(own);
}

QStringList ComponentSheet::GetChoices(const QString &name) const {
  QStringList choices;
  const auto row = std::ranges::find(m_rows, name, &Row::GetName);
  if (row == m_rows.end() || !row->property.isEnumType()) return choices;
  const QMetaEnum values = row->property.enumerator();
  for (int i = 0; i < values.keyCount(); ++i) choices << QString::fromLatin1(values.key(i));
  return choices;
}

QString ComponentSheet::propertyName(int index) const {
  const Row *row = RowAt(index);
  return row ? row->GetName() : m_own.propertyName(ToOwn(index));
}

QString ComponentSheet::propertyGroup(int index) const {
  const Row *row = RowAt(index);
  return row ? row->group : m_own.propertyGroup(ToOwn(index));
}

void ComponentSheet::setPropertyGroup(int index, const QString &group) {
  if (RowAt(index) == nullptr) m_own.setPropertyGroup(ToOwn(index), group);
}

bool ComponentSheet::hasReset(int index) const {
  return RowAt(index) != nullptr || m_own.hasReset(ToOwn(index));
}

bool ComponentSheet::reset(int index) {
  Row *row = RowAt(index);
  if (row == nullptr) return m_own.reset(ToOwn(index));
  row->isChanged = false;
  return row->property.write(row->part, row->initial);
}

bool ComponentSheet::isVisible(int index) const {
  if (RowAt(index)) return true;
  const bool isOfWidget = m_own.propertyGroup(ToOwn(index)) == QLatin1String(QWidget::staticMetaObject.className());
  return (m_isWidget || !isOfWidget) && m_own.isVisible(ToOwn(index));
}

void ComponentSheet::setVisible(int index, bool visible) {
  if (RowAt(index) == nullptr) m_own.setVisible(ToOwn(index), visible);
}

bool ComponentSheet::isAttribute(int index) const {
  return RowAt(index) == nullptr && m_own.isAttribute(ToOwn(index));
}

void ComponentSheet::setAttribute(int index, bool attribute) {
  if (RowAt(index) == nullptr) m_own.setAttribute(ToOwn(index), attribute);
}

QVariant ComponentSheet::property(int index) const {
  const Row *row = RowAt(index);
  return row ? row->Read() : m_own.property(ToOwn(index));
}

void ComponentSheet::setProperty(int index, const QVariant &value) {
  if (const Row *row = RowAt(index)) {
    row->property.write(row->part, value);
  } else {
    m_own.setProperty(ToOwn(index), value);
  }
}

bool ComponentSheet::isChanged(int index) const {
  const Row *row = RowAt(index);
  return row ? row->isChanged : m_own.isChanged(ToOwn(index));
}

void ComponentSheet::setChanged(int index, bool changed) {
  if (Row *row = RowAt(index)) {
    row->isChanged = changed;
  } else {
    m_own.setChanged(ToOwn(index), changed);
  }
}

bool ComponentSheet::isEnabled(int index) const {
  return RowAt(index) != nullptr || m_own.isEnabled(ToOwn(index));
}

int ComponentSheet::addDynamicProperty(const QString &name, const QVariant &value) {
  const int index = indexOf(name);
  if (RowAt(index)) {
    setProperty(index, value);
    setChanged(index, true);
    return index;
  }
  const int own = m_dynamic.addDynamicProperty(name, value);
  return own < 0 ? -1 : FromOwn(own);
}

bool ComponentSheet::removeDynamicProperty(int index) {
  return RowAt(index) ? reset(index) : m_dynamic.removeDynamicProperty(ToOwn(index));
}

bool ComponentSheet::isDynamicProperty(int index) const {
  const Row *row = RowAt(index);
  return row ? row->isChanged : m_dynamic.isDynamicProperty(ToOwn(index));
}

bool ComponentSheet::canAddDynamicProperty(const QString &name) const {
  return RowAt(indexOf(name)) == nullptr && m_dynamic.canAddDynamicProperty(name);
}

ComponentSheetFactory::ComponentSheetFactory(QExtensionManager &manager) : QExtensionFactory(&manager) {
  manager.registerExtensions(this, Q_TYPEID(QDesignerPropertySheetExtension));
  manager.registerExtensions(this, Q_TYPEID(QDesignerDynamicPropertySheetExtension));
}

QObject *ComponentSheetFactory::createExtension(QObject *object, const QString & /*iid*/, QObject * /*parent*/) const {
  if (m_isAskingOthers || FindComponent(*object) == nullptr) return nullptr;
  if (IsWidget(*object) && !HasParts(*object)) return nullptr;
  // One sheet serves for both interfaces.
  if (ComponentSheet *made = ComponentSheet::Find(*object)) return made;
  const QScopedValueRollback<bool> guard(m_isAskingOthers, true);
  auto *own = qt_extension<QDesignerPropertySheetExtension *>(extensionManager(), object);
  auto *dynamic = qt_extension<QDesignerDynamicPropertySheetExtension *>(extensionManager(), object);
  return own && dynamic ? new ComponentSheet(*object, *own, *dynamic) : nullptr;
}

}  // namespace tessera::designer
