// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/objects/TCustomMapObject.h>

#include <span>
#include <vector>

namespace tessera {

/// An ordered list of map objects that does not own them. An object that is destroyed leaves the selection and the
/// displayed objects of its map; any other list is not told.
class TESSERA_CORE_EXPORT TMapObjectsList : public TObject, public TMapMember {
 public:
  TMapObjectsList() = default;
  ~TMapObjectsList() override;

  [[nodiscard]] int GetCount() const { return int(Items().size()); }
  /// None outside the count.
  [[nodiscard]] TCustomMapObject *GetItem(int index) const;
  /// @throws ERangeError outside the count.
  virtual void SetItem(int index, TCustomMapObject *object);
  [[nodiscard]] std::span<TCustomMapObject *const> Items() const;
  /// @throws ERangeError on an empty list; so does Last.
  [[nodiscard]] TCustomMapObject *First() const;
  [[nodiscard]] TCustomMapObject *Last() const;
  /// First position of the object; -1 when it is not there.
  [[nodiscard]] int IndexOf(const TCustomMapObject *object) const;
  [[nodiscard]] virtual bool Holds(const TCustomMapObject *object) const { return SlotOf(object) != NoSlot; }

  /// Appends an object.
  virtual void Add(TCustomMapObject *object);
  /// Inserts an object before `index`. @throws ERangeError beyond the count.
  virtual void Insert(int index, TCustomMapObject *object);
  /// @throws ERangeError outside the count; so do Exchange and Move.
  virtual void Delete(int index);
  /// Takes out the first entry of the object; nothing when there is none.
  virtual void Remove(TCustomMapObject *object);
  void Exchange(int i, int j);
  /// Moves an entry so that it stands at `newIndex`.
  void Move(int curIndex, int newIndex);
  virtual void Clear();

  void SetMap(TMapHost *map) { StoreMap(map); }

 protected:
  // An entry that is taken out leaves a gap, which is closed when the list is next looked at. So taking out many costs
  // what they are, not what the list holds.
  static constexpr std::size_t NoSlot = SIZE_MAX;
  /// Where the first entry of the object stands among entries and gaps.
  [[nodiscard]] virtual std::size_t SlotOf(const TCustomMapObject *object) const;
  /// An entry of the object now stands in this slot.
  virtual void NoteSlot(TCustomMapObject *object, std::size_t slot) const;
  [[nodiscard]] TCustomMapObject *AtSlot(std::size_t slot) const {
    return slot < m_items.size() ? m_items[slot] : nullptr;
  }
  /// Enters what still waits to be entered.
  virtual void Settle() const {}
  void Vacate(std::size_t slot);
  void CloseGaps() const;
  void Empty();

 private:
  void NoteSlotsFrom(std::size_t slot) const;
  [[nodiscard]] std::size_t Checked(int index) const;

  mutable std::vector<TCustomMapObject *> m_items;
  mutable std::size_t m_gaps = 0;
};

/// The selection of a map as objects and layers see it.
class TESSERA_CORE_EXPORT TObjectSelection : public TMapObjectsList {
 public:
  /// Makes the object the only selected one, unless it is selected already.
  virtual void SelectAlone(TCustomMapObject &object) = 0;
  /// Deselects every entry of the object.
  virtual void Leave(TCustomMapObject &object) = 0;
  /// Takes out every entry of the object without a word, for one that is being destroyed.
  virtual void Forget(const TCustomMapObject &object) = 0;
  /// Deselects the objects of a layer.
  virtual void RemoveLayer(const TObjectLayer *layer) = 0;
};

/// The objects of the current picture, each once, in the order in which they were first drawn. An object belongs to the
/// displayed objects of one map at a time. Entering, finding and taking out an object cost the same however many there
/// are.
///
/// While a picture is made, objects are only noted, which does not touch them; they are entered when somebody looks.
class TESSERA_CORE_EXPORT TDisplayedObjects : public TMapObjectsList {
 public:
  /// Enters an object unless it is there already; so does Insert.
  void Add(TCustomMapObject *object) override;
  void Insert(int index, TCustomMapObject *object) override;
  void Clear() override;

 protected:
  [[nodiscard]] std::size_t SlotOf(const TCustomMapObject *object) const override;
  void NoteSlot(TCustomMapObject *object, std::size_t slot) const override;
  void Settle() const override;

 private:
  mutable std::vector<TCustomMapObject *> m_noted;  // to be entered; some may be there already
};

}  // namespace tessera
