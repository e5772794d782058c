// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/geometry/PolySplitter.h>
#include <tessera/geometry/TViewport.h>
#include <tessera/geometry/detail/VertexRuns.h>

namespace tessera::detail {

/// Cuts closed outlines to a rectangle: the same points, in the same order, as four cuts of TPolySplitter in the order
/// smRight, smBelow, smLeft, smAbove along the rectangle's sides. The outline's own points are never copied: a cut only
/// looks for the places where the outline crosses a side, and passes over runs that lie on one side. Keeps its storage
/// from one outline to the next.
class TESSERA_CORE_EXPORT RectClipper {
 public:
  explicit RectClipper(const TBounds &rect) : m_rect(rect) {}
  [[nodiscard]] const TBounds &GetRect() const { return m_rect; }

  /// The cut outline as a chain of stretches, each some vertices in a row or one point where a side is
  /// crossed, rounded to doubles. Valid until the next call and as long as the vertices. An outline that lies wholly
  /// beyond one side is left whole by that side's cut.
  [[nodiscard]] std::span<const std::span<const TMapPoint>> Clip(const VertexRuns &runs);

 private:
  /// Points of the outline in a row, or, where there are none, a crossing.
  struct Stretch {
    std::span<const TMapPoint> points;
    TPointEx crossing;
  };
  template <typename Side>
  void Cut(const TVectorEx &vector, Side side);

  void CutBySides(const VertexRuns &runs);
  void CutBySplitter(std::span<const TMapPoint> points);

  TBounds m_rect;
  VertexRuns m_runs;
  std::vector<Stretch> m_from;
  std::vector<Stretch> m_to;
  std::vector<std::span<const TMapPoint>> m_result;
  std::vector<TMapPoint> m_crossings;
};

}  // namespace tessera::detail
