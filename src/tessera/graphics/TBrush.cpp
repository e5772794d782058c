// SPDX-License-Identifier: MIT
#include <tessera/graphics/TBrush.h>
#include <tessera/graphics/detail/RasterOps.h>

#include <algorithm>
#include <iterator>

namespace tessera {
namespace {

/// In the order of TBrushStyle.
constexpr Qt::BrushStyle QtStyles[] = {Qt::SolidPattern, Qt::NoBrush,      Qt::HorPattern,   Qt::VerPattern,
                                       Qt::FDiagPattern, Qt::BDiagPattern, Qt::CrossPattern, Qt::DiagCrossPattern};

TBrushStyle StyleOf(Qt::BrushStyle style) {
  const auto *found = std::find(std::begin(QtStyles), std::end(QtStyles), style);
  return found == std::end(QtStyles) ? TBrushStyle::bsSolid : TBrushStyle(found - std::begin(QtStyles));
}

}  // namespace

QBrush TBrush::ToQBrush() const {
  QBrush brush(ToQColor(m_color), QtStyles[std::size_t(m_style)]);
  if (m_bitmap) brush.setTextureImage(detail::WithSeeThroughPixels(*m_bitmap));
  return brush;
}

TBrush TBrush::FromQBrush(const QBrush &brush) {
  TBrush result;
  result.m_color = FromQColor(brush.color());
  result.m_style = StyleOf(brush.style());
  if (brush.style() == Qt::TexturePattern) result.SetBitmap(TBitmap(brush.textureImage()));
  return result;
}

}  // namespace tessera
