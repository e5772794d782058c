// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/graphics/TCanvas.h>

#include <cstdint>
#include <optional>

namespace tessera::detail {

struct Glyph;
struct Surface;

/// Which device pixels of a picture nothing that is drawn earlier can show through.
class PixelCover {
 public:
  /// The pixels of a figure, row by row, each row as bits from the figure's left side on.
  struct Figure {
    static constexpr int WidestPx = 56;
    int left = 0;  ///< From the place of the figure.
    int top = 0;
    int widthPx = 0;
    std::vector<std::uint64_t> touched;  ///< Those that it changes.
    std::vector<std::uint64_t> covered;  ///< Those that it replaces.
  };

  /// Nothing is covered; the picture's pixels begin at (0, 0).
  void Reset(int width, int height);
  /// Whether the figure at this place changes covered pixels alone; if not, it covers what it can. One that hangs over
  /// the picture's border is never hidden and covers nothing.
  bool IsHidden(const Figure &figure, std::int64_t x, std::int64_t y);

 private:
  int m_width = 0;
  int m_height = 0;
  std::size_t m_stride = 0;  ///< Bytes from row to row.
  std::vector<unsigned char> m_bits;
};

/// Draws single characters at many places, as TCanvas::TextOut with a clear brush would draw each, without looking for
/// the character again, and without drawing those that later ones cover.
class TESSERA_CORE_EXPORT StampPainter {
 public:
  explicit StampPainter(TCanvas &canvas) : m_canvas(canvas) {}

  /// A character in one font, ready to be drawn.
  struct Stamp {
    std::shared_ptr<const Glyph> glyph;
    QSize extent;                              ///< Of its box, in client pixels.
    std::optional<PixelCover::Figure> figure;  ///< None for a wide one.
  };
  /// None for what TextOut does not draw in one piece with the tools as they are, as large characters.
  [[nodiscard]] std::optional<Stamp> MakeStamp(const TFont &font, const QString &character);

  /// The upper left corner of the character's box, in client pixels, and which of the stamps it is.
  struct Place {
    TPoint corner;
    std::uint32_t stamp;
  };
  /// Draws them in their order.
  void Draw(std::span<const Place> places, std::span<const Stamp> stamps);

 private:
  TCanvas &m_canvas;
  PixelCover m_cover;
  std::vector<std::uint32_t> m_visible;
};

}  // namespace tessera::detail
