// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <cstring>
#include <string>
#include <string_view>
#include <vector>

namespace tessera::detail {

/// Takes bytes in order and hands them on by the buffer.
class TESSERA_CORE_EXPORT ByteOutput {
 public:
  static constexpr std::size_t MaxRoom = 65536;

  virtual ~ByteOutput();
  ByteOutput(const ByteOutput &) = delete;
  ByteOutput &operator=(const ByteOutput &) = delete;

  /// Room for `size` bytes, to be written to before the next call and counted with Advance. @throws EInOutError
  /// @pre size <= MaxRoom
  [[nodiscard]] char *Room(std::size_t size) {
    if (m_buffer.size() - m_used < size) Flush();
    return m_buffer.data() + m_used;
  }
  void Advance(const char *end) { m_used = std::size_t(end - m_buffer.data()); }
  /// @throws EInOutError
  void Append(std::string_view bytes);

 protected:
  ByteOutput() : m_buffer(4 * MaxRoom) {}
  /// Hands on what is left. @throws EInOutError
  void Flush() {
    Write({m_buffer.data(), m_used});
    m_used = 0;
  }

 private:
  virtual void Write(std::string_view bytes) = 0;

  std::vector<char> m_buffer;
  std::size_t m_used = 0;
};

/// Takes bytes to nowhere, for a writer that is run for its report alone.
class TESSERA_CORE_EXPORT NoOutput final : public ByteOutput {
 private:
  void Write(std::string_view bytes) override;
};

/// Keeps the bytes.
class TESSERA_CORE_EXPORT MemoryOutput final : public ByteOutput {
 public:
  [[nodiscard]] const std::string &GetBytes() {
    Flush();
    return m_bytes;
  }

 private:
  void Write(std::string_view bytes) override { m_bytes.append(bytes); }

  std::string m_bytes;
};

}  // namespace tessera::detail
