// SPDX-License-Identifier: MIT
#pragma once

#include "Feature.h"
#include "Records.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>

namespace tessera::mitab {

/// The shapes of a table, as its .map and .id files keep them: points with plain symbols, lines and areas, which are
/// nearly all there are. Other objects, and all that is not as it should be, are left to GDAL.
class MapFile {
 public:
  /// None when the files are not those of a table with shapes, or of an old version.
  [[nodiscard]] static std::unique_ptr<const MapFile> Open(const std::string &tabName);

  struct Form;
  struct Object {
    const Form *form;
    std::size_t at;      ///< Of what follows its type and number.
    std::uint32_t look;  ///< Its kind and its drawing tools: objects with the same one look alike.
  };
  /// None when the object is not to be read here.
  [[nodiscard]] std::optional<Object> Find(int id) const;
  /// The kind and the parts of an object. False when it turns out not to be one that can be read here.
  [[nodiscard]] bool ReadShape(const Object &object, Feature &feature) const;

 private:
  class Coordinates;

  MapFile() = default;
  bool ReadHeader();
  [[nodiscard]] OGRRawPoint PointOf(std::int32_t x, std::int32_t y) const;
  [[nodiscard]] OGRRawPoint PlaceAt(std::size_t at, bool isCompressed) const;
  [[nodiscard]] bool ReadChains(const Object &object, Feature &feature) const;
  [[nodiscard]] bool ReadSections(Coordinates &from, const Form &form, std::size_t count, Feature &feature) const;
  [[nodiscard]] bool ReadVertices(Coordinates &from, const Form &form, std::size_t count, Part &part) const;

  Bytes m_map;
  Bytes m_ids;
  std::size_t m_blockSize = 0;
  bool m_isXTurned = false;
  bool m_isYTurned = false;
  double m_scaleX = 1, m_scaleY = 1;
  double m_shiftX = 0, m_shiftY = 0;
  double m_precisionX = 0, m_precisionY = 0;
};

}  // namespace tessera::mitab
