// SPDX-License-Identifier: MIT
#include <tessera/controls/detail/DelimitedText.h>

#include <algorithm>

namespace tessera::detail {
namespace {

constexpr QChar Quote = u'"';

bool EndsLine(QChar c) {
  return c == u'\r' || c == u'\n';
}

/// The field that starts at `at`, which is moved behind it.
QString TakeField(const QString &text, QChar separator, qsizetype &at) {
  QString field;
  const bool isQuoted = at < text.size() && text[at] == Quote;
  if (isQuoted) ++at;
  for (bool isInside = isQuoted; at < text.size(); ++at) {
    const QChar c = text[at];
    if (isInside && c == Quote) {
      isInside = at + 1 < text.size() && text[at + 1] == Quote;
      if (!isInside) continue;
      ++at;
    } else if (!isInside && (c == separator || EndsLine(c))) {
      break;
    }
    field += c;
  }
  return field;
}

}  // namespace

void AppendDelimited(QString &line, const QString &field, QChar separator) {
  const bool needsQuotes = std::any_of(field.begin(), field.end(),
                                       [separator](QChar c) { return c == separator || c == Quote || EndsLine(c); });
  if (!needsQuotes) {
    line += field;
    return;
  }
  line += Quote;
  for (const QChar c : field) {
    if (c == Quote) line += Quote;
    line += c;
  }
  line += Quote;
}

std::vector<QStringList> SplitDelimited(const QString &text, QChar separator) {
  std::vector<QStringList> lines;
  for (qsizetype at = 0; at < text.size();) {
    QStringList &line = lines.emplace_back();
    line << TakeField(text, separator, at);
    while (at < text.size() && text[at] == separator) line << TakeField(text, separator, ++at);
    if (at < text.size() && text[at] == u'\r') ++at;
    if (at < text.size() && text[at] == u'\n') ++at;
  }
  return lines;
}

}  // namespace tessera::detail
