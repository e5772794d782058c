// SPDX-License-Identifier: MIT
#include <tessera/map/TTessera.h>
#include <tessera/tools/detail/StandingFigure.h>

#include <utility>

namespace tessera::detail {

StandingFigure::StandingFigure(std::function<void()> update, std::function<void()> draw)
    : m_update(std::move(update)),
      m_figure(std::move(draw)),
      m_repaints(
          [this] {
            m_update();
            m_figure.ShowAnew(*GetMap());
          },
          [] {}) {}

StandingFigure::~StandingFigure() {
  // What draws it may be gone already.
  if (GetMap() && m_repaints.IsRunning()) GetMap()->Invalidate();
}

void StandingFigure::StandOn(TTessera &map) {
  SetMap(&map);
  m_repaints.Begin(map, Qt::NoButton);
  m_update();
  m_figure.Show(map);
}

void StandingFigure::Leave() {
  if (!m_repaints.IsRunning()) return;
  if (GetMap()) m_figure.Hide(*GetMap());
  m_repaints.End();
  SetMap(nullptr);
}

void StandingFigure::Refresh() {
  if (!m_repaints.IsRunning() || !GetMap()) return;
  m_figure.Hide(*GetMap());
  m_update();
  m_figure.Show(*GetMap());
}

void StandingFigure::MapEvent(TMapDataLinkEvent /*event*/, TObject * /*sender*/, int /*info*/) {
  // One that is not shown comes with a repaint that is due already.
  if (!m_repaints.IsRunning() || !m_figure.IsShown()) return;
  m_figure.Hide(*GetMap());
  GetMap()->Invalidate();
}

}  // namespace tessera::detail
