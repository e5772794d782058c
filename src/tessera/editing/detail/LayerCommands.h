// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/editing/detail/EditCommand.h>
#include <tessera/editing/detail/LayerState.h>

namespace tessera::detail {

/// A layer that came or went. While it is out, the step owns it.
class LayerPresenceCommand : public EditCommand {
 public:
  /// A layer that is on the map now.
  LayerPresenceCommand(BeforeEdit before, const QString &text, TMapLayer &added)
      : EditCommand(std::move(before), text), m_layer(&added), m_wasAdding(true) {}
  /// A layer that was taken out, and where it stood.
  LayerPresenceCommand(BeforeEdit before, const QString &text, std::unique_ptr<TMapLayer> taken, int index)
      : EditCommand(std::move(before), text), m_taken(std::move(taken)), m_index(index), m_wasAdding(false) {}

 private:
  bool TakeBack() override { return m_wasAdding ? TakeOut() : PutBack(); }
  bool DoAgain() override { return m_wasAdding ? PutBack() : TakeOut(); }
  bool TakeOut();
  bool PutBack();

  THandle<TMapLayer> m_layer;
  std::unique_ptr<TMapLayer> m_taken;
  int m_index = 0;
  bool m_wasAdding;
};

/// Another place of a layer.
class LayerOrderCommand : public ExchangeCommand {
 public:
  LayerOrderCommand(BeforeEdit before, const QString &text, TMapLayer &layer, int otherIndex)
      : ExchangeCommand(std::move(before), text), m_layer(&layer), m_otherIndex(otherIndex) {}

 private:
  bool Exchange() override;

  THandle<TMapLayer> m_layer;
  int m_otherIndex;
};

/// Changed names and switches of layers.
class LayerStateCommand : public ExchangeCommand {
 public:
  LayerStateCommand(BeforeEdit before, const QString &text, std::vector<LayerState> states)
      : ExchangeCommand(std::move(before), text), m_states(std::move(states)) {}

 private:
  bool Exchange() override;

  std::vector<LayerState> m_states;
};

}  // namespace tessera::detail
