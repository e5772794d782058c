// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/formats/detail/StagedFile.h>

#include <QFileInfo>
#include <QRandomGenerator>

#include <cstring>
#include <filesystem>

namespace tessera::detail {
namespace {

constexpr std::size_t BufferSize = 4 * StagedFile::MaxRoom;

[[noreturn]] void ThrowCannotCreate(const QString &fileName, const QString &reason) {
  throw EInOutError(QStringLiteral("Cannot create file \"%1\". %2").arg(fileName, reason));
}

/// A name beside `fileName` that no file has.
QString FreeNameBeside(const QString &fileName) {
  for (;;) {
    QString name =
        fileName + u'.' + QString::number(QRandomGenerator::global()->generate(), 16) + QStringLiteral(".tmp");
    if (!QFileInfo::exists(name)) return name;
  }
}

/// The file that is written when `fileName` is: the end of a chain of links.
QString Resolved(const QString &fileName) {
  const QFileInfo info(fileName);
  if (!info.isSymLink()) return fileName;
  return info.exists() ? info.canonicalFilePath() : info.symLinkTarget();
}

std::filesystem::path PathOf(const QString &fileName) {
  return QFileInfo(fileName).filesystemFilePath();
}

/// Replaces `to` in one step if it is there, which QFile does not.
bool Replace(const QString &from, const QString &to) {
  std::error_code error;
  std::filesystem::rename(PathOf(from), PathOf(to), error);
  return !error;
}

/// Makes a second name for a file, or, where the file system has none of these, gives it another.
bool KeepUnder(const QString &fileName, const QString &other) {
  std::error_code error;
  std::filesystem::create_hard_link(PathOf(fileName), PathOf(other), error);
  return !error || Replace(fileName, other);
}

}  // namespace

StagedFile::StagedFile(const QString &target) : m_target(Resolved(target)), m_buffer(BufferSize) {
  const QFileInfo old(m_target);
  if (old.exists() && !old.isFile()) ThrowCannotCreate(target, QStringLiteral("It is not a file."));
  if (old.exists() && !old.isWritable()) ThrowCannotCreate(target, QStringLiteral("It is write-protected."));
  m_file.setFileName(FreeNameBeside(m_target));
  if (target.isEmpty() || !m_file.open(QIODevice::NewOnly | QIODevice::WriteOnly | QIODevice::Unbuffered)) {
    ThrowCannotCreate(target, m_file.errorString());
  }
  if (old.exists()) m_file.setPermissions(old.permissions());
}

StagedFile::~StagedFile() {
  // After the swap there is no file of this name any more.
  m_file.close();
  m_file.remove();
}

void StagedFile::ThrowWriteError() const {
  throw EInOutError(QStringLiteral("Cannot write file \"%1\". %2").arg(m_target, m_file.errorString()));
}

void StagedFile::Flush() {
  if (m_file.write(m_buffer.data(), qint64(m_used)) != qint64(m_used)) ThrowWriteError();
  m_used = 0;
}

void StagedFile::Append(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::string_view piece = bytes.substr(0, MaxRoom);
    char *room = Room(piece.size());
    std::memcpy(room, piece.data(), piece.size());
    Advance(room + piece.size());
    bytes.remove_prefix(piece.size());
  }
}

void StagedFile::Close() {
  Flush();
  m_file.close();
  if (m_file.error() != QFileDevice::NoError) ThrowWriteError();
}

bool StagedFile::Rename() const {
  return Replace(m_file.fileName(), m_target);
}

void StagedFile::SwapIn(StagedFile &first, StagedFile &second) {
  const QString kept = FreeNameBeside(first.m_target);
  const QFileInfo old(first.m_target);
  const bool isKept = old.exists();
  if (isKept && !(old.isFile() && KeepUnder(first.m_target, kept))) {
    ThrowCannotCreate(first.m_target, QStringLiteral("The old file cannot be kept meanwhile."));
  }
  const auto undo = [&] {
    if (isKept) {
      Replace(kept, first.m_target);
    } else {
      QFile::remove(first.m_target);
    }
  };
  const bool firstIsIn = first.Rename();
  if (!firstIsIn || !second.Rename()) {
    undo();
    const StagedFile &failed = firstIsIn ? second : first;
    ThrowCannotCreate(failed.m_target, QStringLiteral("The old file cannot be replaced."));
  }
  if (isKept) QFile::remove(kept);
}

}  // namespace tessera::detail
