// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/TColor.h>
#include <tessera/graphics/TBitmap.h>

#include <QBrush>
#include <QSharedPointer>

namespace tessera {

/// Hatches are one pixel wide on a grid of eight, drawn in the brush colour; what lies between them is left as it is.
enum class TBrushStyle : std::uint8_t {
  bsSolid,
  bsClear,
  bsHorizontal,
  bsVertical,
  bsFDiagonal,
  bsBDiagonal,
  bsCross,
  bsDiagCross
};

/// What areas are filled with: a colour, a hatch, or a bitmap repeated from the picture's top left corner.
/// A small value; the bitmap is shared.
class TESSERA_CORE_EXPORT TBrush {
 public:
  /// The brush as Qt has it; a bitmap becomes its texture, with see-through pixels for a transparent colour.
  [[nodiscard]] QBrush ToQBrush() const;
  /// The brush nearest to Qt's: without transparency and transformation. Gradients and dotted patterns become solid.
  [[nodiscard]] static TBrush FromQBrush(const QBrush &brush);

  [[nodiscard]] TColor GetColor() const { return m_color; }
  /// Sets the colour and drops the bitmap.
  void SetColor(TColor color) {
    m_color = color;
    m_bitmap.reset();
  }
  [[nodiscard]] TBrushStyle GetStyle() const { return m_style; }
  /// Sets the style and drops the bitmap.
  void SetStyle(TBrushStyle style) {
    m_style = style;
    m_bitmap.reset();
  }
  /// None unless the brush repeats a bitmap; then colour and style do not show.
  [[nodiscard]] const TBitmap *GetBitmap() const { return m_bitmap.get(); }
  void SetBitmap(const TBitmap &bitmap) { m_bitmap = QSharedPointer<TBitmap>::create(bitmap); }
  void SetBitmap(QSharedPointer<TBitmap> bitmap) { m_bitmap = std::move(bitmap); }

  /// Two brushes with bitmaps are equal when they share the bitmap.
  bool operator==(const TBrush &) const = default;

 private:
  QSharedPointer<TBitmap> m_bitmap;
  TColor m_color = clWhite;
  TBrushStyle m_style = TBrushStyle::bsSolid;
};

}  // namespace tessera
