// SPDX-License-Identifier: MIT
#pragma once

#include "Columns.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace tessera::mitab {

using Bytes = std::vector<std::uint8_t>;

/// Numbers as the files of a table keep them, from the low byte on. @pre the bytes reach so far
template <typename Number>
[[nodiscard]] Number NumberIn(std::span<const std::uint8_t> bytes, std::size_t at) {
  Number number{};
  std::copy_n(bytes.begin() + std::ptrdiff_t(at), sizeof number, reinterpret_cast<std::uint8_t *>(&number));
  return number;
}

/// All of the file beside `tabName` with that ending, in lower or upper case; empty when there is none, or one that is
/// larger than what is worth holding.
[[nodiscard]] Bytes ReadCompanion(const std::string &tabName, const std::string &ending);

/// The values of a table in its own format, as its .dat file keeps them: a record of one length for each object.
class Records {
 public:
  /// None when the file is not one that holds these columns, or a column has a type that is left to GDAL: dates and
  /// times. Texts are in that encoding; as they stand when it is empty.
  [[nodiscard]] static std::shared_ptr<const Records> Open(const std::string &tabName, const Columns &columns,
                                                           std::string encoding);

  [[nodiscard]] int GetCount() const { return m_count; }
  /// Of the objects from 1 on; empty when it was deleted or is not there.
  [[nodiscard]] std::span<const std::uint8_t> RecordOf(int id) const;

  // Values of a record, in the forms in which ValueText gives those of a row.

  [[nodiscard]] std::string TextIn(std::span<const std::uint8_t> record, int field, const Column &column) const;
  [[nodiscard]] double NumberIn(std::span<const std::uint8_t> record, int field, const Column &column) const;

 private:
  struct Place {
    std::size_t offset;
    std::size_t width;
  };
  Records() = default;
  bool Lay(const Columns &columns);
  [[nodiscard]] std::string CharsIn(std::span<const std::uint8_t> record, int field) const;

  Bytes m_bytes;
  std::string m_encoding;
  std::vector<Place> m_places;
  std::size_t m_headerSize = 0;
  std::size_t m_recordSize = 0;
  int m_count = 0;
};

}  // namespace tessera::mitab
