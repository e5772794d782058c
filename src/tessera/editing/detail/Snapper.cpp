// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/editing/detail/Snapper.h>
#include <tessera/geometry/detail/EdgesNear.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRectangle.h>

#include <array>
#include <cmath>
#include <vector>

namespace tessera::detail {
namespace {

constexpr std::size_t MostEdges = 1000;  // whose pairs are looked at in a millisecond

struct Edge {
  TMapPoint from;
  TMapPoint to;
};

/// The nearest of some points to one of them.
class Nearest {
 public:
  Nearest(const TMapPoint &to, double reach) : m_to(to), m_square(reach * reach) {}

  void Offer(const TMapPoint &point) {
    const double square = SquareOfDistance(point, m_to);
    if (!(square <= m_square) || (m_found && square == m_square)) return;
    m_square = square;
    m_found = point;
  }
  [[nodiscard]] const std::optional<TMapPoint> &Get() const { return m_found; }

 private:
  TMapPoint m_to;
  double m_square;
  std::optional<TMapPoint> m_found;
};

std::optional<TMapPoint> IntersectionOf(const Edge &one, const Edge &other) {
  const TMapPoint way{one.to.X - one.from.X, one.to.Y - one.from.Y};
  const TMapPoint otherWay{other.to.X - other.from.X, other.to.Y - other.from.Y};
  const double cross = way.X * otherWay.Y - way.Y * otherWay.X;
  if (cross == 0) return std::nullopt;
  const TMapPoint between{other.from.X - one.from.X, other.from.Y - one.from.Y};
  const double share = (between.X * otherWay.Y - between.Y * otherWay.X) / cross;
  const double otherShare = (between.X * way.Y - between.Y * way.X) / cross;
  const auto isOn = [](double at) { return at >= 0 && at <= 1; };
  const auto isEnd = [](double at) { return at == 0 || at == 1; };
  if (!isOn(share) || !isOn(otherShare) || (isEnd(share) && isEnd(otherShare))) return std::nullopt;
  return TMapPoint{one.from.X + share * way.X, one.from.Y + share * way.Y};
}

/// What of the objects lies near a place.
class Surroundings {
 public:
  Surroundings(const TMapPoint &at, double reach)
      : m_at(at),
        m_reach(reach),
        m_box{at.X - reach, at.Y - reach, at.X + reach, at.Y + reach},
        m_vertex(at, reach),
        m_edge(at, reach) {}

  void Add(const TMapLayer &layer, const SnapFilter &filter) {
    TCardinalArray ids;
    try {
      layer.GetAllIdsInRect(Bounds2CellBounds(m_box), ids);
    } catch (const ERangeError &) {
      return;  // a stale index, of which the message sink is told elsewhere
    }
    for (const std::uint32_t id : ids.Ids()) {
      const TCustomMapObject &object = *layer.GetObjects(int(id));
      if (filter(object)) Add(object);
    }
  }
  [[nodiscard]] const std::optional<TMapPoint> &GetVertex() const { return m_vertex.Get(); }
  [[nodiscard]] const std::optional<TMapPoint> &GetEdgePoint() const { return m_edge.Get(); }
  [[nodiscard]] std::optional<TMapPoint> FindIntersection() const {
    Nearest nearest(m_at, m_reach);
    if (m_edges.size() > MostEdges) return std::nullopt;
    for (std::size_t i = 0; i < m_edges.size(); ++i) {
      for (std::size_t other = i + 1; other < m_edges.size(); ++other) {
        if (const auto point = IntersectionOf(m_edges[i], m_edges[other])) nearest.Offer(*point);
      }
    }
    return nearest.Get();
  }

 private:
  void Add(const TCustomMapObject &object) {
    if (const auto *rectangle = dynamic_cast<const TRectangle *>(&object)) {
      const TBounds box = rectangle->GetCorners();
      const std::array<TMapPoint, 5> ring{{{box.MinX, box.MinY},
                                           {box.MaxX, box.MinY},
                                           {box.MaxX, box.MaxY},
                                           {box.MinX, box.MaxY},
                                           {box.MinX, box.MinY}}};
      return Add(VertexRuns(ring));
    }
    for (const TPart &part : object.GetParts().Items()) Add(part.GetPoints().GetRuns());
  }
  void Add(const VertexRuns &runs) {
    const auto points = runs.Points();
    if (points.size() == 1) m_vertex.Offer(points[0]);
    ForEdgesNear(runs, m_box, [&](std::size_t first) { Add({points[first], points[first + 1]}); });
  }
  void Add(const Edge &edge) {
    m_vertex.Offer(edge.from);
    m_vertex.Offer(edge.to);
    const TMapPoint nearest = NearestOnEdge(edge.from, edge.to, m_at);
    m_edge.Offer(nearest);
    const bool isWithinReach = SquareOfDistance(nearest, m_at) <= m_reach * m_reach;
    if (isWithinReach && m_edges.size() <= MostEdges) m_edges.push_back(edge);
  }

  TMapPoint m_at;
  double m_reach;
  TBounds m_box;
  Nearest m_vertex;
  Nearest m_edge;
  std::vector<Edge> m_edges;  // no more than one too many
};

std::optional<TMapPoint> FindGridPoint(const TMapPoint &at, double reach, double step) {
  Nearest nearest(at, reach);
  nearest.Offer({std::round(at.X / step) * step, std::round(at.Y / step) * step});
  return nearest.Get();
}

}  // namespace

std::optional<SnapPlace> FindSnapPlace(const TMapLayers &layers, const TMapPoint &at, double reach,
                                       const SnapRules &rules, const SnapFilter &filter) {
  if (!rules.AreAny()) return std::nullopt;
  Surroundings near(at, reach);
  if (rules.toVertices || rules.toIntersections || rules.toEdges) {
    for (const auto &layer : layers.Items()) {
      if (layer->GetVisible() && layer->ValidZoom()) near.Add(*layer, filter);
    }
  }
  const auto choose = [](SnapKind kind, const std::optional<TMapPoint> &point) {
    return point ? std::optional(SnapPlace{kind, *point}) : std::nullopt;
  };
  std::optional<SnapPlace> place;
  if (rules.toVertices) place = choose(SnapKind::Vertex, near.GetVertex());
  if (!place && rules.toIntersections) place = choose(SnapKind::Intersection, near.FindIntersection());
  if (!place && rules.toEdges) place = choose(SnapKind::Edge, near.GetEdgePoint());
  if (!place && rules.gridStep > 0) place = choose(SnapKind::Grid, FindGridPoint(at, reach, rules.gridStep));
  return place;
}

}  // namespace tessera::detail
