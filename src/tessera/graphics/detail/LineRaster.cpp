// SPDX-License-Identifier: MIT
#include <tessera/graphics/detail/LineRaster.h>

#include <algorithm>

namespace tessera::detail {

namespace {

/// A line as a walk of single steps along its longer direction (major), from its lower major coordinate upwards.
struct Walk {
  std::int64_t major;
  std::int64_t minor;
  std::int64_t length;  ///< Major distance, > 0 and < 2^32.
  std::int64_t rise;    ///< Minor distance, absolute; at most `length`.
  std::int64_t sign;    ///< Direction of the minor coordinate, 1 or -1.

  /// The minor coordinate after `steps` steps, rounded to the nearest, halves upwards. `rise * steps` < 2^64.
  [[nodiscard]] std::int64_t MinorAt(std::int64_t steps) const {
    const std::uint64_t product = std::uint64_t(rise) * std::uint64_t(steps);
    const std::uint64_t whole = product / std::uint64_t(length);
    const std::uint64_t twiceRest = 2 * (product % std::uint64_t(length));
    if (sign > 0) return minor + std::int64_t(whole) + (twiceRest >= std::uint64_t(length) ? 1 : 0);
    return minor - std::int64_t(whole) - (twiceRest > std::uint64_t(length) ? 1 : 0);
  }
};

/// The first of the steps `low` … `high` for which `reached` holds, which once true stays so; `high` + 1 when none
/// does.
template <typename Reached>
std::int64_t FirstStep(std::int64_t low, std::int64_t high, Reached reached) {
  ++high;
  while (low < high) {
    const std::int64_t middle = low + (high - low) / 2;
    if (reached(middle)) {
      high = middle;
    } else {
      low = middle + 1;
    }
  }
  return low;
}

/// Draws steps `first` … `last`. The error term is that of the first step, so that cutting does not move the line.
template <bool Toggles>
void DrawSteps(QRgb *pixel, const Walk &walk, std::int64_t first, std::int64_t last, std::ptrdiff_t majorStride,
               std::ptrdiff_t minorStride, QRgb value) {
  // Twice the distance from the exact line to the row change, kept in -2 * length … -1; a falling line changes later
  // when it runs halfway between two rows, because halves are rounded upwards.
  const std::int64_t twiceLength = 2 * walk.length;
  const std::int64_t twiceRise = 2 * walk.rise;
  const std::int64_t half = walk.sign > 0 ? walk.length : walk.length - 1;
  std::int64_t error = half - twiceLength;
  if (first > 0) {
    const std::uint64_t rest = std::uint64_t(walk.rise) * std::uint64_t(first) % std::uint64_t(walk.length);
    error += 2 * std::int64_t(rest);
    if (error >= 0) error -= twiceLength;
  }
  for (std::int64_t left = last - first;; --left) {
    *pixel = Toggles ? *pixel ^ value : value;
    if (left == 0) return;
    pixel += majorStride;
    error += twiceRise;
    if (error >= 0) {
      error -= twiceLength;
      pixel += minorStride;
    }
  }
}

/// The columns or rows of a surface along one direction.
struct Range {
  std::int64_t low;
  std::int64_t end;
  [[nodiscard]] bool Holds(std::int64_t value) const { return value >= low && value < end; }
};

/// The steps of a walk that are drawn, both ends included.
struct Steps {
  std::int64_t first;
  std::int64_t last;
};

/// Cuts the steps to those whose pixels lie in both ranges; false when none is left.
bool Cut(const Walk &walk, Range major, Range minor, Steps &steps) {
  steps.first = std::max(steps.first, major.low - walk.major);
  steps.last = std::min(steps.last, major.end - 1 - walk.major);
  if (steps.first > steps.last) return false;
  const std::int64_t minorEnd = walk.minor + walk.sign * walk.rise;
  if (minor.Holds(walk.minor) && minor.Holds(minorEnd)) return true;
  if (std::max(walk.minor, minorEnd) < minor.low || std::min(walk.minor, minorEnd) >= minor.end) return false;
  const auto isUp = walk.sign > 0;
  const auto enters = [&](std::int64_t k) { return isUp ? walk.MinorAt(k) >= minor.low : walk.MinorAt(k) < minor.end; };
  const auto leaves = [&](std::int64_t k) { return isUp ? walk.MinorAt(k) >= minor.end : walk.MinorAt(k) < minor.low; };
  steps.first = FirstStep(steps.first, steps.last, enters);
  steps.last = FirstStep(steps.first, steps.last, leaves) - 1;
  return steps.first <= steps.last;
}

/// The line `offset` pixels further in its minor direction.
void DrawShiftedLine(const Surface &surface, TPoint from, TPoint to, std::int64_t offset, LineEnd end, Ink ink) {
  const std::int64_t dx = std::int64_t(to.x()) - from.x();
  const std::int64_t dy = std::int64_t(to.y()) - from.y();
  const bool isFlat = std::abs(dx) >= std::abs(dy);
  const std::int64_t major = isFlat ? dx : dy;
  const std::int64_t minor = isFlat ? dy : dx;
  if (major == 0) {
    if (end == LineEnd::Drawn) Fill(ink).PaintRun(surface, from.y() + offset, from.x(), from.x() + std::int64_t(1));
    return;
  }
  const bool isReversed = major < 0;
  const TPoint &start = isReversed ? to : from;
  const Walk walk{isFlat ? start.x() : start.y(), (isFlat ? start.y() : start.x()) + offset, std::abs(major),
                  std::abs(minor), (minor < 0) == isReversed ? 1 : -1};
  Steps steps{0, walk.length};
  if (end == LineEnd::Omitted && isReversed) ++steps.first;
  if (end == LineEnd::Omitted && !isReversed) --steps.last;
  const Range columns{surface.left, surface.right};
  const Range rows{surface.top, surface.bottom};
  if (!Cut(walk, isFlat ? columns : rows, isFlat ? rows : columns, steps)) return;
  const int firstMajor = int(walk.major + steps.first);
  const int firstMinor = int(steps.first == 0 ? walk.minor : walk.MinorAt(steps.first));
  QRgb *pixel = isFlat ? surface.At(firstMajor, firstMinor) : surface.At(firstMinor, firstMajor);
  const std::ptrdiff_t majorStride = isFlat ? 1 : surface.stride;
  const std::ptrdiff_t minorStride = walk.sign * (isFlat ? surface.stride : 1);
  const auto draw = ink.toggles ? DrawSteps<true> : DrawSteps<false>;
  draw(pixel, walk, steps.first, steps.last, majorStride, minorStride, ink.value);
}

}  // namespace

void DrawThinLine(const Surface &surface, TPoint from, TPoint to, LineEnd end, Ink ink) {
  DrawShiftedLine(surface, from, to, 0, end, ink);
}

void DrawNarrowPolyline(const Surface &surface, std::span<const TPoint> points, NarrowPen pen, LineEnd end, Ink ink) {
  // The pieces of a wider line overlap, so that its corners are closed.
  const LineEnd joint = pen.widthPx > 1 ? LineEnd::Drawn : LineEnd::Omitted;
  for (std::size_t i = 1; i < points.size(); ++i) {
    const LineEnd pieceEnd = i + 1 == points.size() ? end : joint;
    for (int line = 0; line < pen.widthPx; ++line) {
      DrawShiftedLine(surface, points[i - 1], points[i], pen.offsetPx + line, pieceEnd, ink);
    }
  }
}

}  // namespace tessera::detail
