// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/graphics/TBitmap.h>
#include <tessera/graphics/TBrush.h>
#include <tessera/graphics/TFont.h>
#include <tessera/graphics/TPen.h>
#include <tessera/graphics/TRgn.h>

#include <QSize>

#include <functional>
#include <memory>
#include <span>

namespace tessera {

namespace detail {
class StampPainter;
}

/// A client pixel and its colour.
struct TPixel {
  TPoint at;
  TColor color;
};

/// Draws on the pixels of a bitmap with the pen, brush and font set last.
///
/// All coordinates are client pixels; a bitmap with a device pixel ratio is drawn on at its full resolution, and a pen
/// is then as many device pixels wide as the ratio says. Rectangles are half open: their right column and bottom row
/// are not drawn. Nothing is antialiased but text. The pen's mode governs every operation except FillRect, Draw,
/// StretchDraw and CopyRect, which always replace. In the XOR modes each pixel of a figure is changed once, however
/// often the figure runs over it, so that drawing it again restores the picture. Coordinates may have any 32-bit value;
/// what lies outside the bitmap costs nothing but the clipping.
class TESSERA_CORE_EXPORT TCanvas {
 public:
  /// Draws on `bitmap`, which must live as long as the canvas and may change its size at any time between operations.
  explicit TCanvas(TBitmap *bitmap);
  ~TCanvas();
  TCanvas(const TCanvas &) = delete;
  TCanvas &operator=(const TCanvas &) = delete;

  /// The tools, to be set or changed in place; they take effect with the next operation.
  [[nodiscard]] TPen &Pen();
  [[nodiscard]] TBrush &Brush();
  [[nodiscard]] TFont &Font();
  /// Angle of the text to be drawn, in tenths of a degree, counter-clockwise about the text's upper left corner.
  void SetFontEscapement(int tenthsOfDegree);

  void FillRect(const QRect &rect);
  /// Border with the pen, inside with the brush.
  void Rectangle(int x1, int y1, int x2, int y2);
  void Ellipse(int x1, int y1, int x2, int y2);
  /// The ellipse of the square about a point, which may lie far beyond 32 bits.
  void Circle(std::int64_t x, std::int64_t y, std::int64_t radius);
  /// Fills by the alternate rule and closes the outline. Fewer than two points draw nothing.
  void Polygon(std::span<const TPoint> points);
  /// An open line with the pen. Fewer than two points draw nothing.
  void Polyline(std::span<const TPoint> points);
  void MoveTo(int x, int y);
  /// A line from the current position, which moves to (x, y). The end point itself is not drawn.
  void LineTo(int x, int y);
  /// Changes client pixels in turn, by the mode of the pen.
  void SetPixels(std::span<const TPixel> pixels);
  /// Fills the region, which must have been cut to GetClipRect, with the brush. Region coordinates are device pixels.
  void PaintRgn(const TRgn &region);
  /// Makes `region` the device pixels of a polygon in client pixels, cut to the bitmap.
  void CreatePolygonRgn(std::span<const TPoint> points, TFillMode mode, TRgn &region) const;

  /// The picture with its top left corner at (x, y), without its transparent pixels.
  void Draw(int x, int y, const TBitmap &bitmap);
  /// The picture scaled to the rectangle. Costs what is visible of it, not what the picture holds.
  void StretchDraw(const QRect &rect, const TBitmap &bitmap);
  /// The pixels `source` of another canvas, scaled to `dest`.
  void CopyRect(const QRect &dest, const TCanvas &canvas, const QRect &source);
  /// The pixels of a rectangle at the bitmap's full resolution; StretchDraw puts each of them back, at any device pixel
  /// ratio. Those outside the bitmap are white. Empty when the rectangle or the bitmap is.
  [[nodiscard]] TBitmap CopyOf(const QRect &rect) const;

  /// Draws text in the font's colour; (x, y) is its upper left corner. With a brush that is not clear the text's box is
  /// filled first. Letters stand side by side without kerning and ligatures. Those of upright text are rasterised once
  /// per font, size, colour and device pixel ratio.
  void TextOut(int x, int y, const QString &text);
  [[nodiscard]] QSize TextExtent(const QString &text);
  [[nodiscard]] int TextWidth(const QString &text) { return TextExtent(text).width(); }
  [[nodiscard]] int TextHeight(const QString &text) { return TextExtent(text).height(); }

  /// Who is told of the client rectangle that an operation may change, just before it draws. Operations that only
  /// measure or that lie outside the bitmap tell nothing. Nobody at first, which costs nothing.
  void SetOnChange(std::function<void(const QRect &changed)> onChange);

  /// The drawable area in client pixels.
  [[nodiscard]] QRect GetClipRect() const;

 private:
  friend class detail::StampPainter;
  class Private;
  std::unique_ptr<Private> d;
};

}  // namespace tessera
