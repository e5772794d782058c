// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <cstdint>
#include <span>
#include <vector>

namespace tessera {

/// Growable array of object ids that receives the answers of area and point queries. Order of insertion is kept;
/// nothing is sorted, and ids may repeat.
///
/// The capacity is part of the behaviour: GetItem and SetItem check against it, not against the count, and it grows
/// only when exactly one free place is left. A copy has no free place at all, so Add to a copy throws.
class TESSERA_CORE_EXPORT TCardinalArray {
 public:
  TCardinalArray();
  // One array is made equal to another by Copy, which has a capacity of its own.
  TCardinalArray(const TCardinalArray &) = delete;
  TCardinalArray &operator=(const TCardinalArray &) = delete;

  /// Empties the array and gives back all storage but the first 32 places.
  void Clear();
  /// Doubles the capacity when one free place is left.
  void Grou();
  /// @throws ERangeError when there is no place (after Copy).
  void Add(std::uint32_t id);
  /// Adds ids in their order, as one by one.
  void AddAll(std::span<const std::uint32_t> ids);
  /// Takes out the id at `index`; later ids move down. @throws ERangeError outside the count.
  void Remove(int index);
  /// @throws ERangeError outside the capacity.
  [[nodiscard]] std::uint32_t GetItem(int index) const;
  /// @throws ERangeError outside the capacity.
  void SetItem(int index, std::uint32_t id);
  /// Linear search.
  [[nodiscard]] bool Exists(std::uint32_t id) const;
  [[nodiscard]] int GetCount() const { return m_count; }
  /// Takes over the ids of `other`; the capacity becomes their count.
  void Copy(const TCardinalArray &other);

  /// The ids in use, contiguous.
  [[nodiscard]] std::span<const std::uint32_t> Ids() const { return {m_items.data(), std::size_t(m_count)}; }
  /// Keeps the first `count` ids that are in use.
  void Truncate(int count);
  /// The ids in use, to be rearranged in place.
  [[nodiscard]] std::span<std::uint32_t> Ids() { return {m_items.data(), std::size_t(m_count)}; }

 private:
  std::vector<std::uint32_t> m_items;
  int m_count = 0;
};

}  // namespace tessera
