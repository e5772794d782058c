// SPDX-License-Identifier: MIT
#include <tessera/base/detail/FarPixels.h>
#include <tessera/graphics/TCanvas.h>
#include <tessera/graphics/detail/CanvasState.h>
#include <tessera/graphics/detail/EllipseRaster.h>
#include <tessera/graphics/detail/LineRaster.h>
#include <tessera/graphics/detail/PictureBlit.h>

#include <algorithm>
#include <array>
#include <utility>

namespace tessera {

using detail::DevicePen;
using detail::DeviceRect;
using detail::Fill;
using detail::PaintStage;
using detail::Saturated;

namespace {

/// A frame of the pen's width, its inside filled; each pixel is touched once.
void DrawFrame(const detail::Surface &surface, const DeviceRect &rect, const DevicePen &pen, const Fill &fill) {
  const bool inside = pen.style == TPenStyle::psInsideFrame;
  const DeviceRect outer = inside ? rect : rect.Inflated(-pen.OffsetPx());
  const DeviceRect inner = outer.Inflated(-std::int64_t(pen.widthPx));
  const Fill border(pen.ink);
  if (inner.IsEmpty()) {
    border.PaintRect(surface, outer);
    return;
  }
  border.PaintRect(surface, {outer.left, outer.top, outer.right, inner.top});
  border.PaintRect(surface, {outer.left, inner.top, inner.left, inner.bottom});
  fill.PaintRect(surface, inner);
  border.PaintRect(surface, {inner.right, inner.top, outer.right, inner.bottom});
  border.PaintRect(surface, {outer.left, inner.bottom, outer.right, outer.bottom});
}

/// The client pixels on the border of a rectangle, as a closed line.
std::array<TPoint, 5> FrameLine(const DeviceRect &rect, int unitPx) {
  const int left = Saturated(rect.left);
  const int top = Saturated(rect.top);
  const int right = Saturated(std::max(rect.left, rect.right - unitPx));
  const int bottom = Saturated(std::max(rect.top, rect.bottom - unitPx));
  return {TPoint(left, top), TPoint(right, top), TPoint(right, bottom), TPoint(left, bottom), TPoint(left, top)};
}

}  // namespace

void TCanvas::Private::Blit(const DeviceRect &dest, const TBitmap &bitmap) const {
  std::optional<QRgb> transparent;
  if (bitmap.HasTransparentColor()) transparent = ToRgb(bitmap.GetTransparentColor());
  // A bitmap drawn on itself is copied here, because the surface must stay the only user of its pixels.
  const QImage image = &bitmap == m_bitmap ? bitmap.GetImage().copy() : bitmap.GetImage();
  Note(dest);
  detail::BlitScaled(GetSurface(), dest, {image, {0, 0, image.width(), image.height()}, transparent});
}

void TCanvas::Private::DrawEllipse(const DeviceRect &rect) {
  if (rect.IsEmpty()) return;
  const DevicePen pen = MakePen();
  Note(rect.Inflated(pen.widthPx));
  detail::DrawEllipse(GetSurface(), rect, pen, MakeFill());
}

TCanvas::TCanvas(TBitmap *bitmap) : d(std::make_unique<Private>(bitmap)) {}

TCanvas::~TCanvas() = default;

TPen &TCanvas::Pen() {
  return d->m_pen;
}

TBrush &TCanvas::Brush() {
  return d->m_brush;
}

TFont &TCanvas::Font() {
  return d->m_font;
}

void TCanvas::SetFontEscapement(int tenthsOfDegree) {
  d->m_escapement = tenthsOfDegree;
}

void TCanvas::FillRect(const QRect &rect) {
  if (!d->Attach()) return;
  const DeviceRect bounds = d->ToDevice(rect);
  d->Note(bounds);
  d->MakeFill(TPenMode::pmCopy).PaintRect(d->GetSurface(), bounds);
}

void TCanvas::Rectangle(int x1, int y1, int x2, int y2) {
  if (!d->Attach()) return;
  const DeviceRect rect = d->ToDeviceSorted(x1, y1, x2, y2);
  const DevicePen pen = d->MakePen();
  const Fill fill = d->MakeFill();
  if (rect.IsEmpty()) return;
  d->Note(rect.Inflated(pen.widthPx));
  if (pen.IsClear()) {
    fill.PaintRect(d->GetSurface(), rect);
  } else if (!pen.IsDashed()) {
    DrawFrame(d->GetSurface(), rect, pen, fill);
  } else {
    const std::array<TPoint, 5> line = FrameLine(rect, pen.unitPx);
    const DeviceRect bounds = rect.Inflated(pen.widthPx);
    d->Compose(bounds, pen, fill, [&](PaintStage &stage, const DevicePen &tool, const Fill &inside) {
      double phasePx = 0;
      inside.PaintRect(stage.GetSurface(), rect);
      detail::StrokePolyline(stage, line, tool, phasePx);
    });
  }
}

void TCanvas::Ellipse(int x1, int y1, int x2, int y2) {
  if (!d->Attach()) return;
  d->DrawEllipse(d->ToDeviceSorted(x1, y1, x2, y2));
}

void TCanvas::Circle(std::int64_t x, std::int64_t y, std::int64_t radius) {
  if (!d->Attach()) return;
  const std::int64_t reach = std::abs(radius);
  d->DrawEllipse(d->ToDevice(DeviceRect{x - reach, y - reach, x + reach, y + reach}));
}

void TCanvas::Polygon(std::span<const TPoint> points) {
  if (points.size() < 2 || !d->Attach()) return;
  const std::span<const TPoint> corners = d->ToDevice(points);
  const DevicePen pen = d->MakePen();
  const DeviceRect picture = d->GetSurface().Bounds();
  d->m_region.SetPolygon(corners, TFillMode::Alternate, QRect(0, 0, int(picture.right), int(picture.bottom)));
  if (pen.IsClear()) {
    d->FillRegion(d->m_region);
    return;
  }
  d->m_outline.assign(corners.begin(), corners.end());
  d->m_outline.push_back(corners.front());
  const DeviceRect bounds = BoundsOf(corners).Inflated(std::int64_t(pen.widthPx) + 2);
  d->Compose(bounds, pen, d->MakeFill(), [&](PaintStage &stage, const DevicePen &tool, const Fill &inside) {
    double phasePx = 0;
    inside.PaintRuns(stage.GetSurface(), d->m_region.Runs());
    detail::StrokePolyline(stage, d->m_outline, tool, phasePx);
  });
}

void TCanvas::Polyline(std::span<const TPoint> points) {
  if (points.size() < 2 || !d->Attach()) return;
  const DevicePen pen = d->MakePen();
  double phasePx = 0;
  if (!pen.IsClear()) d->Stroke(d->ToDevice(points), pen, phasePx);
}

void TCanvas::MoveTo(int x, int y) {
  d->m_position = {x, y};
  d->m_dashPhasePx = 0;
}

void TCanvas::LineTo(int x, int y) {
  const TPoint client[] = {d->m_position, {x, y}};
  d->m_position = client[1];
  if (!d->Attach()) return;
  const DevicePen pen = d->MakePen();
  if (pen.IsClear()) return;
  const std::span<const TPoint> line = d->ToDevice(client);
  if (pen.IsThin()) {
    if (d->IsWatched()) d->Note(BoundsOf(line));
    detail::DrawThinLine(d->GetSurface(), line[0], line[1], detail::LineEnd::Omitted, pen.ink);
  } else {
    d->Stroke(line, pen, d->m_dashPhasePx);
  }
}

void TCanvas::SetPixels(std::span<const TPixel> pixels) {
  if (!d->Attach()) return;
  const detail::Surface &surface = d->GetSurface();
  const bool isPlain = d->Ratio() == 1 && !d->IsWatched();
  TColor color = 0;
  detail::Ink ink = detail::MakeInk(color, d->m_pen.GetMode());
  for (const TPixel &pixel : pixels) {
    if (std::exchange(color, pixel.color) != pixel.color) ink = detail::MakeInk(color, d->m_pen.GetMode());
    if (!isPlain) {
      const DeviceRect rect = d->ToDevice(pixel.at, QSize(1, 1));
      d->Note(rect);
      Fill(ink).PaintRect(surface, rect);
    } else if (surface.Contains(pixel.at.x(), pixel.at.y())) {
      ink.Apply(*surface.At(pixel.at.x(), pixel.at.y()));
    }
  }
}

void TCanvas::PaintRgn(const TRgn &region) {
  if (!region.IsEmpty() && d->Attach()) d->FillRegion(region);
}

void TCanvas::CreatePolygonRgn(std::span<const TPoint> points, TFillMode mode, TRgn &region) const {
  if (!d->Attach()) {
    region = TRgn();
    return;
  }
  const detail::Surface &surface = d->GetSurface();
  region.SetPolygon(d->ToDevice(points), mode, QRect(0, 0, surface.right, surface.bottom));
}

void TCanvas::Draw(int x, int y, const TBitmap &bitmap) {
  if (d->Attach()) d->Blit(d->ToDevice(TPoint(x, y), QSize(bitmap.GetWidth(), bitmap.GetHeight())), bitmap);
}

void TCanvas::StretchDraw(const QRect &rect, const TBitmap &bitmap) {
  if (d->Attach()) d->Blit(d->ToDevice(rect), bitmap);
}

void TCanvas::CopyRect(const QRect &dest, const TCanvas &canvas, const QRect &source) {
  Private &other = *canvas.d;
  if (!d->Attach() || !other.Attach()) return;
  const QImage &picture = other.m_bitmap->GetImage();
  const QImage image = other.m_bitmap == d->m_bitmap ? picture.copy() : picture;
  const DeviceRect bounds = d->ToDevice(dest);
  d->Note(bounds);
  detail::BlitScaled(d->GetSurface(), bounds, {image, other.ToDevice(source), std::nullopt});
}

TBitmap TCanvas::CopyOf(const QRect &rect) const {
  TBitmap copy;
  if (!d->Attach()) return copy;
  const DeviceRect source = d->ToDevice(rect);
  copy.SetSize(Saturated(source.right - source.left), Saturated(source.bottom - source.top));
  if (copy.IsEmpty()) return copy;
  TCanvas target(&copy);
  const DeviceRect whole{0, 0, source.right - source.left, source.bottom - source.top};
  if (target.d->Attach()) {
    detail::BlitScaled(target.d->GetSurface(), whole, {d->m_bitmap->GetImage(), source, std::nullopt});
  }
  copy.GetImage().setDevicePixelRatio(d->Ratio());
  return copy;
}

void TCanvas::SetOnChange(std::function<void(const QRect &changed)> onChange) {
  d->m_onChange = std::move(onChange);
}

QRect TCanvas::GetClipRect() const {
  return {0, 0, d->m_bitmap->GetWidth(), d->m_bitmap->GetHeight()};
}

}  // namespace tessera
