// SPDX-License-Identifier: MIT
// The objects at a point of the map.
#include <tessera/base/DebugTrace.h>
#include <tessera/base/THandle.h>
#include <tessera/layers/detail/PointPick.h>
#include <tessera/map/detail/TesseraPrivate.h>
#include <tessera/objects/TMapScopes.h>

#include <algorithm>
#include <utility>
#include <vector>

namespace tessera {
namespace {

/// The objects of a layer that the picture shows and that are hit, in the order of the displayed objects. As long as
/// the picture is not complete, `displayed` is none, and all that can be in it are asked in their own order.
std::vector<TCustomMapObject *> HitsIn(const TMapLayer &layer, const TDisplayedObjects *displayed,
                                       const detail::PointPick &pick) {
  if (!displayed && !(layer.GetVisible() && layer.ValidZoom())) return {};
  TCardinalArray near;
  layer.GetIdsNear(pick.GetPoint(), pick.GetTolerancePx(), near);
  std::vector<std::pair<int, TCustomMapObject *>> hits;
  for (const std::uint32_t id : near.Ids()) {
    TCustomMapObject *object = layer.GetObjects(int(id));
    const int place = displayed ? displayed->IndexOf(object) : int(id);
    if (place >= 0 && pick.Hits(*object)) hits.emplace_back(place, object);
  }
  // The spatial index may have had them drawn in an order of its own.
  std::sort(hits.begin(), hits.end());
  std::vector<TCustomMapObject *> objects;
  objects.reserve(hits.size());
  for (const auto &[place, object] : hits) objects.push_back(object);
  return objects;
}

QString NameOf(const TMapLayers &layers, int index) {
  return index >= 0 && index < layers.GetCount() ? layers.GetLayer(index)->GetName() : QString();
}

}  // namespace

void TTessera::SelectObjectAt(double x, double y, bool exclusive) {
  const TDisplayedObjects *displayed = d->steps.IsAtWork() ? nullptr : d->displayed.get();
  if (displayed && displayed->GetCount() == 0) return;
  const int skipped = d->ctrlClickCount;
  const int top = d->layers->GetCount() - 1 - skipped;
  DebugTrace(QStringLiteral("Start Searching Object From Layer %S To Layer %S"),
             {NameOf(*d->layers, top), NameOf(*d->layers, 0)});
  if (skipped > 0) d->selection->Clear();

  const detail::PointPick pick(GetViewport(), {x, y}, d->pickTolerancePx);
  TCustomMapObject *hit = nullptr;
  for (int i = std::min(top, d->layers->GetCount() - 1); i >= 0 && hit == nullptr; --i) {
    const TMapLayer &layer = *d->layers->GetLayer(i);
    if (!layer.GetSelectable()) continue;
    const std::vector<TCustomMapObject *> hits = HitsIn(layer, displayed, pick);
    if (!hits.empty()) hit = hits.front();
  }
  if (hit == nullptr) return d->selection->Clear();
  if (!d->selection->Holds(hit)) {
    d->selection->Add(hit, exclusive);
  } else if (!exclusive) {
    d->selection->Remove(hit);
  }
  if (GetFastSelection()) Q_EMIT OnUpdate(this);
}

void TTessera::SelectObjectsAt(double x, double y, bool clearFirst) {
  const TDisplayedObjects *displayed = d->steps.IsAtWork() ? nullptr : d->displayed.get();
  if (displayed && displayed->GetCount() == 0) return;
  {
    const TProgressScope progress(*this, 0, 0, QString());
    if (clearFirst) d->selection->Clear();

    const detail::PointPick pick(GetViewport(), {x, y}, d->pickTolerancePx);
    std::vector<THandle<TCustomMapObject>> hits;
    for (int i = d->layers->GetCount() - 1; i >= 0; --i) {
      const TMapLayer &layer = *d->layers->GetLayer(i);
      if (!layer.GetSelectableFlag()) continue;
      for (TCustomMapObject *object : HitsIn(layer, displayed, pick)) hits.emplace_back(object);
    }
    for (const auto &object : hits) {
      // A handler may have destroyed the object or taken it off the map.
      if (object && object->GetMap() == this) d->selection->Add(object.Get(), false);
    }
    if (GetFastSelection()) Q_EMIT OnUpdate(this);
  }
}

int TTessera::GetCtrlClickCount() const {
  return d->ctrlClickCount;
}
void TTessera::SetCtrlClickCount(int count) {
  d->ctrlClickCount = count;
}
int TTessera::GetPickTolerancePx() const {
  return d->pickTolerancePx;
}
void TTessera::SetPickTolerancePx(int tolerancePx) {
  d->pickTolerancePx = tolerancePx;
}

}  // namespace tessera
