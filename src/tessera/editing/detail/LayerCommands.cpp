// SPDX-License-Identifier: MIT
#include <tessera/base/GuardedCall.h>
#include <tessera/editing/detail/LayerCommands.h>

#include <algorithm>

namespace tessera::detail {

bool LayerPresenceCommand::TakeOut() {
  TMapLayers *layers = GetLayers();
  const int index = layers && m_layer ? layers->IndexOf(m_layer.Get()) : -1;
  if (index < 0) return false;
  m_index = index;
  m_taken = layers->TakeLayer(index, false);
  return m_taken != nullptr;
}

bool LayerPresenceCommand::PutBack() {
  TMapLayers *layers = GetLayers();
  if (layers == nullptr || !m_taken) return false;
  m_layer = THandle<TMapLayer>(m_taken.get());
  layers->PutLayer(std::min(m_index, layers->GetCount()), std::move(m_taken));
  return true;
}

bool LayerOrderCommand::Exchange() {
  TMapLayers *layers = GetLayers();
  const int present = layers && m_layer ? layers->IndexOf(m_layer.Get()) : -1;
  if (present < 0) return false;
  layers->Move(present, std::min(std::exchange(m_otherIndex, present), layers->GetCount() - 1));
  return true;
}

bool LayerStateCommand::Exchange() {
  const THandle<TMapLayers> layers(GetLayers());
  // The one that is to be edited comes last, for it ends the editing of the others.
  std::stable_partition(m_states.begin(), m_states.end(), [](const LayerState &state) { return !state.GetEditable(); });
  AllSteps steps;
  bool isAnyThere = false;
  for (LayerState &state : m_states) {
    isAnyThere = isAnyThere || state.GetLayer();
    steps.Try([&] { state.Exchange(); });
  }
  UpdateMapOf(layers);
  steps.Rethrow();
  return isAnyThere;
}

}  // namespace tessera::detail
