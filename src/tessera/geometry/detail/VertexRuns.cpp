// SPDX-License-Identifier: MIT
#include <tessera/geometry/detail/VertexRuns.h>

#include <cmath>

namespace tessera::detail {
namespace {

RoundedBox BoxOf(std::span<const TMapPoint> points) {
  TBounds bounds = {points[0].X, points[0].Y, points[0].X, points[0].Y};
  bool areNumbers = true;
  for (const TMapPoint &point : points) {
    bounds.MinX = point.X < bounds.MinX ? point.X : bounds.MinX;
    bounds.MaxX = point.X > bounds.MaxX ? point.X : bounds.MaxX;
    bounds.MinY = point.Y < bounds.MinY ? point.Y : bounds.MinY;
    bounds.MaxY = point.Y > bounds.MaxY ? point.Y : bounds.MaxY;
    areNumbers &= int(point.X == point.X) & int(point.Y == point.Y);
  }
  return areNumbers ? RoundedBox::Of(bounds) : RoundedBox::Everywhere();
}

RoundedBox BoxOf(std::span<const RoundedBox> boxes) {
  RoundedBox all = boxes[0];
  for (const RoundedBox &box : boxes) all.Widen(box);
  return all;
}

/// Makes a box for each run of `length` items.
template <typename Item>
RoundedBox *AppendBoxes(std::span<const Item> items, std::size_t length, RoundedBox *out) {
  for (std::size_t at = 0; at < items.size(); at += length) {
    *out++ = BoxOf(items.subspan(at, std::min(length, items.size() - at)));
  }
  return out;
}

}  // namespace

std::unique_ptr<RoundedBox[]> VertexRuns::MakeBoxes(std::span<const TMapPoint> points) {
  const std::size_t levels = Lengths.size();
  std::unique_ptr<RoundedBox[]> boxes(new RoundedBox[FirstOf(levels, points.size())]);
  RoundedBox *out = AppendBoxes(points, Lengths[0], boxes.get());
  for (std::size_t level = 1; level < levels; ++level) {
    const std::span<const RoundedBox> below(boxes.get() + FirstOf(level - 1, points.size()), out);
    out = AppendBoxes(below, Lengths[level] / Lengths[level - 1], out);
  }
  return boxes;
}

std::optional<TBounds> VertexRuns::GetBounds() const {
  TBounds bounds = TBounds::Empty();
  if (m_boxes) {
    const std::size_t top = Lengths.size() - 1;
    const std::size_t first = FirstOf(top, m_points.size());
    const std::size_t count = RunsOf(m_points.size(), Lengths[top]);
    const RoundedBox box = BoxOf(std::span<const RoundedBox>(m_boxes + first, count));
    if (box == RoundedBox::Everywhere()) return std::nullopt;
    bounds.Widen({box.minX, box.minY, box.maxX, box.maxY});
    return bounds;
  }
  bool areNumbers = true;
  for (const TMapPoint &point : m_points) {
    bounds.Widen(point.X, point.Y);
    areNumbers &= !std::isnan(point.X) && !std::isnan(point.Y);
  }
  return areNumbers ? std::optional(bounds) : std::nullopt;
}

void VertexRuns::Widen(RoundedBox *boxes, std::size_t count, std::size_t index, const TMapPoint &place) {
  const RoundedBox box = BoxOf(std::span(&place, 1));
  for (std::size_t level = 0; level < Lengths.size(); ++level) {
    boxes[FirstOf(level, count) + index / Lengths[level]].Widen(box);
  }
}

}  // namespace tessera::detail
