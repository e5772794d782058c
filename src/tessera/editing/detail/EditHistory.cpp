// SPDX-License-Identifier: MIT
#include <tessera/base/GuardedCall.h>
#include <tessera/editing/detail/EditCommand.h>
#include <tessera/editing/detail/EditHistory.h>

#include <algorithm>
#include <iterator>

namespace tessera::detail {

EditHistory::EditHistory(QUndoStack &stack) : QObject(&stack), m_stack(stack) {}

EditHistory &EditHistory::Of(QUndoStack &stack) {
  auto *history = stack.findChild<EditHistory *>(QString(), Qt::FindDirectChildrenOnly);
  return history ? *history : *new EditHistory(stack);
}

void EditHistory::Push(std::unique_ptr<EditCommand> step) {
  if (m_scopes > 0 && !std::exchange(m_isInMacro, true)) m_stack.beginMacro(m_scopeText);
  m_stack.push(step.release());
}

void EditHistory::BeginScope(const QString &text, const TObjectSelection &selection) {
  if (m_scopes++ > 0) return;
  m_scopeText = text;
  m_scopeSelected = Remember(selection);
  m_scopeSelection = &selection;
}

void EditHistory::EndScope() {
  if (--m_scopes == 0 && std::exchange(m_isInMacro, false)) m_stack.endMacro();
}

void EditHistory::DropSteps() {
  if (!m_isRunning) m_stack.clear();
}

SelectedObjects EditHistory::SelectedBefore(const TObjectSelection &selection) {
  const bool isFirstOfScope = m_scopes > 0 && !m_isInMacro && m_scopeSelection == &selection;
  return isFirstOfScope ? m_scopeSelected : Remember(selection);
}

SelectedObjects EditHistory::Remember(const TObjectSelection &selection) {
  const auto items = selection.Items();
  const auto isSame = [](const TCustomMapObject *object, const auto &handle) { return object == handle.Get(); };
  if (m_remembered && std::equal(items.begin(), items.end(), m_remembered->begin(), m_remembered->end(), isSame)) {
    return m_remembered;
  }
  m_remembered = std::make_shared<const std::vector<THandle<TCustomMapObject>>>(items.begin(), items.end());
  return m_remembered;
}

void RestoreSelection(TMapHost &map, const SelectedObjects &selected) {
  TObjectSelection &selection = *map.GetSelection();
  const THandle<TObjectSelection> handle(&selection);
  const auto items = selection.Items();
  const auto isSame = [](const TCustomMapObject *object, const auto &other) { return object == other.Get(); };
  const auto [firstOther, firstMissing] =
      std::mismatch(items.begin(), items.end(), selected->begin(), selected->end(), isSame);
  const std::vector<THandle<TCustomMapObject>> othersFromTheLast(std::make_reverse_iterator(items.end()),
                                                                 std::make_reverse_iterator(firstOther));
  AllSteps steps;
  for (const auto &other : othersFromTheLast) {
    if (handle && other) steps.Try([&] { selection.Remove(other.Get()); });
  }
  for (auto missing = firstMissing; missing != selected->end(); ++missing) {
    const bool isOnMap = *missing && missing->Get()->GetObjectLayer() && missing->Get()->GetMapHost() == &map;
    if (handle && isOnMap) steps.Try([&] { selection.Add(missing->Get()); });
  }
  steps.Rethrow();
}

}  // namespace tessera::detail
