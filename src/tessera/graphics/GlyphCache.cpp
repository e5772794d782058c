// SPDX-License-Identifier: MIT
#include <tessera/graphics/GlyphCache.h>

#include <QFontMetrics>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace tessera::detail {

namespace {

constexpr std::size_t kMostFaces = 1024;
constexpr std::size_t kMostBytes = std::size_t(32) << 20U;
constexpr qsizetype kMostExtents = 4096;

QFont ToQFont(const TFont &font, double scale) {
  QFont result(font.GetName());
  result.setPixelSize(std::max(1, int(std::lround(font.GetPixelSize() * scale))));
  result.setBold(font.GetStyle().testFlag(TFontStyle::fsBold));
  result.setItalic(font.GetStyle().testFlag(TFontStyle::fsItalic));
  result.setUnderline(font.GetStyle().testFlag(TFontStyle::fsUnderline));
  result.setStrikeOut(font.GetStyle().testFlag(TFontStyle::fsStrikeOut));
  // Colour fringes would be wrong on a picture that is shown scaled or rotated.
  result.setStyleStrategy(QFont::NoSubpixelAntialias);
  return result;
}

QFont WithHardEdges(QFont font) {
  font.setStyleStrategy(QFont::NoAntialias);
  return font;
}

/// The pixels of a row from the first to the last that is not clear.
Glyph::Row VisibleRow(const QRgb *pixels, int width) {
  int left = 0;
  while (left < width && qAlpha(pixels[left]) == 0) ++left;
  int right = width;
  while (right > left && qAlpha(pixels[right - 1]) == 0) --right;
  return {left, right - left};
}

void AppendBlocks(const QRgb *pixels, int width, std::vector<Glyph::Block> &blocks) {
  for (int x = 0; x < width; x += Glyph::kBlock) {
    Glyph::Block &block = blocks.emplace_back();
    std::fill_n(block.keep, Glyph::kBlock, 0xFFFFFFFFU);
    for (int i = 0; i < std::min(Glyph::kBlock, width - x); ++i) {
      block.ink[i] = pixels[x + i];
      block.keep[i] = (255U - QRgb(qAlpha(pixels[x + i]))) * 0x01010101U;
    }
  }
}

/// Takes over the visible pixels of an image in which the upper left corner of the character's box is at `origin`.
void CopyVisible(const QImage &image, QPoint origin, Glyph &glyph) {
  glyph.left = image.width();
  for (int y = 0; y < image.height(); ++y) {
    const auto *pixels = reinterpret_cast<const QRgb *>(image.constScanLine(y));
    Glyph::Row row = VisibleRow(pixels, image.width());
    if (row.width == 0 && glyph.rows.empty()) continue;
    if (glyph.rows.empty()) glyph.top = y - origin.y();
    AppendBlocks(pixels + row.left, row.width, glyph.blocks);
    row.left -= origin.x();
    glyph.rows.push_back(row);
    if (row.width == 0) continue;
    glyph.left = std::min(glyph.left, row.left);
    glyph.right = std::max(glyph.right, row.left + row.width);
    glyph.blockEnd = std::max(glyph.blockEnd, row.left + int(Glyph::BlocksIn(row)) * Glyph::kBlock);
  }
  while (!glyph.rows.empty() && glyph.rows.back().width == 0) glyph.rows.pop_back();
}

/// Blends `Count` pixels. Plain bytes and a fixed length, so that the compiler makes vector instructions of it.
template <int Count>
void BlendPixels(QRgb *target, const QRgb *ink, const QRgb *keep) {
  constexpr int kBytes = Count * 4;
  std::uint8_t pixels[kBytes];
  std::uint8_t inks[kBytes];
  std::uint8_t keeps[kBytes];
  std::memcpy(pixels, target, kBytes);
  std::memcpy(inks, ink, kBytes);
  std::memcpy(keeps, keep, kBytes);
  for (int i = 0; i < kBytes; ++i) {
    const auto product = std::uint16_t(pixels[i] * keeps[i] + 128);
    pixels[i] = std::uint8_t(inks[i] + std::uint8_t(std::uint16_t(product + (product >> 8)) >> 8));
  }
  std::memcpy(target, pixels, kBytes);
}

/// Blends what the surface holds of a glyph that hangs over its border.
void BlendCut(const Surface &surface, std::int64_t x, std::int64_t y, const Glyph &glyph) {
  const Glyph::Block *blocks = glyph.blocks.data();
  for (const Glyph::Row &row : glyph.rows) {
    for (int i = 0; i < row.width; ++i) {
      const Glyph::Block &block = blocks[i / Glyph::kBlock];
      const std::int64_t column = x + row.left + i;
      if (column < surface.left || column >= surface.right || y < surface.top || y >= surface.bottom) continue;
      BlendPixels<1>(surface.At(int(column), int(y)), &block.ink[i % Glyph::kBlock], &block.keep[i % Glyph::kBlock]);
    }
    blocks += Glyph::BlocksIn(row);
    ++y;
  }
}

}  // namespace

void BlendGlyph(const Surface &surface, std::int64_t x, std::int64_t y, const Glyph &glyph) {
  const std::int64_t top = y + glyph.top;
  const std::int64_t bottom = top + std::int64_t(glyph.rows.size());
  if (x + glyph.left >= surface.right || x + glyph.right <= surface.left || top >= surface.bottom ||
      bottom <= surface.top) {
    return;
  }
  if (x + glyph.left < surface.left || x + glyph.blockEnd > surface.right || top < surface.top ||
      bottom > surface.bottom) {
    BlendCut(surface, x, top, glyph);
    return;
  }
  const Glyph::Block *block = glyph.blocks.data();
  QRgb *origin = surface.At(int(x + glyph.left), int(top)) - glyph.left;
  for (const Glyph::Row &row : glyph.rows) {
    QRgb *target = origin + row.left;
    for (const Glyph::Block *end = block + Glyph::BlocksIn(row); block != end; ++block, target += Glyph::kBlock) {
      BlendPixels<Glyph::kBlock>(target, block->ink, block->keep);
    }
    origin += surface.stride;
  }
}

FontFace::FontFace(const TFont &font, double devicePixelRatio)
    : m_clientFont(ToQFont(font, 1)),
      m_deviceFont(ToQFont(font, devicePixelRatio)),
      m_hardEdgedFont(WithHardEdges(m_deviceFont)),
      m_color(ToRgb(font.GetColor())),
      m_ascentPx(QFontMetrics(m_deviceFont).ascent()) {}

const Glyph &FontFace::GlyphOf(QChar character) {
  const char16_t code = character.unicode();
  std::unique_ptr<Glyph> &glyph = code < m_lowGlyphs.size() ? m_lowGlyphs[code] : m_highGlyphs[code];
  if (!glyph) {
    glyph = Rasterise(character);
    m_byteCount += glyph->ByteCount();
  }
  return *glyph;
}

QSize FontFace::Extent(const QString &text) {
  if (text.size() == 1 && KeepsGlyphs()) return GlyphOf(text.front()).extent;
  if (text == m_lastText) return m_lastExtent;
  auto found = m_extents.constFind(text);
  if (found == m_extents.constEnd()) {
    if (m_extents.size() >= kMostExtents) m_extents.clear();
    found = m_extents.insert(text, Measure(text));
  }
  m_lastText = text;
  m_lastExtent = *found;
  return m_lastExtent;
}

QSize FontFace::Measure(const QString &text) const {
  const QFontMetrics metrics(m_clientFont);
  return {metrics.horizontalAdvance(text), metrics.height()};
}

std::unique_ptr<Glyph> FontFace::Rasterise(QChar character) const {
  auto glyph = std::make_unique<Glyph>();
  const QString text(character);
  glyph->extent = Measure(text);
  // Letters may hang over their box on every side.
  const QRect ink = QFontMetrics(m_deviceFont).boundingRect(text);
  const int margin = m_deviceFont.pixelSize() + 2;
  const QSize size(std::max(ink.right(), 0) - std::min(ink.left(), 0) + 2 * margin, ink.height() + 4 * margin);
  QImage image(size, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  const QPoint origin(margin - std::min(ink.left(), 0), 2 * margin - std::min(ink.top() + m_ascentPx, 0));
  QPainter painter(&image);
  painter.setFont(m_deviceFont);
  painter.setPen(QColor::fromRgb(m_color));
  painter.drawText(origin + QPoint(0, m_ascentPx), text);
  painter.end();
  CopyVisible(image, origin, *glyph);
  return glyph;
}

FontFace &GlyphCache::Face(const TFont &font, double devicePixelRatio) {
  if (m_last) {
    // Fonts that share their name need no comparison of texts.
    const TFont &last = m_last->font;
    const bool sameName = font.GetName().constData() == last.GetName().constData() || font.GetName() == last.GetName();
    if (sameName && font.GetSize() == last.GetSize() && font.GetColor() == last.GetColor() &&
        font.GetStyle() == last.GetStyle() && devicePixelRatio == m_last->devicePixelRatio) {
      return *m_last->face;
    }
  }
  Trim();
  m_last = &Find(font, devicePixelRatio);
  m_lastByteCount = m_last->face->ByteCount();
  return *m_last->face;
}

void GlyphCache::Trim() {
  if (m_last) m_byteCount += m_last->face->ByteCount() - m_lastByteCount;
  if (m_entries.size() < kMostFaces && m_byteCount <= kMostBytes) return;
  m_entries.clear();
  m_last = nullptr;
  m_byteCount = 0;
}

GlyphCache::Entry &GlyphCache::Find(const TFont &font, double devicePixelRatio) {
  const std::size_t hash = qHashMulti(0, font.GetName(), font.GetSize(), font.GetColor(), int(font.GetStyle()));
  const auto [first, last] = m_entries.equal_range(hash);
  for (auto entry = first; entry != last; ++entry) {
    if (entry->second.font == font && entry->second.devicePixelRatio == devicePixelRatio) return entry->second;
  }
  auto face = std::make_unique<FontFace>(font, devicePixelRatio);
  m_byteCount += face->ByteCount();
  return m_entries.emplace(hash, Entry{font, devicePixelRatio, std::move(face)})->second;
}

}  // namespace tessera::detail
