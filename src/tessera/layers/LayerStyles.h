// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/layers/TMapLayer.h>

#include <vector>

namespace tessera {

/// How some objects of a layer look.
struct TStyleSample {
  enum TKind { skLine, skArea, skSymbol };

  TKind kind = skLine;
  TObjectStyle style;
  int shape = 0;  ///< The character of a symbol.

  /// Whether the two look alike: of a line only the pen counts, of an area pen, brush and background, of a symbol the
  /// font and the character.
  [[nodiscard]] bool LooksLike(const TStyleSample &other) const;
};

/// The different looks of a layer's objects, in their order, at most `limit` of them. Texts and sprites have none.
///
/// The cost is bounded however large the layer is: of one with more than 4096 objects as many are looked at, spread
/// evenly, so a look that is rare may be missing.
[[nodiscard]] TESSERA_CORE_EXPORT std::vector<TStyleSample> FindStyles(const TMapLayer &layer, int limit);

}  // namespace tessera
