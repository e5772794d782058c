// SPDX-License-Identifier: MIT
#include <tessera/graphics/detail/CanvasState.h>

#include <algorithm>
#include <array>
#include <cmath>

namespace tessera {

using detail::DevicePen;
using detail::DeviceRect;
using detail::Fill;
using detail::FontFace;
using detail::PaintStage;

namespace {

/// A text's box, turned about its upper left corner.
struct TextBox {
  QPointF corner;
  QSizeF size;
  double angleDeg = 0;

  [[nodiscard]] QTransform Transform() const {
    return QTransform::fromTranslate(corner.x(), corner.y()).rotate(-angleDeg);
  }
  [[nodiscard]] DeviceRect Bounds(double overhang) const {
    const QRectF box(-overhang, -overhang, size.width() + 2 * overhang, size.height() + 2 * overhang);
    const QRectF mapped = Transform().mapRect(box);
    return {std::llround(std::floor(mapped.left())), std::llround(std::floor(mapped.top())),
            std::llround(std::ceil(mapped.right())), std::llround(std::ceil(mapped.bottom()))};
  }
};

void FillBox(PaintStage &stage, const TextBox &box, const Fill &fill) {
  const detail::Surface &surface = stage.GetSurface();
  const QTransform transform = box.Transform();
  const double width = box.size.width();
  const double height = box.size.height();
  const std::array<TPoint, 4> corners{
      transform.map(QPointF(0, 0)).toPoint(), transform.map(QPointF(width, 0)).toPoint(),
      transform.map(QPointF(width, height)).toPoint(), transform.map(QPointF(0, height)).toPoint()};
  TRgn region;
  region.SetPolygon(corners, TFillMode::Winding,
                    QRect(surface.left, surface.top, surface.right - surface.left, surface.bottom - surface.top));
  fill.PaintRuns(surface, region.Runs());
}

void DrawLetters(PaintStage &stage, const TextBox &box, const FontFace &face, const QFont &font, QRgb color,
                 const QString &text) {
  QPainter &painter = stage.Painter();
  if (painter.font() != font) painter.setFont(font);
  painter.setPen(QColor::fromRgb(color));
  painter.setWorldTransform(box.Transform() * painter.worldTransform());
  painter.drawText(QPointF(0, face.AscentPx()), text);
}

}  // namespace

void TCanvas::TextOut(int x, int y, const QString &text) {
  if (text.isEmpty() || !d->Attach()) return;
  FontFace &face = d->m_glyphs.Face(d->m_font, d->Ratio());
  const Fill fill = d->MakeFill();
  const TPenMode mode = d->m_pen.GetMode();
  const TPoint corner = d->ToDevice(TPoint(x, y));
  // Letters may hang over their box, but not by more than their height.
  const auto boundsOf = [&](const TextBox &box) { return box.Bounds(face.DeviceFont().pixelSize() + 2.0); };
  if (d->DrawsUprightText() && face.TakesRun(text)) {
    if (d->IsWatched()) d->Note(boundsOf({corner, QSizeF(face.Extent(text)) * d->Ratio(), 0}));
    if (!fill.IsNone()) fill.PaintRect(d->GetSurface(), d->ToDevice(TPoint(x, y), face.Extent(text)));
    face.DrawRun(d->GetSurface(), corner.x(), corner.y(), text);
    return;
  }
  const TextBox box{corner, QSizeF(face.Extent(text)) * d->Ratio(), d->m_escapement % Private::FullTurn / 10.0};
  const DeviceRect bounds = boundsOf(box);
  if (bounds.Intersected(d->GetSurface().Bounds()).IsEmpty()) return;
  DevicePen pen;
  pen.ink = detail::MakeInk(d->m_font.GetColor(), mode);
  const QFont &font = pen.ink.toggles ? face.HardEdgedFont() : face.DeviceFont();
  d->Compose(bounds, pen, fill, [&](PaintStage &stage, const DevicePen &tool, const Fill &background) {
    if (!background.IsNone()) FillBox(stage, box, background);
    DrawLetters(stage, box, face, font, tool.ink.value, text);
  });
}

QSize TCanvas::TextExtent(const QString &text) {
  const QImage &image = std::as_const(*d->m_bitmap).GetImage();
  return d->m_glyphs.Face(d->m_font, image.devicePixelRatio()).Extent(text);
}

}  // namespace tessera
