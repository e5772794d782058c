// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/objects/TMapPoints.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tessera {

namespace detail {
class ObjectStore;
}

/// One part of an object: an open or closed chain of vertices. Parts are made by TParts only.
class TESSERA_CORE_EXPORT TPart {
 public:
  TPart(TPart &&) noexcept = default;
  TPart &operator=(TPart &&) noexcept = default;

  [[nodiscard]] TMapPoints &GetPoints() { return m_points; }
  [[nodiscard]] const TMapPoints &GetPoints() const { return m_points; }
  /// Exchanges the vertices for those of a list. The bounds of the object stay as they are.
  void SetPoints(TMapPoints &&points);
  /// Replaces the vertices by copies of those of `source`.
  void Assign(const TPart &source);

 private:
  friend class TParts;
  /// The only part, in the place for it.
  TPart() { m_points.SetOnly(); }
  /// One of several.
  explicit TPart(TParts *owner) { m_points.SetOwner(owner); }
  TMapPoints m_points;
};

/// The parts of an object and its bounds in map units. Only objects have them.
///
/// Every vertex added to any part widens the bounds; nothing shrinks them but TCustomMapObject::UpdateBounds.
/// A single part is held in place, several in an array: references to parts are valid until a part is added or deleted.
/// The bounds of a single vertex need no memory.
class TESSERA_CORE_EXPORT TParts {
 public:
  TParts(const TParts &) = delete;
  TParts &operator=(const TParts &) = delete;

  /// Appends an empty part.
  TPart &Add();
  /// Inserts an empty part before `index`. @throws ERangeError beyond the count.
  TPart &Insert(int index);
  /// @throws ERangeError outside the count.
  void Delete(int index);
  /// Takes out all parts; the bounds stay.
  void Clear();
  /// Replaces parts and bounds by copies of those of `source`.
  void Assign(const TParts &source);
  /// Exchanges parts and bounds with another list.
  void Swap(TParts &other);

  [[nodiscard]] int GetCount() const { return int(Items().size()); }
  [[nodiscard]] std::span<TPart> Items();
  [[nodiscard]] std::span<const TPart> Items() const;
  /// @throws ERangeError outside the count.
  [[nodiscard]] TPart &GetItems(int index);
  [[nodiscard]] const TPart &GetItems(int index) const;
  void SetItems(int index, const TPart &part) { GetItems(index).Assign(part); }
  [[nodiscard]] TPart &GetFirst() { return GetItems(0); }
  [[nodiscard]] const TPart &GetFirst() const { return GetItems(0); }
  [[nodiscard]] TPart &GetLast() { return GetItems(GetCount() - 1); }
  [[nodiscard]] const TPart &GetLast() const { return GetItems(GetCount() - 1); }
  void SetFirst(const TPart &part) { GetFirst().Assign(part); }
  void SetLast(const TPart &part) { GetLast().Assign(part); }

  /// Widens the bounds with a point that was added to one of the parts.
  void AddPoint(double x, double y, double z);
  void AddBounds(const TBounds &bounds);
  [[nodiscard]] TBounds GetBounds() const;
  void SetBounds(const TBounds &bounds);
  [[nodiscard]] double GetMinX() const { return GetBounds().MinX; }
  [[nodiscard]] double GetMinY() const { return GetBounds().MinY; }
  [[nodiscard]] double GetMaxX() const { return GetBounds().MaxX; }
  [[nodiscard]] double GetMaxY() const { return GetBounds().MaxY; }
  void SetMinX(double value) { SetSide(&TBounds::MinX, value); }
  void SetMinY(double value) { SetSide(&TBounds::MinY, value); }
  void SetMaxX(double value) { SetSide(&TBounds::MaxX, value); }
  void SetMaxY(double value) { SetSide(&TBounds::MaxY, value); }

 private:
  friend class TCustomMapObject;
  friend class detail::ObjectStore;
  friend class TMapPoints;
  friend class TPart;
  TParts() = default;
  ~TParts();
  /// Where the vertices of a single part are, or the array of several.
  [[nodiscard]] const void *GetStore() const;
  /// The list that the only part stands in.
  static TParts &Around(TMapPoints &points);
  /// Tells the object that parts, vertices or bounds have changed.
  void NoteChange();
  /// Vertices are about to be counted that were written behind the others.
  void NoteAppended(std::span<const TMapPoint> added, const TBounds &bounds);
  void FreeParts();

  using Many = std::vector<TPart>;
  [[nodiscard]] Many *GetMany() const;
  Many &MakeMany();
  void Own();
  [[nodiscard]] std::uintptr_t GetWord() const;
  void SetWord(std::uintptr_t word);

  struct KeptBounds;
  void SetSide(double TBounds::*side, double value);
  [[nodiscard]] TBounds BoundsOfVertices() const;
  [[nodiscard]] bool HasFewVertices() const;
  /// From now on the bounds do not follow from the vertices.
  void KeepBounds();
  void Keep(const TBounds &bounds);
  void DropBounds();
  /// Makes (x, y) the only vertex of the first part, and the bounds those of this vertex.
  void MoveFirstTo(double x, double y);

  // One word: 0 for no part, the only part itself, or the address of an array of parts with the lowest bit set.
  alignas(std::uintptr_t) std::byte m_store[sizeof(std::uintptr_t)] = {};
  // None as long as the bounds are those of one vertex or of nothing, which is so for most objects by number.
  KeptBounds *m_bounds = nullptr;
};

}  // namespace tessera
