// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/graphics/TCanvas.h>
#include <tessera/graphics/detail/GlyphCache.h>
#include <tessera/graphics/detail/PaintStage.h>
#include <tessera/graphics/detail/Stroker.h>

namespace tessera {

/// The tools of a canvas and the stages it draws on.
class TCanvas::Private {
 public:
  using DeviceRect = detail::DeviceRect;
  using DevicePen = detail::DevicePen;
  using Fill = detail::Fill;
  using Ink = detail::Ink;
  using PaintStage = detail::PaintStage;

  static constexpr int FullTurn = 3600;  ///< In tenths of a degree.

  explicit Private(TBitmap *bitmap) : m_bitmap(bitmap) {}

  /// Makes the picture stage that of the bitmap as it is now. False when the bitmap is empty.
  bool Attach();
  [[nodiscard]] const detail::Surface &GetSurface() const { return m_stage.GetSurface(); }
  [[nodiscard]] double Ratio() const { return m_ratio; }

  [[nodiscard]] int ToDevice(int client) const { return m_ratio == 1 ? client : Scaled(client); }
  [[nodiscard]] TPoint ToDevice(TPoint client) const { return {ToDevice(client.x()), ToDevice(client.y())}; }
  /// The points themselves, or a copy that is good until the next call.
  [[nodiscard]] std::span<const TPoint> ToDevice(std::span<const TPoint> client);
  [[nodiscard]] DeviceRect ToDevice(const DeviceRect &client) const;
  [[nodiscard]] DeviceRect ToDevice(const QRect &client) const;
  /// Unlike a QRect this may end beyond the 32-bit coordinates.
  [[nodiscard]] DeviceRect ToDevice(TPoint client, QSize size) const;
  /// With the smaller of each pair of coordinates first.
  [[nodiscard]] DeviceRect ToDeviceSorted(int x1, int y1, int x2, int y2) const;

  [[nodiscard]] DevicePen MakePen() const;
  [[nodiscard]] Fill MakeFill() { return MakeFill(m_pen.GetMode()); }
  [[nodiscard]] Fill MakeFill(TPenMode mode) { return m_tiles.MakeFill(m_brush, mode, m_ratio); }

  /// Whether text is drawn upright and covers what is there.
  [[nodiscard]] bool DrawsUprightText() const {
    return m_pen.GetMode() == TPenMode::pmCopy && m_escapement % FullTurn == 0;
  }

  /// Whether somebody wants to know what changes; only then do the bounds of a figure have to be found out.
  [[nodiscard]] bool IsWatched() const { return m_onChange != nullptr; }
  /// Tells of the device pixels that are about to change.
  void Note(const DeviceRect &bounds) const {
    if (IsWatched()) Report(bounds);
  }

  /// Lines along device points, each pixel changed once. `phasePx` as in StrokePolyline.
  void Stroke(std::span<const TPoint> points, const DevicePen &pen, double &phasePx);
  void FillRegion(const TRgn &region);

  /// The ellipse that touches the sides; none in an empty rectangle.
  void DrawEllipse(const DeviceRect &rect);

  /// The picture scaled to `dest`, without its transparent pixels.
  void Blit(const DeviceRect &dest, const TBitmap &bitmap) const;

  /// Draws a figure within `bounds` whose parts overlap. `draw(stage, pen, fill)` is called with what was given, or,
  /// when the ink toggles, with a scratch stage and tools that leave marks there, each of which then changes a pixel
  /// once.
  template <typename Draw>
  void Compose(const DeviceRect &bounds, const DevicePen &pen, const Fill &fill, Draw draw) {
    Note(bounds);
    if (!pen.ink.toggles) {
      draw(m_stage, pen, fill);
    } else if (BeginScratch(bounds)) {
      DevicePen marker = pen;
      marker.ink = PenMark;
      draw(m_scratch, marker, fill.IsNone() ? fill : Fill(FillMark));
      MergeScratch(Fill(pen.ink), fill);
    }
  }

  TBitmap *m_bitmap;
  TPen m_pen;
  TBrush m_brush;
  TFont m_font;
  int m_escapement = 0;
  TPoint m_position;
  double m_dashPhasePx = 0;  ///< Of the lines since the last MoveTo.
  detail::GlyphCache m_glyphs;
  std::function<void(const QRect &changed)> m_onChange;
  TRgn m_region;                  ///< Of the polygon being drawn.
  std::vector<TPoint> m_outline;  ///< Of the polygon being drawn, closed.

 private:
  static constexpr Ink PenMark{0xFF0000FFU, false};
  static constexpr Ink FillMark{0xFF00FF00U, false};

  [[nodiscard]] int Scaled(int client) const;
  void Report(const DeviceRect &bounds) const;
  bool BeginScratch(const DeviceRect &bounds);
  void MergeScratch(const Fill &pen, const Fill &fill);

  double m_ratio = 1;
  QImage::Format m_format = QImage::Format_Invalid;
  PaintStage m_stage;
  PaintStage m_scratch;
  std::vector<QRgb> m_scratchPixels;
  std::vector<TPoint> m_scaledPoints;
  detail::TileSource m_tiles;
};

/// The smallest rectangle that holds the points.
[[nodiscard]] detail::DeviceRect BoundsOf(std::span<const TPoint> points);

}  // namespace tessera
