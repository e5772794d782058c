// SPDX-License-Identifier: MIT
#include <designer/ComponentSheet.h>
#include <designer/Components.h>
#include <designer/FormFollower.h>
#include <designer/PropertyChoices.h>
#include <tessera/map/TTessera.h>

#include <QDesignerFormWindowManagerInterface>
#include <QDesignerPropertyEditorInterface>
#include <QExtensionManager>

#include <algorithm>
#include <utility>

namespace tessera::designer {
namespace {

/// All that stands on a form, also in containers, but not what was deleted and may come back.
template <class Kind>
QList<Kind *> AllOn(const QDesignerFormWindowInterface &form) {
  QList<Kind *> found = form.mainContainer() ? form.mainContainer()->findChildren<Kind *>() : QList<Kind *>();
  found.removeIf([&](Kind *widget) { return !form.isManaged(widget); });
  return found;
}

QDesignerPropertySheetExtension &SheetOf(const QDesignerFormWindowInterface &form, QWidget &widget) {
  return *qt_extension<QDesignerPropertySheetExtension *>(form.core()->extensionManager(), &widget);
}

/// The property of a component that names its map; nullptr when there is none.
const char *MapPropertyOf(const QWidget &widget) {
  const Component *component = FindComponent(widget);
  return component ? component->mapProperty : nullptr;
}

}  // namespace

QStringList GetMapNames(QDesignerFormWindowInterface &form) {
  QStringList names;
  for (const TTessera *map : AllOn<TTessera>(form)) names << map->objectName();
  return names;
}

void FormFollower::Install(QDesignerFormEditorInterface &core) {
  if (core.findChild<PropertyChoices *>()) return;
  new PropertyChoices(core);
  new ComponentSheetFactory(*core.extensionManager());
  connect(core.formWindowManager(), &QDesignerFormWindowManagerInterface::formWindowAdded, &core,
          [](QDesignerFormWindowInterface *form) { new FormFollower(*form); });
}

FormFollower::FormFollower(QDesignerFormWindowInterface &form) : QObject(&form), m_form(form) {
  connect(&form, &QDesignerFormWindowInterface::widgetManaged, this, &FormFollower::Managed);
  connect(&form, &QDesignerFormWindowInterface::mainContainerChanged, this, [this] { m_new.clear(); });
}

void FormFollower::Managed(QWidget *widget) {
  if (FindComponent(*widget) == nullptr) return;
  // Its properties come after it.
  if (m_new.isEmpty()) QMetaObject::invokeMethod(this, &FormFollower::LinkNew, Qt::QueuedConnection);
  m_new << widget;
  if (qobject_cast<TTessera *>(widget) == nullptr || m_names.contains(widget)) return;
  m_names[widget] = widget->objectName();
  connect(widget, &QObject::objectNameChanged, this, [this, widget](const QString &name) {
    const QString before = std::exchange(m_names[widget], name);
    if (m_form.isManaged(widget) && !before.isEmpty()) Rename(before, name);
  });
  connect(widget, &QObject::destroyed, this, [this, widget] { m_names.remove(widget); });
}

void FormFollower::Rename(const QString &before, const QString &after) {
  for (QWidget *widget : AllOn<QWidget>(m_form)) {
    const char *property = MapPropertyOf(*widget);
    if (property && widget->property(property).toByteArray() == before.toUtf8()) {
      widget->setProperty(property, after.toUtf8());
    }
  }
}

void FormFollower::LinkNew() {
  const QList<QPointer<QWidget>> newOnes = std::exchange(m_new, {});
  const QStringList maps = GetMapNames(m_form);
  if (maps.size() != 1) return;
  const bool isMapNew = std::ranges::any_of(newOnes, [](QWidget *widget) { return qobject_cast<TTessera *>(widget); });
  for (QWidget *widget : AllOn<QWidget>(m_form)) {
    const char *property = MapPropertyOf(*widget);
    if (property == nullptr || (!isMapNew && !newOnes.contains(widget))) continue;
    if (widget->property(property).toByteArray() != maps.first().toUtf8()) LinkTo(maps.first(), *widget);
  }
}

void FormFollower::LinkTo(const QString &map, QWidget &companion) {
  const QString property = QString::fromLatin1(MapPropertyOf(companion));
  QDesignerPropertySheetExtension &sheet = SheetOf(m_form, companion);
  const int index = sheet.indexOf(property);
  sheet.setProperty(index, map.toUtf8());
  sheet.setChanged(index, true);
  m_form.setDirty(true);
  QDesignerPropertyEditorInterface *editor = m_form.core()->propertyEditor();
  if (editor && editor->object() == &companion) editor->setPropertyValue(property, map.toUtf8(), true);
}

}  // namespace tessera::designer
