// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/geometry/PolySplitter.h>
#include <tessera/geometry/TViewport.h>

namespace tessera {

/// Cuts closed outlines to a rectangle: the same points, in the same order, as four cuts of TPolySplitter in the order
/// smRight, smBelow, smLeft, smAbove along the rectangle's sides, at a cost that is close to that of one pass over the
/// points. Keeps its storage from one outline to the next.
class TESSERA_CORE_EXPORT TRectClipper {
 public:
  explicit TRectClipper(const TBounds &rect) : m_rect(rect) {}
  [[nodiscard]] const TBounds &GetRect() const { return m_rect; }

  /// The cut outline, rounded to doubles; valid until the next call. An outline that lies wholly beyond one side is
  /// left whole by that side's cut.
  [[nodiscard]] std::span<const TMapPoint> Clip(std::span<const TMapPoint> points);

 private:
  TBounds m_rect;
  std::vector<TPointEx> m_from;
  std::vector<TPointEx> m_to;
  std::vector<TMapPoint> m_result;
};

}  // namespace tessera
