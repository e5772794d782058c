// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/data/TValueRecord.h>

#include <cstddef>
#include <string_view>
#include <vector>

namespace tessera::detail {

/// Writes values one after the other in the packed form of TValueRecord. Meant to be reused from record to record.
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

/// Walks the values of a record from the first on.
class TESSERA_CORE_EXPORT ValueRecordReader {
 public:
  explicit ValueRecordReader(const TValueRecord &record) : m_rest(record.Bytes()) {}
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
