// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/base/detail/StagedFile.h>

#include <QFileInfo>

namespace tessera::detail {

void ThrowCannotCreate(const QString &fileName, const QString &reason) {
  throw EInOutError(QStringLiteral("Cannot create file \"%1\". %2").arg(fileName, reason));
}

StagedFile::StagedFile(const QString &target, const QString &id) : m_target(target), m_name(NameFor(target, id)) {
  CheckIsFile(target);
  const bool isThere = QFileInfo::exists(target);
  if (isThere && !MayBeWritten(target)) ThrowCannotCreate(target, SystemWords());
  m_file = CreateLocked(m_name);
  if (!m_file.IsOpen()) ThrowCannotCreate(target, SystemWords());
  if (isThere) CopyOwnerAndMode(target, m_file);
}

StagedFile::~StagedFile() {
  if (m_isStaged) Remove(m_name);
}

QString StagedFile::NameFor(const QString &target, const QString &id) {
  return target + u'.' + id + QStringLiteral(".new");
}

void StagedFile::CheckIsFile(const QString &target) {
  const QFileInfo info(target);
  if (info.exists() && !info.isFile()) ThrowCannotCreate(target, QStringLiteral("It is not a file."));
}

void StagedFile::ThrowWriteError() const {
  throw EInOutError(QStringLiteral("Cannot write file \"%1\". %2").arg(m_target, SystemWords()));
}

void StagedFile::Write(std::string_view bytes) {
  if (!WriteAll(m_file, bytes)) ThrowWriteError();
}

void StagedFile::Close() {
  Flush();
  if (!Sync(m_file)) ThrowWriteError();
}

bool StagedFile::Rename() {
  m_isStaged = !detail::Rename(m_name, m_target);
  return !m_isStaged;
}

}  // namespace tessera::detail
