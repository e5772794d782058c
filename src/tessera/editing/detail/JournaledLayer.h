// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/editing/detail/JournalRecords.h>
#include <tessera/layers/TMapLayer.h>

#include <memory>
#include <vector>

namespace tessera {
class TMapLayers;
}

namespace tessera::detail {

/// A layer as the records of a journal have it in the end.
struct JournaledLayer {
  /// An object of the layer: one of its file's, or one that is packed with others.
  struct Entry {
    quint64 number = 0;  ///< In the file, or in the pack.
    int pack = -1;       ///< None for one of the file's.
  };

  quint64 number = 0;
  QString name;
  JournalSource source;
  QByteArray columns;
  std::vector<QByteArray> packs;
  std::vector<Entry> entries;
  bool isBeingSaved = false;

  /// Of what records say, up to the first that makes no sense.
  [[nodiscard]] static std::vector<std::unique_ptr<JournaledLayer>> ReadFrom(const std::vector<QByteArray> &records);
  /// Puts the layer on top of others. Answers in what it is not as it was; empty when it is.
  [[nodiscard]] QString RestoreInto(TMapLayers &layers) const;

  /// @throws EConvertError and changes nothing but packs
  void Apply(const JournalChange &change);

 private:
  /// The objects, in their order, made from those of the layer, which has none afterwards, and the packs.
  [[nodiscard]] std::vector<TTakenObject> MakeObjects(TMapLayer &layer) const;
};

}  // namespace tessera::detail
