// SPDX-License-Identifier: MIT
#include <tessera/base/DebugTrace.h>
#include <tessera/map/TTessera.h>
#include <tessera/map/detail/PictureRun.h>

namespace tessera::detail {
namespace {

/// Directs drawing to the off-screen picture as long as it lives.
class BusyScope {
 public:
  explicit BusyScope(TTessera &map) : m_map(&map) { m_map->SetIsBusy(true); }
  ~BusyScope() {
    if (m_map) m_map->SetIsBusy(false);
  }
  BusyScope(const BusyScope &) = delete;
  BusyScope &operator=(const BusyScope &) = delete;

 private:
  QPointer<TTessera> m_map;
};

void ResetTools(TCanvas &canvas, TColor color) {
  canvas.Pen().SetMode(TPenMode::pmCopy);
  canvas.Brush().SetStyle(TBrushStyle::bsSolid);
  canvas.Brush().SetColor(color);
}

}  // namespace

PictureRun::PictureRun(TTessera &map, ScreenPictures &pictures, Making making)
    : m_map(&map), m_pictures(pictures), m_making(making) {}

PictureRun::State PictureRun::Continue(const QDeadlineTimer &until) {
  {
    const BusyScope busy(*m_map);
    if (!m_start.isValid()) {
      Begin();
      if (!m_progress) return State::Complete;
    }
    const State state = PaintLayers(until);
    if (state != State::Complete) return state;
    m_progress.reset();
    Q_EMIT m_map->OnUpdate(m_map);
    if (m_map) Q_EMIT m_map->OnPaint(m_map);
  }
  TellOfTime();
  return State::Complete;
}

void PictureRun::Begin() {
  m_start = QTime::currentTime();
  m_map->GetDisplayed()->Clear();
  m_pictures.BeginMap(m_map->GetViewport(), m_map->GetColor(), m_making);
  ResetTools(m_map->GetCanvas(), m_map->GetColor());
  m_map->GetCanvas().FillRect(m_map->rect());
  const int count = m_map->GetLayers()->GetCount();
  if (count == 0) return;
  m_progress.emplace(*m_map, 0, count - 1, QString());
  m_map->GetSubstrates()->Paint();
}

PictureRun::State PictureRun::PaintLayers(const QDeadlineTimer &until) {
  // A handler may have taken layers away.
  while (m_layerIndex < m_map->GetLayers()->GetCount()) {
    const State state = PaintLayer(until);
    if (state != State::Complete) return state;
    m_layer.reset();
    m_progress->Show(m_layerIndex++);
    if (until.hasExpired()) return State::Paused;
  }
  ResetTools(m_map->GetCanvas(), m_map->GetColor());
  return State::Complete;
}

PictureRun::State PictureRun::PaintLayer(const QDeadlineTimer &until) {
  if (!m_layer) m_layer.emplace(*m_map->GetLayers()->GetLayer(m_layerIndex));
  return m_layer->Continue(until);
}

void PictureRun::TellOfTime() const {
  const QTime elapsed = QTime(0, 0).addMSecs(m_start.msecsTo(QTime::currentTime()));
  DebugTrace(QStringLiteral("DrawTime = %s"), {elapsed.toString(QStringLiteral("ss:zzz"))});
}

}  // namespace tessera::detail
