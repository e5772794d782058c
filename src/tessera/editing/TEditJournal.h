// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/layers/TMapDataLink.h>
#include <tessera/layers/TMapLayer.h>

#include <memory>
#include <unordered_set>
#include <vector>

namespace tessera {

namespace detail {
class JournalFile;
struct JournalSource;
}  // namespace detail

/// Keeps on disk what of a map's layers is not in their files yet, so that it survives a process that is killed. A
/// program calls Write every few seconds; TLeftJournal finds, when the program is started again, what is there.
///
/// It follows the edits that the links of the map are told of, as those of TMapEdits, and whatever is added, taken out
/// or moved. A layer that is loaded while the journal follows the map is taken to be as its file is; of any other layer
/// all objects are kept. Sprites, kinds of a program's own and the bitmaps of brushes are not kept.
class TESSERA_CORE_EXPORT TEditJournal : public TMapDataLink {
 public:
  /// Begins a journal in a folder, which is made if need be. SetMap has it follow the map. @throws EInOutError
  TEditJournal(TMapHost &map, const QString &folder);
  /// A program that ends by itself leaves no journal.
  ~TEditJournal() override;

  /// Writes what has changed since it was last called. Costs what has changed, and a look at the list of each layer.
  /// @throws EInOutError when the disk does not take it; it is then tried again the next time.
  void Write();
  /// The layer is going to be saved; if the process is killed meanwhile, either the file or the journal has it.
  /// @throws EInOutError
  void NoteSaving(const TMapLayer &layer);
  /// The layer is now as this file is. @throws EInOutError
  void NoteSaved(TMapLayer &layer, const QString &fileName);

  void MapEvent(TMapDataLinkEvent event, TObject *sender, int info) override;

 private:
  /// A layer as it was at the last Write.
  struct Known;
  [[nodiscard]] Known *Find(const TMapLayer &layer);
  Known &Enter(TMapLayer &layer, const detail::JournalSource &source);
  void WriteLayer(TMapLayer &layer);
  void ForgetAbsent();

  TMapHost &m_map;
  std::unique_ptr<detail::JournalFile> m_file;
  std::vector<std::unique_ptr<Known>> m_known;
  std::unordered_set<const TObject *> m_changed;  // objects, also some that are gone
  quint64 m_lastNumber = 0;
};

}  // namespace tessera
