// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <QStringList>

#include <memory>
#include <vector>

namespace tessera {

class TMapLayers;

namespace detail {
class JournalFile;
struct JournaledLayer;
}  // namespace detail

/// What a process that came to a sudden end has left of its TEditJournal. As long as it lives no other process is
/// offered the same.
class TESSERA_CORE_EXPORT TLeftJournal {
 public:
  /// All that a folder holds, but for journals in use. Those with nothing in them are taken off the disk.
  [[nodiscard]] static std::vector<TLeftJournal> FindIn(const QString &folder);

  TLeftJournal(TLeftJournal &&) noexcept;
  TLeftJournal &operator=(TLeftJournal &&) noexcept;
  ~TLeftJournal();

  /// The names of the layers that have changes.
  [[nodiscard]] QStringList GetLayerNames() const;
  /// Puts the layers on top of others, each as its file is but for the changes, or, where it had none, all of it. The
  /// answer is one line for each layer that could not be restored as it was, for its file is gone or has been changed
  /// since: it has those objects that were new or changed.
  QStringList RestoreInto(TMapLayers &layers) const;
  /// Takes the journal off the disk.
  void Discard();

 private:
  explicit TLeftJournal(std::unique_ptr<detail::JournalFile> file);

  std::unique_ptr<detail::JournalFile> m_file;
  std::vector<std::unique_ptr<detail::JournaledLayer>> m_layers;
};

}  // namespace tessera
