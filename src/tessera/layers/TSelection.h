// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/objects/TMapObjectsList.h>

#include <unordered_map>

namespace tessera {

/// The selected objects of a map, in order. Owns none of them. Deselecting costs the same however many there are.
///
/// With the map's FastSelection on, and outside a batch of updates, a change draws the object's highlight on the screen
/// at once, XORed, so that the second time takes it away; otherwise it asks the map for a new picture. Without a map it
/// is a mere list.
class TESSERA_CORE_EXPORT TSelection : public TObjectSelection {
 public:
  /// Selects an object. One that is selected already changes nothing, not even with `clearFirst`.
  void Add(TCustomMapObject *object, bool clearFirst);
  void Add(TCustomMapObject *object) override { Add(object, false); }
  /// Enters an object before `index`, even one that is there already. No event follows. @throws ERangeError beyond the
  /// count.
  void Insert(TCustomMapObject *object, int index, bool clearFirst);
  void Insert(int index, TCustomMapObject *object) override { Insert(object, index, false); }
  /// @throws ERangeError outside the count.
  void Delete(int index) override;
  /// Deselects a member; OnDelSelection comes twice, which is intended. Any other object is ignored.
  void Remove(TCustomMapObject *object) override;
  /// Removes every member, from the last to the first; silently while the map cannot be painted. What handlers select
  /// meanwhile is taken out as well, without an event.
  void Clear() override;
  /// Deselects the objects of a layer, from the last to the first, with one repaint at the most.
  void RemoveLayer(const TObjectLayer *layer) override;
  /// Draws every member's highlight, with FastSelection on.
  void Paint();
  /// Brings all members into view, in the middle of the control. Members that share one point are centred at the
  /// present zoom; without any member nothing happens.
  void Zoom();
  /// The bounds of the vertices of all members; inverted without any.
  [[nodiscard]] TBounds GetVertexBounds() const;
  [[nodiscard]] bool Holds(const TCustomMapObject *object) const override { return m_members.contains(object); }
  void SetItem(int index, TCustomMapObject *object) override;

  void SelectAlone(TCustomMapObject &object) override { Add(&object, true); }
  void Leave(TCustomMapObject &object) override;
  void Forget(const TCustomMapObject &object) override;

 protected:
  [[nodiscard]] std::size_t SlotOf(const TCustomMapObject *object) const override;
  void NoteSlot(TCustomMapObject *object, std::size_t slot) const override;

 private:
  struct Member {
    int entries = 0;
    mutable std::size_t slot = 0;  // of its entry, when it has just one
  };
  /// The members, the last first.
  [[nodiscard]] std::vector<TCustomMapObject *> Backwards() const;
  [[nodiscard]] bool IsFast() const;
  void DrawOrUpdate(TCustomMapObject &object);
  /// Takes out an entry and tells of it once.
  void TakeOut(std::size_t slot);
  void Left(const TCustomMapObject *object);
  void ForgetAll();

  std::unordered_map<const TCustomMapObject *, Member> m_members;
};

}  // namespace tessera
