// SPDX-License-Identifier: MIT
#pragma once

#include "Header.h"
#include "MapFile.h"

#include <memory>
#include <string>
#include <unordered_map>

namespace tessera::mitab {

/// The objects of a table in its own format that need no GDAL: those whose shapes MapFile reads. GDAL says what they
/// look like, once for each look, and has the last word on what is damaged.
class PlainObjects {
 public:
  /// None for a table of another format, with columns that Records does not read, or with texts whose encoding is not
  /// known.
  [[nodiscard]] static std::unique_ptr<PlainObjects> Open(const std::string &tabName, const Header &header,
                                                          std::shared_ptr<const Columns> columns);

  /// Whether there is an object with that id, and Read may know it.
  [[nodiscard]] bool Has(int id);
  /// None when the object is left to GDAL, or its look has not been learned yet.
  [[nodiscard]] std::unique_ptr<Feature> Read(int id);
  /// Learns what objects look like from one that GDAL has read.
  void Learn(int id, const Feature &feature);

 private:
  PlainObjects() = default;

  std::shared_ptr<const Columns> m_columns;
  std::shared_ptr<const Records> m_records;
  std::unique_ptr<const MapFile> m_shapes;
  std::unordered_map<std::uint32_t, Style> m_looks;
  // What was asked for last.
  int m_id = 0;
  std::optional<MapFile::Object> m_found;
};

}  // namespace tessera::mitab
