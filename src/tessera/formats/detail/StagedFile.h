// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <QFile>

#include <string_view>
#include <vector>

namespace tessera::detail {

/// A file that is written under a temporary name in the folder of the file it is to replace.
///
/// Unless it is swapped in, the temporary file is removed and the old file is as it was. Nothing is forced to the disk:
/// that costs more than writing, and the system writes the contents before the renaming where it matters.
class TESSERA_CORE_EXPORT StagedFile {
 public:
  /// Creates the temporary file. A link is followed, so that it stays. @throws EInOutError when that fails, or when
  /// `target` is something else than a file that can be written.
  explicit StagedFile(const QString &target);
  ~StagedFile();
  StagedFile(const StagedFile &) = delete;
  StagedFile &operator=(const StagedFile &) = delete;

  /// Room for `size` bytes, to be written to before the next call and counted with Advance. @throws EInOutError
  /// @pre size <= MaxRoom
  [[nodiscard]] char *Room(std::size_t size) {
    if (m_buffer.size() - m_used < size) Flush();
    return m_buffer.data() + m_used;
  }
  void Advance(const char *end) { m_used = std::size_t(end - m_buffer.data()); }
  /// @throws EInOutError
  void Append(std::string_view bytes);
  /// Writes what is left. Nothing can be appended any more. @throws EInOutError
  void Close();

  /// Puts two closed files into the places of the old ones. If that fails, both old files are as they were.
  /// @throws EInOutError
  static void SwapIn(StagedFile &first, StagedFile &second);

  static constexpr std::size_t MaxRoom = 65536;

 private:
  void Flush();
  [[noreturn]] void ThrowWriteError() const;
  /// Gives the temporary file the final name. False when it cannot.
  [[nodiscard]] bool Rename() const;

  QString m_target;
  QFile m_file;
  std::vector<char> m_buffer;
  std::size_t m_used = 0;
};

}  // namespace tessera::detail
