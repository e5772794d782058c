// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/map/TTessera.h>
#include <tessera/providers/TFormatReport.h>

namespace tessera::apps {

/// What came of loading a file into a map.
struct TLoadedFile {
  QString fileName;            ///< As it was given.
  TMapLayer *layer = nullptr;  ///< On top of the map; none when nothing could be read.
  QString provider;            ///< The description of the format provider, empty when none accepts the name.
  TFormatReport report;        ///< The provider's.
  QString error;               ///< One line with the file's name; set when there is no layer.
  QStringList warnings;        ///< One line each with the file's name, about what was not read although the rest was.
};

/// Loads a file into a new layer on top of the map, named as the file without directory and ending. A layer stays in
/// the map if anything was read, also when the file has a defect further on. Messages that come up meanwhile are
/// among the warnings instead of being shown.
[[nodiscard]] TLoadedFile LoadMapFile(TTessera &map, const QString &fileName);

/// Writes a layer. Returns what went wrong, in one line with the file's name; an empty text when all went well.
[[nodiscard]] QString SaveMapFile(TMapLayer &layer, const QString &fileName);

}  // namespace tessera::apps
