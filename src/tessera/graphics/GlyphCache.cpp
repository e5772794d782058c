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

/// The smallest rectangle that holds every pixel that is not clear.
QRect VisibleRect(const QImage &image) {
  int left = image.width();
  int right = -1;
  int top = image.height();
  int bottom = -1;
  for (int y = 0; y < image.height(); ++y) {
    const auto *row = reinterpret_cast<const QRgb *>(image.constScanLine(y));
    for (int x = 0; x < image.width(); ++x) {
      if (qAlpha(row[x]) == 0) continue;
      left = std::min(left, x);
      right = std::max(right, x);
      top = std::min(top, y);
      bottom = y;
    }
  }
  return right < 0 ? QRect() : QRect(QPoint(left, top), QPoint(right, bottom));
}

void CopyVisible(const QImage &image, const QRect &visible, Glyph &glyph) {
  glyph.width = visible.width();
  glyph.height = visible.height();
  glyph.stride = (glyph.width + Glyph::kBlock - 1) / Glyph::kBlock * Glyph::kBlock;
  const std::size_t count = std::size_t(glyph.stride) * std::size_t(glyph.height);
  glyph.ink.assign(count, 0);
  glyph.keep.assign(count, 0xFFFFFFFFU);
  for (int y = 0; y < glyph.height; ++y) {
    const auto *row = reinterpret_cast<const QRgb *>(image.constScanLine(visible.top() + y)) + visible.left();
    for (int x = 0; x < glyph.width; ++x) {
      const std::size_t place = std::size_t(y * glyph.stride + x);
      glyph.ink[place] = row[x];
      glyph.keep[place] = (255U - QRgb(qAlpha(row[x]))) * 0x01010101U;
    }
  }
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

}  // namespace

void BlendGlyph(const Surface &surface, std::int64_t x, std::int64_t y, const Glyph &glyph) {
  const std::int64_t left = x + glyph.left;
  const std::int64_t top = y + glyph.top;
  const DeviceRect visible =
      DeviceRect{left, top, left + glyph.width, top + glyph.height}.Intersected(surface.Bounds());
  if (visible.IsEmpty()) return;
  const bool wholeBlocks = left == visible.left && left + glyph.stride <= surface.right;
  for (std::int64_t row = visible.top; row < visible.bottom; ++row) {
    const std::int64_t place = (row - top) * glyph.stride + (visible.left - left);
    const QRgb *ink = glyph.ink.data() + place;
    const QRgb *keep = glyph.keep.data() + place;
    QRgb *target = surface.At(int(visible.left), int(row));
    if (wholeBlocks) {
      for (int i = 0; i < glyph.stride; i += Glyph::kBlock) {
        BlendPixels<Glyph::kBlock>(target + i, ink + i, keep + i);
      }
    } else {
      const std::int64_t count = visible.right - visible.left;
      for (std::int64_t i = 0; i < count; ++i) BlendPixels<1>(target + i, ink + i, keep + i);
    }
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
  const QRect visible = VisibleRect(image);
  glyph->left = visible.left() - origin.x();
  glyph->top = visible.top() - origin.y();
  if (!visible.isEmpty()) CopyVisible(image, visible, *glyph);
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
