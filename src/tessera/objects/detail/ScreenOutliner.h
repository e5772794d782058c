// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/geometry/detail/PixelTransform.h>
#include <tessera/geometry/detail/RectClipper.h>
#include <tessera/graphics/TRgn.h>
#include <tessera/objects/TMapHost.h>

#include <QSizeF>

#include <vector>

namespace tessera::detail {

/// Turns parts into screen outlines: cut to the view enlarged by two pixels on every side, converted to client pixels
/// and, with generalisation, thinned.
///
/// An outline that lies wholly within the view is not cut at all, one that sticks out is cut in one sweep; the points
/// are those of four cuts by the splitter either way. Where a part has boxes around runs of its vertices, both cutting
/// and thinning pass over whole runs.
class TESSERA_CORE_EXPORT ScreenOutliner {
 public:
  ScreenOutliner(const TViewport &viewport, const TViewFlags &flags);

  /// Whether the outliner was made for this view.
  [[nodiscard]] bool IsFor(const TViewport &viewport, const TViewFlags &flags) const;

  /// The outline of one part, appended to `outline`; answers the number of points appended.
  ///
  /// With generalisation a point is kept if it lies more than GeneralizationLevel pixels, along either axis, from the
  /// last one kept; the last point of the part may be missing. Without it the outline has as many points as the part:
  /// cutting may leave more, of which the last are dropped, or fewer, and then the last one is repeated. `bounds` are
  /// those of the object, and only serve to guess whether the part sticks out of the view.
  std::size_t PartToScreen(const VertexRuns &part, const TBounds &bounds, std::vector<TPoint> &outline);

  /// Whether all points of any outline within a box of this size, in map units, thin to a single one.
  [[nodiscard]] bool ThinsToOne(const RoundedBox &box) const {
    return box.maxX - box.minX < m_thinsToOne.width() && box.maxY - box.minY < m_thinsToOne.height();
  }

  /// The pixel in the middle of a box, where an object that is too small to leave ink shows.
  [[nodiscard]] TPoint MiddleOf(const RoundedBox &box) const {
    return m_toPixels({(double(box.minX) + double(box.maxX)) / 2, (double(box.minY) + double(box.maxY)) / 2});
  }

  // Storage that drawing uses from one object to the next.
  [[nodiscard]] std::vector<TPoint> &Scratch() { return m_scratch; }
  [[nodiscard]] std::vector<std::size_t> &ScratchEnds() { return m_ends; }
  [[nodiscard]] TRgn &ScratchRegion() { return m_region; }
  [[nodiscard]] TRgn &ScratchRing() { return m_ring; }

 private:
  void AppendPixels(std::span<const TMapPoint> points, std::vector<TPoint> &outline);
  /// Appends the points of a stretch of a part that thinning leaves, after those from `first` on.
  void AppendThinned(const VertexRuns &part, std::span<const TMapPoint> stretch, std::size_t first,
                     std::vector<TPoint> &outline) const;

  TViewport m_viewport;
  TViewFlags m_flags;
  RectClipper m_clipper;
  PixelTransform m_toPixels;
  QSizeF m_thinsToOne;  ///< In map units; empty without generalisation.
  std::vector<TPoint> m_scratch;
  std::vector<std::size_t> m_ends;
  TRgn m_region;
  TRgn m_ring;
};

}  // namespace tessera::detail
