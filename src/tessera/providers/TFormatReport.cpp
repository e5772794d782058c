// SPDX-License-Identifier: MIT
#include <tessera/providers/TFormatReport.h>

#include <algorithm>
#include <limits>
#include <numeric>

namespace tessera {
namespace {

using TCounts = std::map<QString, qint64>;

qint64 Total(const TCounts &counts) {
  return std::accumulate(counts.begin(), counts.end(), qint64(0),
                         [](qint64 sum, const TCounts::value_type &entry) { return sum + entry.second; });
}

/// " (2 Region, 1 Point)", empty for no counts.
QString Listed(const TCounts &counts) {
  QStringList entries;
  for (const auto &[name, count] : counts) entries.append(QString::number(count) + u' ' + name);
  return entries.isEmpty() ? QString() : QString(QStringLiteral(" (") + entries.join(QStringLiteral(", ")) + u')');
}

/// For the plural forms of a translation, which are chosen by an int.
int Capped(qint64 count) {
  return int(std::min<qint64>(count, std::numeric_limits<int>::max()));
}

}  // namespace

void TFormatReport::CountSkippedLine(const QString &keyword, qint64 count) {
  const bool isKnown = skippedLines.contains(keyword) || skippedLines.size() < MaxKeywords;
  skippedLines[isKnown ? keyword : QStringLiteral("other")] += count;
}

void TFormatReport::Warn(const QString &words) {
  if (warnings.size() < MaxWarnings) {
    warnings.append(words);
  } else {
    ++droppedWarnings;
  }
}

void TFormatReport::Lose(const QString &words) {
  if (!losses.contains(words)) losses.append(words);
}

QStringList TFormatReport::AllLosses() const {
  QStringList all = losses;
  if (firstError)
    all.prepend((firstError->line > 0 ? tr("all that comes after this error in line %1: %2").arg(firstError->line)
                                      : tr("all that comes after this error: %1"))
                    .arg(firstError->words));
  return all;
}

void TFormatReport::Lose(const QString &words, qint64 count) {
  if (count > 0) Lose(words.arg(count));
}

void TFormatReport::Fail(int line, const QString &words) {
  if (!firstError) firstError = TFormatDefect{line, words};
}

qint64 TFormatReport::CountOfObjects() const {
  return Total(objects);
}

QString TFormatReport::Summary() const {
  const int count = Capped(CountOfObjects());
  QStringList parts{(count == 1 ? tr("1 object") : tr("%n objects", nullptr, count)) + Listed(objects)};
  if (!skippedLines.empty()) {
    const int lines = Capped(Total(skippedLines));
    parts.append((lines == 1 ? tr("1 line skipped") : tr("%n lines skipped", nullptr, lines)) + Listed(skippedLines));
  }
  if (!warnings.isEmpty()) {
    const int told = Capped(warnings.size() + droppedWarnings);
    parts.append(told == 1 ? tr("1 warning") : tr("%n warnings", nullptr, told));
  }
  if (firstError) {
    parts.append((firstError->line > 0 ? tr("error in line %1: %2").arg(firstError->line) : tr("error: %1"))
                     .arg(firstError->words));
  }
  return parts.join(QStringLiteral("; "));
}

}  // namespace tessera
