// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/objects/TCustomMapObject.h>

namespace tessera::detail {

/// A rectangle of the spatial index as an object sees it: a plain object with the four corners as its only vertices.
class TESSERA_CORE_EXPORT IndexBox {
 public:
  explicit IndexBox(const TCellBounds &cell) : m_corners(cell), m_bounds(BoundsOf(cell)) {}
  /// The bounds of an object with these corners: around them, with the limits of running bounds.
  [[nodiscard]] static TBounds BoundsOf(const TCellBounds &cell) {
    TBounds bounds = TBounds::Empty();
    bounds.Widen(cell.MinX, cell.MinY);
    bounds.Widen(cell.MaxX, cell.MaxY);
    return bounds;
  }

  [[nodiscard]] const TBounds &GetBounds() const { return m_bounds; }
  /// Whether all four corners lie in `bounds`.
  [[nodiscard]] bool HasCornersIn(const TBounds &bounds) const {
    return bounds.ContainsPoint(m_corners.MinX, m_corners.MinY) && bounds.ContainsPoint(m_corners.MaxX, m_corners.MaxY);
  }
  /// What `object` answers when asked whether it contains the box.
  [[nodiscard]] bool IsContainedBy(const TCustomMapObject &object) const;
  /// Whether the object contains the box or has a vertex in it, or has no vertices at all.
  [[nodiscard]] bool Meets(const TCustomMapObject &object) const;

 private:
  TCellBounds m_corners;
  TBounds m_bounds;
  /// Made when a kind of object wants to see one.
  mutable std::unique_ptr<TCustomMapObject> m_object;
};

}  // namespace tessera::detail
