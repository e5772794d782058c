// SPDX-License-Identifier: MIT
#include <tessera/base/GuardedCall.h>
#include <tessera/editing/detail/ObjectCommands.h>

#include <algorithm>

namespace tessera::detail {

PresenceCommand::PresenceCommand(BeforeEdit before, const QString &text, TMapLayer &layer,
                                 std::vector<THandle<TCustomMapObject>> added)
    : EditCommand(std::move(before), text), m_layer(&layer), m_inside(std::move(added)), m_wasAdding(true) {}

PresenceCommand::PresenceCommand(BeforeEdit before, const QString &text, const THandle<TMapLayer> &layer,
                                 std::vector<TTakenObject> taken)
    : EditCommand(std::move(before), text), m_layer(layer), m_taken(std::move(taken)), m_wasAdding(false) {}

bool PresenceCommand::TakeOut() {
  if (!m_layer) return false;
  std::vector<TCustomMapObject *> objects;
  for (const auto &object : m_inside) {
    if (object) objects.push_back(object.Get());
  }
  m_taken = m_layer->TakeObjects(objects);
  m_inside.clear();
  return !m_taken.empty();
}

bool PresenceCommand::PutBack() {
  if (!m_layer) return false;
  int count = m_layer->GetObjectCount();
  for (TTakenObject &one : m_taken) {
    one.index = std::min(one.index, count++);  // the layer may have lost others meanwhile
    m_inside.emplace_back(one.object.get());
  }
  m_layer->PutObjects(std::exchange(m_taken, {}));
  return !m_inside.empty();
}

StateCommand::StateCommand(BeforeEdit before, const QString &text, std::vector<ObjectState> states)
    : ExchangeCommand(std::move(before), text), m_states(std::move(states)) {
  std::reverse(m_states.begin(), m_states.end());
}

bool StateCommand::Exchange() {
  const THandle<TMapLayers> layers(GetLayers());
  bool isAnyThere = false;
  bool isAnySeen = false;
  AllSteps steps;
  for (ObjectState &state : m_states) {
    isAnySeen = isAnySeen || state.IsSeen();
    steps.Try([&] { isAnyThere = state.Exchange() || isAnyThere; });
  }
  std::reverse(m_states.begin(), m_states.end());
  if (isAnySeen) UpdateMapOf(layers);
  steps.Rethrow();
  return isAnyThere;
}

bool ObjectOrderCommand::Exchange() {
  TMapLayer *layer = m_object ? m_object->GetLayer() : nullptr;
  if (layer == nullptr) return false;
  const int present = layer->IndexOf(m_object.Get());
  const int wanted = std::min(std::exchange(m_otherIndex, present), layer->GetObjectCount() - 1);
  layer->MoveObject(present, wanted);
  return true;
}

}  // namespace tessera::detail
