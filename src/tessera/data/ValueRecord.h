// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/data/TDataValue.h>

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

namespace tessera::detail {

/// Writes values one after the other in the packed form of ValueRecord. Meant to be reused from record to record.
class TESSERA_CORE_EXPORT ValueRecordWriter {
 public:
  void Clear() { m_bytes.clear(); }
  void Append(const TDataValue &value);
  void AppendUnassigned();
  /// A text given as UTF-8.
  void AppendText(std::string_view utf8);
  /// A value in its packed form, as ValueRecordReader gives it.
  void AppendPacked(std::string_view packed) { m_bytes.insert(m_bytes.end(), packed.begin(), packed.end()); }
  [[nodiscard]] std::string_view Bytes() const { return {m_bytes.data(), m_bytes.size()}; }

 private:
  void AppendRaw(char tag, const void *payload, std::size_t size);
  std::vector<char> m_bytes;
};

/// The values of one object, packed into one block: a value costs a byte for its kind and what it needs itself (a text
/// its UTF-8 bytes and their number). Values are found by walking; those beyond the end are unassigned.
class TESSERA_CORE_EXPORT ValueRecord {
 public:
  ValueRecord() = default;
  ValueRecord(const ValueRecord &other) { Assign(other.Bytes()); }
  ValueRecord &operator=(const ValueRecord &other);
  ValueRecord(ValueRecord &&) noexcept = default;
  ValueRecord &operator=(ValueRecord &&) noexcept = default;
  ~ValueRecord() = default;

  [[nodiscard]] TDataValue Get(int index) const;
  void Set(int index, const TDataValue &value);
  void Insert(int index, const TDataValue &value);
  void Remove(int index);
  void Clear() { m_block.reset(); }
  /// Takes over what a writer has put together.
  void Assign(std::string_view bytes);
  [[nodiscard]] std::string_view Bytes() const;

 private:
  /// Replaces the packed values from `index` on, `count` of them, by `packed`.
  void Replace(int index, int count, std::string_view packed);
  std::unique_ptr<char[]> m_block;  // the number of bytes as 32 bits, then the bytes
};

/// Walks the values of a record from the first on.
class TESSERA_CORE_EXPORT ValueRecordReader {
 public:
  explicit ValueRecordReader(const ValueRecord &record) : m_rest(record.Bytes()) {}
  [[nodiscard]] bool AtEnd() const { return m_rest.empty(); }
  /// The next value in its packed form; empty at the end.
  std::string_view NextPacked();
  /// The next value; unassigned at the end.
  TDataValue Next() { return Unpack(NextPacked()); }
  [[nodiscard]] static TDataValue Unpack(std::string_view packed);
  /// Whether the packed value is a text, and its UTF-8 bytes.
  [[nodiscard]] static bool IsText(std::string_view packed, std::string_view &utf8);

 private:
  std::string_view m_rest;
};

}  // namespace tessera::detail
