// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/formats/detail/MidRecords.h>
#include <tessera/formats/detail/MifScanner.h>

#include <memory>
#include <optional>

namespace tessera::detail {

/// Reads the data file of a MIF pair: a line of values for each object.
class MidReader {
 public:
  /// Without a data file no object gets a value. The source must outlive the reader. A long file is read ahead, which
  /// makes no difference but in time.
  MidReader(ByteSource *source, const LookAheadLimits &limits);

  void SetDelimiter(std::string_view delimiter);
  /// Takes note of the columns of the layer, which are those of every object from now on.
  void SetColumns(const TDataFields &columns);
  /// Gives an object the values of the next line; none when there is no line left, which is counted.
  void ReadValues(TDataFields &fields);

  [[nodiscard]] bool HasFile() const { return m_lines.has_value(); }
  [[nodiscard]] bool HasColumns() const { return m_packer.HasColumns(); }
  [[nodiscard]] qint64 GetMissingLines() const { return m_missingLines; }
  /// Whether more than blanks is left, which is read.
  [[nodiscard]] bool HasMore();
  /// @throws EInOutError when not all of the file could be read.
  void ThrowIfFailed() const;

 private:
  using Ahead = LookAhead<MidTable>;

  /// The packed values of the next line.
  std::string_view NextValues();
  void StartLookAhead();

  std::optional<MifScanner> m_lines;
  MidPacker m_packer;
  LookAheadLimits m_limits;
  std::unique_ptr<Ahead> m_ahead;  // none from a change of the delimiter or the columns to the next line
  /// A thread is started so often at the most, whatever changes of the columns a file has.
  int m_startsLeft = 0;
  qint64 m_missingLines = 0;
};

}  // namespace tessera::detail
