// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/THandle.h>
#include <tessera/objects/TMapObjectsList.h>

#include <QObject>
#include <QUndoStack>

#include <memory>
#include <vector>

namespace tessera::detail {

class EditCommand;

/// The selected objects of a map as they once were, in order. Shared as long as the selection stays.
using SelectedObjects = std::shared_ptr<const std::vector<THandle<TCustomMapObject>>>;

/// What all steps on one undo stack have in common. It belongs to the stack, where whoever records steps finds it.
class TESSERA_CORE_EXPORT EditHistory : public QObject {
  Q_OBJECT

 public:
  /// That of a stack, made when missing.
  [[nodiscard]] static EditHistory &Of(QUndoStack &stack);

  /// Whether a step is just being undone or done again. What handlers of its events do is not recorded.
  [[nodiscard]] bool IsRunning() const { return m_isRunning; }
  void SetRunning(bool isRunning) { m_isRunning = isRunning; }
  /// Puts a step that has been taken onto the stack.
  void Push(std::unique_ptr<EditCommand> step);
  /// From here to the matching end, steps become one, with the text of the outermost scope; before it there was the
  /// selection that there is now. Nothing when there are none.
  void BeginScope(const QString &text, const TObjectSelection &selection);
  void EndScope();
  /// Forgets all steps, since what they hold no longer fits the map. Nothing while one of them is at work.
  void DropSteps();
  /// What of a map was selected before the step that is about to be taken.
  [[nodiscard]] SelectedObjects SelectedBefore(const TObjectSelection &selection);

 private:
  [[nodiscard]] SelectedObjects Remember(const TObjectSelection &selection);
  explicit EditHistory(QUndoStack &stack);

  QUndoStack &m_stack;
  SelectedObjects m_remembered;
  SelectedObjects m_scopeSelected;
  const TObjectSelection *m_scopeSelection = nullptr;  // which it is of
  QString m_scopeText;
  int m_scopes = 0;
  bool m_isInMacro = false;
  bool m_isRunning = false;
};

/// Selects these objects, as far as they are in a layer of a map, and no others. Only what differs is touched.
void RestoreSelection(TMapHost &map, const SelectedObjects &selected);

}  // namespace tessera::detail
