// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/base/Progresser.h>
#include <tessera/base/detail/Numbers.h>
#include <tessera/formats/SyntaxParser.h>

#include <QFile>
#include <QStringDecoder>

#include <algorithm>

namespace tessera {
namespace {

/// Shows the progress of a walk over many things through the callbacks of the process, a hundred times at most.
class TProgressBracket {
 public:
  TProgressBracket(std::size_t count, const QString &caption) : m_step(count / 100 + 1) {
    if (Progresser::StartProgress) Progresser::StartProgress(nullptr, 0, int(count), caption);
  }
  ~TProgressBracket() {
    if (Progresser::StopProgress) Progresser::StopProgress(nullptr);
  }
  TProgressBracket(const TProgressBracket &) = delete;
  TProgressBracket &operator=(const TProgressBracket &) = delete;

  /// To be called for every thing.
  void Advance() {
    if (++m_position % m_step == 0 && Progresser::ShowProgress) Progresser::ShowProgress(nullptr, int(m_position));
  }

 private:
  std::size_t m_step;
  std::size_t m_position = 0;
};

/// The lines of `text`, which may end in a line feed, a carriage return or both. No line follows the last end of line.
QStringList SplitLines(QStringView text) {
  QStringList lines;
  qsizetype start = 0;
  while (start < text.size()) {
    const auto *end = std::find_if(text.begin() + start, text.end(), [](QChar c) { return c == u'\n' || c == u'\r'; });
    const qsizetype length = end - text.begin() - start;
    lines.append(text.sliced(start, length).toString());
    start += length + (text.sliced(start + length).startsWith(u"\r\n") ? 2 : 1);
  }
  return lines;
}

QString LoadText(const QString &fileName) {
  QFile file(fileName);
  if (!file.open(QIODevice::ReadOnly)) {
    throw EInOutError(QStringLiteral("Cannot open file \"%1\". %2").arg(fileName, file.errorString()));
  }
  const QByteArray bytes = file.readAll();
  if (file.error() != QFileDevice::NoError) {
    throw EInOutError(QStringLiteral("Cannot read file \"%1\". %2").arg(fileName, file.errorString()));
  }
  return QStringDecoder(QStringDecoder::encodingForData(bytes).value_or(QStringDecoder::System)).decode(bytes);
}

}  // namespace

void TCharSet::Include(QStringView characters) {
  for (const QChar c : characters) {
    if (c.unicode() < Codes) m_codes.set(c.unicode());
  }
}

void TCharSet::Exclude(QStringView characters) {
  for (const QChar c : characters) {
    if (c.unicode() < Codes) m_codes.reset(c.unicode());
  }
}

TSyntaxItemKind TSyntaxItem::GetKind() const {
  using enum TSyntaxItemKind;
  if (Value == u' ') return sikWhiteSpace;
  // Intended: a delimiter is white space here, never sikDelimiter.
  if (Value.size() == 1 && m_parser->GetDelimiters().Contains(Value.front())) return sikWhiteSpace;
  const QString &flag = m_parser->GetCommentsFlag();
  if (QStringView(Value).left(flag.size()) == flag) return sikComment;
  if (!Value.isEmpty() && Value.front() == m_parser->GetQuote()) return sikString;
  if (m_parser->GetReservedWords().contains(Value, Qt::CaseInsensitive)) return sikReservedWord;
  double number = 0;
  return detail::TryStrToFloat(Value, number) ? sikNumber : sikIdentifier;
}

TSyntaxParser::TSyntaxParser() : m_delimiters(u"\t\n\r \"'()*+,-./:;=") {}

TSyntaxParser::~TSyntaxParser() = default;

void TSyntaxParser::Read(QStringView text, int line, bool clear, bool raw) {
  if (clear) Clear();
  const bool findsComments = !raw && m_commentsFlag.size() == 1;
  bool inQuote = false;
  qsizetype start = 0;  // of the current token, which always reaches up to the current character
  const auto addToken = [&](qsizetype end) {
    if (end > start) Add(text.sliced(start, end - start).toString(), int(start), line);
    start = end;
  };

  for (qsizetype at = 0; at < text.size(); ++at) {
    const QChar c = text[at];
    if (findsComments && c == m_commentsFlag.front() && !inQuote) {
      addToken(at);
      if (m_skipKinds.contains(TSyntaxItemKind::sikComment)) return;
      break;
    }
    if (!raw && c == m_quote) {
      addToken(inQuote ? at + 1 : at);
      inQuote = !inQuote;
    } else if (m_delimiters.Contains(c) && !inQuote) {
      addToken(at);
      if (!m_skipChars.Contains(c)) Add(c, int(at), line);
      start = at + 1;
    }
  }
  addToken(text.size());
}

void TSyntaxParser::ReadFromStrings(const QStringList &strings) {
  TProgressBracket progress(std::size_t(strings.size()), QStringLiteral("Reading source"));
  for (int line = 0; line < strings.size(); ++line) {
    Read(strings[line], line, false, false);
    progress.Advance();
  }
}

void TSyntaxParser::ReadFromFile(const QString &fileName) {
  ReadFromStrings(SplitLines(LoadText(fileName)));
}

TSyntaxItem &TSyntaxParser::Add(const QString &value, int offset, int line) {
  m_items.push_back(TSyntaxItem(this, value == u'\t' ? QStringLiteral(" ") : value, offset, line));
  return m_items.back();
}

void TSyntaxParser::Pack() {
  TProgressBracket progress(m_items.size(), QStringLiteral("Packing Data"));
  const auto firstKept = std::remove_if(m_items.rbegin(), m_items.rend(), [&progress](const TSyntaxItem &item) {
    progress.Advance();
    return item.Value == u' ' || item.GetKind() == TSyntaxItemKind::sikComment;
  });
  m_items.erase(m_items.begin(), firstKept.base());
}

const TSyntaxItem &TSyntaxParser::GetItem(int index) const {
  return m_items[CheckedIndex(index, m_items.size(), "Syntax item")];
}

const TSyntaxItem *TSyntaxParser::ItemFromOffset(int offset) const {
  const auto found = std::find_if(m_items.begin(), m_items.end(), [offset](const TSyntaxItem &item) {
    return item.Offset + item.GetLength() > offset;
  });
  return found == m_items.end() ? nullptr : &*found;
}

void TSyntaxParser::Write(QString &text) const {
  text.clear();
  for (const TSyntaxItem &item : m_items) text += item.Value;
}

}  // namespace tessera
