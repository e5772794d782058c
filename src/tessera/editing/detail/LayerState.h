// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/layers/TMapLayers.h>

namespace tessera::detail {

/// The name and the switches of a layer as they once were.
class LayerState {
 public:
  explicit LayerState(TMapLayer &layer);

  [[nodiscard]] TMapLayer *GetLayer() const { return m_layer.Get(); }
  [[nodiscard]] bool GetEditable() const { return m_isEditable; }
  /// Whether the layer is still as it was; true when it is gone.
  [[nodiscard]] bool IsCurrent() const;
  /// Gives the layer this state and keeps its own instead. What handlers throw goes on afterwards. Nothing when the
  /// layer is gone.
  void Exchange();

 private:
  bool operator==(const LayerState &other) const;
  void SetSwitches(TMapLayer &layer) const;
  void Apply() const;

  THandle<TMapLayer> m_layer;
  QString m_name;
  TFont m_autoLabelFont;
  double m_minZoom;
  double m_maxZoom;
  int m_labelFieldIndex;
  bool m_isVisible;
  bool m_isSelectable;
  bool m_isEditable;
  bool m_autoLabel;
};

}  // namespace tessera::detail
