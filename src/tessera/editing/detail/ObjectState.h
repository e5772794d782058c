// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/THandle.h>
#include <tessera/editing/TMapEdits.h>
#include <tessera/objects/TCustomMapObject.h>

#include <memory>
#include <optional>

namespace tessera::detail {

/// Whether other values in these aspects of an object change the picture of the map.
[[nodiscard]] bool IsSeen(const TCustomMapObject &object, TObjectAspects aspects);

/// Tells the links of a layer's map that the geometry of an object has changed.
void TellOfGeometry(TCustomMapObject &object);

/// Some aspects of an object as they once were. Vertices are exchanged for those of the object, tools are shared with
/// it, so that only what an edit changes in place is ever copied.
class ObjectState {
 public:
  /// A copy of the present state.
  ObjectState(TCustomMapObject &object, TObjectAspects aspects);
  /// Keeps the present vertices and gives the object others, instead of which the list is left empty.
  ObjectState(TCustomMapObject &object, TParts &parts);

  /// Whether the object is there and Exchange changes the picture of the map.
  [[nodiscard]] bool IsSeen() const { return m_object && detail::IsSeen(*m_object.Get(), m_aspects); }
  /// Gives the object this state and keeps its own instead. Links are told of what has changed; what handlers throw
  /// goes on afterwards. False when the object is gone.
  bool Exchange();
  /// Tells links that the geometry has changed, if it is among the aspects.
  void TellOfGeometry();

 private:
  void ExchangeStyle();
  void ExchangeValues();

  THandle<TCustomMapObject> m_object;
  TObjectAspects m_aspects;
  std::optional<TObjectStylePtr> m_style;
  std::unique_ptr<TCustomMapObject> m_geometry;  // only its parts count
  std::unique_ptr<TObjectTraits> m_traits;
  std::optional<TDataFields> m_values;
};

}  // namespace tessera::detail
