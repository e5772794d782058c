// SPDX-License-Identifier: MIT
#include <tessera/graphics/TCanvas.h>
#include <tessera/objects/detail/TextFit.h>

#include <algorithm>
#include <cmath>

namespace tessera::detail {
namespace {

/// Height of a text box over the point size, about, and the sizes that an estimate is held to.
constexpr double PixelsPerPoint = 1.48;
constexpr double SmallestEstimatePt = 2;
constexpr double LargestEstimatePt = 200;
/// Where fonts stop growing, so that a walk ends in any box.
constexpr int LargestPt = 12288;
/// Beyond these ratios of text to box a jump is worth while.
constexpr double JumpDownAbove = 1.2;
constexpr double JumpUpBelow = 0.8;
/// How much of the height may stay free before a larger size is tried.
constexpr double FreeHeight = 1.05;

}  // namespace

void TextFit::Measure(int sizePt) {
  m_canvas.Font().SetSize(sizePt);
  const QSize extent = m_canvas.TextExtent(m_text);
  m_width = extent.width();
  m_height = extent.height();
}

int TextFit::FindSize(int floorPt) {
  const int start =
      int(std::clamp(std::nearbyint(m_box.height / PixelsPerPoint), SmallestEstimatePt, LargestEstimatePt));
  Measure(start);
  if (Exceeds()) return WalkDown(start, floorPt);
  const bool isSmaller = m_width < m_box.width && m_height < m_box.height;
  return isSmaller && m_box.height / (m_height + 0.000001) > FreeHeight ? WalkUp(start) : start;
}

int TextFit::WalkDown(int startPt, int floorPt) {
  const double ratio = std::max(m_width / m_box.width, m_height / m_box.height);
  int size = startPt;
  if (ratio > JumpDownAbove && startPt > floorPt) {
    size = std::clamp(int(startPt / ratio) + 1, floorPt, startPt);
    Measure(size);
    // The largest size that fits is wanted; a jump too far is taken back to the first size that does not.
    while (!Exceeds() && size < startPt) Measure(++size);
  }
  while (Exceeds() && size > floorPt) Measure(--size);
  return size;
}

int TextFit::WalkUp(int startPt) {
  const auto stops = [this] { return Exceeds() || m_height == m_box.height; };
  const double ratio = std::min(m_width / m_box.width, m_height / m_box.height);
  int size = startPt;
  if (ratio < JumpUpBelow) {
    // An invisible text has no width to reckon with.
    const double jump = ratio > 0 ? startPt / ratio - 2 : double(startPt);
    size = int(std::clamp(jump, double(startPt), double(LargestPt)));
    Measure(size);
    while (size > startPt && stops()) Measure(--size);
  }
  while (size < LargestPt) {
    Measure(++size);
    if (stops()) return Exceeds() ? size - 1 : size;
  }
  return size;
}

}  // namespace tessera::detail
