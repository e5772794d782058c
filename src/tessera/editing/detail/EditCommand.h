// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/editing/detail/EditHistory.h>
#include <tessera/layers/TMapLayers.h>

#include <QPointer>

namespace tessera::detail {

/// What a step has to know of the time before it was taken.
struct BeforeEdit {
  QPointer<EditHistory> history;
  THandle<TMapLayers> layers;
  SelectedObjects selection;
};

/// What has to be known before a step on a map is taken. There is no history where it is not to be recorded.
[[nodiscard]] BeforeEdit NoteBefore(const TMapHost *map);

/// Has the map that a step was taken on draw itself anew, if it is still there.
void UpdateMapOf(const THandle<TMapLayers> &layers);

/// A step on an undo stack. It has been taken when it comes there. It knows layers and objects by handles; once there
/// is nothing left that it could change, it is obsolete. What handlers of events throw while it is undone or done again
/// ends in the message sink, for the stack must not lose count.
class EditCommand : public QUndoCommand {
 public:
  EditCommand(BeforeEdit before, const QString &text) : QUndoCommand(text), m_before(std::move(before)) {}

  /// The selection, too, is then as it was before the step.
  void undo() final;
  void redo() final;

 protected:
  // Answer whether there was anything to do it to. What they throw is thrown when it is done.
  virtual bool TakeBack() = 0;
  virtual bool DoAgain() = 0;
  /// The layers of the map; none when they are gone.
  [[nodiscard]] TMapLayers *GetLayers() const { return m_before.layers.Get(); }

 private:
  void Run(bool (EditCommand::*step)());

  BeforeEdit m_before;
  bool m_isNew = true;
};

/// A step that is taken and taken back by exchanging what is for what was.
class ExchangeCommand : public EditCommand {
 public:
  using EditCommand::EditCommand;

 protected:
  virtual bool Exchange() = 0;

 private:
  bool TakeBack() override { return Exchange(); }
  bool DoAgain() override { return Exchange(); }
};

/// Puts a step that has been taken onto the stack, if it is to be recorded.
template <class Command, typename... Arguments>
void Record(const BeforeEdit &before, const QString &text, Arguments &&...arguments) {
  if (before.history) {
    before.history->Push(std::make_unique<Command>(before, text, std::forward<Arguments>(arguments)...));
  }
}

}  // namespace tessera::detail
