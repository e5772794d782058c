// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/geometry/detail/RectClipper.h>
#include <tessera/graphics/TRgn.h>
#include <tessera/objects/TMapHost.h>

#include <vector>

namespace tessera::detail {

/// Turns parts into screen outlines: cut to the view enlarged by two pixels on every side, converted to client pixels
/// and, with generalisation, thinned.
///
/// An outline that lies wholly within the view is not cut at all, one that sticks out is cut in one sweep; the points
/// are those of four cuts by the splitter either way.
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
  std::size_t PartToScreen(std::span<const TMapPoint> points, const TBounds &bounds, std::vector<TPoint> &outline);

  // Storage that drawing uses from one object to the next.
  [[nodiscard]] std::vector<TPoint> &Scratch() { return m_scratch; }
  [[nodiscard]] std::vector<std::size_t> &ScratchEnds() { return m_ends; }
  [[nodiscard]] TRgn &ScratchRegion() { return m_region; }
  [[nodiscard]] TRgn &ScratchRing() { return m_ring; }

 private:
  enum class Extent { Any, MustBeInside };
  /// Appends the pixels of some points to the outline that begins at `first`. When the points must be inside the view
  /// and one is not, the outline is taken back, and the answer is false.
  bool AppendPixels(std::span<const TMapPoint> points, Extent extent, std::size_t first, std::vector<TPoint> &outline);
  void AppendThinned(std::span<const TPoint> pixels, std::size_t first, std::vector<TPoint> &outline) const;

  TViewport m_viewport;
  TViewFlags m_flags;
  RectClipper m_clipper;
  std::vector<TPoint> m_pixels;
  std::vector<TPoint> m_scratch;
  std::vector<std::size_t> m_ends;
  TRgn m_region;
  TRgn m_ring;
};

}  // namespace tessera::detail
