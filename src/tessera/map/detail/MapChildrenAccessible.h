// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/map/detail/MapAccessible.h>

#include <QAccessible>

namespace tessera::detail {

/// What layers and objects have in common for screen readers. Belongs to the map's interface.
class MapChildAccessible : public QAccessibleInterface {
 public:
  explicit MapChildAccessible(const MapAccessible &map) : m_map(map) {}

  [[nodiscard]] QObject *object() const override { return nullptr; }
  [[nodiscard]] QWindow *window() const override { return m_map.window(); }
  void setText(QAccessible::Text /*kind*/, const QString & /*text*/) override {}

 protected:
  [[nodiscard]] const MapAccessible &Map() const { return m_map; }

 private:
  const MapAccessible &m_map;
};

/// A layer: a list of its objects in the picture.
class LayerAccessible : public MapChildAccessible {
 public:
  LayerAccessible(const MapAccessible &map, TMapLayer &layer) : MapChildAccessible(map), m_layer(&layer) {}

  [[nodiscard]] bool isValid() const override;
  [[nodiscard]] QAccessibleInterface *parent() const override;
  [[nodiscard]] int childCount() const override;
  [[nodiscard]] QAccessibleInterface *child(int index) const override;
  [[nodiscard]] int indexOfChild(const QAccessibleInterface *child) const override;
  [[nodiscard]] QAccessibleInterface *childAt(int x, int y) const override;
  [[nodiscard]] QString text(QAccessible::Text kind) const override;
  [[nodiscard]] QRect rect() const override;
  [[nodiscard]] QAccessible::Role role() const override { return QAccessible::List; }
  [[nodiscard]] QAccessible::State state() const override;

 private:
  THandle<TMapLayer> m_layer;
};

/// An object: its name is the text of its layer's label field, or else its kind, which is its description. Pressing it
/// makes it the only selected object, toggling it selects or deselects it.
class ObjectAccessible : public MapChildAccessible, public QAccessibleActionInterface {
 public:
  ObjectAccessible(const MapAccessible &map, TCustomMapObject &object) : MapChildAccessible(map), m_object(&object) {}

  [[nodiscard]] bool isValid() const override;
  [[nodiscard]] QAccessibleInterface *parent() const override;
  [[nodiscard]] int childCount() const override { return 0; }
  [[nodiscard]] QAccessibleInterface *child(int /*index*/) const override { return nullptr; }
  [[nodiscard]] int indexOfChild(const QAccessibleInterface * /*child*/) const override { return -1; }
  [[nodiscard]] QAccessibleInterface *childAt(int /*x*/, int /*y*/) const override { return nullptr; }
  [[nodiscard]] QString text(QAccessible::Text kind) const override;
  /// The bounds on the screen, as far as they lie in the map.
  [[nodiscard]] QRect rect() const override;
  [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ListItem; }
  [[nodiscard]] QAccessible::State state() const override;
  void *interface_cast(QAccessible::InterfaceType type) override;

  [[nodiscard]] QStringList actionNames() const override;
  void doAction(const QString &name) override;
  [[nodiscard]] QStringList keyBindingsForAction(const QString & /*name*/) const override { return {}; }

 private:
  [[nodiscard]] TMapLayer *GetLayer() const;
  THandle<TCustomMapObject> m_object;
};

}  // namespace tessera::detail
