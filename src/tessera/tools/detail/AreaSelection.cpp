// SPDX-License-Identifier: MIT
#include <tessera/map/SelectionChange.h>
#include <tessera/map/TTessera.h>
#include <tessera/tools/detail/AreaSelection.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <unordered_set>

namespace tessera::detail {
namespace {

/// Half the longer side of the box, in whole pixels.
int ReachPx(const TTessera &map, const TBounds &box) {
  const double half = std::max(box.MaxX - box.MinX, box.MaxY - box.MinY) / 2;
  const double px = std::ceil(half * std::fabs(double(map.GetViewport().GetScale().Kx))) + 1;
  return int(std::min(px, std::numeric_limits<int>::max() / 2.0));
}

/// The objects of a layer in the area, in order. Its own box is asked for, and not GetAllIdsInRect, for that passes
/// over rectangles and circles that lie across a side of the box.
void AddHits(const TTessera &map, const TMapLayer &layer, const SelectionArea &area, AreaRule rule,
             std::vector<TCustomMapObject *> &hits) {
  const TBounds &box = area.GetBounds();
  const TMapPoint middle{std::midpoint(box.MinX, box.MaxX), std::midpoint(box.MinY, box.MaxY)};
  TCardinalArray near;
  layer.GetIdsNear(middle, ReachPx(map, box), near);
  for (const std::uint32_t id : near.Ids()) {
    TCustomMapObject *object = layer.GetObjects(int(id));
    if (rule == AreaRule::Within ? area.Holds(*object) : area.Meets(*object)) hits.push_back(object);
  }
}

std::vector<TCustomMapObject *> HitsOf(const TTessera &map, const SelectionArea &area, AreaRule rule) {
  std::vector<TCustomMapObject *> hits;
  for (int i = map.GetLayers()->GetCount() - 1; i >= 0; --i) {
    const TMapLayer &layer = *map.GetLayers()->GetLayer(i);
    if (layer.GetSelectable() && layer.ValidZoom()) AddHits(map, layer, area, rule, hits);
  }
  return hits;
}

}  // namespace

void SelectByClick(TTessera &map, const TMapPoint &at, TShiftState keys) {
  const int count = map.GetCtrlClickCount();
  const bool goesDeeper = keys.testFlag(ssCtrl) && count < map.GetLayers()->GetCount() - 1;
  map.SetCtrlClickCount(goesDeeper ? count + 1 : 0);
  map.SelectObjectAt(at.X, at.Y, !keys.testFlag(ssShift));
}

void SelectInArea(TTessera &map, const SelectionArea &area, AreaRule rule, TShiftState keys) {
  const TBounds &box = area.GetBounds();
  if (box.MinX == box.MaxX && box.MinY == box.MaxY) return SelectByClick(map, {box.MinX, box.MinY}, keys);
  const std::vector<TCustomMapObject *> hits = HitsOf(map, area, rule);
  const bool isTakingOut = keys.testFlag(ssCtrl);
  TObjectHandles gone;
  TObjectHandles come;
  for (TCustomMapObject *object : hits) {
    if (map.GetSelection()->Holds(object) == isTakingOut) (isTakingOut ? gone : come).emplace_back(object);
  }
  if (!isTakingOut && !keys.testFlag(ssShift)) {
    const std::unordered_set<const TCustomMapObject *> staying(hits.begin(), hits.end());
    for (TCustomMapObject *object : map.GetSelection()->Items()) {
      if (!staying.contains(object)) gone.emplace_back(object);
    }
  }
  ChangeSelection(map, gone, come);
}

}  // namespace tessera::detail
