// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tessera::bench {

/// The made-up maps that are measured. Each has three attributes: a whole number, a float and a text.
enum class BenchSet {
  /// 190,000 land-cover regions of 11 million vertices together; their sizes follow a power law, the largest has more
  /// than a million vertices.
  Regions,
  /// 50,000 roads and rivers of 3.3 million vertices together.
  Lines,
  /// 1,000,000 places, each with a symbol of its own, crowded around towns.
  Points,
};

enum class BenchScale { Full, Quick };

/// One letter: L, R or P.
[[nodiscard]] QString NameOf(BenchSet set);

/// The MIF file of a set (its MID file lies beside it), written into `directory` unless it is there already. The same
/// set and scale always give the same bytes; a quick set has a twentieth of the objects and vertices.
/// @throws std::runtime_error when a file cannot be written.
[[nodiscard]] QString EnsureSet(BenchSet set, BenchScale scale, const QString &directory);

}  // namespace tessera::bench
