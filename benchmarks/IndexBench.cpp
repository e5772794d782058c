// SPDX-License-Identifier: MIT
#include "IndexBench.h"

#include "HeapUse.h"

// What Boost 1.74 warns of is not ours to mend.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
#pragma GCC diagnostic ignored "-Wshadow"
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#include <algorithm>
#include <boost/geometry.hpp>
#include <boost/geometry/index/rtree.hpp>
#include <cmath>
#include <memory>
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

/// The ids of the boxes that meet the window.
void Query(const Tree &tree, const TBounds &window, std::vector<Tree::value_type> &found) {
  found.clear();
  tree.query(bg::index::intersects(BoxOf(window)), std::back_inserter(found));
}

/// The same, and then only those whose objects pass the tests that the layer makes.
void QueryExactly(const Tree &tree, const TMapLayer &layer, const TBounds &window,
                  std::vector<Tree::value_type> &found) {
  Query(tree, window, found);
  std::erase_if(found, [&](const Tree::value_type &each) {
    const TCustomMapObject &object = *layer.GetObjects(int(each.second));
    return !object.IntersectsRect(window.MinX, window.MinY, window.MaxX, window.MaxY) &&
           !object.WithinRect(window.MinX, window.MinY, window.MaxX, window.MaxY);
  });
}

}  // namespace

void IndexBench::Run(int buildRuns, int queryRuns) {
  MeasureBuild(buildRuns);
  MeasureMemory();
  MeasureQueries(0.0001, QStringLiteral("1000 windows of 0.01 %"), queryRuns);
  MeasureQueries(0.01, QStringLiteral("1000 windows of 1 %"), queryRuns);
}

void IndexBench::MeasureBuild(int runs) {
  // For an index of outlines; one of points should take no longer than the reference.
  constexpr double Target = 5;
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

void IndexBench::MeasureMemory() {
  const auto objects = double(m_layer.GetObjectCount());
  const auto bytesOf = [objects](const auto &make) {
    const std::size_t before = HeapUse();
    const auto kept = make();
    const std::size_t after = HeapUse();
    static_cast<void>(kept);
    return double(after - before) / objects;
  };
  m_layer.SetUseIndex2D(false);
  m_layer.GetIndex2D()->Clear();
  const double ours = bytesOf([this] {
    m_layer.SetUseIndex2D(true);
    return nullptr;
  });
  const double reference = bytesOf([this] { return std::make_unique<Tree>(MakeTree(m_layer)); });
  m_table.Measure({m_label + QStringLiteral(" index memory"),
                   QStringLiteral("bytes/object"),
                   [ours] { return ours; },
                   [reference] { return reference; },
                   {}},
                  1);
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
  constexpr double Target = 2;
  const std::vector<TBounds> windows = MakeWindows(shareOfArea);
  const Tree tree = MakeTree(m_layer);
  TCardinalArray ids;
  std::vector<Tree::value_type> found;
  const auto each = [&windows](const auto &query) {
    return [&windows, query] {
      return MillisecondsPerSecond * SecondsOf([&] { std::for_each(windows.begin(), windows.end(), query); });
    };
  };
  const TIndexCell &index = *m_layer.GetIndex2D();
  m_table.Measure({m_label + u' ' + title, QStringLiteral("ms"),
                   each([&](const TBounds &window) { index.GetAllIdsInRect(Bounds2CellBounds(window), ids); }),
                   each([&](const TBounds &window) { Query(tree, window, found); }), Target},
                  runs);
  m_table.Measure({m_label + u' ' + title + QStringLiteral(", with the exact tests"), QStringLiteral("ms"),
                   each([&](const TBounds &window) { m_layer.GetAllIdsInRect(Bounds2CellBounds(window), ids); }),
                   each([&](const TBounds &window) { QueryExactly(tree, m_layer, window, found); }), Target},
                  runs);
}

}  // namespace tessera::bench
#pragma GCC diagnostic pop
