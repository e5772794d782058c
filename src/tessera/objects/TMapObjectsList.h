// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/objects/TCustomMapObject.h>

#include <span>
#include <vector>

namespace tessera {

/// An ordered list of map objects that does not own them.
class TESSERA_CORE_EXPORT TMapObjectsList {
 public:
  TMapObjectsList() = default;
  virtual ~TMapObjectsList();
  TMapObjectsList(const TMapObjectsList &) = delete;
  TMapObjectsList &operator=(const TMapObjectsList &) = delete;

  [[nodiscard]] int GetCount() const { return int(m_items.size()); }
  /// None outside the count.
  [[nodiscard]] TCustomMapObject *GetItem(int index) const;
  /// @throws ERangeError outside the count.
  virtual void SetItem(int index, TCustomMapObject *object);
  [[nodiscard]] std::span<TCustomMapObject *const> Items() const { return m_items; }
  /// First position of the object; -1 when it is not there.
  [[nodiscard]] int IndexOf(const TCustomMapObject *object) const;

  [[nodiscard]] TMapHost *GetMapHost() const { return m_map; }
  void SetMap(TMapHost *map) { m_map = map; }

 protected:
  std::vector<TCustomMapObject *> m_items;

 private:
  TMapHost *m_map = nullptr;
};

/// The objects of the current picture, each once, in the order in which they were first drawn. An object belongs to the
/// displayed objects of one map at a time. Entering, finding and taking out an object cost the same however many there
/// are.
class TESSERA_CORE_EXPORT TDisplayedObjects {
 public:
  TDisplayedObjects() = default;
  TDisplayedObjects(const TDisplayedObjects &) = delete;
  TDisplayedObjects &operator=(const TDisplayedObjects &) = delete;

  [[nodiscard]] int GetCount() const { return int(Items().size()); }
  /// None outside the count.
  [[nodiscard]] TCustomMapObject *GetItem(int index) const;
  [[nodiscard]] std::span<TCustomMapObject *const> Items() const;
  /// Enters an object unless it is there already.
  void Add(TCustomMapObject &object);
  void Remove(TCustomMapObject &object);
  void Clear();
  [[nodiscard]] bool Holds(const TCustomMapObject &object) const;

 private:
  void CloseGaps() const;

  // An object knows its place here; one that was taken out leaves a gap until the list is next looked at.
  mutable std::vector<TCustomMapObject *> m_items;
  mutable bool m_hasGaps = false;
};

}  // namespace tessera
