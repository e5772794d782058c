// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdint>

namespace tessera {

class TCanvas;

namespace detail {

/// A size in client pixels that may be larger than any picture.
struct PixelBox {
  std::uint32_t width;
  std::uint32_t height;

  bool operator==(const PixelBox &) const = default;
};

/// The font size, in points, that makes a text fill a box.
///
/// It is where a walk from an estimate, point by point, ends: down at the first size at which the text fits, or at
/// `floorPt`; up, when the text leaves more than a twentieth of the height free, at the first size that reaches the
/// height exactly or the last before one that is too large. It is found in a few steps in proportion, or else by
/// halves, which ends in the same place as long as larger letters are neither narrower nor lower.
class TextFit {
 public:
  /// Measures with the canvas's font, whose size is left at whatever was measured last. @pre `box` is not empty.
  TextFit(TCanvas &canvas, const QString &text, const PixelBox &box) : m_canvas(canvas), m_text(text), m_box(box) {}

  [[nodiscard]] int FindSize(int floorPt);

 private:
  void Measure(int sizePt);
  [[nodiscard]] bool Exceeds() const { return m_width > m_box.width || m_height > m_box.height; }
  [[nodiscard]] int FindBelow(int startPt, int floorPt);
  [[nodiscard]] int FindAbove(int startPt);
  /// The first size from `lowPt` on of which `stops` is true; `highPt` when none below it is.
  template <typename Stops>
  [[nodiscard]] int FindFirst(int lowPt, int highPt, Stops stops);

  TCanvas &m_canvas;
  const QString &m_text;
  PixelBox m_box;
  int m_sizePt = 0;     ///< That was measured last.
  double m_width = 0;   ///< Of the text as measured last.
  double m_height = 0;  ///< Of the text as measured last.
};

}  // namespace detail
}  // namespace tessera
