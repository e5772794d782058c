// SPDX-License-Identifier: MIT
#include <apps/common/MifScan.h>

#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <QThread>

#include <algorithm>
#include <array>
#include <cstring>
#include <functional>
#include <future>
#include <string>
#include <vector>

namespace tessera::apps {
namespace {

/// Shorter files are not worth a thread.
constexpr qint64 WorthAThread = 1 << 20;

/// Calls `take` with the lines of a file, many at a time, each with the feed at its end, as long as that answers true.
/// Whether all lines were taken.
template <typename Take>
bool ForEachLines(const QString &fileName, const Take &take) {
  constexpr qint64 BlockSize = 1 << 18;
  constexpr qint64 LongestLine = 1 << 16;
  QFile file(fileName);
  if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) return false;
  std::vector<char> block(BlockSize + LongestLine + 1);
  qint64 pending = 0;  // bytes of a line whose end is still to come
  for (bool atEnd = false; !atEnd;) {
    const qint64 added = file.read(block.data() + pending, BlockSize);
    atEnd = added <= 0;
    const qint64 size = pending + std::max<qint64>(added, 0) + (atEnd ? 1 : 0);
    if (atEnd) block[std::size_t(size - 1)] = '\n';
    const std::string_view bytes(block.data(), std::size_t(size));
    const std::size_t whole = bytes.rfind('\n') + 1;
    if (!take(bytes.substr(0, whole))) return false;
    pending = size - qint64(whole);
    if (pending > LongestLine) return false;
    std::copy_n(block.data() + whole, pending, block.data());
  }
  return true;
}

std::string_view Trimmed(std::string_view text) {
  constexpr std::string_view Blanks = " \t\r";
  const std::size_t first = std::min(text.find_first_not_of(Blanks), text.size());
  text.remove_prefix(first);
  return text.substr(0, text.find_last_not_of(Blanks) + 1);
}

bool BeginsNumber(char c) {
  return (c >= '0' && c <= '9') || c == '-' || c == '+' || c == '.';
}

/// Where in [at, last) the first byte stands that is none of a number, a blank or the end of a line; or `last`. Most
/// bytes of most files are.
const char *FindOther(const char *at, const char *last) {
  constexpr std::ptrdiff_t BlockBytes = 64;
  const auto isOther = [](char c) {
    const bool isDigit = (c >= '0') & (c <= '9');
    const bool isBlank = (c == ' ') | (c == '\n') | (c == '\r') | (c == '\t');
    return !(isDigit | isBlank | (c == '-') | (c == '.') | (c == '+'));
  };
  // Without a way out, so that the compiler takes many bytes at once.
  const auto hasOther = [&isOther](const char *block) {
    bool has = false;
    for (std::ptrdiff_t i = 0; i < BlockBytes; ++i) has |= isOther(block[i]);
    return has;
  };
  while (last - at >= BlockBytes && !hasOther(at)) at += BlockBytes;
  return std::find_if(at, last, isOther);
}

/// Whether the line is a shape that is nearly never written twice alike: Region or Pline and a count, or Point and two
/// words.
bool IsPlainShape(std::string_view line) {
  const auto rest = [line](std::string_view word) {
    const bool isWord =
        line.size() > word.size() && line[word.size()] == ' ' &&
        std::equal(word.begin(), word.end(), line.begin(), [](char a, char b) { return a == (b | 0x20); });
    const std::size_t first = isWord ? line.find_first_not_of(' ', word.size()) : std::string_view::npos;
    return first == std::string_view::npos ? std::string_view() : line.substr(first);
  };
  const std::string_view count = line.size() > 1 && (line[1] | 0x20) == 'l' ? rest("pline") : rest("region");
  if (!count.empty()) return std::all_of(count.begin(), count.end(), [](char c) { return c >= '0' && c <= '9'; });
  const std::string_view place = rest("point");
  const std::size_t gap = place.find(' ');
  const std::size_t second = place.find_first_not_of(' ', gap);
  return second != std::string_view::npos && place.find_first_of(" \t\n\v\f\r", second) == std::string_view::npos &&
         place.find_first_of("\t\n\v\f\r") == std::string_view::npos;
}

/// Walks over the lines of a .mif file.
class ShapeScan {
 public:
  bool Take(std::string_view lines) {
    const char *at = lines.data();
    const char *last = at + lines.size();
    while (at != last) {
      if (!m_isInHeader && (BeginsNumber(*at) || *at == '\n')) {
        const char *numbers = at;
        at = FindOther(at, last);
        while (at != numbers && at[-1] != '\n') --at;
        if (std::find_if(numbers, at, BeginsNumber) != at) m_endsInPoint = false;
        if (at == last) break;
      }
      const char *end = static_cast<const char *>(std::memchr(at, '\n', std::size_t(last - at)));
      if (!TakeLine(Trimmed({at, std::size_t(end - at)}))) return false;
      at = end + 1;
    }
    return true;
  }
  /// Whether there were shapes to come, and none on the last line of the file, which is not read.
  [[nodiscard]] bool EndsWell() const { return !m_isInHeader && !m_endsInPoint; }

 private:
  bool TakeLine(std::string_view line) {
    if (line.empty() || (!m_isInHeader && BeginsNumber(line.front()))) {
      if (!line.empty()) m_endsInPoint = false;
      return true;
    }
    if (!IsPlain(line)) return false;
    m_endsInPoint = !m_isInHeader && (line.front() | 0x20) == 'p' && (line[1] | 0x20) == 'o';
    if (line.size() == 4 && (line.front() | 0x20) == 'd') m_isInHeader = false;
    return true;
  }
  /// Clauses are few and stand in the file many times.
  bool IsPlain(std::string_view line) {
    if (m_isInHeader) return IsPlainMifLine(line, true);
    if (IsPlainShape(line)) return true;
    std::string &known = m_known[std::hash<std::string_view>()(line) % m_known.size()];
    if (known == line) return true;
    if (!IsPlainMifLine(line, false)) return false;
    known = line;
    return true;
  }

  bool m_isInHeader = true;
  bool m_endsInPoint = false;
  std::array<std::string, 64> m_known;
};

/// Whether the quotes of the lines are those around whole values, and nothing stands in them that ends a value.
bool HasPlainValues(std::string_view lines) {
  const auto ends = [](char c) { return (c == '"') | (c == ',') | (c == ';') | (c == '\t') | (c == '\n'); };
  for (std::size_t open = lines.find('"'); open != std::string_view::npos;) {
    const char *close = std::find_if(lines.data() + open + 1, lines.data() + lines.size(), ends);
    if (*close != '"' || close[1] == '"') return false;
    open = lines.find('"', std::size_t(close + 1 - lines.data()));
  }
  return true;
}

}  // namespace

bool IsPlainMifLine(std::string_view line, bool isInHeader) {
  constexpr auto Options = QRegularExpression::CaseInsensitiveOption;
  static const QRegularExpression header(
      QStringLiteral(
          "^(version \\d+|charset \"(windowscyrillic|neutral)\"|delimiter \".\"|coordsys [^:]*|"
          "(index|unique) [\\d, ]+|columns \\S+|\\w+ (char ?\\(\\d+\\)|integer|float|decimal ?\\([\\d, ]+\\))|data)$"),
      Options);
  static const QRegularExpression body(
      QStringLiteral(
          "^(region +\\d+|pline +\\d+|point +\\S+ +\\S+|pen ?\\( *1, *2, *\\d+\\)|brush ?\\( *2, *\\d+(, *\\d+)?\\)|"
          "symbol ?\\( *\\d+, *\\d+, *\\d+(, *\"[^\"]*\", *0, *0)?\\)|center .*)$"),
      Options);
  return (isInHeader ? header : body).match(QString::fromLatin1(line.data(), qsizetype(line.size()))).hasMatch();
}

bool HoldsOnlyPlainShapes(const QString &mifName, const QString &midName) {
  const auto hasPlainMid = [&midName] { return !QFile::exists(midName) || ForEachLines(midName, HasPlainValues); };
  const bool isLong = QFileInfo(midName).size() > WorthAThread && QThread::idealThreadCount() > 1;
  constexpr auto AsideIfPossible = std::launch::async | std::launch::deferred;
  std::future<bool> mid = std::async(isLong ? AsideIfPossible : std::launch::deferred, hasPlainMid);
  ShapeScan scan;
  const bool isPlain = ForEachLines(mifName, [&scan](std::string_view lines) { return scan.Take(lines); });
  return isPlain && scan.EndsWell() && mid.get();
}

}  // namespace tessera::apps
