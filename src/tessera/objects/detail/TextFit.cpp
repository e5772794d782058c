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
/// Where fonts stop growing.
constexpr int LargestPt = 12288;
/// So many steps in proportion end the search of nearly any text.
constexpr int ProportionalSteps = 4;
/// How much of the height may stay free before a larger size is tried.
constexpr double FreeHeight = 1.05;

}  // namespace

void TextFit::Measure(int sizePt) {
  m_canvas.Font().SetSize(sizePt);
  const QSize extent = m_canvas.TextExtent(m_text);
  m_sizePt = sizePt;
  m_width = extent.width();
  m_height = extent.height();
}

int TextFit::FindSize(int floorPt) {
  const int start =
      int(std::clamp(std::nearbyint(m_box.height / PixelsPerPoint), SmallestEstimatePt, LargestEstimatePt));
  Measure(start);
  if (Exceeds()) return start > floorPt ? FindBelow(start, floorPt) : start;
  const bool isSmaller = m_width < m_box.width && m_height < m_box.height;
  return isSmaller && m_box.height / (m_height + 0.000001) > FreeHeight ? FindAbove(start) : start;
}

int TextFit::FindBelow(int startPt, int floorPt) {
  return FindFirst(floorPt + 1, startPt, [this] { return Exceeds(); }) - 1;
}

int TextFit::FindAbove(int startPt) {
  const int first = FindFirst(startPt + 1, LargestPt + 1, [this] { return Exceeds() || m_height == m_box.height; });
  if (first > LargestPt) return LargestPt;
  Measure(first);
  return Exceeds() ? first - 1 : first;
}

template <typename Stops>
int TextFit::FindFirst(int lowPt, int highPt, Stops stops) {
  for (int step = 0; lowPt < highPt; ++step) {
    const double ratio = std::max(m_width / m_box.width, m_height / m_box.height);
    // A text may take no room at all.
    const bool isInProportion = step < ProportionalSteps && ratio > 0;
    const double guess = isInProportion ? m_sizePt / ratio : (lowPt + highPt) / 2.;
    Measure(int(std::clamp(guess, double(lowPt), double(highPt - 1))));
    if (stops()) {
      highPt = m_sizePt;
    } else {
      lowPt = m_sizePt + 1;
    }
  }
  return highPt;
}

}  // namespace tessera::detail
