// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/layers/TMapLayers.h>

#include <functional>
#include <optional>

namespace tessera::detail {

/// What points are drawn to.
struct SnapRules {
  bool toVertices = false;
  bool toIntersections = false;
  bool toEdges = false;
  /// In map units; 0 for no grid. Its lines run through (0, 0).
  double gridStep = 0;

  [[nodiscard]] bool AreAny() const { return toVertices || toIntersections || toEdges || gridStep > 0; }
};

/// In the order in which they go before each other, however near they are.
enum class SnapKind { Vertex, Intersection, Edge, Grid };

struct SnapPlace {
  SnapKind kind;
  TMapPoint point;
};

/// Which objects count.
using SnapFilter = std::function<bool(const TCustomMapObject &object)>;

/// The nearest place, of the first kind that has one, no further from a map point than `reach` map units, in the layers
/// shown. None without.
///
/// Vertices of rectangles are their four corners; circles have their centre, and symbols, texts and sprites the place
/// they stand on. Edges that end at the same vertex do not intersect there. Where more than 1000 edges lie within
/// reach, their intersections are not looked for. A layer whose spatial index is on shows what is in the index.
/// Cost: that of a query, and of the vertices near the place.
[[nodiscard]] TESSERA_CORE_EXPORT std::optional<SnapPlace> FindSnapPlace(const TMapLayers &layers, const TMapPoint &at,
                                                                         double reach, const SnapRules &rules,
                                                                         const SnapFilter &filter);

}  // namespace tessera::detail
