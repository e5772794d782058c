// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>
#include <tessera/geometry/TViewport.h>

namespace tessera::detail {

/// A turn of the map plane about a centre. A positive angle turns the map clockwise as seen on the screen.
class TESSERA_WIDGETS_EXPORT MapRotation {
 public:
  /// No turn at all. The coefficients are zero, as before any rotation.
  MapRotation() = default;
  MapRotation(double x, double y, double angleDeg);

  [[nodiscard]] double GetAngle() const { return m_angleDeg; }
  [[nodiscard]] TMapPoint GetCenter() const { return m_center; }

  [[nodiscard]] TMapPoint Rotate(double x, double y) const { return Turn(m_forward, x, y); }
  [[nodiscard]] TMapPoint UnRotate(double x, double y) const { return Turn(m_backward, x, y); }
  /// Makes the forward turn the backward one, as undoing a rotation does.
  void TurnBack() { m_forward = m_backward; }
  /// Forgets angle and centre; the coefficients stay as they are.
  void Reset();

 private:
  struct Coefficients {
    double sine = 0;
    double cosine = 0;
  };
  [[nodiscard]] TMapPoint Turn(const Coefficients &by, double x, double y) const;

  double m_angleDeg = 0;
  TMapPoint m_center{0, 0};
  Coefficients m_forward;
  Coefficients m_backward;
};

}  // namespace tessera::detail
