// SPDX-License-Identifier: MIT
#include <tessera/base/GuardedCall.h>
#include <tessera/map/TTessera.h>
#include <tessera/map/detail/PictureSteps.h>

namespace tessera::detail {

using Making = ScreenPictures::Making;

PictureSteps::PictureSteps(TTessera &map, ScreenPictures &pictures) : m_map(map), m_pictures(pictures) {
  m_timer.setSingleShot(true);
  QObject::connect(&m_timer, &QTimer::timeout, &map, [this] { Step(); });
}

void PictureSteps::MakeAtOnce() {
  // The last step of what was in the making would have brought the picture to the screen.
  if (std::exchange(m_run, nullptr)) m_map.Invalidate();
  PictureRun(m_map, m_pictures, Making::AtOnce).Continue(QDeadlineTimer::Forever);
}

bool PictureSteps::Begin() {
  if (!m_map.GetPainting()->GetPaintInSteps()) {
    GuardedCall([this] { MakeAtOnce(); });
    return true;
  }
  m_run = std::make_unique<PictureRun>(m_map, m_pictures, Making::InSteps);
  return Draw();
}

void PictureSteps::Resume() {
  if (m_run) m_timer.start(0);
}

void PictureSteps::Step() {
  if (!m_run || m_map.GetIsBusy() || m_map.GetInUpdate()) return;
  const QPointer<TTessera> map(&m_map);
  // Changes do not always ask for a repaint, but this picture was asked for.
  const bool isComplete = m_map.GetModified() ? Begin() : Draw();
  if (map && isComplete) GuardedCall([this] { m_map.PaintBitmapToMapCanvas(); });
}

bool PictureSteps::Draw() {
  using State = PictureRun::State;
  const QPointer<TTessera> map(&m_map);
  std::unique_ptr<PictureRun> run = std::exchange(m_run, nullptr);
  State state = State::Complete;
  GuardedCall([&] { state = run->Continue(QDeadlineTimer(m_map.GetPainting()->GetStepMs())); });
  if (!map) return true;
  // As with a picture made at once, what handlers ask for while it is drawn is taken for part of it.
  m_map.SetModified(false);
  if (state == State::Complete) {
    m_pictures.EndMap();
    return true;
  }
  if (state == State::Outdated) run = std::make_unique<PictureRun>(m_map, m_pictures, Making::InSteps);
  m_run = std::move(run);
  Resume();
  return false;
}

}  // namespace tessera::detail
