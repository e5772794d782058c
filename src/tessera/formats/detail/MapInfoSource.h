// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/formats/detail/MitabWriter.h>

namespace tessera::detail {

/// What somebody wants to write.
struct MapInfoOrder {
  QString fileName;     ///< The file that is to be replaced.
  QString writtenName;  ///< Where it is written first.
  QString charset;      ///< Its character set; empty for that of the source.
};

/// What a layer is to be written with: projection and character set of the file that it was read from, else of the one
/// that is to be replaced, else the usual ones. A character set that cannot be written is replaced by the usual one,
/// which the report tells.
[[nodiscard]] MitabTarget TargetFor(const TMapLayer &layer, const MapInfoOrder &order, TFormatReport &report);

}  // namespace tessera::detail
