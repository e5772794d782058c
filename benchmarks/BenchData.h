// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tessera::bench {

/// The made-up maps that are measured. Each has three attributes: a whole number, a float and a text.
enum class BenchSet {
  /// Coastlines: 189,000 closed rings of 11 million vertices together, shaped and sized like the world's. Nearly all
  /// are
  /// islands smaller than a pixel of the whole map, along the coasts of ten land masses, the largest of which has more
  /// than a million vertices.
  Regions,
  /// A net of rivers: 37,000 lines of up to 900 vertices and 12,000 straight pieces.
  Lines,
  /// 1,000,000 places, crowded around towns, of eight styles.
  Points,
  /// The same with one symbol of 5 pixels, and of 16, for all.
  SmallPlainPoints,
  LargePlainPoints,
};

enum class BenchScale { Full, Quick };

/// L, R, P, P5 or P16.
[[nodiscard]] QString NameOf(BenchSet set);
/// How large the symbols of a set of places are drawn, about.
[[nodiscard]] int SymbolSizePx(BenchSet set);

/// The MIF file of a set (its MID file lies beside it), written into `directory` unless it is there already. The same
/// set and scale always give the same bytes; a quick set has a twentieth of the objects and vertices.
/// @throws std::runtime_error when a file cannot be written.
[[nodiscard]] QString EnsureSet(BenchSet set, BenchScale scale, const QString &directory);

}  // namespace tessera::bench
