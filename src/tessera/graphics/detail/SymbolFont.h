// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/graphics/TFont.h>

namespace tessera::detail {

/// The sign that a symbol font's character stands for, ready to be drawn.
struct SymbolGlyph {
  TFont font;
  QString text;
};

/// The font and text with which the sign `shape` of `font` is drawn: `font` itself with the character `shape` where its
/// family is installed, else the library's own symbol font in the same size, style and colour.
///
/// The library's font has the signs 32 to 67; higher codes stand for those again, in the same order; 31 and anything
/// lower draws nothing. Its texts are private use characters, not letters. Without a QGuiApplication there are no
/// fonts, and `font` comes back.
///
/// Made to be called for every symbol of every picture: a repeated question costs a comparison. The result stays valid
/// until the next call on the same thread.
[[nodiscard]] TESSERA_CORE_EXPORT const SymbolGlyph &ResolveSymbol(const TFont &font, int shape);

}  // namespace tessera::detail
