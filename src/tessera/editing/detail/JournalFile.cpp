// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/editing/detail/JournalFile.h>

#include <QCryptographicHash>
#include <QDataStream>
#include <QDir>
#include <QUuid>

namespace tessera::detail {
namespace {

const QByteArray Signature("TSJ1");  // which a change of the format makes TSJ2

QString LockOf(const QString &fileName) {
  return fileName + QLatin1String(".lock");
}

/// None when another process, or this one, has the file in use.
std::unique_ptr<QLockFile> Lock(const QString &fileName) {
  auto lock = std::make_unique<QLockFile>(LockOf(fileName));
  // However long it is held: only the end of its process makes it void.
  lock->setStaleLockTime(0);
  return lock->tryLock() ? std::move(lock) : nullptr;
}

QByteArray SumOf(const QByteArray &record) {
  return QCryptographicHash::hash(record, QCryptographicHash::Md5);
}

}  // namespace

JournalFile::JournalFile(const QString &fileName, std::unique_ptr<QLockFile> lock)
    : m_file(fileName), m_lock(std::move(lock)) {}

void JournalFile::Open() {
  if (!m_file.open(QIODevice::ReadWrite)) throw EInOutError(m_file.fileName() + u": " + m_file.errorString());
}

std::unique_ptr<JournalFile> JournalFile::Make(const QString &folder) {
  const QDir place(folder);
  const QString fileName = place.filePath(QUuid::createUuid().toString(QUuid::WithoutBraces) + u".journal");
  std::unique_ptr<QLockFile> lock = place.mkpath(QStringLiteral(".")) ? Lock(fileName) : nullptr;
  if (!lock) throw EInOutError(QStringLiteral("%1: no file can be made here").arg(folder));
  std::unique_ptr<JournalFile> file(new JournalFile(fileName, std::move(lock)));
  file->Open();
  file->Clear();
  return file;
}

std::vector<std::unique_ptr<JournalFile>> JournalFile::FindLeft(const QString &folder) {
  std::vector<std::unique_ptr<JournalFile>> left;
  const QDir place(folder);
  for (const QString &name : place.entryList({QStringLiteral("*.journal")}, QDir::Files, QDir::Time)) {
    const QString fileName = place.filePath(name);
    std::unique_ptr<QLockFile> lock = Lock(fileName);
    if (!lock) continue;
    std::unique_ptr<JournalFile> file(new JournalFile(fileName, std::move(lock)));
    if (file->m_file.open(QIODevice::ReadWrite)) left.push_back(std::move(file));
  }
  return left;
}

void JournalFile::Append(const QByteArray &record) {
  QByteArray bytes;
  QDataStream stream(&bytes, QIODevice::WriteOnly);
  stream << quint64(record.size());
  bytes += SumOf(record) + record;
  const qint64 before = m_file.size();
  m_file.seek(before);
  if (m_file.write(bytes) == bytes.size() && m_file.flush()) return;
  const QString reason = m_file.errorString();
  m_file.resize(before);
  throw EInOutError(m_file.fileName() + u": " + reason);
}

std::vector<QByteArray> JournalFile::Read() {
  std::vector<QByteArray> records;
  m_file.seek(0);
  if (m_file.read(Signature.size()) != Signature) return records;
  QDataStream stream(&m_file);
  while (!m_file.atEnd()) {
    quint64 size = 0;
    stream >> size;
    const QByteArray sum = m_file.read(SumOf({}).size());
    if (stream.status() != QDataStream::Ok || size > quint64(m_file.bytesAvailable())) break;
    QByteArray record = m_file.read(qint64(size));
    if (SumOf(record) != sum) break;
    records.push_back(std::move(record));
  }
  return records;
}

void JournalFile::Clear() {
  if (m_file.size() == Signature.size()) return;
  m_file.resize(0);
  m_file.seek(0);
  m_file.write(Signature);
  m_file.flush();
}

void JournalFile::Remove() {
  m_file.remove();
  m_lock->unlock();
}

}  // namespace tessera::detail
