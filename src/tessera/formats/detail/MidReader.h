// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/data/TDataFields.h>
#include <tessera/data/detail/ValueRecordIO.h>
#include <tessera/formats/detail/MifScanner.h>

#include <optional>
#include <string>
#include <vector>

namespace tessera::detail {

/// Splits lines at a delimiter of any length, as TStringParser does. Linear in the length of the line, whatever the
/// delimiter.
class TESSERA_CORE_EXPORT MidSplitter {
 public:
  /// The value of a file that names no delimiter is split at semicolons.
  MidSplitter() { SetDelimiter(";"); }
  void SetDelimiter(std::string_view delimiter);

  /// Starts on a line, which must outlive the reading.
  void SetLine(std::string_view line) {
    m_rest = line;
    m_isAtEnd = false;
  }
  /// Whether all values of the line were given; a line always has one at least.
  [[nodiscard]] bool AtEnd() const { return m_isAtEnd; }
  /// The next value. @pre !AtEnd()
  std::string_view Next();

 private:
  /// Where the delimiter first stands in the rest of the line, npos when nowhere.
  [[nodiscard]] std::size_t Find() const;

  std::string m_delimiter;
  std::vector<std::size_t> m_borders;  // for each beginning of the delimiter its longest proper one that also ends it
  std::string_view m_rest;
  bool m_isAtEnd = true;
};

/// Reads the data file of a MIF pair: a line of values for each object.
///
/// A text loses its first and last character, which are the quotes; whether they are quotes is not looked at, and
/// doubled quotes within stay doubled. Numbers are kept as the text they stand in. Columns of other types get no value.
class MidReader {
 public:
  /// Without a data file no object gets a value. The source must outlive the reader.
  explicit MidReader(ByteSource *source);

  void SetDelimiter(std::string_view delimiter) { m_splitter.SetDelimiter(delimiter); }
  /// Takes note of the columns of the layer, which are those of every object from now on.
  void SetColumns(const TDataFields &columns);
  /// Gives an object the values of the next line; none when there is no line left, which is counted.
  void ReadValues(TDataFields &fields);

  [[nodiscard]] bool HasFile() const { return m_lines.has_value(); }
  [[nodiscard]] bool HasColumns() const { return !m_kinds.empty(); }
  [[nodiscard]] qint64 GetMissingLines() const { return m_missingLines; }
  /// Whether more than blanks is left, which is read.
  [[nodiscard]] bool HasMore();
  /// @throws EInOutError when not all of the file could be read.
  void ThrowIfFailed() const;

 private:
  enum class Kind : std::uint8_t { Text, Number, Other };
  void AppendText(std::string_view bytes);

  std::optional<MifScanner> m_lines;
  MidSplitter m_splitter;
  std::vector<Kind> m_kinds;
  ValueRecordWriter m_record;
  std::string m_utf8;
  qint64 m_missingLines = 0;
};

}  // namespace tessera::detail
