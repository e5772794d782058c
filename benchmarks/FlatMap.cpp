// SPDX-License-Identifier: MIT
#include "FlatMap.h"

namespace tessera::bench {

void FlatMap::Add(FlatKind kind, QRgb color, std::span<const FlatVertex> vertices) {
  FlatShape shape = {m_vertices.size(), vertices.size(), TBounds::Empty(), color, kind};
  for (const FlatVertex &vertex : vertices) shape.box.Widen(vertex.x, vertex.y);
  m_vertices.insert(m_vertices.end(), vertices.begin(), vertices.end());
  m_box.Widen(shape.box);
  m_shapes.push_back(shape);
}

bool FlatMap::HasOnlyPoints() const {
  return std::all_of(m_shapes.begin(), m_shapes.end(), [](const FlatShape &s) { return s.kind == FlatKind::Point; });
}

}  // namespace tessera::bench
