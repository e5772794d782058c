// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/graphics/TFont.h>

#include <QPointF>

class QPainter;

namespace tessera::detail {

// Letters as outlines, for painters whose resolution or fonts are not those of the screen: sizes are client pixels.

/// Fills letters with the font's colour; (0, 0) is their upper left corner.
TESSERA_CORE_EXPORT void FillLetters(QPainter &painter, const QString &text, const TFont &font);
/// The same with their middle at a point.
TESSERA_CORE_EXPORT void FillLettersCentred(QPainter &painter, const QString &text, const TFont &font,
                                            const QPointF &at);

}  // namespace tessera::detail
