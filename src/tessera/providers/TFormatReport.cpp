// SPDX-License-Identifier: MIT
#include <tessera/providers/TFormatReport.h>

#include <numeric>

namespace tessera {
namespace {

using TCounts = std::map<QString, qint64>;

qint64 Total(const TCounts &counts) {
  return std::accumulate(counts.begin(), counts.end(), qint64(0),
                         [](qint64 sum, const TCounts::value_type &entry) { return sum + entry.second; });
}

/// "1 line", "2 lines".
QString Counted(qint64 count, const QString &noun) {
  return QString::number(count) + u' ' + noun + (count == 1 ? QString() : QStringLiteral("s"));
}

/// " (2 Region, 1 Point)", empty for no counts.
QString Listed(const TCounts &counts) {
  QStringList entries;
  for (const auto &[name, count] : counts) entries.append(QString::number(count) + u' ' + name);
  return entries.isEmpty() ? QString() : QString(QStringLiteral(" (") + entries.join(QStringLiteral(", ")) + u')');
}

/// " in line 7", empty where no line is to blame.
QString PlaceOf(const TFormatDefect &defect) {
  return defect.line > 0 ? QStringLiteral(" in line %1").arg(defect.line) : QString();
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
    all.prepend(QStringLiteral("all that comes after this error%1: %2").arg(PlaceOf(*firstError), firstError->words));
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
  QStringList parts{Counted(CountOfObjects(), QStringLiteral("object")) + Listed(objects)};
  if (!skippedLines.empty()) {
    parts.append(Counted(Total(skippedLines), QStringLiteral("line")) + QStringLiteral(" skipped") +
                 Listed(skippedLines));
  }
  if (!warnings.isEmpty()) parts.append(Counted(warnings.size() + droppedWarnings, QStringLiteral("warning")));
  if (firstError) {
    parts.append(QStringLiteral("error%1: %2").arg(PlaceOf(*firstError), firstError->words));
  }
  return parts.join(QStringLiteral("; "));
}

}  // namespace tessera
