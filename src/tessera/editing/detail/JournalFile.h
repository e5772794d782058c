// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QFile>
#include <QLockFile>

#include <memory>
#include <vector>

namespace tessera::detail {

/// The file of a journal: records one after the other, each with its length and a checksum, so that one that was cut
/// off together with its process is known. A lock beside it tells whether its process is still there.
class JournalFile {
 public:
  /// Makes a new file in a folder, which is made if need be. @throws EInOutError
  [[nodiscard]] static std::unique_ptr<JournalFile> Make(const QString &folder);
  /// The files in a folder that nobody has in use any more, taken into use.
  [[nodiscard]] static std::vector<std::unique_ptr<JournalFile>> FindLeft(const QString &folder);

  /// Hands the record to the operating system: it outlives the process, not the power. @throws EInOutError; then the
  /// file is as before.
  void Append(const QByteArray &record);
  /// The records up to the first that is damaged.
  [[nodiscard]] std::vector<QByteArray> Read();
  void Clear();
  /// Takes the file off the disk.
  void Remove();

 private:
  JournalFile(const QString &fileName, std::unique_ptr<QLockFile> lock);
  void Open();

  QFile m_file;
  std::unique_ptr<QLockFile> m_lock;
};

}  // namespace tessera::detail
