// SPDX-License-Identifier: MIT
#include <tessera/graphics/detail/PictureBlit.h>

#include <algorithm>

namespace tessera::detail {

namespace {

/// Where each visible destination coordinate of one axis takes its pixel from.
class AxisMap {
 public:
  AxisMap(std::int64_t destLow, std::int64_t destHigh, std::int64_t sourceLow, std::int64_t sourceHigh)
      : m_destLow(destLow), m_destSize(destHigh - destLow), m_low(sourceLow), m_size(sourceHigh - sourceLow) {}

  [[nodiscard]] std::int64_t operator()(std::int64_t dest) const {
    // Split so that the products stay below 2^63: destinations have up to 33 bits and so have sources.
    const std::int64_t offset = dest - m_destLow;
    const std::int64_t rest = m_size % m_destSize;
    return m_low + m_size / m_destSize * offset + MulDiv(offset, rest);
  }

 private:
  /// floor(a * b / m_destSize) for 0 <= a, b < m_destSize.
  [[nodiscard]] std::int64_t MulDiv(std::int64_t a, std::int64_t b) const {
    constexpr std::int64_t Half = std::int64_t(1) << 17;
    const std::int64_t high = a / Half * b;  // < 2^16 * 2^33
    const std::int64_t low = a % Half * b;   // < 2^17 * 2^33
    return high / m_destSize * Half + (high % m_destSize * Half + low) / m_destSize;
  }

  std::int64_t m_destLow;
  std::int64_t m_destSize;
  std::int64_t m_low;
  std::int64_t m_size;
};

void CopyRow(QRgb *target, const QRgb *row, std::span<const int> columns, bool hasAlpha,
             std::optional<QRgb> transparent) {
  for (const int column : columns) {
    QRgb &pixel = *target++;
    if (column < 0) continue;
    const QRgb source = hasAlpha ? row[column] : row[column] | 0xFF000000U;
    const QRgb alpha = source >> 24U;
    if (alpha == 0 || (transparent && IsTransparentPixel(source, *transparent))) continue;
    pixel = alpha == 255 ? source : BlendOver(source, pixel);
  }
}

}  // namespace

void BlitScaled(const Surface &surface, const DeviceRect &dest, const BlitSource &source) {
  const DeviceRect visible = dest.Intersected(surface.Bounds());
  if (visible.IsEmpty() || source.rect.IsEmpty() || source.image.isNull()) return;
  const bool hasAlpha = source.image.hasAlphaChannel();
  const QImage::Format format = hasAlpha ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
  const QImage image = source.image.format() == format ? source.image : source.image.convertToFormat(format);

  const AxisMap mapX(dest.left, dest.right, source.rect.left, source.rect.right);
  std::vector<int> columns;
  columns.reserve(std::size_t(visible.right - visible.left));
  for (std::int64_t x = visible.left; x < visible.right; ++x) {
    const std::int64_t column = mapX(x);
    columns.push_back(column >= 0 && column < image.width() ? int(column) : -1);
  }
  const bool isPlain = !hasAlpha && !source.transparent && columns.front() >= 0 && columns.back() >= 0 &&
                       dest.right - dest.left == source.rect.right - source.rect.left;
  const AxisMap mapY(dest.top, dest.bottom, source.rect.top, source.rect.bottom);
  for (std::int64_t y = visible.top; y < visible.bottom; ++y) {
    const std::int64_t line = mapY(y);
    if (line < 0 || line >= image.height()) continue;
    const auto *row = reinterpret_cast<const QRgb *>(image.constScanLine(int(line)));
    QRgb *target = surface.At(int(visible.left), int(y));
    if (isPlain) {
      std::copy_n(row + columns.front(), columns.size(), target);
    } else {
      CopyRow(target, row, columns, hasAlpha, source.transparent);
    }
  }
}

}  // namespace tessera::detail
