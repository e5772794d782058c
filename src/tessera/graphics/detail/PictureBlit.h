// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/graphics/detail/RasterOps.h>

#include <QImage>

#include <optional>

namespace tessera::detail {

/// What is copied onto a surface.
struct BlitSource {
  const QImage &image;
  DeviceRect rect;                  ///< In pixels of the image; what lies outside the image is not copied.
  std::optional<QRgb> transparent;  ///< Pixels of this colour are not copied.
};

/// Copies the source, scaled to `dest`, by taking for each pixel the one that its upper left corner falls on; which one
/// that is does not depend on how much of `dest` is visible. Time is bounded by what is visible.
/// The image must not share its memory with the surface.
void BlitScaled(const Surface &surface, const DeviceRect &dest, const BlitSource &source);

}  // namespace tessera::detail
