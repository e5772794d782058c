// SPDX-License-Identifier: MIT
#pragma once

#include "FlatMap.h"

#include <QString>

#include <memory>

namespace tessera::bench {

/// A MIF file read whole through GDAL: all features, with geometry, attributes and style, kept in memory.
class GdalMap {
 public:
  /// @throws std::runtime_error when the file cannot be read.
  explicit GdalMap(const QString &mifPath);
  ~GdalMap();
  GdalMap(const GdalMap &) = delete;
  GdalMap &operator=(const GdalMap &) = delete;

  /// Writes everything as a MIF and MID file.
  /// @throws std::runtime_error when that fails.
  void Write(const QString &mifPath);
  [[nodiscard]] FlatMap Flatten() const;

 private:
  struct Content;
  std::unique_ptr<Content> m_content;
};

}  // namespace tessera::bench
