// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/graphics/TFont.h>
#include <tessera/graphics/detail/RasterOps.h>

#include <QFont>
#include <QHash>
#include <QSize>

#include <array>
#include <memory>
#include <unordered_map>

namespace tessera::detail {

/// A character ready to be blended onto a picture: of each row the pixels from the first to the last visible one.
/// All figures are device pixels.
struct Glyph {
  static constexpr int BlockPixels = 4;  ///< Pixels that are blended at once.

  /// Pixels beyond the end of a row change nothing.
  struct Block {
    QRgb ink[BlockPixels] = {};  ///< Premultiplied.
    QRgb keep[BlockPixels];      ///< In each byte how much of the picture stays, 255 for all of it.
  };
  struct Row {
    int left = 0;   ///< Of the first visible pixel from the box.
    int width = 0;  ///< Visible pixels, 0 for none.
  };

  int top = 0;       ///< Of the first visible row from the box.
  int left = 0;      ///< Of the first visible column from the box.
  int right = 0;     ///< Of the column behind the last visible one.
  int blockEnd = 0;  ///< Of the column behind the last block.
  std::vector<Row> rows;
  std::vector<Block> blocks;  ///< Of all rows, one after the other.

  [[nodiscard]] static std::size_t BlocksIn(const Row &row) {
    return std::size_t(row.width + BlockPixels - 1) / BlockPixels;
  }
  [[nodiscard]] std::size_t ByteCount() const {
    return blocks.size() * sizeof(Block) + rows.size() * sizeof(Row) + sizeof(Glyph);
  }
};

/// Blends a glyph onto opaque pixels, the upper left corner of its box at (x, y) in device pixels.
void BlendGlyph(const Surface &surface, std::int64_t x, std::int64_t y, const Glyph &glyph);

/// A font at one device pixel ratio, with what was measured and drawn with it.
class FontFace {
 public:
  /// Larger characters are not kept: drawing them takes longer than rasterising them.
  static constexpr int LargestGlyphPx = 96;

  FontFace(const TFont &font, double devicePixelRatio);

  /// Whether DrawRun takes the text: a single character, or several that stand side by side without influence on each
  /// other. Other scripts, lines below or through the text and large letters are left to the painter.
  [[nodiscard]] bool TakesRun(const QString &text) const;
  /// Blends a text onto opaque pixels, the upper left corner of its box at (x, y) in device pixels; each character at
  /// the nearest quarter of a pixel to its left. @pre TakesRun(text)
  void DrawRun(const Surface &surface, std::int64_t x, std::int64_t y, const QString &text);
  /// What DrawRun blends for a single character. @pre TakesRun(character)
  [[nodiscard]] std::shared_ptr<const Glyph> ShareGlyph(QChar character) {
    return GlyphOf(LetterOf(character), character, 0);
  }
  /// In client pixels.
  [[nodiscard]] QSize Extent(const QString &text);

  /// The font in device pixels, and the same with letters of full pixels only.
  [[nodiscard]] const QFont &DeviceFont() const { return m_deviceFont; }
  [[nodiscard]] const QFont &HardEdgedFont() const { return m_hardEdgedFont; }
  /// From the top of the text's box to the base line, in device pixels.
  [[nodiscard]] int AscentPx() const { return m_ascentPx; }
  [[nodiscard]] std::size_t ByteCount() const { return m_byteCount; }

 private:
  /// How many places within a pixel a character is drawn at: the painter's fonts have as many.
  static constexpr int Phases = 4;
  static constexpr int PageSize = 16;
  static constexpr int LowPages = 0x600 / PageSize;
  static constexpr std::int32_t Unknown = -1;

  /// What is known of one character. Advances are 64ths of a pixel.
  struct Letter {
    std::array<std::shared_ptr<const Glyph>, Phases> glyphs;
    std::int32_t clientAdvance = Unknown;
    std::int32_t deviceAdvance = Unknown;
  };
  using Page = std::array<Letter, PageSize>;

  [[nodiscard]] Letter &LetterOf(QChar character);
  [[nodiscard]] const std::shared_ptr<const Glyph> &GlyphOf(Letter &letter, QChar character, int phase);
  [[nodiscard]] std::shared_ptr<const Glyph> Rasterise(QChar character, int phase) const;

  QFont m_clientFont;
  QFont m_deviceFont;
  QFont m_hardEdgedFont;
  QRgb m_color;
  int m_ascentPx;
  int m_clientHeight;
  std::array<std::unique_ptr<Page>, LowPages> m_lowPages;
  std::unordered_map<int, std::unique_ptr<Page>> m_highPages;
  QHash<QString, QSize> m_extents;  ///< Of the texts that are more than their characters.
  std::size_t m_byteCount = sizeof(FontFace);
};

/// The fonts used lately. Bounded: forgets everything when it has grown too large.
class GlyphCache {
 public:
  /// The face is good until the next call.
  [[nodiscard]] FontFace &Face(const TFont &font, double devicePixelRatio);

 private:
  struct Entry {
    TFont font;
    double devicePixelRatio;
    std::unique_ptr<FontFace> face;
  };

  [[nodiscard]] Entry &Find(const TFont &font, double devicePixelRatio);
  /// Forgets everything when too much has come together.
  void Trim();

  std::unordered_multimap<std::size_t, Entry> m_entries;
  const Entry *m_last = nullptr;
  std::size_t m_lastByteCount = 0;  ///< Of the last face, when it was made the last.
  std::size_t m_byteCount = 0;      ///< Of all faces, but for what the last one has grown by.
};

}  // namespace tessera::detail
