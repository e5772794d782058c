// SPDX-License-Identifier: MIT
#include <tessera/base/detail/FileSystem.h>

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tessera::detail {
namespace {

constexpr mode_t ModeOfNewFiles = 0666;  // less what the process masks

/// Whether the failed call is one that the file system just does not have.
bool IsMissingCall() {
  return errno == EINVAL || errno == ENOTSUP;
}

}  // namespace

FileHandle::~FileHandle() {
  if (IsOpen()) ::close(m_descriptor);
}

QString SystemWords() {
  return qt_error_string(errno);
}

std::optional<FileMark> MarkOf(const QString &fileName) {
  struct stat status {};
  if (::stat(QFile::encodeName(fileName).constData(), &status) != 0) return std::nullopt;
  return FileMark{status.st_size, status.st_mtime};
}

FileHandle CreateLocked(const QString &fileName) {
  for (;;) {
    FileHandle file(
        ::open(QFile::encodeName(fileName).constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, ModeOfNewFiles));
    if (!file.IsOpen() || (TryLock(file) != FileLock::Others && HasName(file))) return file;
    // Between the two steps somebody took it for one that a dead process had left.
    Remove(fileName);
  }
}

FileHandle OpenForReading(const QString &fileName) {
  return FileHandle(::open(QFile::encodeName(fileName).constData(), O_RDONLY | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK));
}

FileLock TryLock(const FileHandle &file) {
  if (::flock(file.Get(), LOCK_EX | LOCK_NB) == 0) return FileLock::Ours;
  return errno == EWOULDBLOCK ? FileLock::Others : FileLock::Unknown;
}

bool HasName(const FileHandle &file) {
  struct stat status {};
  return ::fstat(file.Get(), &status) == 0 && status.st_nlink > 0;
}

void CopyOwnerAndMode(const QString &from, const FileHandle &to) {
  struct stat status {};
  if (::stat(QFile::encodeName(from).constData(), &status) != 0) return;
  constexpr auto SameOwner = uid_t(-1);
  const bool isOwnerKept = ::fchown(to.Get(), status.st_uid, status.st_gid) == 0;
  const bool isGroupKept = isOwnerKept || ::fchown(to.Get(), SameOwner, status.st_gid) == 0;
  // What the group might do must not pass to another group.
  constexpr mode_t AllButGroup = 0707;
  constexpr mode_t All = 0777;
  if (::fchmod(to.Get(), status.st_mode & (isGroupKept ? All : AllButGroup)) != 0) return;
}

bool WriteAll(const FileHandle &file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(file.Get(), bytes.data(), bytes.size());
    if (written < 0 && errno != EINTR) return false;
    if (written > 0) bytes.remove_prefix(std::size_t(written));
  }
  return true;
}

bool Sync(const FileHandle &file) {
  return ::fsync(file.Get()) == 0 || IsMissingCall();
}

void SyncFolderOf(const QString &fileName) {
  const FileHandle folder(
      ::open(QFile::encodeName(QFileInfo(fileName).path()).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  // Without it the names come to the disk a little later.
  if (folder.IsOpen()) static_cast<void>(Sync(folder));
}

bool Rename(const QString &from, const QString &to) {
  return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

bool Remove(const QString &fileName) {
  return ::unlink(QFile::encodeName(fileName).constData()) == 0 || errno == ENOENT;
}

bool MayBeWritten(const QString &fileName) {
  return ::faccessat(AT_FDCWD, QFile::encodeName(fileName).constData(), W_OK, AT_EACCESS) == 0;
}

QStringList NamesBehind(const QString &fileName) {
  const QFileInfo info(fileName);
  const std::string beginning = QFile::encodeName(info.fileName()).toStdString() + '.';
  QStringList names;
  std::error_code error;
  for (std::filesystem::directory_iterator entry(QFileInfo(info.path()).filesystemFilePath(), error), end;
       !error && entry != end; entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    if (name.starts_with(beginning)) names.append(QFile::decodeName(QByteArray::fromStdString(name)));
  }
  return names;
}

}  // namespace tessera::detail
