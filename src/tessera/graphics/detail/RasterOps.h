// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/graphics/TBrush.h>
#include <tessera/graphics/TPen.h>
#include <tessera/graphics/TRgn.h>

#include <cstddef>
#include <vector>

namespace tessera::detail {

/// A rectangle in device pixels, half open, wide enough for any scaled 32-bit coordinate.
struct DeviceRect {
  std::int64_t left = 0;
  std::int64_t top = 0;
  std::int64_t right = 0;
  std::int64_t bottom = 0;

  [[nodiscard]] bool IsEmpty() const { return left >= right || top >= bottom; }
  [[nodiscard]] DeviceRect Inflated(std::int64_t by) const { return {left - by, top - by, right + by, bottom + by}; }
  [[nodiscard]] DeviceRect Intersected(const DeviceRect &other) const;
};

/// The 32-bit pixels that an operation may change: columns `left` … `right` - 1 of rows `top` … `bottom` - 1.
struct Surface {
  QRgb *pixels = nullptr;     ///< The pixel at (left, top).
  std::ptrdiff_t stride = 0;  ///< Pixels from one row to the next.
  int left = 0;
  int top = 0;
  int right = 0;
  int bottom = 0;

  [[nodiscard]] QRgb *At(int x, int y) const { return pixels + (y - top) * stride + (x - left); }
  [[nodiscard]] bool Contains(int x, int y) const { return x >= left && x < right && y >= top && y < bottom; }
  [[nodiscard]] DeviceRect Bounds() const { return {left, top, right, bottom}; }
};

/// A colour together with how it meets the pixels: it replaces them or is XORed with them. (XOR followed by an
/// inversion is an XOR with the inverted colour.)
struct Ink {
  QRgb value = 0;
  bool toggles = false;

  void Apply(QRgb &pixel) const { pixel = toggles ? pixel ^ value : value; }
};

[[nodiscard]] Ink MakeInk(TColor color, TPenMode mode);

/// `source`, premultiplied, over the opaque pixel `target`.
[[nodiscard]] QRgb BlendOver(QRgb source, QRgb target);

/// One period of a brush's pattern, premultiplied; pixels of alpha 0 leave the picture as it is.
struct Tile {
  std::vector<QRgb> pixels;
  int width = 0;
  int height = 0;
  double ratio = 1;  ///< Pattern pixels per device pixel.
};

/// What an area is filled with: nothing, an ink or a pattern repeated from the device pixel (0, 0).
class Fill {
 public:
  Fill() = default;
  explicit Fill(Ink ink) : m_kind(Kind::Solid), m_ink(ink) {}
  /// `tile` must outlive the fill.
  Fill(const Tile *tile, TPenMode mode);

  [[nodiscard]] bool IsNone() const { return m_kind == Kind::None; }

  /// Fills columns `left` … `right` - 1 of row `y`, as far as they belong to the surface.
  void PaintRun(const Surface &surface, std::int64_t y, std::int64_t left, std::int64_t right) const;
  void PaintRect(const Surface &surface, const DeviceRect &rect) const;
  void PaintRuns(const Surface &surface, std::span<const TRgn::Run> runs) const;

 private:
  enum class Kind { None, Solid, Tiled };

  void PaintTiles(QRgb *pixels, int y, int left, int right) const;
  void MeetTile(QRgb source, QRgb &pixel) const;

  Kind m_kind = Kind::None;
  Ink m_ink;
  const Tile *m_tile = nullptr;
};

/// The patterns of the brushes used last, ready for filling.
class TileSource {
 public:
  /// How to fill with `brush` on a picture of `devicePixelRatio`. The fill is good until the next call.
  [[nodiscard]] Fill MakeFill(const TBrush &brush, TPenMode mode, double devicePixelRatio);

 private:
  const Tile &BitmapTile(const TBitmap &bitmap, double devicePixelRatio);
  const Tile &HatchTile(TBrushStyle style, TColor color, double devicePixelRatio);

  Tile m_bitmapTile;
  TBitmap m_bitmap;  ///< What m_bitmapTile was made from; shares the pixels.
  Tile m_hatchTile;
  TBrushStyle m_hatchStyle = TBrushStyle::bsSolid;
  TColor m_hatchColor = 0;
};

/// Whether a pixel of a transparent bitmap has the bitmap's transparent colour.
[[nodiscard]] constexpr bool IsTransparentPixel(QRgb pixel, QRgb transparent) {
  return ((pixel ^ transparent) & 0xFFFFFFU) == 0;
}

/// The picture, premultiplied, with alpha 0 where the bitmap has its transparent colour.
[[nodiscard]] QImage WithSeeThroughPixels(const TBitmap &bitmap);

}  // namespace tessera::detail
