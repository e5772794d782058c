// SPDX-License-Identifier: MIT
#include <tessera/graphics/TFont.h>

#include <algorithm>
#include <cstdint>

namespace tessera {

int TFont::GetPixelSize() const {
  // Beyond this the font engines give up, and no letter would fit on a picture anyway.
  constexpr std::int64_t LargestPx = 16384;
  const std::int64_t size = m_sizePt;
  const std::int64_t pixels = size < 0 ? -size : (size * 96 + 36) / 72;
  return int(std::clamp<std::int64_t>(pixels, 1, LargestPx));
}

}  // namespace tessera
