// SPDX-License-Identifier: MIT
#include <tessera/base/GuardedCall.h>
#include <tessera/editing/detail/LayerState.h>

namespace tessera::detail {

LayerState::LayerState(TMapLayer &layer)
    : m_layer(&layer),
      m_name(layer.GetName()),
      m_autoLabelFont(layer.GetAutoLabelFont()),
      m_minZoom(layer.GetMinZoom()),
      m_maxZoom(layer.GetMaxZoom()),
      m_labelFieldIndex(layer.GetLabelFieldIndex()),
      m_isVisible(layer.GetVisible()),
      m_isSelectable(layer.GetSelectableFlag()),
      m_isEditable(layer.GetEditable()),
      m_autoLabel(layer.GetAutoLabel()) {}

bool LayerState::operator==(const LayerState &other) const {
  return m_name == other.m_name && m_autoLabelFont == other.m_autoLabelFont && m_minZoom == other.m_minZoom &&
         m_maxZoom == other.m_maxZoom && m_labelFieldIndex == other.m_labelFieldIndex &&
         m_isVisible == other.m_isVisible && m_isSelectable == other.m_isSelectable &&
         m_isEditable == other.m_isEditable && m_autoLabel == other.m_autoLabel;
}

bool LayerState::IsCurrent() const {
  return !m_layer || *this == LayerState(*m_layer.Get());
}

void LayerState::SetSwitches(TMapLayer &layer) const {
  const THandle<TMapLayer> handle(&layer);
  AllSteps steps;
  const auto set = [&](bool isDue, void (TMapLayer::*setter)(bool), bool value) {
    if (handle && isDue) steps.Try([&] { (layer.*setter)(value); });
  };
  set(layer.GetEditable() && !m_isEditable, &TMapLayer::SetEditable, false);
  if (handle && layer.GetSelectableFlag() != m_isSelectable) {
    // A hidden layer does not become selectable.
    set(m_isSelectable && !layer.GetVisible(), &TMapLayer::SetVisible, true);
    set(true, &TMapLayer::SetSelectable, m_isSelectable);
  }
  if (handle) set(layer.GetVisible() != m_isVisible, &TMapLayer::SetVisible, m_isVisible);
  if (handle) set(layer.GetEditable() != m_isEditable, &TMapLayer::SetEditable, m_isEditable);
  steps.Rethrow();
}

void LayerState::Apply() const {
  AllSteps steps;
  const auto step = [&](auto set) {
    if (m_layer) steps.Try([&] { set(*m_layer.Get()); });
  };
  step([this](TMapLayer &layer) { layer.SetName(m_name); });
  step([this](TMapLayer &layer) { layer.SetLabelFieldIndex(m_labelFieldIndex); });
  step([this](TMapLayer &layer) { layer.SetAutoLabelFontDefaultFont(m_autoLabelFont); });
  step([this](TMapLayer &layer) { layer.SetMinZoom(m_minZoom); });
  step([this](TMapLayer &layer) { layer.SetMaxZoom(m_maxZoom); });
  step([this](TMapLayer &layer) { layer.SetAutoLabel(m_autoLabel); });
  step([this](TMapLayer &layer) { SetSwitches(layer); });
  steps.Rethrow();
}

void LayerState::Exchange() {
  if (!m_layer) return;
  const LayerState wanted = std::exchange(*this, LayerState(*m_layer.Get()));
  wanted.Apply();
}

}  // namespace tessera::detail
