// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/TColor.h>

#include <QPen>

namespace tessera {

enum class TPenStyle : std::uint8_t { psSolid, psDash, psDot, psDashDot, psDashDotDot, psClear, psInsideFrame };

/// How a figure's colour meets the pixels below it: replaces them, is XORed with them, or XORed and inverted.
/// A figure drawn twice in one of the two XOR modes restores every pixel.
enum class TPenMode : std::uint8_t { pmCopy, pmXor, pmNotXor };

/// What outlines are drawn with. A small value.
class TESSERA_CORE_EXPORT TPen {
 public:
  /// The pen as Qt has it: without the mode, which belongs to the painter there, and with psInsideFrame as a solid
  /// line.
  [[nodiscard]] QPen ToQPen() const;
  /// The pen nearest to Qt's: without transparency, caps and joins, the width rounded, in mode pmCopy. Custom dashes
  /// become psDash.
  [[nodiscard]] static TPen FromQPen(const QPen &pen);

  [[nodiscard]] TColor GetColor() const { return m_color; }
  void SetColor(TColor color) { m_color = color; }
  /// In client pixels; 0 draws like 1.
  [[nodiscard]] int GetWidth() const { return m_widthPx; }
  void SetWidth(int widthPx) { m_widthPx = widthPx; }
  [[nodiscard]] TPenStyle GetStyle() const { return m_style; }
  void SetStyle(TPenStyle style) { m_style = style; }
  [[nodiscard]] TPenMode GetMode() const { return m_mode; }
  void SetMode(TPenMode mode) { m_mode = mode; }

  bool operator==(const TPen &) const = default;

 private:
  TColor m_color = clBlack;
  int m_widthPx = 1;
  TPenStyle m_style = TPenStyle::psSolid;
  TPenMode m_mode = TPenMode::pmCopy;
};

}  // namespace tessera
