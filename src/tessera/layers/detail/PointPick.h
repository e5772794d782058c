// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/geometry/TViewport.h>
#include <tessera/objects/TCustomMapObject.h>

namespace tessera::detail {

/// A map point, with the box about it that an object need only touch to be hit.
class TESSERA_CORE_EXPORT PointPick {
 public:
  /// Without a tolerance the view is of no account.
  PointPick(const TViewport &viewport, const TMapPoint &point, int tolerancePx);

  [[nodiscard]] const TMapPoint &GetPoint() const { return m_point; }
  [[nodiscard]] int GetTolerancePx() const { return m_tolerancePx; }
  [[nodiscard]] bool Hits(const TCustomMapObject &object) const;

 private:
  TMapPoint m_point;
  int m_tolerancePx;
  TBounds m_box{};
};

}  // namespace tessera::detail
