// SPDX-License-Identifier: MIT
// The painting of the map: when which of the two pictures is made anew.
#include <tessera/base/GuardedCall.h>
#include <tessera/map/detail/TesseraPrivate.h>

#include <QPaintEvent>

namespace tessera {

TCanvas &TTessera::GetCanvas() {
  return d->isBusy ? d->pictures.MapCanvas() : d->pictures.ScreenCanvas();
}

TCanvas &TTessera::GetMapCanvas() {
  return d->pictures.MapCanvas();
}

void TTessera::Invalidate() {
  d->pictures.RequestRepaint();
}

void TTessera::SetIsBusy(bool isBusy) {
  d->isBusy = isBusy;
  if (!isBusy) Resume();
}

void TTessera::SetInUpdate(bool inUpdate) {
  d->inUpdate = inUpdate;
  if (!inUpdate) Resume();
}

void TTessera::Resume() {
  d->pictures.RepeatRequest();
  d->steps.Resume();
}

void TTessera::Paint() {
  d->pictures.FitScreen(d->color);
  if (d->inUpdate || size().isEmpty()) return;
  d->pictures.SetRepaintDone();
  if (d->modified || !d->pictures.IsMapFitting()) {
    const bool isComplete = d->steps.Begin();
    d->modified = false;
    // Of the same view, what stands on the screen is nearer to the new picture than the last one is.
    if (!isComplete && d->pictures.IsScreenOf(GetViewport())) return;
  }
  PaintBitmapToMapCanvas();
}

void TTessera::PaintMapToBitmap() {
  d->steps.MakeAtOnce();
}

void TTessera::PaintBitmapToMapCanvas() {
  d->pictures.DrawMap(GetCanvas(), GetViewport(), d->color);
  if (d->flags.FastSelection) {
    for (TCustomMapObject *object : d->selection->Items()) object->DrawSelection();
  }
  Q_EMIT OnScreenRepainted(this);
}

void TTessera::AssignToBitmap(TBitmap &bitmap) const {
  bitmap = d->pictures.CopyOfMap();
}

void TTessera::paintEvent(QPaintEvent *event) {
  d->pictures.Show(event->rect(), [this] {
    const bool isStale = d->modified || !d->pictures.IsScreenFitting();
    if (!isStale && !d->pictures.IsRepaintRequested()) return;
    // What cannot be served now, while the map is busy or in a batch of updates, is served afterwards.
    d->pictures.SetRepaintDue();
    if (!d->isBusy) GuardedCall([this] { Paint(); });
  });
}

void TTessera::resizeEvent(QResizeEvent *event) {
  QWidget::resizeEvent(event);
  // Qt also sends this without a change, before it renders a hidden control.
  if (!d->pictures.IsMapFitting()) d->modified = true;
}

}  // namespace tessera
