// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/TBounds.h>
#include <tessera/objects/TMapPoints.h>

#include <QByteArray>
#include <QFile>

#include <string_view>

namespace tessera::detail {

/// The bytes of a file: mapped into memory where that can be done, read otherwise.
class TESSERA_CORE_EXPORT MappedFile {
 public:
  /// @throws EInOutError when it cannot be opened or read.
  explicit MappedFile(const QString &fileName);
  [[nodiscard]] std::string_view Bytes() const { return m_bytes; }

 private:
  QFile m_file;
  QByteArray m_copy;
  std::string_view m_bytes;
};

/// Reads lines and numbers from the bytes of a text, in one pass.
///
/// A line ends with a line feed, a carriage return or both in this order. Numbers are read across lines, as from a
/// stream: blanks, tabs and line ends before a number are passed over, and it reaches up to the next of these.
class TESSERA_CORE_EXPORT MifScanner {
 public:
  /// `bytes` must outlive the scanner.
  MifScanner(std::string_view bytes, char separator);

  [[nodiscard]] bool AtEnd() const { return m_at == m_last; }
  /// Bytes read so far.
  [[nodiscard]] qint64 GetPosition() const { return m_at - m_first; }
  /// The next line without its end; empty at the end of the text.
  std::string_view ReadLine();
  /// Reads an integer and passes over the rest of its line. False when nothing but blanks is left.
  /// @throws EConvertError
  bool ReadCount(int &count);
  /// Reads so many times two numbers and the rest of their line; answers how often it could, which is less at the end
  /// of the text and before a number that is malformed. Widens `bounds`.
  std::size_t ReadVertices(TMapPoint *vertices, std::size_t count, TBounds &bounds);
  /// After ReadVertices: @throws EConvertError when it stopped before a malformed number.
  void ThrowIfMalformed();
  /// More vertices than this cannot follow: each takes four bytes at the least.
  [[nodiscard]] std::size_t MostVertices() const;
  /// Whether the next line with anything in it holds one item alone, such as a number.
  [[nodiscard]] bool LineHoldsOneItem() const;

  /// The number, from 1, of the line that was read last, or of the number that was.
  [[nodiscard]] int GetLine();
  [[nodiscard]] char GetSeparator() const { return m_separator; }

 private:
  [[nodiscard]] const char *FindLineEnd();
  /// Moves to the start of the line after the end at `lineEnd`.
  void PassLineEnd(const char *lineEnd);
  const char *SkipBlanks(const char *at) const;
  [[nodiscard]] std::string_view TokenAt(const char *at) const;
  /// Reads the number at `at`, which must be followed by a blank; none when it is malformed.
  const char *ReadNumber(const char *at, double &value);

  const char *m_first;
  const char *m_last;
  const char *m_at;
  char m_separator;
  bool m_isMalformed = false;
  // The next line feed and carriage return; valid as long as they are not passed.
  const char *m_lineFeed;
  const char *m_carriageReturn;
  // Where the line or number last read begins, and how far line ends have been counted.
  const char *m_mark;
  const char *m_countedTo;
  int m_lineEnds = 0;
};

}  // namespace tessera::detail
