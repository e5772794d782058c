// SPDX-License-Identifier: MIT
// Edits of single vertices.
#include <tessera/base/Exceptions.h>
#include <tessera/base/GuardedCall.h>
#include <tessera/editing/TMapEdits.h>
#include <tessera/editing/detail/ObjectState.h>
#include <tessera/editing/detail/VertexCommand.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRegion.h>

namespace tessera {
namespace {

using detail::VertexStep;

std::span<const TMapPoint> VerticesOf(const TCustomMapObject &object, int part) {
  return object.GetParts().GetItems(part).GetPoints().Points();
}

bool IsArea(const TCustomMapObject &object) {
  return dynamic_cast<const TRegion *>(&object) != nullptr;
}

}  // namespace

bool TMapEdits::HasFreeVertices(const TCustomMapObject &object) {
  const bool isOutline = IsArea(object) || dynamic_cast<const TPolyline *>(&object) != nullptr;
  // The vertices of kinds with something of their own follow from that.
  return isOutline && object.GetTraits() == nullptr;
}

bool TMapEdits::IsRing(const TCustomMapObject &object, int part) {
  const auto vertices = VerticesOf(object, part);
  return vertices.size() > 1 && IsArea(object) && vertices.front() == vertices.back();
}

void TMapEdits::ChangeVertices(TCustomMapObject &object, const QString &text, detail::VertexChange change) const {
  const detail::BeforeEdit before = detail::NoteBefore(m_map);
  const THandle<TCustomMapObject> handle(&object);
  change.Exchange(object);
  AllSteps steps;
  steps.Try([&] { detail::TellOfGeometry(object); });
  detail::Record<detail::VertexCommand>(before, text, handle, std::move(change));
  detail::UpdateMapOf(before.layers);
  steps.Rethrow();
}

void TMapEdits::MoveVertex(TCustomMapObject &object, const TVertexPlace &place, const TMapPoint &to) {
  const std::size_t count = VerticesOf(object, place.part).size();
  const std::size_t at = CheckedIndex(place.vertex, count, "Point");
  std::vector<VertexStep> steps{{VertexStep::Set, at, to}};
  const bool isSeam = at == 0 || at + 1 == count;
  if (isSeam && IsRing(object, place.part)) steps.push_back({VertexStep::Set, count - 1 - at, to});
  ChangeVertices(object, tr("move vertex"), {object, place.part, std::move(steps)});
}

void TMapEdits::InsertVertex(TCustomMapObject &object, const TVertexPlace &before, const TMapPoint &point) {
  const std::size_t count = VerticesOf(object, before.part).size();
  std::size_t at = CheckedIndex(before.vertex, count + 1, "Point");
  if ((at == 0 || at == count) && IsRing(object, before.part)) at = count - 1;
  ChangeVertices(object, tr("insert vertex"), {object, before.part, {{VertexStep::Insert, at, point}}});
}

bool TMapEdits::DeleteVertex(TCustomMapObject &object, const TVertexPlace &place) {
  const auto vertices = VerticesOf(object, place.part);
  const std::size_t count = vertices.size();
  const std::size_t at = CheckedIndex(place.vertex, count, "Point");
  const bool isRing = IsRing(object, place.part);
  const std::size_t fewest = (IsArea(object) ? 3U : 2U) + (isRing ? 1U : 0U);
  if (count == 1 && object.GetParts().GetCount() > 1) {
    DeletePart(object, place.part);
    return true;
  }
  if (count <= fewest) return false;
  std::vector<VertexStep> steps{{VertexStep::Remove, at}};
  if (isRing && (at == 0 || at + 1 == count)) {
    steps = {{VertexStep::Remove, 0}, {VertexStep::Set, count - 2, vertices[1]}};
  }
  ChangeVertices(object, tr("delete vertex"), {object, place.part, std::move(steps)});
  return true;
}

void TMapEdits::DeletePart(TCustomMapObject &object, int part) {
  TCustomMapObject *const only = &object;
  ChangeObjects({&only, 1}, TObjectAspect::Geometry, tr("delete part"), [part](TCustomMapObject &changed) {
    changed.GetParts().Delete(part);
    changed.UpdateBounds();
  });
}

}  // namespace tessera
