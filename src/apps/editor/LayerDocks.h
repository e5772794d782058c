// SPDX-License-Identifier: MIT
#pragma once

#include <apps/editor/MapFollower.h>

#include <QMainWindow>

namespace tessera {
class TDataBrowser;
class TIdentifyTool;
class TLayerControl;
class TLayersComboBox;
}  // namespace tessera

namespace tessera::apps {

class IdentifyPanel;

/// The panels about the layers of the editor's map: their list, in which one is chosen, the attributes of that one,
/// what there is at a click, and the properties of what is selected.
class LayerDocks : public QObject {
  Q_OBJECT

 public:
  LayerDocks(QMainWindow &window, TTessera &map);

  /// The layer chosen in the list, which a layer is at once when it comes; otherwise the top one, none without layers.
  [[nodiscard]] TMapLayer *GetCurrentLayer() const;
  /// Show and hide the panels.
  [[nodiscard]] QList<QAction *> GetActions() const { return m_actions; }
  [[nodiscard]] IdentifyPanel &GetIdentifyPanel() const { return *m_identified; }
  /// From now on shows what the tool tells.
  void Follow(TIdentifyTool &tool);
  /// A choice of the layer that is drawn into, in step with the map.
  [[nodiscard]] QWidget *MakeEditableLayerChoice();

 private:
  void AddDock(QMainWindow &window, Qt::DockWidgetArea area, const QString &title, const char *name, QWidget *panel);
  void Follow(TMapDataLinkEvent event);
  void ChooseTopLayer();
  void ShowEditableLayer();

  TTessera &m_map;
  TLayerControl *m_layers;
  TDataBrowser *m_browser;
  IdentifyPanel *m_identified;
  TLayersComboBox *m_editable = nullptr;
  QList<QAction *> m_actions;
  MapFollower m_follower;
};

}  // namespace tessera::apps
