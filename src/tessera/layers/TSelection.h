// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/objects/TMapObjectsList.h>

#include <unordered_map>

namespace tessera {

/// The selected objects of a map, in order. Owns none of them.
///
/// With the map's FastSelection on, and outside a batch of updates, a change draws the object's highlight on the screen
/// at once, XORed, so that the second time takes it away; otherwise it asks the map for a new picture.
class TESSERA_CORE_EXPORT TSelection : public TMapObjectsList {
 public:
  /// Selects an object. One that is selected already changes nothing, not even with `clearFirst`.
  void Add(TCustomMapObject *object, bool clearFirst);
  /// Enters an object before `index`, even one that is there already. No event follows. @throws ERangeError beyond the
  /// count.
  void Insert(TCustomMapObject *object, int index, bool clearFirst);
  /// @throws ERangeError outside the count.
  void Delete(int index);
  /// Deselects a member; OnDelSelection comes twice, which is intended. Any other object is ignored.
  void Remove(TCustomMapObject *object);
  /// Removes every member, from the last to the first; silently while the map cannot be painted.
  void Clear();
  /// Deselects the objects of a layer, from the last to the first, with one repaint at the most.
  void RemoveLayer(const TObjectLayer *layer);
  /// Draws every member's highlight, with FastSelection on.
  void Paint();
  /// Brings all members into view, in the middle of the control. Members that share one point are centred at the
  /// present zoom; without any member nothing happens.
  void Zoom();
  /// The bounds of the vertices of all members; inverted without any.
  [[nodiscard]] TBounds GetVertexBounds() const;
  /// Whether the object is a member. Costs the same however many there are.
  [[nodiscard]] bool Holds(const TCustomMapObject *object) const { return m_members.contains(object); }
  void SetItem(int index, TCustomMapObject *object) override;

 private:
  [[nodiscard]] bool IsFast() const;
  /// First position of a member.
  [[nodiscard]] int PositionOf(const TCustomMapObject *object) const;
  void Enter(TCustomMapObject *object) { ++m_members[object]; }
  void Leave(const TCustomMapObject *object);

  std::unordered_map<const TCustomMapObject *, int> m_members;  // object -> how often it is in the list
};

}  // namespace tessera
