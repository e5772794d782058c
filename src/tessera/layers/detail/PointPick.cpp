// SPDX-License-Identifier: MIT
#include <tessera/layers/detail/PointPick.h>

#include <algorithm>
#include <cmath>

namespace tessera::detail {

PointPick::PointPick(const TViewport &viewport, const TMapPoint &point, int tolerancePx)
    : m_point(point), m_tolerancePx(std::max(tolerancePx, 0)) {
  if (m_tolerancePx == 0) return;
  const auto reach = double(std::fabs(tolerancePx / viewport.GetScale().Kx));
  m_box = {point.X - reach, point.Y - reach, point.X + reach, point.Y + reach};
}

bool PointPick::Hits(const TCustomMapObject &object) const {
  if (object.ContainsPoint(m_point.X, m_point.Y)) return true;
  return m_tolerancePx > 0 && (object.IntersectsRect(m_box.MinX, m_box.MinY, m_box.MaxX, m_box.MaxY) ||
                               object.WithinRect(m_box.MinX, m_box.MinY, m_box.MaxX, m_box.MaxY));
}

}  // namespace tessera::detail
