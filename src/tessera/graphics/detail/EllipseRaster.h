// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/graphics/detail/Stroker.h>

namespace tessera::detail {

/// Draws the ellipse that touches the sides of `rect`: the outline with `pen`, what lies within with `fill`; the gaps
/// of a dashed outline belong to the inside. Each pixel is touched once. Time is bounded by the surface.
void DrawEllipse(const Surface &surface, const DeviceRect &rect, const DevicePen &pen, const Fill &fill);

}  // namespace tessera::detail
