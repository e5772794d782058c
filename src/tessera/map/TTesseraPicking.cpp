// SPDX-License-Identifier: MIT
// The objects at a point of the map.
#include <tessera/base/DebugTrace.h>
#include <tessera/base/THandle.h>
#include <tessera/map/detail/TesseraPrivate.h>
#include <tessera/objects/TMapScopes.h>

#include <cmath>

namespace tessera {
namespace {

/// A map point, with the box about it that an object need only touch to be hit.
class Pick {
 public:
  Pick(const TViewport &viewport, double x, double y, int tolerancePx) : m_x(x), m_y(y), m_isWide(tolerancePx > 0) {
    if (!m_isWide) return;
    const double reach = double(std::fabs(tolerancePx / viewport.GetScale().Kx));
    m_box = {x - reach, y - reach, x + reach, y + reach};
  }

  [[nodiscard]] bool Hits(const TCustomMapObject &object) const {
    return object.ContainsPoint(m_x, m_y) || (m_isWide && Touches(object));
  }

 private:
  [[nodiscard]] bool Touches(const TCustomMapObject &object) const {
    return object.IntersectsRect(m_box.MinX, m_box.MinY, m_box.MaxX, m_box.MaxY) ||
           object.WithinRect(m_box.MinX, m_box.MinY, m_box.MaxX, m_box.MaxY);
  }

  double m_x;
  double m_y;
  bool m_isWide;
  TBounds m_box{};
};

/// What a layer counts for in picking: its index, so that the topmost counts most; -1 where it does not count.
using LayerRank = std::function<int(const TMapLayer &layer)>;

/// Calls `visit` for every displayed object with the rank of its layer, in their order, unless the layer does not
/// count. Objects of a layer stand together, so that layers are seldom asked.
template <typename Visit>
void ForEachRanked(const TDisplayedObjects &displayed, const LayerRank &rankOf, Visit &&visit) {
  const TMapLayer *layer = nullptr;
  int rank = -1;
  for (TCustomMapObject *object : displayed.Items()) {
    const auto *itsLayer = object->GetLayer<TMapLayer>();
    if (itsLayer != layer) {
      layer = itsLayer;
      rank = layer == nullptr ? -1 : rankOf(*layer);
    }
    if (rank >= 0) visit(*object, rank);
  }
}

QString NameOf(const TMapLayers &layers, int index) {
  return index >= 0 && index < layers.GetCount() ? layers.GetLayer(index)->GetName() : QString();
}

}  // namespace

void TTessera::SelectObjectAt(double x, double y, bool exclusive) {
  if (d->displayed->GetCount() == 0) return;
  const int skipped = d->ctrlClickCount;
  const int top = d->layers->GetCount() - 1 - skipped;
  DebugTrace(QStringLiteral("Start Searching Object From Layer %S To Layer %S"),
             {NameOf(*d->layers, top), NameOf(*d->layers, 0)});
  if (skipped > 0) d->selection->Clear();

  const Pick pick(GetViewport(), x, y, d->pickTolerancePx);
  TCustomMapObject *hit = nullptr;
  int hitRank = -1;
  const auto rankOf = [&](const TMapLayer &layer) {
    const int index = layer.GetSelectable() ? d->layers->IndexOf(&layer) : -1;
    return index <= top ? index : -1;
  };
  ForEachRanked(*d->displayed, rankOf, [&](TCustomMapObject &object, int rank) {
    if (rank <= hitRank || !pick.Hits(object)) return;
    hit = &object;
    hitRank = rank;
  });
  if (hit == nullptr) return d->selection->Clear();
  if (!d->selection->Holds(hit)) {
    d->selection->Add(hit, exclusive);
  } else if (!exclusive) {
    d->selection->Remove(hit);
  }
  if (GetFastSelection()) Q_EMIT OnUpdate(this);
}

void TTessera::SelectObjectsAt(double x, double y, bool clearFirst) {
  if (d->displayed->GetCount() == 0) return;
  {
    const TProgressScope progress(*this, 0, 0, QString());
    if (clearFirst) d->selection->Clear();

    const Pick pick(GetViewport(), x, y, d->pickTolerancePx);
    std::vector<std::vector<THandle<TCustomMapObject>>> hits(std::size_t(d->layers->GetCount()));
    const auto rankOf = [&](const TMapLayer &layer) {
      return layer.GetSelectableFlag() ? d->layers->IndexOf(&layer) : -1;
    };
    ForEachRanked(*d->displayed, rankOf, [&](TCustomMapObject &object, int rank) {
      if (pick.Hits(object)) hits[std::size_t(rank)].emplace_back(&object);
    });
    for (auto layer = hits.rbegin(); layer != hits.rend(); ++layer) {
      for (const auto &object : *layer) {
        // A handler may have destroyed the object or taken it off the map.
        if (object && object->GetMap() == this) d->selection->Add(object.Get(), false);
      }
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
