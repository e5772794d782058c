// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/graphics/TFont.h>

#include <QPointF>

class QPainter;

namespace tessera {

// Letters as outlines, for painters whose resolution or fonts are not those of the screen: sizes are client pixels.

/// Fills letters with the font's colour; (0, 0) is their upper left corner.
TESSERA_CORE_EXPORT void FillLetters(QPainter &painter, const QString &text, const TFont &font);
/// The same with their middle at a point.
TESSERA_CORE_EXPORT void FillLettersCentred(QPainter &painter, const QString &text, const TFont &font,
                                            const QPointF &at);
/// Fills the sign that a symbol font's character stands for, with its middle at a point; where the family is not
/// installed, that of the library's own symbol font.
TESSERA_CORE_EXPORT void FillSymbol(QPainter &painter, int shape, const TFont &font, const QPointF &at);

}  // namespace tessera
