// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/geometry/PolySplitter.h>
#include <tessera/geometry/TViewport.h>

namespace tessera::detail {

/// Cuts closed outlines to a rectangle: the same points, in the same order, as four cuts of TPolySplitter in the order
/// smRight, smBelow, smLeft, smAbove along the rectangle's sides. The outline's own points are never copied: a cut only
/// looks for the places where the outline crosses a side. Keeps its storage from one outline to the next.
class TESSERA_CORE_EXPORT RectClipper {
 public:
  explicit RectClipper(const TBounds &rect) : m_rect(rect) {}
  [[nodiscard]] const TBounds &GetRect() const { return m_rect; }

  /// The cut outline as a chain of stretches, each some points of `points` in a row or one point where a side is
  /// crossed, rounded to doubles. Valid until the next call and as long as `points`. An outline that lies wholly beyond
  /// one side is left whole by that side's cut.
  [[nodiscard]] std::span<const std::span<const TMapPoint>> Clip(std::span<const TMapPoint> points);

 private:
  /// Points of the outline in a row, or, where there are none, a crossing.
  struct Stretch {
    std::span<const TMapPoint> points;
    TPointEx crossing;
  };
  template <typename Keeps>
  void Cut(const TVectorEx &vector, Keeps keeps);

  void CutBySides(std::span<const TMapPoint> points);
  void CutBySplitter(std::span<const TMapPoint> points);

  TBounds m_rect;
  std::vector<Stretch> m_from;
  std::vector<Stretch> m_to;
  std::vector<std::span<const TMapPoint>> m_result;
  std::vector<TMapPoint> m_crossings;
};

}  // namespace tessera::detail
