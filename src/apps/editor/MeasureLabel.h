// SPDX-License-Identifier: MIT
#pragma once

#include <apps/editor/MapFollower.h>
#include <tessera/geometry/TMapMeasure.h>

#include <QLabel>
#include <QTimer>

namespace tessera {
class TCustomMultiPointTool;
}

namespace tessera::apps {

/// How long and large what is being drawn, or else the selection, is; for a status bar. What the measuring tool has
/// measured stays until the next change of the selection. A selection of more than 20000 vertices is not measured.
class MeasureLabel : public QLabel {
  Q_OBJECT

 public:
  explicit MeasureLabel(TTessera &map, QWidget *parent = nullptr);

  void SetMeasure(const TMapMeasure &measure);
  /// Shows what is clicked together with a tool; with an area if that is what the tool draws.
  void Follow(TCustomMultiPointTool &tool, bool hasArea);

 private:
  void ShowSelection();

  TTessera &m_map;
  TMapMeasure m_measure;
  QTimer m_refresh;
  MapFollower m_follower;
};

}  // namespace tessera::apps
