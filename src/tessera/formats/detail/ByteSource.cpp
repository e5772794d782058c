// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/formats/detail/ByteSource.h>
#include <tessera/providers/TFormatReport.h>

#include <algorithm>

namespace tessera::detail {

ByteSource::~ByteSource() = default;

std::size_t MemorySource::Read(qint64 position, char *out, std::size_t size) {
  return m_bytes.substr(std::min(std::size_t(position), m_bytes.size())).copy(out, size);
}

FileSource::FileSource(const QString &fileName) : m_file(fileName) {
  if (!m_file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) {
    throw EInOutError(QStringLiteral("Cannot open file \"%1\". %2").arg(fileName, m_file.errorString()));
  }
  m_size = m_file.size();
}

qint64 FileSource::ReadFile(qint64 position, char *out, qint64 size, QString &failure) {
  const std::lock_guard lock(m_mutex);
  const qint64 done = m_file.seek(position) ? m_file.read(out, size) : -1;
  if (done < 0) failure = m_file.errorString();
  if (done == 0) failure = TFormatReport::tr("Another program has cut it short.");
  return std::max<qint64>(done, 0);
}

std::size_t FileSource::Read(qint64 position, char *out, std::size_t size) {
  const qint64 wanted = std::min(qint64(size), m_size - position);
  if (wanted <= 0 || !m_failure.isEmpty()) return 0;
  return std::size_t(ReadFile(position, out, wanted, m_failure));
}

std::size_t FileSource::ReadAside(qint64 position, char *out, std::size_t size) {
  const qint64 wanted = std::min(qint64(size), m_size - position);
  QString failure;
  return wanted <= 0 ? 0 : std::size_t(ReadFile(position, out, wanted, failure));
}

void FileSource::ThrowIfFailed() const {
  if (m_failure.isEmpty()) return;
  throw EInOutError(QStringLiteral("Cannot read file \"%1\". %2").arg(m_file.fileName(), m_failure));
}

}  // namespace tessera::detail
