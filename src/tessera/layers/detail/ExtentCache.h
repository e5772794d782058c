// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/objects/TCustomMapObject.h>
#include <tessera/objects/detail/GeometryVersion.h>

#include <memory>
#include <span>
#include <vector>

namespace tessera::detail {

/// The extents of a layer's objects, close together, so that an area query need not visit every object. Worked out
/// again at the first query after any change of geometry.
class TESSERA_CORE_EXPORT ExtentCache {
 public:
  enum class Relation { Apart, Inside, Unknown };

  /// To be called when the list of objects changes.
  void Invalidate() { m_isValid = false; }
  [[nodiscard]] bool IsUpToDate() const { return m_isValid && m_version == GeometryVersion::Get(); }
  /// Brings the extents up to date with the objects.
  void Update(std::span<const std::unique_ptr<TCustomMapObject>> objects);
  /// How the object at `index` lies to a rectangle with its corners in order. Near the border, and for objects that do
  /// not tell their extent, it is not known.
  [[nodiscard]] Relation RelationOf(std::size_t index, const TBounds &rect) const {
    const Box &box = m_boxes[index];
    if (!(box.minX <= rect.MaxX && rect.MinX <= box.maxX && box.minY <= rect.MaxY && rect.MinY <= box.maxY)) {
      return Relation::Apart;
    }
    const bool isInside =
        rect.MinX <= box.minX && box.maxX <= rect.MaxX && rect.MinY <= box.minY && box.maxY <= rect.MaxY;
    return isInside ? Relation::Inside : Relation::Unknown;
  }

 private:
  /// An extent rounded outwards.
  struct Box {
    float minX, minY, maxX, maxY;
  };
  static Box BoxOf(const TCustomMapObject &object);

  std::vector<Box> m_boxes;
  std::uint64_t m_version = 0;
  bool m_isValid = false;
};

}  // namespace tessera::detail
