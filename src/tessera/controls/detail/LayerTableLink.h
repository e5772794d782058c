// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/controls/TLayerTableModel.h>

namespace tessera::detail {

/// By which the model of a layer's table follows the layer's map.
class LayerTableLink : public TMapDataLink {
 public:
  explicit LayerTableLink(TLayerTableModel &model) : m_model(model) {}
  void MapEvent(TMapDataLinkEvent event, TObject *sender, int /*info*/) override { m_model.MapEvent(event, sender); }

 private:
  TLayerTableModel &m_model;
};

}  // namespace tessera::detail
