// SPDX-License-Identifier: MIT
#pragma once

#include <apps/editor/MapFollower.h>

#include <QObject>

#include <unordered_map>

namespace tessera::apps {

/// Knows which layers of a map have been changed since they were loaded or saved.
class UnsavedChanges : public QObject {
  Q_OBJECT

 public:
  explicit UnsavedChanges(TTessera &map, QObject *parent = nullptr);

  [[nodiscard]] bool Has(const TMapLayer &layer) const;
  /// The changed layers, in the map's order.
  [[nodiscard]] std::vector<TMapLayer *> GetLayers() const;
  /// For a layer that was made or changed in a way that the map does not tell.
  void Note(TMapLayer &layer);
  void NoteSaved(const TMapLayer &layer);
  /// All layers of the map are as they were saved.
  void NoteAllSaved();

 Q_SIGNALS:
  void Changed();
  /// A layer was saved, and is not among the changed ones any more.
  void Saved();

 private:
  void Follow(TMapDataLinkEvent event, TObject *sender);
  void NoteObject(const TCustomMapObject *object);

  TTessera &m_map;
  /// Also those that are not on the map, as long as they are kept for undoing.
  std::unordered_map<const TMapLayer *, THandle<TMapLayer>> m_changed;
  MapFollower m_follower;
};

}  // namespace tessera::apps
