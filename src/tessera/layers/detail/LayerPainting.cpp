// SPDX-License-Identifier: MIT
#include <tessera/base/MessageSink.h>
#include <tessera/layers/detail/LayerPainter.h>
#include <tessera/layers/detail/LayerPainting.h>

#include <QCoreApplication>

#include <utility>

namespace tessera::detail {

LayerPainting::LayerPainting(TMapLayer &layer) : m_layer(&layer) {
  const TMapHost *map = layer.GetMapHost();
  if (map == nullptr || !map->IsReadyToPaint() || !layer.GetVisible() || !layer.ValidZoom()) return;
  const bool showsCut = map->GetViewFlags().ShowCutObjects;
  m_isInView = layer.FindIdsInRect(Bounds2CellBounds(map->GetViewport().GetViewBounds()), m_ids,
                                   {.countsExtents = showsCut, .staleCount = &m_staleCount});
  m_isInOrder = showsCut || !layer.GetUseIndex2D();
  m_order = layer.m_objects->GetOrder();
}

LayerPainting::State LayerPainting::Continue(const QDeadlineTimer &until) {
  if (!m_isInView) return State::Complete;
  TMapLayer *layer = m_layer.Get();
  if (layer == nullptr || layer->GetMapHost() == nullptr) return State::Outdated;
  ObjectStore &store = *layer->m_objects;
  if (store.GetOrder() != m_order) return State::Outdated;
  store.UpdateExtents();
  using Order = LayerPainter::Order;
  const auto left = std::as_const(m_ids).Ids().subspan(m_drawnCount);
  m_drawnCount += LayerPainter(*layer, store).Paint(left, m_isInOrder ? Order::List : Order::Scattered, until);
  m_order = store.GetOrder();
  if (m_drawnCount < std::size_t(m_ids.GetCount())) return State::Paused;
  TellOfStaleIndex(*layer);
  return State::Complete;
}

void LayerPainting::TellOfStaleIndex(TMapLayer &layer) const {
  if (m_staleCount == 0 || std::exchange(layer.m_isStaleIndexTold, true)) return;
  ShowMessage(
      QCoreApplication::translate("tessera::TMapLayer",
                                  "The spatial index of layer \"%1\" is out of date, so it may not show all objects.")
          .arg(layer.GetName()));
}

}  // namespace tessera::detail
