// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <QFile>

#include <mutex>
#include <string_view>

namespace tessera::detail {

/// Bytes that can be read from any position, block by block.
class TESSERA_CORE_EXPORT ByteSource {
 public:
  ByteSource() = default;
  virtual ~ByteSource();
  ByteSource(const ByteSource &) = delete;
  ByteSource &operator=(const ByteSource &) = delete;

  /// How many there are.
  [[nodiscard]] virtual qint64 GetSize() const = 0;
  /// Copies up to `size` bytes from `position` on to `out`, and answers how many; 0 at the end, and after a failure.
  virtual std::size_t Read(qint64 position, char *out, std::size_t size) = 0;
  /// The same, but a failure is not noted. May be called in another thread while the source is used in its own.
  virtual std::size_t ReadAside(qint64 position, char *out, std::size_t size) = 0;
  /// @throws EInOutError when bytes could not be read.
  virtual void ThrowIfFailed() const {}
};

class TESSERA_CORE_EXPORT MemorySource final : public ByteSource {
 public:
  /// `bytes` must outlive the source.
  explicit MemorySource(std::string_view bytes) : m_bytes(bytes) {}

  [[nodiscard]] qint64 GetSize() const override { return qint64(m_bytes.size()); }
  std::size_t Read(qint64 position, char *out, std::size_t size) override;
  std::size_t ReadAside(qint64 position, char *out, std::size_t size) override { return Read(position, out, size); }

 private:
  std::string_view m_bytes;
};

/// A file as long as it was when it was opened; what another program appends meanwhile is not read. One that is cut
/// short meanwhile has failed.
class TESSERA_CORE_EXPORT FileSource final : public ByteSource {
 public:
  /// @throws EInOutError when it cannot be opened.
  explicit FileSource(const QString &fileName);

  [[nodiscard]] qint64 GetSize() const override { return m_size; }
  std::size_t Read(qint64 position, char *out, std::size_t size) override;
  std::size_t ReadAside(qint64 position, char *out, std::size_t size) override;
  void ThrowIfFailed() const override;

 private:
  /// How many bytes could be read; when none, `failure` tells why.
  qint64 ReadFile(qint64 position, char *out, qint64 size, QString &failure);

  std::mutex m_mutex;  // guards m_file, which has one position for all
  QFile m_file;
  qint64 m_size = 0;
  QString m_failure;
};

}  // namespace tessera::detail
