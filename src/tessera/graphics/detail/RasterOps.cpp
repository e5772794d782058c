// SPDX-License-Identifier: MIT
#include <tessera/graphics/detail/RasterOps.h>

#include <algorithm>
#include <cmath>

namespace tessera::detail {

namespace {

constexpr QRgb ColorBits = 0xFFFFFFU;
constexpr QRgb Opaque = 0xFF000000U;
constexpr int HatchSize = 8;

bool IsHatched(TBrushStyle style, int x, int y) {
  const bool horizontal = y == HatchSize / 2;
  const bool vertical = x == HatchSize / 2;
  const bool falling = x == y;
  const bool rising = x + y == HatchSize - 1;
  switch (style) {
    case TBrushStyle::bsHorizontal:
      return horizontal;
    case TBrushStyle::bsVertical:
      return vertical;
    case TBrushStyle::bsFDiagonal:
      return falling;
    case TBrushStyle::bsBDiagonal:
      return rising;
    case TBrushStyle::bsCross:
      return horizontal || vertical;
    case TBrushStyle::bsDiagCross:
      return falling || rising;
    case TBrushStyle::bsSolid:
    case TBrushStyle::bsClear:
      break;
  }
  return false;
}

}  // namespace

DeviceRect DeviceRect::Intersected(const DeviceRect &other) const {
  return {std::max(left, other.left), std::max(top, other.top), std::min(right, other.right),
          std::min(bottom, other.bottom)};
}

Ink MakeInk(TColor color, TPenMode mode) {
  const QRgb rgb = ToRgb(color);
  switch (mode) {
    case TPenMode::pmXor:
      return {rgb & ColorBits, true};
    case TPenMode::pmNotXor:
      return {~rgb & ColorBits, true};
    case TPenMode::pmCopy:
      break;
  }
  return {rgb | Opaque, false};
}

QRgb BlendOver(QRgb source, QRgb target) {
  const QRgb keep = 255U - (source >> 24U);
  // Two channels at a time; (t + t / 256 + 128) / 256 is t / 255 rounded.
  const auto scaled = [keep](QRgb channels) {
    const QRgb product = channels * keep + 0x800080U;
    return ((product + ((product >> 8U) & 0xFF00FFU)) >> 8U) & 0xFF00FFU;
  };
  return source + (scaled(target & 0xFF00FFU) | scaled((target >> 8U) & 0xFF00FFU) << 8U);
}

Fill::Fill(const Tile *tile, TPenMode mode) : m_kind(Kind::Tiled), m_tile(tile) {
  m_ink.toggles = mode != TPenMode::pmCopy;
  m_ink.value = mode == TPenMode::pmNotXor ? ColorBits : 0;
}

void Fill::PaintRun(const Surface &surface, std::int64_t y, std::int64_t left, std::int64_t right) const {
  if (y < surface.top || y >= surface.bottom || left >= surface.right || right <= surface.left || left >= right) return;
  const int first = int(std::max<std::int64_t>(left, surface.left));
  const int end = int(std::min<std::int64_t>(right, surface.right));
  QRgb *pixels = surface.At(first, int(y));
  if (m_kind == Kind::Tiled) {
    PaintTiles(pixels, int(y), first, end);
  } else if (m_kind == Kind::Solid && m_ink.toggles) {
    for (QRgb *last = pixels + (end - first); pixels != last; ++pixels) *pixels ^= m_ink.value;
  } else if (m_kind == Kind::Solid) {
    std::fill_n(pixels, end - first, m_ink.value);
  }
}

void Fill::PaintRect(const Surface &surface, const DeviceRect &rect) const {
  const DeviceRect visible = rect.Intersected(surface.Bounds());
  for (std::int64_t y = visible.top; y < visible.bottom; ++y) PaintRun(surface, y, visible.left, visible.right);
}

void Fill::PaintRuns(const Surface &surface, std::span<const TRgn::Run> runs) const {
  if (m_kind != Kind::Solid || m_ink.toggles) {
    for (const TRgn::Run &run : runs) PaintRun(surface, run.y, run.left, run.right);
    return;
  }
  // What maps are mostly made of: short runs of one colour.
  const QRgb value = m_ink.value;
  for (const TRgn::Run &run : runs) {
    if (run.y < surface.top || run.y >= surface.bottom) continue;
    const int first = std::max(run.left, surface.left);
    const int end = std::min(run.right, surface.right);
    if (first < end) std::fill_n(surface.At(first, run.y), end - first, value);
  }
}

void Fill::PaintTiles(QRgb *pixels, int y, int left, int right) const {
  // A pattern pixel belongs to the device pixel whose centre it covers.
  const auto patternAt = [this](int device) { return std::int64_t(std::floor((device + 0.5) * m_tile->ratio)); };
  const QRgb *row = m_tile->pixels.data() + (patternAt(y) % m_tile->height) * m_tile->width;
  std::int64_t position = patternAt(left);
  std::int64_t column = position % m_tile->width;
  for (int x = left; x < right; ++x, ++pixels) {
    MeetTile(row[column], *pixels);
    const std::int64_t next = patternAt(x + 1);
    column += next - position;
    while (column >= m_tile->width) column -= m_tile->width;
    position = next;
  }
}

void Fill::MeetTile(QRgb source, QRgb &pixel) const {
  const QRgb alpha = source >> 24U;
  if (m_ink.toggles) {
    if (alpha >= 128) pixel ^= (source ^ m_ink.value) & ColorBits;
  } else if (alpha == 255) {
    pixel = source;
  } else if (alpha != 0) {
    pixel = BlendOver(source, pixel);
  }
}

Fill TileSource::MakeFill(const TBrush &brush, TPenMode mode, double devicePixelRatio) {
  if (const TBitmap *bitmap = brush.GetBitmap()) {
    if (bitmap->IsEmpty()) return {};
    return {&BitmapTile(*bitmap, devicePixelRatio), mode};
  }
  switch (brush.GetStyle()) {
    case TBrushStyle::bsClear:
      return {};
    case TBrushStyle::bsSolid:
      return Fill(MakeInk(brush.GetColor(), mode));
    default:
      return {&HatchTile(brush.GetStyle(), brush.GetColor(), devicePixelRatio), mode};
  }
}

QImage WithSeeThroughPixels(const TBitmap &bitmap) {
  QImage image = bitmap.GetImage().convertToFormat(QImage::Format_ARGB32_Premultiplied);
  if (!bitmap.HasTransparentColor()) return image;
  const QRgb transparent = ToRgb(bitmap.GetTransparentColor());
  for (int y = 0; y < image.height(); ++y) {
    auto *row = reinterpret_cast<QRgb *>(image.scanLine(y));
    std::replace_if(
        row, row + image.width(), [=](QRgb pixel) { return IsTransparentPixel(pixel, transparent); }, 0U);
  }
  return image;
}

const Tile &TileSource::BitmapTile(const TBitmap &bitmap, double devicePixelRatio) {
  const QImage &image = bitmap.GetImage();
  m_bitmapTile.ratio = image.devicePixelRatio() / devicePixelRatio;
  const bool isCurrent = image.cacheKey() == m_bitmap.GetImage().cacheKey() &&
                         bitmap.GetTransparent() == m_bitmap.GetTransparent() &&
                         bitmap.GetTransparentColor() == m_bitmap.GetTransparentColor();
  if (isCurrent) return m_bitmapTile;
  m_bitmap = bitmap;
  const QImage source = WithSeeThroughPixels(bitmap);
  m_bitmapTile.width = source.width();
  m_bitmapTile.height = source.height();
  m_bitmapTile.pixels.clear();
  for (int y = 0; y < source.height(); ++y) {
    const auto *row = reinterpret_cast<const QRgb *>(source.constScanLine(y));
    m_bitmapTile.pixels.insert(m_bitmapTile.pixels.end(), row, row + source.width());
  }
  return m_bitmapTile;
}

const Tile &TileSource::HatchTile(TBrushStyle style, TColor color, double devicePixelRatio) {
  m_hatchTile.ratio = 1 / devicePixelRatio;
  if (style == m_hatchStyle && color == m_hatchColor) return m_hatchTile;
  m_hatchStyle = style;
  m_hatchColor = color;
  m_hatchTile.width = HatchSize;
  m_hatchTile.height = HatchSize;
  m_hatchTile.pixels.clear();
  for (int y = 0; y < HatchSize; ++y) {
    for (int x = 0; x < HatchSize; ++x) {
      m_hatchTile.pixels.push_back(IsHatched(style, x, y) ? ToRgb(color) | Opaque : 0);
    }
  }
  return m_hatchTile;
}

}  // namespace tessera::detail
