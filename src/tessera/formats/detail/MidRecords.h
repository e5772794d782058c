// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/data/TDataFields.h>
#include <tessera/data/detail/ValueRecordIO.h>
#include <tessera/formats/detail/MidSplitter.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace tessera::detail {

/// Packs lines of a data file, each with the values of an object.
///
/// A text loses its first and last character, which are the quotes; whether they are quotes is not looked at, and
/// doubled quotes within stay doubled. Numbers are kept as the text they stand in. Columns of other types get no value.
class MidPacker {
 public:
  void SetDelimiter(std::string_view delimiter) { m_splitter.SetDelimiter(delimiter); }
  /// Takes note of the columns of all objects from now on.
  void SetColumns(const TDataFields &columns);
  [[nodiscard]] bool HasColumns() const { return !m_kinds.empty(); }
  /// The values of a line in the packed form of TValueRecord, valid until the next line.
  [[nodiscard]] std::string_view Pack(std::string_view line);

 private:
  enum class Kind : std::uint8_t { Text, Number, Other };
  void AppendText(std::string_view bytes);

  MidSplitter m_splitter;
  std::vector<Kind> m_kinds;
  ValueRecordWriter m_record;
  std::string m_utf8;
};

/// The packed values of some lines of a data file, from front to back, and where the lines begin. It is filled once and
/// then read from front to back.
class MidTable {
 public:
  struct Line {
    std::string_view values;
    qint64 end;  ///< Where the next line begins.
  };

  /// Empties the table, for lines from `origin` on.
  void Restart(qint64 origin);
  /// Appends the values of the line [begin, end).
  void Add(std::string_view values, qint64 begin, qint64 end);
  /// The line that begins at `position`; none when there is no such. @pre positions never decrease
  [[nodiscard]] std::optional<Line> Take(qint64 position);

 private:
  struct Entry {
    std::uint32_t begin;
    std::uint32_t end;
    std::uint32_t firstValue;  // in m_values
    std::uint32_t valuesSize;
  };

  qint64 m_origin = 0;  // what the positions of lines count from
  std::vector<Entry> m_lines;
  std::vector<char> m_values;
  std::size_t m_next = 0;
};

}  // namespace tessera::detail
