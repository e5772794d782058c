// SPDX-License-Identifier: MIT
#pragma once

#include <apps/editor/MapFollower.h>

#include <QListWidget>
#include <QTimer>

namespace tessera::apps {

class UnsavedChanges;

/// The layers of the map, the top one first: which are shown (their check box), which is editable (bold), which have
/// unsaved changes (a star), and which one the commands of the window are about:
/// the one that came last, or was chosen since.
class LayerPanel : public QListWidget {
  Q_OBJECT

 public:
  LayerPanel(TTessera &map, const UnsavedChanges &unsaved, QWidget *parent = nullptr);

  /// The chosen layer; the top one when none is chosen, none without layers.
  [[nodiscard]] TMapLayer *GetCurrentLayer() const;

 private:
  [[nodiscard]] int LayerIndexOf(int row) const { return count() - 1 - row; }
  void Fill();
  void ShowLayer(QListWidgetItem &item, const TMapLayer &layer) const;
  void TakeOver(const QListWidgetItem *item);

  TTessera &m_map;
  const UnsavedChanges &m_unsaved;
  QTimer m_refresh;
  bool m_isLayerNew = false;  // the top one, since the list was last filled
  MapFollower m_follower;
};

}  // namespace tessera::apps
