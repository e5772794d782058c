// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <QStringList>

#include <optional>
#include <utility>

namespace tessera::detail {

// What safe saving asks of the file system beyond Qt's classes. A failed call leaves its reason for SystemWords.

/// An open file, closed with its owner.
class TESSERA_CORE_EXPORT FileHandle {
 public:
  FileHandle() = default;
  explicit FileHandle(int descriptor) : m_descriptor(descriptor) {}
  ~FileHandle();
  FileHandle(FileHandle &&other) noexcept : m_descriptor(std::exchange(other.m_descriptor, -1)) {}
  FileHandle &operator=(FileHandle &&other) noexcept {
    std::swap(m_descriptor, other.m_descriptor);
    return *this;
  }

  [[nodiscard]] bool IsOpen() const { return m_descriptor >= 0; }
  [[nodiscard]] int Get() const { return m_descriptor; }

 private:
  int m_descriptor = -1;
};

/// What tells the contents of a file from others without reading them.
struct FileMark {
  qint64 size = 0;
  qint64 changed = 0;  ///< In seconds, to which file systems keep it more or less well.

  /// File systems round times to two seconds.
  [[nodiscard]] bool IsLike(const FileMark &other) const {
    return size == other.size && qAbs(changed - other.changed) <= 2;
  }
};

enum class FileLock : std::uint8_t {
  Ours,
  Others,  ///< Held by another open file, in this process or another one.
  Unknown  ///< The file system has no locks.
};

/// The system's words for what failed last.
[[nodiscard]] QString SystemWords();
/// None when there is no such file, or it cannot be looked at.
[[nodiscard]] std::optional<FileMark> MarkOf(const QString &fileName);
/// Creates a file for writing and locks it, so that others can tell that its writer still runs. The handle is closed on
/// failure.
[[nodiscard]] FileHandle CreateLocked(const QString &fileName);
/// Opens a file for reading; the handle is closed on failure. A file that is a link is not opened.
[[nodiscard]] FileHandle OpenForReading(const QString &fileName);
/// Takes the lock, without waiting.
[[nodiscard]] FileLock TryLock(const FileHandle &file);
/// Whether the open file still has a name.
[[nodiscard]] bool HasName(const FileHandle &file);
/// Gives an open file the owner, group and mode of another as far as this process may.
void CopyOwnerAndMode(const QString &from, const FileHandle &to);
/// Writes all bytes. False on failure.
[[nodiscard]] bool WriteAll(const FileHandle &file, std::string_view bytes);
/// Waits until the file's contents are on the disk. False on failure; where there is no such call, that is none.
[[nodiscard]] bool Sync(const FileHandle &file);
/// Waits until the names in the folder of `fileName` are on the disk.
void SyncFolderOf(const QString &fileName);
/// Gives a file another name in one step; a file of that name is replaced. False on failure.
[[nodiscard]] bool Rename(const QString &from, const QString &to);
/// True also when there was none.
bool Remove(const QString &fileName);
[[nodiscard]] bool MayBeWritten(const QString &fileName);
/// The names in the folder of `fileName` that begin with its name and a point.
[[nodiscard]] QStringList NamesBehind(const QString &fileName);

}  // namespace tessera::detail
