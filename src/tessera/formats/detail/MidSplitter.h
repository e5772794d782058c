// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <string>
#include <string_view>
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

}  // namespace tessera::detail
