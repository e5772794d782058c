// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/formats/detail/LookAhead.h>
#include <tessera/formats/detail/VertexTable.h>

#include <limits>
#include <memory>
#include <string_view>
#include <vector>

namespace tessera::detail {

/// Reads lines and numbers from the bytes of a text, in one pass, through a window that slides over it.
///
/// A line ends with a line feed, a carriage return or both in this order. Numbers are read across lines, as from a
/// stream: blanks, tabs and line ends before a number are passed over, and it reaches up to the next of these. The
/// window holds a line, or a number with its line, whole, and grows for one that is longer. Bytes that the source fails
/// to give are as if the text ended there.
///
/// Vertices further on in a long text can be read ahead in another thread, which makes no difference but in time.
class TESSERA_CORE_EXPORT MifScanner {
 public:
  static constexpr std::size_t DefaultWindow = std::size_t(1) << 16U;

  /// The source must outlive the scanner.
  MifScanner(ByteSource &source, char separator, std::size_t window = DefaultWindow,
             const LookAheadLimits &limits = LookAheadLimits::Nothing());

  [[nodiscard]] bool AtEnd();
  /// Bytes read so far.
  [[nodiscard]] qint64 GetPosition() const { return PositionOf(m_at); }
  /// The next line without its end; empty at the end of the text. It is valid until more is read, and so many bytes as
  /// ReadPlainNumber looks at are readable behind it.
  std::string_view ReadLine();
  /// Reads an integer and passes over the rest of its line. False when nothing but blanks is left.
  /// @throws EConvertError
  bool ReadCount(int &count);
  /// Reads so many times two numbers and the rest of their line; answers how often it could, which is less at the end
  /// of the text and before a number that is malformed.
  std::size_t ReadVertices(TMapPoint *vertices, std::size_t count);
  /// Lists the vertices that stand in lines of their own among the lines that begin in [begin, end). They depend on
  /// nothing but the bytes of their lines.
  void ListVertices(qint64 begin, qint64 end, VertexTable &table);
  /// Moves forward to `position`.
  void MoveTo(qint64 position);
  /// Moves forward to the first line that begins at `position` or after it, if it is not there already. @pre the
  /// current position is the start of a line
  void MoveToLine(qint64 position);
  /// After ReadVertices: @throws EConvertError when it stopped before a malformed number.
  void ThrowIfMalformed();
  /// More vertices than this cannot follow: each takes four bytes at the least.
  [[nodiscard]] std::size_t MostVertices() const;
  /// Whether the next line with anything in it holds one item alone, such as a number.
  [[nodiscard]] bool LineHoldsOneItem();

  /// The number, from 1, of the line that was read last, or of the number that was. Reads the text up to there again,
  /// from where it was last asked for.
  [[nodiscard]] int GetLine();
  [[nodiscard]] char GetSeparator() const { return m_separator; }
  [[nodiscard]] ByteSource &GetSource() const { return m_source; }

 private:
  static constexpr qint64 Never = std::numeric_limits<qint64>::max();
  enum class Found : std::uint8_t { Vertex, Malformed, End };

  /// Lets the window begin at the current position and, unless the text ends there, reach further than before. False
  /// when it reached the end already; it stays as it is then.
  bool ReadMore();
  [[nodiscard]] std::size_t WindowSize() const;
  void Search(const char *&lineEnd, char byte, const char *from) const;
  [[nodiscard]] qint64 PositionOf(const char *at) const { return m_windowStart + (at - m_window.data()); }
  [[nodiscard]] const char *FindLineEnd();
  /// Moves to the start of the line after the end at `lineEnd`.
  void PassLineEnd(const char *lineEnd);
  /// Reads vertices that each stand in a line of their own, as nearly all do, and calls store(x, y, begin, end) with
  /// the place of the line. Stops when that answers false, before the first that is not so plain, at m_stop, and at the
  /// end of the window.
  template <typename Store>
  void ReadPlainVertices(const Store &store);
  std::size_t CopyPlainVertices(TMapPoint *vertices, std::size_t count);
  /// Takes vertices that were read ahead and moves m_stop on: there is nothing to take before.
  std::size_t TakeAhead(TMapPoint *vertices, std::size_t count);
  void StartLookAhead();
  /// Reads a vertex that stands anyhow; false at the end of the text and before a malformed number.
  [[nodiscard]] bool ReadAnyVertex(TMapPoint &vertex);
  /// Reads what stands at the current position, as far as the window reaches; `end` is where it stopped looking.
  [[nodiscard]] Found FindVertex(TMapPoint &vertex, const char *&end);
  [[nodiscard]] const char *SkipBlanks(const char *at) const;
  [[nodiscard]] std::string_view TokenAt(const char *at) const;
  /// The token after the blanks at the current position, empty at the end of the text.
  [[nodiscard]] std::string_view NextToken();
  /// Reads the number at `at`, which must be followed by a blank; none when it is malformed.
  [[nodiscard]] const char *ReadNumber(const char *at, double &value) const;
  /// The same after blanks and tabs, the fast way.
  [[nodiscard]] const char *ReadNumberInLine(const char *at, double &value) const;

  ByteSource &m_source;
  char m_separator;
  bool m_isMalformed = false;
  bool m_reachesEnd = false;
  std::vector<char> m_window;
  qint64 m_windowStart = 0;  // in the text
  const char *m_last;        // where the bytes in the window end
  const char *m_at;
  // The next line feed and carriage return in the window; valid as long as they are not passed.
  const char *m_lineFeed;
  const char *m_carriageReturn;
  // Where the line or number last read begins, and how far line ends have been counted.
  qint64 m_mark = 0;
  qint64 m_countedTo = 0;
  int m_lineEnds = 0;
  char m_lastCounted = '\0';
  // Where plain vertices are not to be read beyond without asking for those that were read ahead.
  qint64 m_stop = Never;
  LookAheadLimits m_limits;
  std::unique_ptr<LookAhead<VertexTable>> m_ahead;
};

}  // namespace tessera::detail
