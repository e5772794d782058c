// SPDX-License-Identifier: MIT
#include "IndexBench.h"

// What Boost 1.74 warns of is not ours to mend.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
#pragma GCC diagnostic ignored "-Wshadow"
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#include <boost/geometry.hpp>
#include <boost/geometry/index/rtree.hpp>
#include <cmath>
#include <random>

namespace tessera::bench {
namespace {

namespace bg = boost::geometry;
using Box = bg::model::box<bg::model::point<double, 2, bg::cs::cartesian>>;
using Tree = bg::index::rtree<std::pair<Box, std::uint32_t>, bg::index::rstar<16>>;

constexpr int Windows = 1000;
constexpr double MillisecondsPerSecond = 1000;

Box BoxOf(const TBounds &bounds) {
  return {{bounds.MinX, bounds.MinY}, {bounds.MaxX, bounds.MaxY}};
}

/// The tree over the bounds of all objects, packed.
Tree MakeTree(const TMapLayer &layer) {
  std::vector<Tree::value_type> boxes;
  boxes.reserve(std::size_t(layer.GetObjectCount()));
  for (int id = 0; id < layer.GetObjectCount(); ++id) {
    boxes.emplace_back(BoxOf(layer.GetObjects(id)->GetBounds()), std::uint32_t(id));
  }
  return Tree(boxes.begin(), boxes.end());
}

/// The ids of the objects that lie in the window or meet it, by the tree and the tests that the layer uses.
void Query(const Tree &tree, const TMapLayer &layer, const TBounds &window, std::vector<std::uint32_t> &ids) {
  ids.clear();
  for (auto it = tree.qbegin(bg::index::intersects(BoxOf(window))); it != tree.qend(); ++it) {
    const TCustomMapObject &object = *layer.GetObjects(int(it->second));
    if (object.IntersectsRect(window.MinX, window.MinY, window.MaxX, window.MaxY) ||
        object.WithinRect(window.MinX, window.MinY, window.MaxX, window.MaxY)) {
      ids.push_back(it->second);
    }
  }
}

}  // namespace

void IndexBench::Run(int buildRuns, int queryRuns) {
  MeasureBuild(buildRuns);
  m_layer.SetUseIndex2D(true);
  MeasureQueries(0.0001, QStringLiteral("1000 windows of 0.01 %"), queryRuns);
  MeasureQueries(0.01, QStringLiteral("1000 windows of 1 %"), queryRuns);
}

void IndexBench::MeasureBuild(int runs) {
  constexpr double Target = 25;
  const auto ours = [this] {
    m_layer.SetUseIndex2D(false);
    m_layer.GetIndex2D()->Clear();
    return MillisecondsPerSecond * SecondsOf([this] { m_layer.SetUseIndex2D(true); });
  };
  const auto reference = [this] {
    Tree tree;
    return MillisecondsPerSecond * SecondsOf([&] { tree = MakeTree(m_layer); });
  };
  m_table.Measure({m_label + QStringLiteral(" index build"), QStringLiteral("ms"), ours, reference, Target}, runs);
}

std::vector<TBounds> IndexBench::MakeWindows(double shareOfArea) const {
  const TBounds extent = CellBounds2Bounds(m_layer.GetIndex2D()->GetBounds());
  const double share = std::sqrt(shareOfArea);
  const double width = (extent.MaxX - extent.MinX) * share;
  const double height = (extent.MaxY - extent.MinY) * share;
  std::mt19937 engine(1);
  std::uniform_real_distribution<double> left(extent.MinX, extent.MaxX - width);
  std::uniform_real_distribution<double> bottom(extent.MinY, extent.MaxY - height);
  std::vector<TBounds> windows;
  for (int i = 0; i < Windows; ++i) {
    const double x = left(engine);
    const double y = bottom(engine);
    windows.push_back({x, y, x + width, y + height});
  }
  return windows;
}

void IndexBench::MeasureQueries(double shareOfArea, const QString &title, int runs) {
  constexpr double Target = 3;
  const std::vector<TBounds> windows = MakeWindows(shareOfArea);
  const auto ours = [&] {
    TCardinalArray ids;
    return MillisecondsPerSecond * SecondsOf([&] {
             for (const TBounds &window : windows) m_layer.GetAllIdsInRect(Bounds2CellBounds(window), ids);
           });
  };
  const Tree tree = MakeTree(m_layer);
  const auto reference = [&] {
    std::vector<std::uint32_t> ids;
    return MillisecondsPerSecond * SecondsOf([&] {
             for (const TBounds &window : windows) Query(tree, m_layer, window, ids);
           });
  };
  m_table.Measure({m_label + u' ' + title, QStringLiteral("ms"), ours, reference, Target}, runs);
}

}  // namespace tessera::bench
#pragma GCC diagnostic pop
