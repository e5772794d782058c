// SPDX-License-Identifier: MIT
// The painting of the map: when which of the two pictures is made anew.
#include <tessera/base/DebugTrace.h>
#include <tessera/base/GuardedCall.h>
#include <tessera/map/detail/TesseraPrivate.h>
#include <tessera/objects/TMapScopes.h>

#include <QPaintEvent>
#include <QTime>

namespace tessera {
namespace {

/// Directs drawing to the off-screen picture as long as it lives.
class BusyScope {
 public:
  explicit BusyScope(TTessera &map) : m_map(map) { m_map.SetIsBusy(true); }
  ~BusyScope() { m_map.SetIsBusy(false); }
  BusyScope(const BusyScope &) = delete;
  BusyScope &operator=(const BusyScope &) = delete;

 private:
  TTessera &m_map;
};

void ResetTools(TCanvas &canvas, TColor color) {
  canvas.Pen().SetMode(TPenMode::pmCopy);
  canvas.Brush().SetStyle(TBrushStyle::bsSolid);
  canvas.Brush().SetColor(color);
}

}  // namespace

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
  if (!isBusy) d->pictures.RepeatRequest();
}

void TTessera::SetInUpdate(bool inUpdate) {
  d->inUpdate = inUpdate;
  if (!inUpdate) d->pictures.RepeatRequest();
}

void TTessera::Paint() {
  d->pictures.FitScreen(d->color);
  if (d->inUpdate || size().isEmpty()) return;
  d->pictures.SetRepaintDone();
  if (d->modified || !d->pictures.IsMapFitting()) {
    GuardedCall([this] { PaintMapToBitmap(); });
    d->modified = false;
  }
  PaintBitmapToMapCanvas();
}

void TTessera::PaintMapToBitmap() {
  const QTime start = QTime::currentTime();
  QTime end;
  {
    const BusyScope busy(*this);
    d->displayed->Clear();
    d->pictures.FitMap(d->color);
    ResetTools(GetCanvas(), d->color);
    GetCanvas().FillRect(rect());
    if (d->layers->GetCount() == 0) return;
    PaintLayers();
    end = QTime::currentTime();
    Q_EMIT OnPaint(this);
  }
  const QTime elapsed = QTime(0, 0).addMSecs(start.msecsTo(end));
  DebugTrace(QStringLiteral("DrawTime = %s"), {elapsed.toString(QStringLiteral("ss:zzz"))});
}

void TTessera::PaintLayers() {
  {
    TProgressScope progress(*this, 0, d->layers->GetCount() - 1, QString());
    d->substrates->Paint();
    // A handler may have taken layers away.
    for (int i = 0; i < d->layers->GetCount(); ++i) {
      d->layers->GetLayer(i)->Paint();
      progress.Show(i);
    }
    ResetTools(GetCanvas(), d->color);
  }
  Q_EMIT OnUpdate(this);
}

void TTessera::PaintBitmapToMapCanvas() {
  d->pictures.DrawMap(GetCanvas());
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
