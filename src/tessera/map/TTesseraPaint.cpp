// SPDX-License-Identifier: MIT
// The two pictures: the off-screen picture of the map, and the screen picture that shows it.
#include <tessera/base/DebugTrace.h>
#include <tessera/map/detail/TesseraPrivate.h>

#include <QPaintEvent>
#include <QPainter>
#include <QTime>

namespace tessera {
namespace {

/// Directs drawing to the off-screen picture as long as it lives.
class BusyScope {
 public:
  explicit BusyScope(bool &isBusy) : m_isBusy(isBusy) { m_isBusy = true; }
  ~BusyScope() { m_isBusy = false; }
  BusyScope(const BusyScope &) = delete;
  BusyScope &operator=(const BusyScope &) = delete;

 private:
  bool &m_isBusy;
};

void ResetTools(TCanvas &canvas, TColor color) {
  canvas.Pen().SetMode(TPenMode::pmCopy);
  canvas.Brush().SetStyle(TBrushStyle::bsSolid);
  canvas.Brush().SetColor(color);
}

bool Fits(const TBitmap &bitmap, const QSize &size, qreal ratio) {
  return !bitmap.IsEmpty() && bitmap.GetWidth() == size.width() && bitmap.GetHeight() == size.height() &&
         bitmap.GetImage().devicePixelRatio() == ratio;
}

}  // namespace

TCanvas &TTessera::GetCanvas() {
  if (d->isBusy) return d->bitmapCanvas;
  update();
  return d->screenCanvas;
}

TCanvas &TTessera::GetMapCanvas() {
  return d->bitmapCanvas;
}

void TTessera::FitScreenPicture() {
  if (!Fits(d->screen, size(), devicePixelRatioF())) d->screen.SetSize(width(), height(), devicePixelRatioF());
}

void TTessera::Paint() {
  const QRect client(0, 0, width(), height());
  FitScreenPicture();
  if (d->isFirstPaint) {
    d->isFirstPaint = false;
    ResetTools(d->screenCanvas, d->color);
    d->screenCanvas.FillRect(client);
  }
  if (d->inUpdate || client.isEmpty()) return;
  if (d->modified || !Fits(d->bitmap, size(), devicePixelRatioF())) {
    PaintMapToBitmap();
    d->modified = false;
  }
  PaintBitmapToMapCanvas();
}

void TTessera::PaintMapToBitmap() {
  const QTime start = QTime::currentTime();
  const BusyScope busy(d->isBusy);
  d->displayed->Clear();
  if (!Fits(d->bitmap, size(), devicePixelRatioF())) d->bitmap.SetSize(width(), height(), devicePixelRatioF());
  TCanvas &canvas = GetCanvas();
  ResetTools(canvas, d->color);
  canvas.FillRect(QRect(0, 0, width(), height()));
  const int layerCount = d->layers->GetCount();
  if (layerCount == 0) return;

  StartProgress(0, layerCount - 1, QString());
  d->substrates->Paint();
  for (int i = 0; i < layerCount; ++i) {
    d->layers->GetLayer(i)->Paint();
    ShowProgress(i);
  }
  ResetTools(canvas, d->color);
  StopProgress();
  Q_EMIT OnUpdate(this);
  const QTime elapsed = QTime(0, 0).addMSecs(start.msecsTo(QTime::currentTime()));
  Q_EMIT OnPaint(this);
  DebugTrace(QStringLiteral("DrawTime = %s"), {elapsed.toString(QStringLiteral("ss:zzz"))});
}

void TTessera::PaintBitmapToMapCanvas() {
  TCanvas &canvas = GetCanvas();
  canvas.Draw(0, 0, d->bitmap);
  if (!d->flags.FastSelection) return;
  for (TCustomMapObject *object : d->selection->Items()) object->DrawSelection();
}

void TTessera::AssignToBitmap(TBitmap &bitmap) const {
  TBitmap copy;
  copy.SetSize(width(), height(), d->bitmap.GetImage().devicePixelRatio());
  TCanvas canvas(&copy);
  const QRect whole(0, 0, width(), height());
  canvas.CopyRect(whole, d->bitmapCanvas, whole);
  bitmap = copy;
}

void TTessera::paintEvent(QPaintEvent *event) {
  GuardedEvent([this] {
    const bool isStale = !Fits(d->screen, size(), devicePixelRatioF());
    if ((d->isPaintPending || isStale) && !d->isBusy) {
      d->isPaintPending = false;
      Paint();
    }
  });
  QPainter painter(this);
  const QRect exposed = event->rect();
  const qreal ratio = d->screen.GetImage().devicePixelRatio();
  painter.drawImage(
      exposed, d->screen.GetImage(),
      QRectF(exposed.x() * ratio, exposed.y() * ratio, exposed.width() * ratio, exposed.height() * ratio));
}

void TTessera::resizeEvent(QResizeEvent *event) {
  QWidget::resizeEvent(event);
  // Qt also sends this without a change, before it renders a hidden control.
  if (Fits(d->bitmap, size(), devicePixelRatioF())) return;
  d->modified = true;
  d->isPaintPending = true;
}

}  // namespace tessera
