// SPDX-License-Identifier: MIT
#pragma once

#include <apps/editor/MapFollower.h>

#include <QObject>

#include <unordered_set>

namespace tessera::apps {

/// Knows which layers of a map have been changed since they were loaded or saved.
class UnsavedChanges : public QObject {
  Q_OBJECT

 public:
  explicit UnsavedChanges(TTessera &map, QObject *parent = nullptr);

  [[nodiscard]] bool Has(const TMapLayer &layer) const { return m_changed.contains(&layer); }
  /// The changed layers, in the map's order.
  [[nodiscard]] std::vector<TMapLayer *> GetLayers() const;
  /// For a layer that was made or changed in a way that the map does not tell.
  void Note(const TMapLayer &layer);
  void NoteSaved(const TMapLayer &layer);

 Q_SIGNALS:
  void Changed();

 private:
  void Follow(TMapDataLinkEvent event, TObject *sender);
  void NoteObject(const TCustomMapObject *object);

  TTessera &m_map;
  std::unordered_set<const TMapLayer *> m_changed;
  MapFollower m_follower;
};

}  // namespace tessera::apps
