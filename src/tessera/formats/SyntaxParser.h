// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <QString>
#include <QStringList>
#include <QStringView>

#include <bitset>
#include <cstdint>
#include <set>
#include <utility>
#include <vector>

namespace tessera {

/// What an item of a text is. sikDelimiter and sikSymbol are never given.
enum class TSyntaxItemKind : std::uint8_t {
  sikWhiteSpace,
  sikDelimiter,
  sikComment,
  sikReservedWord,
  sikIdentifier,
  sikSymbol,
  sikNumber,
  sikString
};

/// A set of the characters with codes 0 to 255; no other character is ever in it.
class TESSERA_CORE_EXPORT TCharSet {
 public:
  TCharSet() = default;
  /// The set of the characters of `characters`.
  explicit TCharSet(QStringView characters) { Include(characters); }

  void Include(QStringView characters);
  void Exclude(QStringView characters);
  [[nodiscard]] bool Contains(QChar c) const { return c.unicode() < Codes && m_codes[c.unicode()]; }

  bool operator==(const TCharSet &) const = default;

 private:
  static constexpr std::size_t Codes = 256;

  std::bitset<Codes> m_codes;
};

class TSyntaxParser;

/// A piece of a text that was read: a word, a quoted string with its quotes, a delimiter or a comment.
class TESSERA_CORE_EXPORT TSyntaxItem {
 public:
  int Offset;     ///< Position of the first character in the text read, from 0.
  QString Value;  ///< The characters.
  int Line;       ///< The line number that was given to Read.

  /// Worked out from the value and the settings that the parser has now. A blank, and any other single delimiter, is
  /// sikWhiteSpace.
  [[nodiscard]] TSyntaxItemKind GetKind() const;
  [[nodiscard]] int GetLength() const { return int(Value.size()); }
  [[nodiscard]] const TSyntaxParser *GetSyntaxParser() const { return m_parser; }
  /// Compares regardless of case.
  [[nodiscard]] bool Equal(QStringView text) const { return Value.compare(text, Qt::CaseInsensitive) == 0; }

 private:
  friend class TSyntaxParser;
  TSyntaxItem(const TSyntaxParser *parser, QString value, int offset, int line)
      : Offset(offset), Value(std::move(value)), Line(line), m_parser(parser) {}

  const TSyntaxParser *m_parser;
};

/// Cuts texts into items at single delimiter characters, keeps quoted strings whole, and makes the rest of a text after
/// a comment mark one item. Time and memory are linear in the length of the text.
///
/// Pointers and references to items hold until items are added or removed.
class TESSERA_CORE_EXPORT TSyntaxParser {
 public:
  TSyntaxParser();
  virtual ~TSyntaxParser();
  TSyntaxParser(const TSyntaxParser &) = delete;
  TSyntaxParser &operator=(const TSyntaxParser &) = delete;

  /// Appends the items of `text`, all marked with `line`; `clear` removes the earlier ones first. With `raw`, quotes
  /// and comment marks are characters like any other.
  virtual void Read(QStringView text, int line, bool clear, bool raw);
  /// Appends the items of every line, numbered from 0, with progress.
  virtual void ReadFromStrings(const QStringList &strings);
  /// ReadFromStrings with the lines of a file: Unicode if it has a byte order mark, otherwise in the encoding of the
  /// system. @throws EInOutError when it cannot be read.
  void ReadFromFile(const QString &fileName);

  /// Appends an item. A value of one tab becomes one blank.
  TSyntaxItem &Add(const QString &value, int offset, int line);
  void Clear() { m_items.clear(); }
  /// Removes blanks and comments, with progress.
  void Pack();

  [[nodiscard]] int GetCount() const { return int(m_items.size()); }
  /// @throws ERangeError
  [[nodiscard]] const TSyntaxItem &GetItem(int index) const;
  /// The first item that ends beyond `offset`, nullptr when there is none.
  [[nodiscard]] const TSyntaxItem *ItemFromOffset(int offset) const;
  /// Whether there is an argument with this index. Item 0 is the keyword of a line and counts as none, on purpose.
  [[nodiscard]] bool ValidIndex(int index) const { return index >= 1 && index < GetCount(); }
  /// Sets `text` to all values, one behind the other.
  void Write(QString &text) const;

  /// `"` at first.
  [[nodiscard]] QChar GetQuote() const { return m_quote; }
  void SetQuote(QChar quote) { m_quote = quote; }
  /// `'` at first. Read only ever finds a mark of one character.
  [[nodiscard]] const QString &GetCommentsFlag() const { return m_commentsFlag; }
  void SetCommentsFlag(const QString &flag) { m_commentsFlag = flag; }
  /// At first tab, line feed, carriage return, blank and "'()*+,-./:;=
  [[nodiscard]] const TCharSet &GetDelimiters() const { return m_delimiters; }
  void SetDelimiters(const TCharSet &delimiters) { m_delimiters = delimiters; }
  /// Only sikComment is looked at: Read then drops comments.
  [[nodiscard]] const std::set<TSyntaxItemKind> &GetSkipKinds() const { return m_skipKinds; }
  void SetSkipKinds(const std::set<TSyntaxItemKind> &kinds) { m_skipKinds = kinds; }
  /// Delimiters that end an item but do not become one.
  [[nodiscard]] const TCharSet &GetSkipChars() const { return m_skipChars; }
  void SetSkipChars(const TCharSet &chars) { m_skipChars = chars; }
  /// Found regardless of case.
  [[nodiscard]] const QStringList &GetReservedWords() const { return m_reservedWords; }
  void SetReservedWords(const QStringList &words) { m_reservedWords = words; }

 private:
  QChar m_quote = u'"';
  QString m_commentsFlag = QStringLiteral("'");
  TCharSet m_delimiters;
  std::set<TSyntaxItemKind> m_skipKinds;
  TCharSet m_skipChars;
  QStringList m_reservedWords;
  std::vector<TSyntaxItem> m_items;
};

}  // namespace tessera
