// SPDX-License-Identifier: MIT
#include <tessera/graphics/detail/GlyphCache.h>
#include <tessera/graphics/detail/SymbolFont.h>

#include <QFontMetrics>
#include <QImage>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstring>

namespace tessera::detail {

namespace {

constexpr std::size_t MostFaces = 1024;
constexpr std::size_t MostBytes = std::size_t(32) << 20U;
constexpr qsizetype MostExtents = 4096;

QFont ToQFont(const TFont &font, double scale) {
  QFont result = font.ToQFont();
  result.setPixelSize(std::max(1, int(std::lround(font.GetPixelSize() * scale))));
  // Without kerning and ligatures a text is as wide as its characters, which makes measuring and drawing it cheap;
  // scripts that cannot do without shaping are shaped all the same.
  result.setKerning(false);
  // Without shaping Qt does not find the private use characters that the library's own map signs are.
  const bool needsShaping = font.GetName() == SymbolFontFamily;
  // Colour fringes would be wrong on a picture that is shown scaled or rotated.
  const QFont::StyleStrategy strategy = QFont::NoSubpixelAntialias;
  result.setStyleStrategy(needsShaping ? strategy : QFont::StyleStrategy(strategy | QFont::PreferNoShaping));
  return result;
}

QFont WithHardEdges(QFont font) {
  font.setStyleStrategy(QFont::StyleStrategy(QFont::NoAntialias | (font.styleStrategy() & QFont::PreferNoShaping)));
  return font;
}

/// Whether a character stands for itself whatever its neighbours are: Latin, Greek and Cyrillic letters without
/// combining marks, and the usual signs between them.
bool StandsAlone(QChar character) {
  struct Range {
    char16_t first, last;
  };
  constexpr Range Others[] = {{0xA0, 0xAC},     {0xAE, 0x24F},    {0x370, 0x3FF},   {0x400, 0x482},  {0x48A, 0x52F},
                              {0x2010, 0x2027}, {0x2030, 0x205E}, {0x20AC, 0x20AC}, {0x2116, 0x2116}};
  const char16_t code = character.unicode();
  if (code < 0x7F) return code >= 0x20;
  return std::any_of(std::begin(Others), std::end(Others),
                     [code](const Range &range) { return code >= range.first && code <= range.last; });
}

bool AllStandAlone(const QString &text) {
  return text.size() == 1 ? !text.front().isSurrogate() : std::all_of(text.begin(), text.end(), StandsAlone);
}

/// In 64ths of a pixel, the unit of the fonts.
std::int32_t AdvanceOf(const QFont &font, QChar character) {
  return std::int32_t(std::lround(std::max(0.0, QFontMetricsF(font).horizontalAdvance(character)) * 64));
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
  for (int x = 0; x < width; x += Glyph::BlockPixels) {
    Glyph::Block &block = blocks.emplace_back();
    std::fill_n(block.keep, Glyph::BlockPixels, 0xFFFFFFFFU);
    for (int i = 0; i < std::min(Glyph::BlockPixels, width - x); ++i) {
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
    glyph.blockEnd = std::max(glyph.blockEnd, row.left + int(Glyph::BlocksIn(row)) * Glyph::BlockPixels);
  }
  while (!glyph.rows.empty() && glyph.rows.back().width == 0) glyph.rows.pop_back();
}

/// Blends `Count` pixels. Plain bytes and a fixed length, so that the compiler makes vector instructions of it.
template <int Count>
void BlendPixels(QRgb *target, const QRgb *ink, const QRgb *keep) {
  constexpr int Bytes = Count * 4;
  std::uint8_t pixels[Bytes];
  std::uint8_t inks[Bytes];
  std::uint8_t keeps[Bytes];
  std::memcpy(pixels, target, Bytes);
  std::memcpy(inks, ink, Bytes);
  std::memcpy(keeps, keep, Bytes);
  for (int i = 0; i < Bytes; ++i) {
    const auto product = std::uint16_t(pixels[i] * keeps[i] + 128);
    pixels[i] = std::uint8_t(inks[i] + std::uint8_t(std::uint16_t(product + (product >> 8)) >> 8));
  }
  std::memcpy(target, pixels, Bytes);
}

/// Blends what the surface holds of a glyph that hangs over its border.
void BlendCut(const Surface &surface, std::int64_t x, std::int64_t y, const Glyph &glyph) {
  const Glyph::Block *blocks = glyph.blocks.data();
  for (const Glyph::Row &row : glyph.rows) {
    for (int i = 0; i < row.width; ++i) {
      const Glyph::Block &block = blocks[i / Glyph::BlockPixels];
      const std::int64_t column = x + row.left + i;
      if (column < surface.left || column >= surface.right || y < surface.top || y >= surface.bottom) continue;
      BlendPixels<1>(surface.At(int(column), int(y)), &block.ink[i % Glyph::BlockPixels],
                     &block.keep[i % Glyph::BlockPixels]);
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
    for (const Glyph::Block *end = block + Glyph::BlocksIn(row); block != end; ++block, target += Glyph::BlockPixels) {
      BlendPixels<Glyph::BlockPixels>(target, block->ink, block->keep);
    }
    origin += surface.stride;
  }
}

FontFace::FontFace(const TFont &font, double devicePixelRatio)
    : m_clientFont(ToQFont(font, 1)),
      m_deviceFont(ToQFont(font, devicePixelRatio)),
      m_hardEdgedFont(WithHardEdges(m_deviceFont)),
      m_color(ToRgb(font.GetColor())),
      m_ascentPx(QFontMetrics(m_deviceFont).ascent()),
      m_clientHeight(QFontMetrics(m_clientFont).height()) {}

FontFace::Letter &FontFace::LetterOf(QChar character) {
  const int code = character.unicode();
  const int index = code / PageSize;
  std::unique_ptr<Page> &page = index < LowPages ? m_lowPages[std::size_t(index)] : m_highPages[index];
  if (!page) {
    page = std::make_unique<Page>();
    m_byteCount += sizeof(Page);
  }
  return (*page)[std::size_t(code % PageSize)];
}

const std::shared_ptr<const Glyph> &FontFace::GlyphOf(Letter &letter, QChar character, int phase) {
  std::shared_ptr<const Glyph> &glyph = letter.glyphs[std::size_t(phase)];
  if (!glyph) {
    glyph = Rasterise(character, phase);
    m_byteCount += glyph->ByteCount();
  }
  return glyph;
}

bool FontFace::TakesRun(const QString &text) const {
  if (m_deviceFont.pixelSize() > LargestGlyphPx) return false;
  const bool isLined = m_deviceFont.underline() || m_deviceFont.strikeOut();
  return AllStandAlone(text) && (!isLined || text.size() == 1);
}

void FontFace::DrawRun(const Surface &surface, std::int64_t x, std::int64_t y, const QString &text) {
  constexpr int Unit = 64;
  std::int64_t position = 1;  // The painter, too, leans a little to the right before it cuts down to a quarter.
  for (const QChar character : text) {
    const std::int64_t left = x + position / Unit;
    if (left >= surface.right + std::int64_t(LargestGlyphPx)) return;
    Letter &letter = LetterOf(character);
    const Glyph &glyph = *GlyphOf(letter, character, int(position % Unit) * Phases / Unit);
    BlendGlyph(surface, left, y, glyph);
    if (letter.deviceAdvance == Unknown) letter.deviceAdvance = AdvanceOf(m_deviceFont, character);
    position += letter.deviceAdvance;
  }
}

QSize FontFace::Extent(const QString &text) {
  if (AllStandAlone(text)) {
    std::int64_t width = 0;
    for (const QChar character : text) {
      Letter &letter = LetterOf(character);
      if (letter.clientAdvance == Unknown) letter.clientAdvance = AdvanceOf(m_clientFont, character);
      width += letter.clientAdvance;
    }
    return {int((width + 32) / 64), m_clientHeight};
  }
  const auto found = m_extents.constFind(text);
  if (found != m_extents.constEnd()) return *found;
  if (m_extents.size() >= MostExtents) m_extents.clear();
  return *m_extents.insert(text, {QFontMetrics(m_clientFont).horizontalAdvance(text), m_clientHeight});
}

std::shared_ptr<const Glyph> FontFace::Rasterise(QChar character, int phase) const {
  auto glyph = std::make_shared<Glyph>();
  const QString text(character);
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
  painter.drawText(QPointF(origin.x() + double(phase) / Phases, origin.y() + m_ascentPx), text);
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
  if (m_entries.size() < MostFaces && m_byteCount <= MostBytes) return;
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
