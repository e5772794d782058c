// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/geometry/TViewport.h>

#include <QSizeF>

#include <algorithm>
#include <cmath>
#include <limits>

namespace tessera::detail {

/// The conversion of a viewport from map points to pixels, made ready for many points: in doubles, which settle a pixel
/// unless the position lies too near to the middle between two; then the viewport decides. For positions and half sizes
/// of the client up to MaxPosition the error of the few operations in doubles stays far below TieMargin.
class PixelTransform {
 public:
  explicit PixelTransform(const TViewport &viewport) : PixelTransform(viewport, viewport.GetScale()) {}

  [[nodiscard]] QPoint operator()(const TMapPoint &point) const {
    QPoint pixel;
    if (!Settle(point, pixel)) pixel = m_viewport.MapToScreen(point.X, point.Y);
    return pixel;
  }
  /// The pixel, unless the answer is false.
  bool Settle(const TMapPoint &point, QPoint &pixel) const {
    const double x = m_halfWidth + (point.X - m_viewport.CenterX) * m_kx;
    const double y = m_halfHeight - (point.Y - m_viewport.CenterY) * m_ky;
    // Positions out of range (not-a-number included) must not reach the conversion to int.
    const bool inRange = Both(std::abs(x) < m_maxPosition, std::abs(y) < m_maxPosition);
    int px = 0;
    int py = 0;
    const bool isSettled = Both(Round(inRange ? x : 0.0, px), Round(inRange ? y : 0.0, py));
    pixel = QPoint(px, py);
    return Both(inRange, isSettled);
  }

  /// The largest rectangle in map units of which every point surely has a pixel at most `level` away from `pixel` along
  /// both axes; an inverted one when there is none.
  [[nodiscard]] TBounds PlacesWithin(const QPoint &pixel, int level) const {
    const bool isNear = std::abs(double(pixel.x())) < m_maxPosition && std::abs(double(pixel.y())) < m_maxPosition;
    if (!isNear || !(m_marginX < 1 && m_marginY < 1)) return TBounds::Empty();
    const double reachX = level + 0.5 - m_marginX;
    const double reachY = level + 0.5 - m_marginY;
    const double x = (pixel.x() - m_halfWidth) * m_unitsX + m_viewport.CenterX;
    const double y = (m_halfHeight - pixel.y()) * m_unitsY + m_viewport.CenterY;
    return {x - reachX * m_unitsX, y - reachY * m_unitsY, x + reachX * m_unitsX, y + reachY * m_unitsY};
  }
  /// Points in a rectangle of less than this size, in map units, surely have pixels at most `level` apart along both
  /// axes. Empty when there is no such size.
  [[nodiscard]] QSizeF SizeWithin(int level) const {
    if (!(m_marginX < 1 && m_marginY < 1)) return {};
    return {(level - 2 * m_marginX) * m_unitsX, (level - 2 * m_marginY) * m_unitsY};
  }

 private:
  static constexpr double MaxPosition = 1e6;
  static constexpr double TieMargin = 1e-8;
  /// Adding and taking away 1.5 * 2^52 rounds to an integer, halves to even.
  static constexpr double RoundingShift = 6755399441055744.0;

  PixelTransform(const TViewport &viewport, const TViewport::Scale &scale)
      : m_viewport(viewport),
        m_kx(double(scale.Kx)),
        m_ky(double(scale.Ky)),
        m_halfWidth(viewport.ClientWidth / 2.0),
        m_halfHeight(viewport.ClientHeight / 2.0),
        m_maxPosition(std::max(std::abs(m_halfWidth), std::abs(m_halfHeight)) < MaxPosition ? MaxPosition : 0),
        m_unitsX(1 / m_kx),
        m_unitsY(1 / m_ky),
        m_marginX(MarginOf(viewport.CenterX, m_kx)),
        m_marginY(MarginOf(viewport.CenterY, m_ky)) {}

  /// What places in map units may be off, in pixels: they are sums of numbers no larger than the centre and the size of
  /// the view. Infinite for a scale that is not positive.
  static double MarginOf(double center, double scale) {
    constexpr double Rounding = 16 * std::numeric_limits<double>::epsilon();
    constexpr double Least = 1e-6;
    return scale > 0 ? Least + Rounding * (std::abs(center) * scale + MaxPosition)
                     : std::numeric_limits<double>::infinity();
  }
  /// Both conditions, without a branch between them.
  static bool Both(bool a, bool b) { return (int(a) & int(b)) != 0; }
  /// False when the exact way has to decide.
  static bool Round(double position, int &pixel) {
    const double rounded = (position + RoundingShift) - RoundingShift;
    pixel = int(rounded);
    return Both(std::abs(position - rounded) < 0.5 - TieMargin, std::abs(position) < MaxPosition);
  }

  TViewport m_viewport;
  double m_kx, m_ky;
  double m_halfWidth, m_halfHeight;
  double m_maxPosition;  ///< 0 where doubles are not exact enough for this client.
  double m_unitsX, m_unitsY;
  double m_marginX, m_marginY;
};

}  // namespace tessera::detail
