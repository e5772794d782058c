// SPDX-License-Identifier: MIT
#include <tessera/layers/detail/IndexBox.h>

namespace tessera::detail {

bool IndexBox::IsContainedBy(const TCustomMapObject &object) const {
  switch (object.GetBoxContainment()) {
    case TBoxContainment::ByBounds:
      return HasCornersIn(object.GetBounds());
    case TBoxContainment::Never:
      return false;
    case TBoxContainment::Refined:
      break;
  }
  if (!m_object) {
    m_object = std::make_unique<TCustomMapObject>();
    TMapPoints &corners = m_object->GetParts().Add().GetPoints();
    corners.Add(m_corners.MinX, m_corners.MinY);
    corners.Add(m_corners.MinX, m_corners.MaxY);
    corners.Add(m_corners.MaxX, m_corners.MaxY);
    corners.Add(m_corners.MaxX, m_corners.MinY);
  }
  return object.Contains(*m_object);
}

bool IndexBox::Meets(const TCustomMapObject &object) const {
  bool hasVertices = false;
  for (const TPart &part : object.GetParts().Items()) {
    for (const TMapPoint &point : part.GetPoints().Points()) {
      if (m_bounds.ContainsPoint(point.X, point.Y)) return true;
      hasVertices = true;
    }
  }
  return !hasVertices || IsContainedBy(object);
}

}  // namespace tessera::detail
