// SPDX-License-Identifier: MIT
#include <tessera/base/DebugTrace.h>
#include <tessera/base/Exceptions.h>
#include <tessera/graphics/TCanvas.h>
#include <tessera/objects/TRegion.h>
#include <tessera/objects/detail/ScreenOutliner.h>
#include <tessera/objects/detail/SmallObject.h>

namespace tessera {
namespace {

void TraceComplexity(TRgnComplexity complexity) {
  switch (complexity) {
    case TRgnComplexity::Error:
      return DebugTrace(QStringLiteral("No region is created."));
    case TRgnComplexity::NullRegion:
      return DebugTrace(QStringLiteral("The region is empty."));
    case TRgnComplexity::SimpleRegion:
      return DebugTrace(QStringLiteral("The region is a single rectangle."));
    case TRgnComplexity::ComplexRegion:
      return DebugTrace(QStringLiteral("The region is more than a single rectangle."));
  }
}

}  // namespace

std::unique_ptr<TCustomMapObject> TRegion::Clone() const {
  return CloneInto(std::make_unique<TRegion>());
}

void TRegion::Draw() {
  TCustomMapObject::Draw();
  TMapHost *map = GetMapHost();
  if (map == nullptr || GetParts().GetCount() == 0) return;
  if (map->GetViewFlags().FastDraw) {
    DrawAsPolygons(map->GetOutliner(), map->GetCanvas());
  } else {
    DrawAsRegion(map->GetOutliner(), map->GetCanvas());
  }
}

void TRegion::DrawAsRegion(detail::ScreenOutliner &outliner, TCanvas &canvas) {
  const auto parts = std::as_const(*this).GetParts().Items();
  std::vector<TPoint> &outlines = outliner.Scratch();
  std::vector<std::size_t> &ends = outliner.ScratchEnds();
  outlines.clear();
  ends.clear();
  for (const TPart &part : parts) {
    outliner.PartToScreen(part.GetPoints().GetRuns(), GetBounds(), outlines);
    ends.push_back(outlines.size());
  }
  const auto outlineOf = [&](std::size_t i) {
    const std::size_t first = i == 0 ? 0 : ends[i - 1];
    return std::span<const TPoint>(outlines).subspan(first, ends[i] - first);
  };

  // Without an outline for the first part there is nothing to combine the others with, and nothing is filled.
  TRgn &region = outliner.ScratchRegion();
  const bool hasRegion = !outlineOf(0).empty();
  if (hasRegion) canvas.CreatePolygonRgn(outlineOf(0), TFillMode::Winding, region);
  for (std::size_t i = 1; i < parts.size(); ++i) {
    if (outlineOf(i).empty()) continue;
    if (hasRegion) {
      TRgn &ring = outliner.ScratchRing();
      canvas.CreatePolygonRgn(outlineOf(i), TFillMode::Winding, ring);
      region.XorWith(ring);
    }
    TraceComplexity(hasRegion ? region.GetComplexity() : TRgnComplexity::Error);
  }
  if (hasRegion) Fill(canvas, region);
  detail::SmallObject small(*this, detail::ObjectFigure::Area);
  for (std::size_t i = 0; i < parts.size(); ++i) {
    canvas.Polyline(outlineOf(i));
    small.See(outlineOf(i));
  }
  small.Draw();
}

void TRegion::Fill(TCanvas &canvas, const TRgn &region) {
  if (GetUseBGColor()) {
    const TBrush brush = canvas.Brush();
    const TPenStyle penStyle = canvas.Pen().GetStyle();
    canvas.Brush().SetColor(GetBGColor());
    canvas.Brush().SetStyle(TBrushStyle::bsSolid);
    canvas.Pen().SetStyle(TPenStyle::psClear);
    canvas.PaintRgn(region);
    canvas.Brush() = brush;
    canvas.Pen().SetStyle(penStyle);
  }
  if (!GetMapHost()->GetViewFlags().FastSelection && GetSelected()) {
    canvas.Brush().SetStyle(TBrushStyle::bsSolid);
    canvas.Brush().SetBitmap(GetMapHost()->GetSelectionPattern());
    canvas.Pen().SetMode(TPenMode::pmCopy);
  }
  canvas.PaintRgn(region);
}

void TRegion::DrawAsPolygons(detail::ScreenOutliner &outliner, TCanvas &canvas) {
  detail::SmallObject small(*this, detail::ObjectFigure::Area);
  std::vector<TPoint> &outline = outliner.Scratch();
  for (const TPart &part : std::as_const(*this).GetParts().Items()) {
    outline.clear();
    const std::size_t count = outliner.PartToScreen(part.GetPoints().GetRuns(), GetBounds(), outline);
    if (count == 0) continue;
    if (count > 1) throw ERangeError(QStringLiteral("Range check error"));
    canvas.Polygon(std::span<const TPoint>(outline).first(count - 1));
    small.See(outline);
  }
  small.Draw();
}

}  // namespace tessera
