// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/data/TDataFields.h>
#include <tessera/data/detail/ValueRecordIO.h>
#include <tessera/formats/detail/MifItems.h>
#include <tessera/formats/detail/MifScanner.h>

#include <optional>
#include <string>
#include <vector>

namespace tessera::detail {

/// Reads the data file of a MIF pair: a line of values for each object.
///
/// A text loses its first and last character, which are the quotes; whether they are quotes is not looked at, and
/// doubled quotes within stay doubled. Numbers are kept as the text they stand in. Columns of other types get no value.
class MidReader {
 public:
  /// Without a data file no object gets a value. The bytes must outlive the reader.
  explicit MidReader(std::optional<std::string_view> bytes);

  void SetDelimiter(std::string_view delimiter) { m_splitter.SetDelimiter(delimiter); }
  /// Takes note of the columns of the layer, which are those of every object from now on.
  void SetColumns(const TDataFields &columns);
  /// Gives an object the values of the next line; none when there is no line left, which is counted.
  void ReadValues(TDataFields &fields);

  [[nodiscard]] qint64 GetMissingLines() const { return m_missingLines; }
  /// Whether more than blanks is left.
  [[nodiscard]] bool HasMore() const;

 private:
  enum class Kind : std::uint8_t { Text, Number, Other };
  void AppendText(std::string_view bytes);

  std::optional<MifScanner> m_lines;
  std::string_view m_bytes;
  MidSplitter m_splitter;
  std::vector<Kind> m_kinds;
  ValueRecordWriter m_record;
  std::string m_utf8;
  qint64 m_missingLines = 0;
};

}  // namespace tessera::detail
