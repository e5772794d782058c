// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>
#include <tessera/base/TBounds.h>
#include <tessera/base/TMapPoint.h>

#include <QPoint>

#include <cstdint>
#include <span>

namespace tessera {

/// What the view of a map shows: the one place that converts between map units and client pixels and that knows that
/// y points up on the map and down on the screen.
///
/// The scale is the client width over the width of the reference extent, times the zoom; the height plays no part, and
/// the view is isotropic. Conversions are exact to long double and round halves to even; converting an array gives the
/// same pixels as converting its points one by one.
struct TESSERA_CORE_EXPORT TViewport {
  double MinX = -180;
  double MinY = -90;
  double MaxX = 180;
  double MaxY = 90;
  double CenterX = 0;
  double CenterY = 0;
  double Zoom = 1;
  int ClientWidth = 0;
  int ClientHeight = 0;

  /// Pixels per map unit. @throws EZeroDivide for an extent without width or height.
  struct Scale {
    long double Kx;
    long double Ky;
  };
  [[nodiscard]] Scale GetScale() const;

  /// @throws EZeroDivide when the scale is zero or undefined.
  [[nodiscard]] TMapPoint ScreenToMap(int x, int y) const;
  /// The pixel of a map point; coordinates beyond 32 bits (and not-a-number) are pinned to the nearest integer there
  /// is.
  [[nodiscard]] QPoint MapToScreen(double mx, double my) const;
  /// As above, pinned only beyond what any computation with pixels needs.
  struct FarPixel {
    std::int64_t x;
    std::int64_t y;
  };
  [[nodiscard]] FarPixel MapToFarScreen(double mx, double my) const;
  /// As MapToScreen, but a point outside the view is pinned one pixel outside the client rectangle on the side where it
  /// lies.
  /// @throws ERangeError when the result does not fit 32 bits.
  [[nodiscard]] QPoint MapToScreenClipped(double mx, double my) const;
  /// The map point that lies `right` and `down` pixels from the pixel of a map point. Pixels are pinned as in
  /// MapToScreen.
  /// @throws EZeroDivide when the scale is zero or undefined.
  [[nodiscard]] TMapPoint MovedByPixels(const TMapPoint &point, std::int64_t right, std::int64_t down) const;
  /// The pixels of all points; `out` has room for as many.
  void MapToScreen(std::span<const TMapPoint> points, QPoint *out) const;
  /// What the client rectangle shows.
  [[nodiscard]] TBounds GetViewBounds() const;

  bool operator==(const TViewport &) const = default;
};

}  // namespace tessera
