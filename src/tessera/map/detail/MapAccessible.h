// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/THandle.h>
#include <tessera/map/TTessera.h>

#include <QAccessibleWidget>
#include <QPointer>

#include <unordered_map>
#include <vector>

namespace tessera::detail {

/// Lets Qt make a MapAccessible for every map control, and for nothing else. To be called by every map; only the first
/// call does anything.
void InstallMapAccessibility();

/// A map as screen readers see it: a canvas whose children are the layers, whose children are their objects in the
/// picture that the map shows.
///
/// Children are made when they are asked for, and belong to the map. One whose layer or object is gone is not valid any
/// more.
class MapAccessible : public QAccessibleWidget {
 public:
  explicit MapAccessible(TTessera &map);
  ~MapAccessible() override;

  /// Whether the map is still whole, though Qt may ask about it until its very end.
  [[nodiscard]] bool isValid() const override;
  [[nodiscard]] int childCount() const override;
  [[nodiscard]] QAccessibleInterface *child(int index) const override;
  [[nodiscard]] int indexOfChild(const QAccessibleInterface *child) const override;
  /// The object of the topmost layer at a point of the screen.
  [[nodiscard]] QAccessibleInterface *childAt(int x, int y) const override;
  [[nodiscard]] QString text(QAccessible::Text kind) const override;

  // For the children.

  /// None when the map is being destroyed.
  [[nodiscard]] TTessera *GetMap() const { return m_isWhole ? m_map : nullptr; }
  /// The objects of a layer in the picture, in their order. Some may be gone.
  using Handles = std::vector<THandle<TCustomMapObject>>;
  [[nodiscard]] const Handles &DisplayedOf(const TMapLayer &layer) const;
  [[nodiscard]] QAccessibleInterface *InterfaceOf(TMapLayer &layer) const;
  [[nodiscard]] QAccessibleInterface *InterfaceOf(TCustomMapObject &object) const;

 private:
  /// The interface of something that may go, and whose address may then be another's.
  struct Child {
    THandle<TObject> subject;
    QAccessible::Id id = 0;
  };
  template <class Interface, class Subject>
  QAccessibleInterface *FindOrMake(Subject &subject) const;
  /// None while and after they are destroyed with the map.
  [[nodiscard]] TMapLayers *GetLayers() const { return GetMap() ? m_map->GetLayers() : nullptr; }
  [[nodiscard]] int GetLayerCount() const { return GetLayers() ? GetLayers()->GetCount() : 0; }
  /// Takes note of what is displayed, if that may have changed.
  void ReadDisplayed() const;
  void ForgetGoneChildren() const;

  TTessera *m_map;
  QPointer<QObject> m_isWhole;  ///< A part of the map, which goes with the others.
  QObject m_connections;        ///< Of what follows the map's signals.
  mutable std::unordered_map<const TObject *, Child> m_children;
  mutable std::unordered_map<const TObjectLayer *, Handles> m_displayed;
  mutable int m_displayedCount = -1;  ///< How many objects were displayed when they were read; -1 to read them anew.
};

}  // namespace tessera::detail
