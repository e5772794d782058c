// SPDX-License-Identifier: MIT
#include <tessera/objects/detail/ScreenOutliner.h>

#include <cstdlib>

namespace tessera::detail {
namespace {

/// How far the view is enlarged before outlines are cut to it, so that the cut edges stay out of sight.
constexpr int MarginPx = 2;
/// The view with its margin. The corners go through pixels, which is exact: the view's corners are pixels.
TBounds EnlargedView(const TViewport &viewport) {
  const TMapPoint leftBottom = viewport.ScreenToMap(-MarginPx, viewport.ClientHeight + MarginPx);
  const TMapPoint rightTop = viewport.ScreenToMap(viewport.ClientWidth + MarginPx, -MarginPx);
  return {leftBottom.X, leftBottom.Y, rightTop.X, rightTop.Y};
}

bool SameFlags(const TViewFlags &a, const TViewFlags &b) {
  return a.UseGeneralization == b.UseGeneralization && a.GeneralizationLevel == b.GeneralizationLevel;
}

}  // namespace

ScreenOutliner::ScreenOutliner(const TViewport &viewport, const TViewFlags &flags)
    : m_viewport(viewport),
      m_flags(flags),
      m_clipper(EnlargedView(viewport)),
      m_toPixels(viewport),
      m_thinsToOne(flags.UseGeneralization ? m_toPixels.SizeWithin(flags.GeneralizationLevel) : QSizeF()) {}

bool ScreenOutliner::IsFor(const TViewport &viewport, const TViewFlags &flags) const {
  return m_viewport == viewport && SameFlags(m_flags, flags);
}

void ScreenOutliner::AppendThinned(const VertexRuns &part, std::span<const TMapPoint> stretch, std::size_t first,
                                   std::vector<TPoint> &outline) const {
  const int level = m_flags.GeneralizationLevel;
  std::size_t at = 0;
  if (outline.size() == first) outline.push_back(m_toPixels(stretch[at++]));
  TPoint last = outline.back();
  TBounds near = m_toPixels.PlacesWithin(last, level);
  const auto isBoxNear = [&near](const RoundedBox &box) { return box.LiesWithin(near); };
  const auto isNear = [&near](const TMapPoint &point) { return near.ContainsPoint(point.X, point.Y); };
  // A crossing is no vertex of the part.
  const VertexRuns runs = stretch.size() == 1 ? VertexRuns(stretch) : part;
  const std::size_t start = runs.IndexOf(stretch.data());
  while ((at = runs.FirstNot(start + at, start + stretch.size(), isBoxNear, isNear) - start) < stretch.size()) {
    const TPoint pixel = m_toPixels(stretch[at++]);
    const auto dx = std::int64_t(pixel.x()) - last.x();
    const auto dy = std::int64_t(pixel.y()) - last.y();
    if (std::abs(dx) > level || std::abs(dy) > level) {
      outline.push_back(pixel);
      last = pixel;
      near = m_toPixels.PlacesWithin(last, level);
    }
  }
}

void ScreenOutliner::AppendPixels(std::span<const TMapPoint> points, std::vector<TPoint> &outline) {
  const std::size_t first = outline.size();
  outline.resize(first + points.size());
  m_viewport.MapToScreen(points, outline.data() + first);
}

std::size_t ScreenOutliner::PartToScreen(const VertexRuns &part, const TBounds &bounds, std::vector<TPoint> &outline) {
  const std::size_t first = outline.size();
  const std::span<const TMapPoint> points = part.Points();
  if (points.empty()) return 0;
  const auto append = [&](std::span<const TMapPoint> stretch) {
    if (m_flags.UseGeneralization) {
      AppendThinned(part, stretch, first, outline);
    } else {
      AppendPixels(stretch, outline);
    }
  };
  const TBounds &view = m_clipper.GetRect();
  if (view.ContainsBounds(bounds) && view.MinY < view.MaxY && part.LieWithin(view)) {
    append(points);
  } else {
    for (const auto stretch : m_clipper.Clip(part)) append(stretch);
    if (!m_flags.UseGeneralization) {
      const TPoint last = outline.back();
      outline.resize(first + points.size(), last);
    }
  }
  return outline.size() - first;
}

}  // namespace tessera::detail
