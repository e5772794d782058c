// SPDX-License-Identifier: MIT
#include <tessera/layers/TMapLayer.h>
#include <tessera/layers/detail/IndexBuilder.h>
#include <tessera/layers/detail/IndexPoints.h>
#include <tessera/layers/detail/IndexShapes.h>

namespace tessera::detail {
namespace {

template <class Content>
std::unique_ptr<IndexTree> Divide(Content &content, const TCellBounds &bounds, std::size_t vertices) {
  auto tree = std::make_unique<IndexTree>(bounds);
  const CellRange all = content.GetAll();
  if (!CellDivider<Content>(content, *tree, all.count, vertices).Divide(bounds, 0, all)) return nullptr;
  tree->Finish();
  return tree;
}

}  // namespace

std::unique_ptr<IndexTree> BuildIndexTree(const TMapLayer *layer, const TCellBounds &bounds,
                                          std::span<const std::uint32_t> ids) {
  const auto count = std::uint32_t(layer ? layer->GetObjectCount() : 0);
  IndexPoints points(bounds);
  points.Reserve(ids.size());
  const auto isPoint = [&](std::uint32_t id) { return id >= count || points.Add(*layer->GetObjects(int(id)), id); };
  if (IsOrdinaryCell(bounds) && std::all_of(ids.begin(), ids.end(), isPoint)) {
    return Divide(points, bounds, points.GetAll().count);
  }
  IndexShapes shapes;
  for (const std::uint32_t id : ids) {
    if (id < count) shapes.Add(*layer->GetObjects(int(id)), id);
  }
  return Divide(shapes, bounds, shapes.CountVertices());
}

}  // namespace tessera::detail
