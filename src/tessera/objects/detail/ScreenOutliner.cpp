// SPDX-License-Identifier: MIT
#include <tessera/objects/detail/ScreenOutliner.h>

#include <algorithm>
#include <array>
#include <cstdlib>

namespace tessera::detail {
namespace {

/// How far the view is enlarged before outlines are cut to it, so that the cut edges stay out of sight.
constexpr int MarginPx = 2;
/// Points are converted in blocks that stay in the nearest cache.
constexpr std::size_t BlockSize = 512;

/// The view with its margin. The corners go through pixels, which is exact: the view's corners are pixels.
TBounds EnlargedView(const TViewport &viewport) {
  const TMapPoint leftBottom = viewport.ScreenToMap(-MarginPx, viewport.ClientHeight + MarginPx);
  const TMapPoint rightTop = viewport.ScreenToMap(viewport.ClientWidth + MarginPx, -MarginPx);
  return {leftBottom.X, leftBottom.Y, rightTop.X, rightTop.Y};
}

struct PixelRange {
  int minX = 0, minY = 0, maxX = 0, maxY = 0;

  explicit PixelRange(std::span<const TPoint> pixels) {
    minX = maxX = pixels[0].x();
    minY = maxY = pixels[0].y();
    for (const TPoint &pixel : pixels) {
      minX = std::min(minX, pixel.x());
      maxX = std::max(maxX, pixel.x());
      minY = std::min(minY, pixel.y());
      maxY = std::max(maxY, pixel.y());
    }
  }
  /// A point whose pixel lies this near to the view lies within its margin, whatever the rounding.
  [[nodiscard]] bool IsWithin(const TViewport &viewport) const {
    constexpr int SafePx = MarginPx - 1;
    return minX >= -SafePx && minY >= -SafePx && maxX <= viewport.ClientWidth + SafePx &&
           maxY <= viewport.ClientHeight + SafePx;
  }
};

bool SameFlags(const TViewFlags &a, const TViewFlags &b) {
  return a.UseGeneralization == b.UseGeneralization && a.GeneralizationLevel == b.GeneralizationLevel;
}

}  // namespace

ScreenOutliner::ScreenOutliner(const TViewport &viewport, const TViewFlags &flags)
    : m_viewport(viewport), m_flags(flags), m_clipper(EnlargedView(viewport)), m_pixels(BlockSize) {}

bool ScreenOutliner::IsFor(const TViewport &viewport, const TViewFlags &flags) const {
  return m_viewport == viewport && SameFlags(m_flags, flags);
}

void ScreenOutliner::AppendThinned(std::span<const TPoint> pixels, std::size_t first,
                                   std::vector<TPoint> &outline) const {
  const int level = m_flags.GeneralizationLevel;
  std::size_t i = 0;
  if (outline.size() == first) outline.push_back(pixels[i++]);
  TPoint last = outline.back();
  for (; i < pixels.size(); ++i) {
    const TPoint &pixel = pixels[i];
    const auto dx = std::int64_t(pixel.x()) - last.x();
    const auto dy = std::int64_t(pixel.y()) - last.y();
    if (std::abs(dx) > level || std::abs(dy) > level) {
      outline.push_back(pixel);
      last = pixel;
    }
  }
}

bool ScreenOutliner::AppendPixels(std::span<const TMapPoint> points, Extent extent, std::size_t first,
                                  std::vector<TPoint> &outline) {
  for (std::size_t at = 0; at < points.size(); at += BlockSize) {
    const auto block = points.subspan(at, std::min(BlockSize, points.size() - at));
    m_viewport.MapToScreen(block, m_pixels.data());
    const std::span<const TPoint> pixels(m_pixels.data(), block.size());
    if (extent == Extent::MustBeInside && !PixelRange(pixels).IsWithin(m_viewport)) {
      outline.resize(first);
      return false;
    }
    if (m_flags.UseGeneralization) {
      AppendThinned(pixels, first, outline);
    } else {
      outline.insert(outline.end(), pixels.begin(), pixels.end());
    }
  }
  return true;
}

std::size_t ScreenOutliner::PartToScreen(std::span<const TMapPoint> points, const TBounds &bounds,
                                         std::vector<TPoint> &outline) {
  const std::size_t first = outline.size();
  if (points.empty()) return 0;
  const bool seemsInside = m_clipper.GetRect().ContainsBounds(bounds);
  if (seemsInside && AppendPixels(points, Extent::MustBeInside, first, outline)) return outline.size() - first;
  for (const auto stretch : m_clipper.Clip(points)) AppendPixels(stretch, Extent::Any, first, outline);
  if (!m_flags.UseGeneralization) {
    const TPoint last = outline.back();
    outline.resize(first + points.size(), last);
  }
  return outline.size() - first;
}

}  // namespace tessera::detail
