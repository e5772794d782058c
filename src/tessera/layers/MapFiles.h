// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/layers/TMapLayers.h>
#include <tessera/providers/TFormatReport.h>

namespace tessera {

/// What came of loading a file into a new layer.
struct TLoadedFile {
  QString fileName;            ///< As it was given.
  TMapLayer *layer = nullptr;  ///< None when nothing could be read, and when a handler of an event has deleted it.
  QString provider;            ///< The description of the format provider, empty when none accepts the name.
  TFormatReport report;        ///< The provider's.
  QString error;               ///< One line with the file's name; set when there is no layer.
  QStringList warnings;        ///< One line each with the file's name, about what was not read although the rest was.
};

/// What came of saving a layer.
struct TSavedFile {
  QString fileName;
  TFormatReport report;  ///< The provider's.
  QString error;         ///< One line with the file's name; empty when the file was written.
  QStringList warnings;  ///< One line each with the file's name, about what the file does not hold.
};

/// Loads a file into a new layer on top, named as the file without directory and ending. The layer stays if anything
/// was read, also when the file has a defect further on. Messages that come up meanwhile are among the warnings instead
/// of being shown, and what the provider throws is told as an error.
[[nodiscard]] TESSERA_CORE_EXPORT TLoadedFile LoadMapFile(TMapLayers &layers, const QString &fileName);

/// Writes a layer; throws nothing. A rotated map is turned back and asked for a new picture. Ask LossesOfSaving before.
[[nodiscard]] TESSERA_CORE_EXPORT TSavedFile SaveMapFile(TMapLayer &layer, const QString &fileName);

/// What would be gone for good if the layer were saved to the file, one line each: what it lacks of the file because it
/// was not read whole, and what the format cannot hold. Empty unless the file is the one that the layer was read from
/// or saved to. Costs as much as saving, but for the disk.
[[nodiscard]] TESSERA_CORE_EXPORT QStringList LossesOfSaving(const TMapLayer &layer, const QString &fileName);

}  // namespace tessera
