// SPDX-License-Identifier: MIT
#include <tessera/geometry/PolySplitter.h>
#include <tessera/objects/detail/RectTests.h>

#include <array>

namespace tessera::detail {
namespace {

using Corners = std::array<TPointEx, 4>;

Corners CornersOf(const TBounds &r) {
  return {PointEx(r.MinX, r.MinY), PointEx(r.MaxX, r.MinY), PointEx(r.MaxX, r.MaxY), PointEx(r.MinX, r.MaxY)};
}

bool HasCornerIn(const TBounds &r, const TBounds &other) {
  return other.ContainsPoint(r.MinX, r.MinY) || other.ContainsPoint(r.MaxX, r.MinY) ||
         other.ContainsPoint(r.MaxX, r.MaxY) || other.ContainsPoint(r.MinX, r.MaxY);
}

bool SidesCross(const Corners &a, const Corners &b) {
  TVectorOperations side;
  for (std::size_t i = 0; i < a.size(); ++i) {
    side.SetVector(VectorEx(a[i], a[(i + 1) % a.size()]));
    for (std::size_t j = 0; j < b.size(); ++j) {
      TPointEx crossing{};
      if (side.IsIntersected(VectorEx(b[j], b[(j + 1) % b.size()]), crossing) &&
          side.IsPointInsideBoundsRect(crossing)) {
        return true;
      }
    }
  }
  return false;
}

}  // namespace

bool CornersOrSidesMeet(const TBounds &bounds, const TBounds &rect) {
  return HasCornerIn(rect, bounds) || HasCornerIn(bounds, rect) || SidesCross(CornersOf(bounds), CornersOf(rect));
}

bool BoundsMeetRect(const TBounds &bounds, const TBounds &rect) {
  if (bounds == TBounds::Empty()) return false;
  if (bounds.IsInverted() || rect.IsInverted()) return CornersOrSidesMeet(bounds, rect);
  return bounds.MinX <= rect.MaxX && rect.MinX <= bounds.MaxX && bounds.MinY <= rect.MaxY && rect.MinY <= bounds.MaxY;
}

}  // namespace tessera::detail
