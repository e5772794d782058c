// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/detail/StagedFile.h>

#include <memory>

namespace tessera::detail {

/// Files that belong together and are replaced all at once or not at all.
///
/// All are written under other names first and forced to the disk. Then a journal beside the first of them names what
/// is to be renamed; from that moment on, the new files are what counts. When a process is killed or the power fails
/// while the files are being renamed, Recover does the rest, or, when there is no journal yet, removes what was staged.
/// A set of one file needs no journal: renaming is one step.
///
/// What this does not give: a program that knows nothing of the journal may see new files beside old ones until Recover
/// has run, and while another process is just renaming.
class TESSERA_CORE_EXPORT StagedSet {
 public:
  /// Recovers the files, then stages a new one for each. Links are followed, so that they stay. @throws EInOutError
  /// when one cannot be created or written.
  explicit StagedSet(const QStringList &targets);

  [[nodiscard]] StagedFile &File(std::size_t index) { return *m_files[index]; }
  /// Replaces the old files; when this returns, the new ones are on the disk. @throws EInOutError when it fails: the
  /// old files are as they were, unless the words say that the new ones stand half way and Recover has to do the rest.
  void Commit();

  /// Ends what a save that came to an end too soon has left of these files: completes it if its journal counts, and
  /// otherwise takes it back. Files of a save that still runs are left alone, and so are files that another program has
  /// written since. Answers where the contents of each file are to be read: under its own name, or, in a folder where
  /// nothing can be renamed, under the one it was staged by. Costs a look through the folder.
  /// @throws EInOutError when another process is renaming files of the set and does not come to an end.
  [[nodiscard]] static QStringList Recover(const QStringList &targets);

 private:
  void RenameAll();

  QString m_id;
  std::vector<std::unique_ptr<StagedFile>> m_files;
};

}  // namespace tessera::detail
