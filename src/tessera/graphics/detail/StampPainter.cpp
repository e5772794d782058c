// SPDX-License-Identifier: MIT
#include <tessera/graphics/detail/CanvasState.h>
#include <tessera/graphics/detail/StampPainter.h>

#include <QtEndian>

namespace tessera::detail {
namespace {

std::optional<PixelCover::Figure> FigureOf(const Glyph &glyph) {
  PixelCover::Figure figure{glyph.left, glyph.top, glyph.right - glyph.left, {}, {}};
  if (glyph.rows.empty() || figure.widthPx > PixelCover::Figure::WidestPx) return std::nullopt;
  const Glyph::Block *block = glyph.blocks.data();
  for (const Glyph::Row &row : glyph.rows) {
    std::uint64_t touched = 0;
    std::uint64_t covered = 0;
    for (int i = 0; i < row.width; ++i) {
      const QRgb keep = block[i / Glyph::BlockPixels].keep[i % Glyph::BlockPixels];
      const std::uint64_t bit = std::uint64_t(1) << (row.left + i - glyph.left);
      touched |= bit;
      if (keep == 0) covered |= bit;
    }
    figure.touched.push_back(touched);
    figure.covered.push_back(covered);
    block += Glyph::BlocksIn(row);
  }
  return figure;
}

}  // namespace

void PixelCover::Reset(int width, int height) {
  constexpr std::size_t WordBytes = sizeof(std::uint64_t);
  m_width = width;
  m_height = height;
  // Rows are read by words that begin at any byte.
  m_stride = std::size_t(width) / 8 + 1 + WordBytes;
  m_bits.assign(m_stride * std::size_t(height), 0);
}

bool PixelCover::IsHidden(const Figure &figure, std::int64_t x, std::int64_t y) {
  const std::int64_t left = x + figure.left;
  const std::int64_t top = y + figure.top;
  const auto rows = std::int64_t(figure.touched.size());
  if (left < 0 || top < 0 || left + figure.widthPx > m_width || top + rows > m_height) return false;
  const auto shift = unsigned(left % 8);
  unsigned char *const first = m_bits.data() + std::size_t(top) * m_stride + std::size_t(left / 8);
  const auto wordAt = [](const unsigned char *at) { return qFromLittleEndian<std::uint64_t>(at); };
  unsigned char *at = first;
  std::size_t row = 0;
  while (row < figure.touched.size() && (figure.touched[row] << shift & ~wordAt(at)) == 0) {
    ++row;
    at += m_stride;
  }
  if (row == figure.touched.size()) return true;
  at = first;
  for (const std::uint64_t covered : figure.covered) {
    qToLittleEndian<std::uint64_t>(wordAt(at) | covered << shift, at);
    at += m_stride;
  }
  return false;
}

std::optional<StampPainter::Stamp> StampPainter::MakeStamp(const TFont &font, const QString &character) {
  TCanvas::Private &canvas = *m_canvas.d;
  if (!canvas.DrawsUprightText() || character.size() != 1 || !canvas.Attach()) return std::nullopt;
  FontFace &face = canvas.m_glyphs.Face(font, canvas.Ratio());
  if (!face.TakesRun(character)) return std::nullopt;
  std::shared_ptr<const Glyph> glyph = face.ShareGlyph(character.front());
  const auto figure = FigureOf(*glyph);
  return Stamp{std::move(glyph), face.Extent(character), figure};
}

void StampPainter::Draw(std::span<const Place> places, std::span<const Stamp> stamps) {
  TCanvas::Private &canvas = *m_canvas.d;
  if (places.empty() || !canvas.Attach()) return;
  const Surface &surface = canvas.GetSurface();
  canvas.Note(surface.Bounds());
  m_cover.Reset(surface.right, surface.bottom);
  m_visible.clear();
  for (std::size_t i = places.size(); i-- > 0;) {
    const Stamp &stamp = stamps[places[i].stamp];
    const TPoint corner = canvas.ToDevice(places[i].corner);
    if (stamp.figure && m_cover.IsHidden(*stamp.figure, corner.x(), corner.y())) continue;
    m_visible.push_back(std::uint32_t(i));
  }
  for (std::size_t i = m_visible.size(); i-- > 0;) {
    const Place &place = places[m_visible[i]];
    const TPoint corner = canvas.ToDevice(place.corner);
    BlendGlyph(surface, corner.x(), corner.y(), *stamps[place.stamp].glyph);
  }
}

}  // namespace tessera::detail
