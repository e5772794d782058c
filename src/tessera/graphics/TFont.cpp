// SPDX-License-Identifier: MIT
#include <tessera/graphics/TFont.h>

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace tessera {

int TFont::GetPixelSize() const {
  // Beyond this the font engines give up, and no letter would fit on a picture anyway.
  constexpr std::int64_t LargestPx = 16384;
  const std::int64_t size = m_sizePt;
  const std::int64_t pixels = size < 0 ? -size : (size * 96 + 36) / 72;
  return int(std::clamp<std::int64_t>(pixels, 1, LargestPx));
}

QFont TFont::ToQFont() const {
  QFont font(m_name);
  if (m_sizePt > 0) {
    font.setPointSize(m_sizePt);
  } else {
    font.setPixelSize(GetPixelSize());
  }
  font.setBold(m_style.testFlag(TFontStyle::fsBold));
  font.setItalic(m_style.testFlag(TFontStyle::fsItalic));
  font.setUnderline(m_style.testFlag(TFontStyle::fsUnderline));
  font.setStrikeOut(m_style.testFlag(TFontStyle::fsStrikeOut));
  return font;
}

TFont TFont::FromQFont(const QFont &font, TColor color) {
  const bool hasPoints = font.pointSizeF() > 0;
  TFont result(font.family(), hasPoints ? std::max(1, int(std::lround(font.pointSizeF()))) : -font.pixelSize(), color);
  result.m_style.setFlag(TFontStyle::fsBold, font.weight() > QFont::Medium);
  result.m_style.setFlag(TFontStyle::fsItalic, font.italic());
  result.m_style.setFlag(TFontStyle::fsUnderline, font.underline());
  result.m_style.setFlag(TFontStyle::fsStrikeOut, font.strikeOut());
  return result;
}

}  // namespace tessera
