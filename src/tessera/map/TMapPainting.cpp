// SPDX-License-Identifier: MIT
#include <tessera/base/GuardedCall.h>
#include <tessera/map/TMapPainting.h>

#include <QPainter>

#include <utility>

namespace tessera {

void TMapPainting::SetShowSmallObjects(bool show) {
  if (std::exchange(m_flags.ShowSmallObjects, show) != show) m_map.DoUpdate(true);
}

void TMapPainting::SetShowCutObjects(bool show) {
  if (std::exchange(m_flags.ShowCutObjects, show) != show) m_map.DoUpdate(true);
}

void TMapPainting::Decorate(QPainter &painter, const QRect &picture) {
  painter.save();
  AllSteps steps;
  steps.Try([&] { Q_EMIT OnDecorate(painter, picture); });
  painter.restore();
  steps.Rethrow();
}

}  // namespace tessera
