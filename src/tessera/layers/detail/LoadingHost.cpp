// SPDX-License-Identifier: MIT
#include <tessera/layers/detail/LoadingHost.h>

#include <algorithm>

namespace tessera::detail {

LoadingHost::LoadingHost(TMapHost &map, const AsideRun &run)
    : m_run(run),
      m_viewport(map.GetViewport()),
      m_flags(map.GetViewFlags()),
      m_outliner(m_viewport, m_flags),
      m_bitmap(map.GetCanvas().CopyOf(QRect(0, 0, 1, 1))),
      m_textStyle(map.GetDefaultStyle(TObjectFont::Text)),
      m_symbolStyle(map.GetDefaultStyle(TObjectFont::Symbol)),
      m_isRotated(map.GetisMapRotated()) {}

void LoadingHost::StartProgress(int min, int max, const QString & /*caption*/) {
  m_run.CheckGoingOn();
  m_min = min;
  m_max = max;
}

void LoadingHost::ShowProgress(int position) {
  m_run.CheckGoingOn();
  const std::int64_t range = std::int64_t(m_max) - m_min;
  constexpr std::int64_t Whole = 100;
  if (range <= 0) return;
  const std::int64_t percent = Whole * (std::int64_t(position) - m_min) / range;
  m_percent.store(int(std::clamp<std::int64_t>(percent, 0, Whole)), std::memory_order_relaxed);
}

}  // namespace tessera::detail
