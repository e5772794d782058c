// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/objects/TCustomMapObject.h>

#include <span>
#include <vector>

namespace tessera::detail {

/// The inside of one ring in map units, by the winding rule, and what of a map lies in it.
///
/// Regions are taken with holes and islands, rectangles and circles as areas, anything else as the line through its
/// vertices: labels, symbols and sprites by the place they stand on. The border belongs to the area. Cost:
/// vertices of the object times those of the ring.
class SelectionArea {
 public:
  /// @pre there is a vertex; that the ring closes is understood.
  explicit SelectionArea(std::vector<TMapPoint> ring);
  static SelectionArea Rectangle(const TMapPoint &corner, const TMapPoint &opposite);
  /// A ring of so many vertices that no pixel of a screen tells it from a circle.
  static SelectionArea Circle(const TMapPoint &centre, double radius);

  [[nodiscard]] const TBounds &GetBounds() const { return m_bounds; }
  /// Whether the object and the area have a point in common; false for an object without vertices, as is Holds.
  [[nodiscard]] bool Meets(const TCustomMapObject &object) const;
  /// Whether the whole object lies in the area.
  [[nodiscard]] bool Holds(const TCustomMapObject &object) const;

 private:
  [[nodiscard]] bool HoldsPoint(const TMapPoint &point) const;
  /// Whether some side of the ring meets the segment; with `isThrough`, crosses it from one side to the other.
  [[nodiscard]] bool IsSideOn(const TMapPoint &from, const TMapPoint &to, bool isThrough) const;

  std::vector<TMapPoint> m_ring;
  TBounds m_bounds = TBounds::Empty();
};

}  // namespace tessera::detail
