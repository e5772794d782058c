// SPDX-License-Identifier: MIT
#include <tessera/graphics/detail/CanvasState.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace tessera {

bool TCanvas::Private::Attach() {
  QImage &image = m_bitmap->GetImage();
  if (image.isNull()) return false;
  m_ratio = image.devicePixelRatio();
  const detail::Surface &surface = m_stage.GetSurface();
  const bool isAttached = image.constBits() == reinterpret_cast<const uchar *>(surface.pixels) && image.isDetached() &&
                          image.width() == surface.right && image.height() == surface.bottom &&
                          image.format() == m_format &&
                          image.bytesPerLine() == qsizetype(surface.stride) * qsizetype(sizeof(QRgb));
  if (isAttached) return true;
  if (image.format() != QImage::Format_RGB32 && image.format() != QImage::Format_ARGB32_Premultiplied) {
    image.convertTo(image.hasAlphaChannel() ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32);
  }
  auto *pixels = reinterpret_cast<QRgb *>(image.bits());
  if (!pixels) return false;
  m_format = image.format();
  m_stage.Attach({pixels, image.bytesPerLine() / qsizetype(sizeof(QRgb)), 0, 0, image.width(), image.height()},
                 m_format);
  return true;
}

int TCanvas::Private::Scaled(int client) const {
  using Limits = std::numeric_limits<int>;
  return int(std::clamp<double>(std::round(client * m_ratio), Limits::min(), Limits::max()));
}

std::span<const TPoint> TCanvas::Private::ToDevice(std::span<const TPoint> client) {
  if (m_ratio == 1) return client;
  m_scaledPoints.clear();
  for (const TPoint &point : client) m_scaledPoints.push_back(ToDevice(point));
  return m_scaledPoints;
}

detail::DeviceRect TCanvas::Private::ToDevice(const DeviceRect &client) const {
  const auto scaled = [this](std::int64_t value) { return std::llround(double(value) * m_ratio); };
  return {scaled(client.left), scaled(client.top), scaled(client.right), scaled(client.bottom)};
}

detail::DeviceRect TCanvas::Private::ToDevice(const QRect &client) const {
  return ToDevice(
      DeviceRect{client.left(), client.top(), client.right() + std::int64_t(1), client.bottom() + std::int64_t(1)});
}

detail::DeviceRect TCanvas::Private::ToDevice(TPoint client, QSize size) const {
  return ToDevice(DeviceRect{client.x(), client.y(), client.x() + std::int64_t(size.width()),
                             client.y() + std::int64_t(size.height())});
}

detail::DeviceRect TCanvas::Private::ToDeviceSorted(int x1, int y1, int x2, int y2) const {
  return {ToDevice(std::min(x1, x2)), ToDevice(std::min(y1, y2)), ToDevice(std::max(x1, x2)),
          ToDevice(std::max(y1, y2))};
}

detail::DevicePen TCanvas::Private::MakePen() const {
  // Wider pens would cover any picture; the limit keeps all sums within 32 bits.
  constexpr double WidestPx = 1 << 20;
  const double width = std::max(1, m_pen.GetWidth());
  DevicePen pen;
  pen.style = m_pen.GetStyle();
  pen.widthPx = int(std::clamp(std::round(width * m_ratio), 1.0, WidestPx));
  pen.unitPx = std::max(1, int(std::lround(m_ratio)));
  pen.ink = detail::MakeInk(m_pen.GetColor(), m_pen.GetMode());
  return pen;
}

void TCanvas::Private::Report(const DeviceRect &bounds) const {
  const DeviceRect visible = bounds.Intersected(GetSurface().Bounds());
  if (visible.IsEmpty()) return;
  const auto client = [this](std::int64_t devicePx) { return double(devicePx) / m_ratio; };
  const QPoint first(int(std::floor(client(visible.left))), int(std::floor(client(visible.top))));
  const QPoint end(int(std::ceil(client(visible.right))), int(std::ceil(client(visible.bottom))));
  m_onChange(QRect(first, end - QPoint(1, 1)));
}

void TCanvas::Private::Stroke(std::span<const TPoint> points, const DevicePen &pen, double &phasePx) {
  const bool needsBounds = pen.ink.toggles || IsWatched();
  const DeviceRect bounds = needsBounds ? BoundsOf(points).Inflated(std::int64_t(pen.widthPx) + 2) : DeviceRect();
  if (pen.IsThin() && points.size() == 2) {
    Note(bounds);
    detail::StrokePolyline(m_stage, points, pen, phasePx);
    return;
  }
  Compose(bounds, pen, Fill(), [&](PaintStage &stage, const DevicePen &tool, const Fill &) {
    detail::StrokePolyline(stage, points, tool, phasePx);
  });
}

void TCanvas::Private::FillRegion(const TRgn &region) {
  const std::span<const TRgn::Run> runs = region.Runs();
  if (runs.empty()) return;
  if (IsWatched()) {
    DeviceRect bounds{runs.front().left, runs.front().y, runs.front().right, runs.back().y + std::int64_t(1)};
    for (const TRgn::Run &run : runs) {
      bounds.left = std::min<std::int64_t>(bounds.left, run.left);
      bounds.right = std::max<std::int64_t>(bounds.right, run.right);
    }
    Report(bounds);
  }
  MakeFill().PaintRuns(GetSurface(), runs);
}

bool TCanvas::Private::BeginScratch(const DeviceRect &bounds) {
  const DeviceRect visible = bounds.Intersected(GetSurface().Bounds());
  if (visible.IsEmpty()) return false;
  m_scratch.Close();
  const std::int64_t width = visible.right - visible.left;
  m_scratchPixels.assign(std::size_t(width * (visible.bottom - visible.top)), 0);
  m_scratch.Attach({m_scratchPixels.data(), std::ptrdiff_t(width), int(visible.left), int(visible.top),
                    int(visible.right), int(visible.bottom)},
                   QImage::Format_RGB32);
  return true;
}

void TCanvas::Private::MergeScratch(const Fill &pen, const Fill &fill) {
  // Letters may have left shades of the marks; from half way on a pixel counts.
  const auto markOf = [](QRgb pixel) { return qBlue(pixel) >= 128 ? PenMark.value : pixel & 0x8000U; };
  const detail::Surface &marks = m_scratch.GetSurface();
  for (int y = marks.top; y < marks.bottom; ++y) {
    const QRgb *row = marks.At(marks.left, y);
    const int width = marks.right - marks.left;
    for (int first = 0; first < width;) {
      const QRgb mark = markOf(row[first]);
      int end = first + 1;
      while (end < width && markOf(row[end]) == mark) ++end;
      if (mark != 0) {
        (mark == PenMark.value ? pen : fill).PaintRun(GetSurface(), y, marks.left + first, marks.left + end);
      }
      first = end;
    }
  }
}

detail::DeviceRect BoundsOf(std::span<const TPoint> points) {
  detail::DeviceRect bounds{points[0].x(), points[0].y(), points[0].x() + std::int64_t(1),
                            points[0].y() + std::int64_t(1)};
  for (const TPoint &point : points) {
    bounds.left = std::min<std::int64_t>(bounds.left, point.x());
    bounds.top = std::min<std::int64_t>(bounds.top, point.y());
    bounds.right = std::max<std::int64_t>(bounds.right, point.x() + std::int64_t(1));
    bounds.bottom = std::max<std::int64_t>(bounds.bottom, point.y() + std::int64_t(1));
  }
  return bounds;
}

}  // namespace tessera
