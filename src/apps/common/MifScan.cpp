// SPDX-License-Identifier: MIT
#include <apps/common/MifScan.h>

#include <QByteArray>
#include <QFile>
#include <QRegularExpression>

#include <algorithm>
#include <string_view>

namespace tessera::apps {
namespace {

/// Calls `take` with each line of a file, without its end, as long as that answers true. Whether all lines were taken.
template <typename Take>
bool ForEachLine(const QString &fileName, const Take &take) {
  constexpr qint64 BlockSize = 1 << 20;
  constexpr qsizetype LongestLine = 1 << 16;
  QFile file(fileName);
  if (!file.open(QIODevice::ReadOnly)) return false;
  QByteArray pending;
  for (bool atEnd = false; !atEnd;) {
    const QByteArray block = file.read(BlockSize);
    atEnd = block.isEmpty();
    pending += atEnd ? QByteArray("\n") : block;
    qsizetype begin = 0;
    for (qsizetype end = pending.indexOf('\n'); end >= 0; end = pending.indexOf('\n', begin)) {
      if (!take(std::string_view(pending.constData() + begin, std::size_t(end - begin)))) return false;
      begin = end + 1;
    }
    pending.remove(0, begin);
    if (pending.size() > LongestLine) return false;
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

/// What may stand in a file: the lines of its header, then shapes and clauses.
const QRegularExpression &PlainLine(bool isInHeader) {
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
  return isInHeader ? header : body;
}

/// Walks over the lines of a .mif file.
class ShapeScan {
 public:
  bool Take(std::string_view whole) {
    const std::string_view line = Trimmed(whole);
    if (line.empty() || (!m_isInHeader && BeginsNumber(line.front()))) {
      if (!line.empty()) m_endsInPoint = false;
      return true;
    }
    if (!PlainLine(m_isInHeader).match(QString::fromLatin1(line.data(), qsizetype(line.size()))).hasMatch())
      return false;
    m_endsInPoint = !m_isInHeader && (line.front() == 'P' || line.front() == 'p') && (line[1] == 'o' || line[1] == 'O');
    if (line.size() == 4 && (line.front() == 'D' || line.front() == 'd')) m_isInHeader = false;
    return true;
  }
  /// Whether there were shapes to come, and none on the last line of the file, which is not read.
  [[nodiscard]] bool EndsWell() const { return !m_isInHeader && !m_endsInPoint; }

 private:
  bool m_isInHeader = true;
  bool m_endsInPoint = false;
};

/// Whether the quotes of the line are those around whole values, and nothing stands in them that ends a value.
bool HasPlainValues(std::string_view line) {
  bool isInQuotes = false;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const char c = line[i];
    if (c == '"') {
      if (isInQuotes && i + 1 < line.size() && line[i + 1] == '"') return false;
      isInQuotes = !isInQuotes;
    } else if (isInQuotes && (c == ',' || c == ';' || c == '\t')) {
      return false;
    }
  }
  return !isInQuotes;
}

}  // namespace

bool HoldsOnlyPlainShapes(const QString &mifName, const QString &midName) {
  ShapeScan scan;
  const bool isPlain = ForEachLine(mifName, [&scan](std::string_view line) { return scan.Take(line); });
  return isPlain && scan.EndsWell() && (!QFile::exists(midName) || ForEachLine(midName, HasPlainValues));
}

}  // namespace tessera::apps
