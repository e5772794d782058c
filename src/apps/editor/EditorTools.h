// SPDX-License-Identifier: MIT
#pragma once

#include <apps/editor/MapFollower.h>
#include <tessera/geometry/TMapMeasure.h>
#include <tessera/map/TCustomMapTool.h>

#include <QAction>

#include <memory>
#include <vector>

namespace tessera::apps {

class MeasureLabel;

/// The tools of the editor's map, each with an action that makes it the active one. At first that is the selection; it
/// is so again when a drawing tool has nothing to draw into any more.
class EditorTools : public QObject {
  Q_OBJECT

 public:
  explicit EditorTools(TTessera &map, QObject *parent = nullptr);
  ~EditorTools() override;

  /// In the order of the tool bar.
  [[nodiscard]] QList<QAction *> GetActions() const;
  /// The first tool of a kind.
  template <class Kind>
  [[nodiscard]] Kind *Find() const {
    for (const Entry &entry : m_entries) {
      if (auto *tool = qobject_cast<Kind *>(entry.tool.get())) return tool;
    }
    return nullptr;
  }
  /// Whether the keys now belong to the active tool.
  [[nodiscard]] bool AreKeysInUse() const;
  /// From now on the measuring tool measures so.
  void SetMeasure(const TMapMeasure &measure);
  /// Has a label show what is measured and drawn.
  void ShowSizesIn(MeasureLabel &label) const;

 private:
  struct Entry {
    std::unique_ptr<TCustomMapTool> tool;
    QAction *action;
  };
  void ShowState();

  TTessera &m_map;
  std::vector<Entry> m_entries;
  MapFollower m_follower;
};

}  // namespace tessera::apps
