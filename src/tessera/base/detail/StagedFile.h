// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/detail/ByteOutput.h>
#include <tessera/base/detail/FileSystem.h>

namespace tessera::detail {

/// A file that is written under another name in the folder of the file it is to replace, and is locked as long as this
/// lives. Owner, group and mode are those of the old file as far as the process may set them; other attributes, such as
/// access lists, are not kept.
///
/// Unless it is renamed, the staged file is removed and the old file is as it was.
class TESSERA_CORE_EXPORT StagedFile final : public ByteOutput {
 public:
  /// Creates the staged file; `id` tells the files of a save from those of others. @throws EInOutError when that fails,
  /// or when `target`, which is no link, is something else than a file that can be written.
  StagedFile(const QString &target, const QString &id);
  ~StagedFile() override;

  /// Writes what is left, and waits until it is on the disk. Nothing can be appended any more. @throws EInOutError
  void Close();
  /// Gives the staged file the final name. False when it cannot.
  [[nodiscard]] bool Rename();
  /// Leaves the staged file where it is.
  void Keep() { m_isStaged = false; }

  [[nodiscard]] const QString &GetTarget() const { return m_target; }
  /// The name of the file that is staged for `target`.
  [[nodiscard]] static QString NameFor(const QString &target, const QString &id);
  /// @throws EInOutError when a folder or the like has the name `target`.
  static void CheckIsFile(const QString &target);

 private:
  void Write(std::string_view bytes) override;
  [[noreturn]] void ThrowWriteError() const;

  QString m_target;
  QString m_name;
  FileHandle m_file;
  bool m_isStaged = true;
};

/// @throws EInOutError saying that `fileName` cannot be created, and why.
[[noreturn]] void ThrowCannotCreate(const QString &fileName, const QString &reason);

}  // namespace tessera::detail
