// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

namespace tessera {

/// The file that a layer was read from, which is not always the one it was saved to since.
struct TLayerSource {
  QString fileName;
  /// What the file has and the layer lacks, one line each: it would be gone if the layer replaced the file.
  QStringList losses;
};

}  // namespace tessera
