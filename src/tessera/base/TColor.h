// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <QColor>

#include <cstdint>

namespace tessera {

/// A colour with red in the low byte: red + 256 * green + 65536 * blue. Higher bits do not show.
using TColor = std::uint32_t;

inline constexpr TColor clBlack = 0x000000;
inline constexpr TColor clNavy = 0x800000;
inline constexpr TColor clBlue = 0xFF0000;
inline constexpr TColor clRed = 0x0000FF;
inline constexpr TColor clWhite = 0xFFFFFF;

[[nodiscard]] constexpr TColor RGB(unsigned red, unsigned green, unsigned blue) {
  return (red & 0xFFU) | (green & 0xFFU) << 8U | (blue & 0xFFU) << 16U;
}
[[nodiscard]] constexpr unsigned RedOf(TColor color) {
  return color & 0xFFU;
}
[[nodiscard]] constexpr unsigned GreenOf(TColor color) {
  return (color >> 8U) & 0xFFU;
}
[[nodiscard]] constexpr unsigned BlueOf(TColor color) {
  return (color >> 16U) & 0xFFU;
}

/// The opaque Qt pixel value of a colour.
[[nodiscard]] constexpr QRgb ToRgb(TColor color) {
  return qRgb(int(RedOf(color)), int(GreenOf(color)), int(BlueOf(color)));
}
[[nodiscard]] inline QColor ToQColor(TColor color) {
  return QColor::fromRgb(ToRgb(color));
}
[[nodiscard]] inline TColor FromQColor(const QColor &color) {
  return RGB(unsigned(color.red()), unsigned(color.green()), unsigned(color.blue()));
}

}  // namespace tessera
