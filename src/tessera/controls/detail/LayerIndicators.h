// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPointF>
#include <QSize>

class QPainter;

namespace tessera::detail {

inline constexpr int LayerIndicatorCount = 8;
inline constexpr QSize LayerIndicatorSizePx(16, 13);

/// Draws one of the eight pictures of a layer's switches, `LayerIndicatorSizePx` big, at whatever resolution the
/// painter has: an eye (0 on, 1 off), a pencil (2, 3: editable), an arrow (4, 5: selectable), a label (6, 7). On is
/// solid, off is a pale outline, so that the two differ in more than their colour.
/// @pre 0 <= index < LayerIndicatorCount
void PaintLayerIndicator(QPainter &painter, const QPointF &topLeft, int index, const QColor &color);

}  // namespace tessera::detail
