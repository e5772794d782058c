// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/base/GuardedCall.h>
#include <tessera/map/ObjectWords.h>
#include <tessera/map/detail/MapChildrenAccessible.h>

#include <QPointer>

namespace tessera::detail {
namespace {

QString LabelOf(const TCustomMapObject &object, const TMapLayer &layer) {
  const int field = layer.GetLabelFieldIndex();
  const TDataFields &fields = object.GetFields();
  if (field < 0 || field >= fields.GetCount()) return {};
  return ShownText(fields.GetFields(field));
}

}  // namespace

bool LayerAccessible::isValid() const {
  return m_layer && Map().GetMap() && m_layer->GetMapHost() == Map().GetMap();
}

QAccessibleInterface *LayerAccessible::parent() const {
  return Map().GetMap() ? QAccessible::queryAccessibleInterface(Map().GetMap()) : nullptr;
}

int LayerAccessible::childCount() const {
  return isValid() ? int(Map().DisplayedOf(*m_layer.Get()).size()) : 0;
}

QAccessibleInterface *LayerAccessible::child(int index) const {
  if (index < 0 || index >= childCount()) return nullptr;
  TCustomMapObject *object = Map().DisplayedOf(*m_layer.Get())[std::size_t(index)].Get();
  return object ? Map().InterfaceOf(*object) : nullptr;
}

int LayerAccessible::indexOfChild(const QAccessibleInterface *child) const {
  const int count = childCount();
  for (int i = 0; i < count; ++i) {
    const auto &object = Map().DisplayedOf(*m_layer.Get())[std::size_t(i)];
    if (object && Map().InterfaceOf(*object.Get()) == child) return i;
  }
  return -1;
}

QAccessibleInterface *LayerAccessible::childAt(int x, int y) const {
  QAccessibleInterface *hit = Map().childAt(x, y);
  return hit && hit->parent() == this ? hit : nullptr;
}

QString LayerAccessible::text(QAccessible::Text kind) const {
  return isValid() && kind == QAccessible::Name ? m_layer->GetName() : QString();
}

QRect LayerAccessible::rect() const {
  return Map().rect();
}

QAccessible::State LayerAccessible::state() const {
  QAccessible::State state;
  state.invalid = !isValid();
  if (state.invalid) return state;
  state.invisible = !m_layer->GetVisible();
  state.editable = m_layer->GetEditable();
  state.readOnly = !m_layer->GetEditable();
  return state;
}

TMapLayer *ObjectAccessible::GetLayer() const {
  return m_object ? m_object->GetLayer<TMapLayer>() : nullptr;
}

bool ObjectAccessible::isValid() const {
  return GetLayer() && Map().GetMap() && m_object->GetMapHost() == Map().GetMap();
}

QAccessibleInterface *ObjectAccessible::parent() const {
  return GetLayer() ? Map().InterfaceOf(*GetLayer()) : nullptr;
}

QString ObjectAccessible::text(QAccessible::Text kind) const {
  const TMapLayer *layer = GetLayer();
  if (layer == nullptr || !isValid()) return {};
  if (kind == QAccessible::Description) return KindName(*m_object.Get());
  if (kind != QAccessible::Name) return {};
  const QString label = LabelOf(*m_object.Get(), *layer);
  return label.isEmpty() ? KindName(*m_object.Get()) : label;
}

QRect ObjectAccessible::rect() const {
  if (!isValid() || m_object->GetBounds().IsInverted()) return {};
  const TTessera &map = *Map().GetMap();
  const TBounds bounds = m_object->GetBounds();
  try {
    const TViewport &viewport = map.GetViewport();
    const QPoint topLeft = viewport.MapToScreen(bounds.MinX, bounds.MaxY);
    const QPoint bottomRight = viewport.MapToScreen(bounds.MaxX, bounds.MinY);
    const QRect shown = QRect(topLeft, bottomRight) & map.rect();
    return {map.mapToGlobal(shown.topLeft()), shown.size()};
  } catch (const EZeroDivide &) {
    return {};
  }
}

QAccessible::State ObjectAccessible::state() const {
  QAccessible::State state;
  state.invalid = !isValid();
  if (state.invalid) return state;
  state.selectable = GetLayer()->GetSelectable();
  state.extSelectable = state.selectable;
  state.multiSelectable = state.selectable;
  state.selected = m_object->GetSelected();
  state.offscreen = rect().isEmpty();
  return state;
}

void *ObjectAccessible::interface_cast(QAccessible::InterfaceType type) {
  return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface *>(this) : nullptr;
}

QStringList ObjectAccessible::actionNames() const {
  const bool isSelectable = isValid() && GetLayer()->GetSelectable();
  return isSelectable ? QStringList{pressAction(), toggleAction()} : QStringList();
}

void ObjectAccessible::doAction(const QString &name) {
  if (!actionNames().contains(name)) return;
  const QPointer<TTessera> map = Map().GetMap();
  const THandle<TCustomMapObject> object = m_object;
  const bool isAlone = name == pressAction();
  const bool wasSelected = object->GetSelected();
  GuardedCall([&] {
    // Handlers may destroy anything, this interface too.
    if (isAlone) map->GetSelection()->Clear();
    if (!map || !object || object->GetMapHost() != map) return;
    if (isAlone || !wasSelected) {
      map->GetSelection()->Add(object.Get(), false);
    } else {
      map->GetSelection()->Remove(object.Get());
    }
  });
}

}  // namespace tessera::detail
