// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/editing/detail/EditCommand.h>
#include <tessera/editing/detail/ObjectState.h>

namespace tessera::detail {

/// Objects that came into a layer or left it. While they are out, the step owns them.
class PresenceCommand : public EditCommand {
 public:
  /// Objects that are in the layer now.
  PresenceCommand(BeforeEdit before, const QString &text, TMapLayer &layer,
                  std::vector<THandle<TCustomMapObject>> added);
  /// Objects that were taken out.
  PresenceCommand(BeforeEdit before, const QString &text, const THandle<TMapLayer> &layer,
                  std::vector<TTakenObject> taken);

 private:
  bool TakeBack() override { return m_wasAdding ? TakeOut() : PutBack(); }
  bool DoAgain() override { return m_wasAdding ? PutBack() : TakeOut(); }
  bool TakeOut();
  bool PutBack();

  THandle<TMapLayer> m_layer;
  std::vector<THandle<TCustomMapObject>> m_inside;
  std::vector<TTakenObject> m_taken;
  bool m_wasAdding;
};

/// A changed state of some objects.
class StateCommand : public ExchangeCommand {
 public:
  /// As they were before each was changed, in this order; an object may come several times.
  StateCommand(BeforeEdit before, const QString &text, std::vector<ObjectState> states);

 private:
  bool Exchange() override;

  std::vector<ObjectState> m_states;  // the one to be exchanged next comes first
};

/// Another place of an object in the order of its layer.
class ObjectOrderCommand : public ExchangeCommand {
 public:
  ObjectOrderCommand(BeforeEdit before, const QString &text, TCustomMapObject &object, int otherIndex)
      : ExchangeCommand(std::move(before), text), m_object(&object), m_otherIndex(otherIndex) {}

 private:
  bool Exchange() override;

  THandle<TCustomMapObject> m_object;
  int m_otherIndex;
};

}  // namespace tessera::detail
