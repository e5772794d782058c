// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/layers/TMapDataLink.h>
#include <tessera/map/detail/MapGesture.h>
#include <tessera/map/detail/ScreenFigure.h>

namespace tessera::detail {

/// A figure that stands on a map as long as a tool is active, such as the handles of what is selected. Whatever changes
/// on the map, it is worked out anew with the repaint that follows.
class StandingFigure : public TMapDataLink {
 public:
  /// `update` works out what is drawn next; `draw` draws it once.
  StandingFigure(std::function<void()> update, std::function<void()> draw);
  /// The figure goes, if the map is still there.
  ~StandingFigure() override;

  void StandOn(TTessera &map);
  void Leave();
  /// Works it out anew at once. Nothing where it does not stand.
  void Refresh();
  void MapEvent(TMapDataLinkEvent event, TObject *sender, int info) override;

 private:
  std::function<void()> m_update;
  ScreenFigure m_figure;
  MapGesture m_repaints;
};

}  // namespace tessera::detail
