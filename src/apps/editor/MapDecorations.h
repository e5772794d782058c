// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/map/TTessera.h>

#include <QAction>

class QGridLayout;

namespace tessera {
class TMapDecoration;
class TMapLegend;
class TScaleBar;
}  // namespace tessera

namespace tessera::apps {

class UnitsMenu;

/// The scale bar and the legend that lie over the editor's map. What is shown is also drawn into exported pictures, and
/// kept from one run to the next.
class MapDecorations : public QObject {
  Q_OBJECT

 public:
  /// Puts them into the cell of the map.
  MapDecorations(TTessera &map, const UnitsMenu &units, QGridLayout &cell, QObject *parent);

  /// Show and hide them.
  [[nodiscard]] QList<QAction *> GetActions() const { return m_actions; }
  [[nodiscard]] const TScaleBar &GetScaleBar() const { return *m_scaleBar; }
  [[nodiscard]] const TMapLegend &GetLegend() const { return *m_legend; }

 private:
  void Add(TTessera &map, TMapDecoration &decoration, QGridLayout &cell, Qt::Alignment corner, const char *key,
           const QString &text);

  TScaleBar *m_scaleBar;
  TMapLegend *m_legend;
  QList<QAction *> m_actions;
};

}  // namespace tessera::apps
