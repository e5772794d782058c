// SPDX-License-Identifier: MIT
#include <tessera/base/GuardedCall.h>
#include <tessera/editing/detail/EditCommand.h>

#include <QScopeGuard>

namespace tessera::detail {

BeforeEdit NoteBefore(const TMapHost *map) {
  BeforeEdit before;
  if (map == nullptr) return before;
  before.layers = THandle<TMapLayers>(map->GetLayers());
  QUndoStack *stack = map->GetUndoStack();
  EditHistory *history = stack ? &EditHistory::Of(*stack) : nullptr;
  if (history == nullptr || history->IsRunning()) return before;
  before.history = history;
  before.selection = history->SelectedBefore(*map->GetSelection());
  return before;
}

void UpdateMapOf(const THandle<TMapLayers> &layers) {
  if (layers && layers->GetMapHost()) layers->GetMapHost()->DoUpdate(true);
}

void EditCommand::Run(bool (EditCommand::*step)()) {
  const QPointer<EditHistory> history = m_before.history;
  const auto done = qScopeGuard([history] {
    if (history) history->SetRunning(false);
  });
  if (history) history->SetRunning(true);
  bool isDone = true;
  GuardedCall([&] { isDone = (this->*step)(); });
  if (!isDone) setObsolete(true);
}

void EditCommand::undo() {
  Run(&EditCommand::TakeBack);
  TMapHost *map = GetLayers() ? GetLayers()->GetMapHost() : nullptr;
  if (map && !isObsolete()) GuardedCall([&] { RestoreSelection(*map, m_before.selection); });
}

void EditCommand::redo() {
  // The stack wants to take a step that comes to it.
  if (!std::exchange(m_isNew, false)) Run(&EditCommand::DoAgain);
}

}  // namespace tessera::detail
