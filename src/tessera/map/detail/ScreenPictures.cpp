// SPDX-License-Identifier: MIT
#include <tessera/map/detail/ScreenPictures.h>

#include <QPainter>
#include <QScopedValueRollback>

#include <utility>

namespace tessera::detail {

ScreenPictures::ScreenPictures(QWidget &control) : m_control(control) {
  m_screenCanvas.SetOnChange([this](const QRect &changed) { NoteChange(changed); });
}

bool ScreenPictures::IsFitting(const TBitmap &picture) const {
  return !picture.IsEmpty() && picture.GetWidth() == m_control.width() && picture.GetHeight() == m_control.height() &&
         picture.GetImage().devicePixelRatio() == m_control.devicePixelRatioF();
}

void ScreenPictures::Fit(TBitmap &picture, TColor background) {
  if (IsFitting(picture)) return;
  picture.SetSize(m_control.width(), m_control.height(), m_control.devicePixelRatioF());
  picture.GetImage().fill(ToRgb(background));
}

TBitmap ScreenPictures::CopyOfMap() const {
  TBitmap copy;
  copy.SetSize(m_control.width(), m_control.height(), m_map.GetImage().devicePixelRatio());
  TCanvas canvas(&copy);
  const QRect whole = m_control.rect();
  canvas.CopyRect(whole, m_mapCanvas, whole);
  return copy;
}

void ScreenPictures::RequestRepaint() {
  m_isRequested = true;
  m_control.update();
}

void ScreenPictures::RepeatRequest() {
  if (m_isRequested) m_control.update();
}

void ScreenPictures::NoteChange(const QRect &changed) {
  if (m_changed.contains(changed)) return;
  m_changed |= changed;
  if (!m_isShowing) m_control.update(m_changed);
}

void ScreenPictures::Show(const QRect &exposed, const std::function<void()> &paint) {
  {
    const QScopedValueRollback showing(m_isShowing, true);
    paint();
  }
  // What has changed lies within the exposed part as a rule; an event for less leaves the rest to another one.
  const QRect changed = std::exchange(m_changed, QRect());
  if (!exposed.contains(changed)) m_control.update(changed);
  // The painter is cut to the exposed part.
  QPainter(&m_control).drawImage(0, 0, std::as_const(m_screen).GetImage());
}

}  // namespace tessera::detail
