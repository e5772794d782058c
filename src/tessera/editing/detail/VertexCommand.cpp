// SPDX-License-Identifier: MIT
#include <tessera/base/GuardedCall.h>
#include <tessera/editing/detail/ObjectState.h>
#include <tessera/editing/detail/VertexCommand.h>

#include <algorithm>
#include <utility>

namespace tessera::detail {
namespace {

/// Takes a step and answers the one back.
VertexStep Take(const VertexStep &step, std::vector<TMapPoint> &vertices) {
  const auto at = vertices.begin() + std::ptrdiff_t(step.index);
  switch (step.kind) {
    case VertexStep::Set:
      return {VertexStep::Set, step.index, std::exchange(*at, step.point)};
    case VertexStep::Insert:
      vertices.insert(at, step.point);
      return {VertexStep::Remove, step.index};
    default: {
      const TMapPoint gone = *at;
      vertices.erase(at);
      return {VertexStep::Insert, step.index, gone};
    }
  }
}

void SetVertices(TPart &part, const std::vector<TMapPoint> &vertices) {
  TMapPoints points;
  points.AppendInPlace(vertices.size(), [&vertices](TMapPoint *first, TBounds &bounds) {
    for (const TMapPoint &vertex : vertices) bounds.Widen(vertex.X, vertex.Y);
    std::copy(vertices.begin(), vertices.end(), first);
    return vertices.size();
  });
  part.SetPoints(std::move(points));
}

}  // namespace

VertexChange::VertexChange(const TCustomMapObject &object, int part, std::vector<VertexStep> steps)
    : m_part(part), m_count(object.GetParts().GetItems(part).GetPoints().Points().size()), m_steps(std::move(steps)) {}

bool VertexChange::Fits(const TCustomMapObject &object) const {
  const auto parts = object.GetParts().Items();
  return std::size_t(m_part) < parts.size() && parts[std::size_t(m_part)].GetPoints().Points().size() == m_count;
}

void VertexChange::Exchange(TCustomMapObject &object) {
  TPart &part = object.GetParts().GetItems(m_part);
  const auto points = std::as_const(part).GetPoints().Points();
  std::vector<TMapPoint> vertices(points.begin(), points.end());
  for (VertexStep &step : m_steps) step = Take(step, vertices);
  std::reverse(m_steps.begin(), m_steps.end());
  m_count = vertices.size();
  const TBounds present = object.GetBounds();
  SetVertices(part, vertices);
  if (m_bounds) {
    object.GetParts().SetBounds(*m_bounds);
  } else {
    object.UpdateBounds();
  }
  m_bounds = present;
}

bool VertexCommand::Exchange() {
  if (!m_object || !m_change.Fits(*m_object.Get())) return false;
  const THandle<TMapLayers> layers(GetLayers());
  m_change.Exchange(*m_object.Get());
  AllSteps steps;
  steps.Try([this] { TellOfGeometry(*m_object.Get()); });
  UpdateMapOf(layers);
  steps.Rethrow();
  return true;
}

}  // namespace tessera::detail
