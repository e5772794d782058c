// SPDX-License-Identifier: MIT
#include <tessera/map/detail/ScreenPictures.h>

#include <QPainter>
#include <QScopedValueRollback>

#include <utility>

namespace tessera::detail {
namespace {

/// Where in a view a picture of another one lies; nowhere if that is too large to be of use.
QRect PlaceIn(const TViewport &view, const TViewport &picture) {
  constexpr int LargestPx = 1 << 24;
  if (picture.GetScale().Kx == 0) return {};
  const TMapPoint topLeft = picture.ScreenToMap(0, 0);
  const TMapPoint bottomRight = picture.ScreenToMap(picture.ClientWidth, picture.ClientHeight);
  const QPoint from = view.MapToScreen(topLeft.X, topLeft.Y);
  const QPoint to = view.MapToScreen(bottomRight.X, bottomRight.Y);
  const QRect largest(QPoint(-LargestPx, -LargestPx), QPoint(LargestPx, LargestPx));
  if (!largest.contains(from) || !largest.contains(to)) return {};
  return {from, QSize(to.x() - from.x(), to.y() - from.y())};
}

}  // namespace

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

void ScreenPictures::FitScreen(TColor background) {
  if (IsFitting(m_screen)) return;
  Fit(m_screen, background);
  m_screenView = TViewport();
}

void ScreenPictures::BeginMap(const TViewport &view, TColor background, Making making) {
  if (making == Making::InSteps && m_isMapComplete) {
    std::swap(m_map, m_last);
    m_lastView = m_mapView;
  }
  m_isMapComplete = making == Making::AtOnce;
  m_mapView = view;
  Fit(m_map, background);
}

void ScreenPictures::DrawMap(TCanvas &canvas, const TViewport &view, TColor background) {
  if (&canvas == &m_screenCanvas) m_screenView = view;
  if (m_isMapComplete) {
    canvas.Draw(0, 0, m_map);
  } else {
    DrawLast(canvas, view, background);
  }
}

void ScreenPictures::DrawLast(TCanvas &canvas, const TViewport &view, TColor background) const {
  const TBrush brushBefore = canvas.Brush();
  canvas.Brush().SetStyle(TBrushStyle::bsSolid);
  canvas.Brush().SetColor(background);
  canvas.FillRect(m_control.rect());
  canvas.Brush() = brushBefore;
  const QRect moved = PlaceIn(view, m_lastView);
  if (!m_last.IsEmpty() && !moved.isEmpty()) canvas.StretchDraw(moved, m_last);
}

TBitmap ScreenPictures::CopyOfMap() const {
  const TBitmap &picture = m_isMapComplete ? m_map : m_last;
  TBitmap copy;
  copy.SetSize(m_control.width(), m_control.height(), picture.GetImage().devicePixelRatio());
  TCanvas(&copy).Draw(0, 0, picture);
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
