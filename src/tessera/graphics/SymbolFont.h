// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/graphics/TFont.h>

namespace tessera {

/// The sign that a symbol font's character stands for, ready to be drawn.
struct TSymbolGlyph {
  TFont font;
  QString text;
};

/// The font and character with which the sign `shape` of `font` is drawn: `font` itself where it is installed, and the
/// library's own symbol font, with the nearest sign it has, where it is not. Cheap: a font's presence is looked up once.
[[nodiscard]] TESSERA_CORE_EXPORT TSymbolGlyph ResolveSymbol(const TFont &font, int shape);

}  // namespace tessera
