// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/data/TDataValue.h>

#include <string_view>
#include <utility>

namespace tessera {

/// The values of one object, packed into one block: a value costs a byte for its kind and what it needs itself (a text
/// its UTF-8 bytes and their number). Values are found by walking; those beyond the end are unassigned.
class TESSERA_CORE_EXPORT TValueRecord {
 public:
  TValueRecord() = default;
  TValueRecord(const TValueRecord &other) { Assign(other.Bytes()); }
  TValueRecord &operator=(const TValueRecord &other);
  TValueRecord(TValueRecord &&other) noexcept : m_block(std::exchange(other.m_block, nullptr)) {}
  TValueRecord &operator=(TValueRecord &&other) noexcept {
    std::swap(m_block, other.m_block);
    return *this;
  }
  ~TValueRecord() { Clear(); }

  /// Unassigned beyond the end.
  [[nodiscard]] TDataValue Get(int index) const;
  void Set(int index, const TDataValue &value);
  void Insert(int index, const TDataValue &value);
  void Remove(int index);
  void Clear();
  /// Takes over values in their packed form, as Bytes gives them.
  void Assign(std::string_view bytes);
  [[nodiscard]] std::string_view Bytes() const;

 private:
  /// Replaces the packed values from `index` on, `count` of them, by `packed`.
  void Replace(int index, int count, std::string_view packed);
  char *m_block =
      nullptr;  // the number of bytes as 32 bits, the highest of them whether it is a pool's; then the bytes
};

}  // namespace tessera
