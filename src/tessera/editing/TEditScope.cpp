// SPDX-License-Identifier: MIT
#include <tessera/editing/TEditScope.h>
#include <tessera/editing/detail/EditHistory.h>

namespace tessera {

TEditScope::TEditScope(const TMapHost *map, const QString &text) {
  QUndoStack *stack = map ? map->GetUndoStack() : nullptr;
  if (stack == nullptr) return;
  m_history = &detail::EditHistory::Of(*stack);
  m_history->BeginScope(text, *map->GetSelection());
}

TEditScope::~TEditScope() {
  if (m_history) m_history->EndScope();
}

}  // namespace tessera
