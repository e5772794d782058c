// SPDX-License-Identifier: MIT
#pragma once

#include "Columns.h"

#include <optional>
#include <string>

namespace tessera::mitab {

/// What the text of a .tab or .mif file says of its table that OGR does not hand on.
struct Header {
  /// The clause of a .mif file, without the word CoordSys and without its bounds.
  std::string coordSys;
  /// Of a .tab file.
  std::string charset;
  /// Whether values and shapes are in MapInfo's own files, in that character set.
  bool isNative = false;
  /// As they are told in the file, in order, with names in its character set.
  Columns columns;
};

/// Reads no further than to the end of the definition. An empty header when there is no such file.
[[nodiscard]] Header ReadHeader(const std::string &fileName);

/// The encoding that GDAL uses for a character set of MapInfo; empty for Neutral, none for one that it does not know.
[[nodiscard]] std::optional<std::string> EncodingOf(const std::string &charset);

}  // namespace tessera::mitab
