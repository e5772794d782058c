// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/geometry/TViewport.h>

#include <QPoint>

#include <optional>

namespace tessera::detail {

// What Shift makes of the way of the mouse, in client pixels.

/// The way from a map point to a pixel; none when it is so long that there is no bending it on the screen.
[[nodiscard]] std::optional<QPoint> WayTo(const TViewport &viewport, const TMapPoint &from, const QPoint &to);
/// The way along the nearest of the eight directions.
[[nodiscard]] QPoint KeptToDirections(const QPoint &way);
/// The diagonal of a square, as wide as the longer side of the way.
[[nodiscard]] QPoint KeptToSquare(const QPoint &way);
/// The map point at the end of a way that begins at a map point; a coordinate along which the way does not go stays to
/// the bit. @throws EZeroDivide when the scale is zero or undefined.
[[nodiscard]] TMapPoint EndOfWay(const TViewport &viewport, const TMapPoint &from, const QPoint &way);

}  // namespace tessera::detail
