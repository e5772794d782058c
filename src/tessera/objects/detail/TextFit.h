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
/// Found by walking from an estimate point by point: down to the first size at which the text fits, or to `floorPt`;
/// up, when the text leaves more than a twentieth of the height free, to the first size that reaches the height exactly
/// or the last before one that is too large. Far walks are cut short by a jump in proportion, without changing where
/// they end as long as larger letters are not narrower.
class TextFit {
 public:
  /// Measures with the canvas's font, whose size is left at whatever was measured last. @pre `box` is not empty.
  TextFit(TCanvas &canvas, const QString &text, const PixelBox &box) : m_canvas(canvas), m_text(text), m_box(box) {}

  [[nodiscard]] int FindSize(int floorPt);

 private:
  void Measure(int sizePt);
  [[nodiscard]] bool Exceeds() const { return m_width > m_box.width || m_height > m_box.height; }
  [[nodiscard]] int WalkDown(int startPt, int floorPt);
  [[nodiscard]] int WalkUp(int startPt);

  TCanvas &m_canvas;
  const QString &m_text;
  PixelBox m_box;
  double m_width = 0;   ///< Of the text as measured last.
  double m_height = 0;  ///< Of the text as measured last.
};

}  // namespace detail
}  // namespace tessera
