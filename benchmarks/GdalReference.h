// SPDX-License-Identifier: MIT
#pragma once

#include "FlatMap.h"

#include <QString>

#include <memory>

namespace tessera::bench {

/// A MIF or TAB file read whole through GDAL: all features, with geometry, attributes and style, kept in memory.
class GdalMap {
 public:
  /// @throws std::runtime_error when the file cannot be read.
  explicit GdalMap(const QString &path);
  ~GdalMap();
  GdalMap(const GdalMap &) = delete;
  GdalMap &operator=(const GdalMap &) = delete;

  /// Writes everything as a MIF and MID file, or as a TAB file with its companions, as the name ends.
  /// @throws std::runtime_error when that fails.
  void Write(const QString &path);
  [[nodiscard]] FlatMap Flatten() const;

 private:
  struct Content;
  std::unique_ptr<Content> m_content;
};

/// The TAB file with what a MIF file holds, written beside it by GDAL unless it is there already.
/// @throws std::runtime_error when it cannot be written.
[[nodiscard]] QString EnsureTable(const QString &mifPath);

}  // namespace tessera::bench
