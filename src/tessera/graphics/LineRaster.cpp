// SPDX-License-Identifier: MIT
#include <tessera/graphics/LineRaster.h>

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

/// The line `offset` pixels further in its minor direction.
void DrawShiftedLine(const Surface &surface, TPoint from, TPoint to, std::int64_t offset, LineEnd end, Ink ink) {
  const std::int64_t dx = std::int64_t(to.x()) - from.x();
  const std::int64_t dy = std::int64_t(to.y()) - from.y();
  const bool flat = std::abs(dx) >= std::abs(dy);
  const std::int64_t major = flat ? dx : dy;
  const std::int64_t minor = flat ? dy : dx;
  if (major == 0) {
    const std::int64_t y = from.y() + offset;
    if (end == LineEnd::Drawn) Fill(ink).PaintRun(surface, y, from.x(), std::int64_t(from.x()) + 1);
    return;
  }
  const bool reversed = major < 0;
  const TPoint &start = reversed ? to : from;
  const Walk walk{flat ? start.x() : start.y(), (flat ? start.y() : start.x()) + offset, std::abs(major),
                  std::abs(minor), (minor < 0) == reversed ? 1 : -1};
  std::int64_t first = reversed && end == LineEnd::Omitted ? 1 : 0;
  std::int64_t last = !reversed && end == LineEnd::Omitted ? walk.length - 1 : walk.length;

  const std::int64_t majorLow = flat ? surface.left : surface.top;
  const std::int64_t majorHigh = flat ? surface.right : surface.bottom;
  const std::int64_t minorLow = flat ? surface.top : surface.left;
  const std::int64_t minorHigh = flat ? surface.bottom : surface.right;
  first = std::max(first, majorLow - walk.major);
  last = std::min(last, majorHigh - 1 - walk.major);
  const std::int64_t minorEnd = walk.minor + walk.sign * walk.rise;
  if (first > last || std::max(walk.minor, minorEnd) < minorLow || std::min(walk.minor, minorEnd) >= minorHigh) return;
  if (std::min(walk.minor, minorEnd) < minorLow || std::max(walk.minor, minorEnd) >= minorHigh) {
    const bool up = walk.sign > 0;
    const auto enters = [&](std::int64_t k) { return up ? walk.MinorAt(k) >= minorLow : walk.MinorAt(k) < minorHigh; };
    const auto leaves = [&](std::int64_t k) { return up ? walk.MinorAt(k) >= minorHigh : walk.MinorAt(k) < minorLow; };
    first = FirstStep(first, last, enters);
    last = FirstStep(first, last, leaves) - 1;
    if (first > last) return;
  }
  const int firstMajor = int(walk.major + first);
  const int firstMinor = int(first == 0 ? walk.minor : walk.MinorAt(first));
  QRgb *pixel = flat ? surface.At(firstMajor, firstMinor) : surface.At(firstMinor, firstMajor);
  const std::ptrdiff_t majorStride = flat ? 1 : surface.stride;
  const std::ptrdiff_t minorStride = walk.sign * (flat ? surface.stride : 1);
  const auto draw = ink.toggles ? DrawSteps<true> : DrawSteps<false>;
  draw(pixel, walk, first, last, majorStride, minorStride, ink.value);
}

}  // namespace

void DrawThinLine(const Surface &surface, TPoint from, TPoint to, LineEnd end, Ink ink) {
  DrawShiftedLine(surface, from, to, 0, end, ink);
}

void DrawNarrowPolyline(const Surface &surface, std::span<const TPoint> points, int widthPx, int offsetPx, Ink ink) {
  for (std::size_t i = 1; i < points.size(); ++i) {
    const LineEnd end = i + 1 == points.size() || widthPx > 1 ? LineEnd::Drawn : LineEnd::Omitted;
    for (int line = 0; line < widthPx; ++line) {
      DrawShiftedLine(surface, points[i - 1], points[i], offsetPx + line, end, ink);
    }
  }
}

}  // namespace tessera::detail
