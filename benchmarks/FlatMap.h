// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/TBounds.h>

#include <QRgb>

#include <cstdint>
#include <span>
#include <vector>

namespace tessera::bench {

enum class FlatKind : std::uint8_t { Ring, Line, Point };

/// One ring, line or point: where its vertices are, the box around them and the colour it is drawn in.
struct FlatShape {
  std::size_t firstVertex;
  std::size_t vertexCount;
  TBounds box;
  QRgb color;
  FlatKind kind;
};

struct FlatVertex {
  double x;
  double y;
};

/// A map as the plainest program would keep it for drawing: all vertices in one array.
class FlatMap {
 public:
  void Add(FlatKind kind, QRgb color, std::span<const FlatVertex> vertices);

  [[nodiscard]] const std::vector<FlatShape> &Shapes() const { return m_shapes; }
  [[nodiscard]] std::span<const FlatVertex> VerticesOf(const FlatShape &shape) const {
    return std::span(m_vertices).subspan(shape.firstVertex, shape.vertexCount);
  }
  [[nodiscard]] const TBounds &Box() const { return m_box; }
  [[nodiscard]] bool HasOnlyPoints() const;
  /// How large points are drawn.
  [[nodiscard]] int GetSymbolSize() const { return m_symbolSizePx; }
  void SetSymbolSize(int sizePx) { m_symbolSizePx = sizePx; }

 private:
  std::vector<FlatVertex> m_vertices;
  std::vector<FlatShape> m_shapes;
  TBounds m_box = TBounds::Empty();
  int m_symbolSizePx = 11;
};

}  // namespace tessera::bench
