// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <QCoreApplication>
#include <QString>
#include <QStringList>

#include <map>
#include <optional>

namespace tessera {

/// A place in a file that could not be understood.
struct TFormatDefect {
  int line = 0;  ///< From 1; 0 when no line is to blame.
  QString words;
};

/// What a format provider did in its last run. A provider may answer the same whatever happened; here is what did.
/// However bad the file, the report stays small: see the limits.
struct TESSERA_CORE_EXPORT TFormatReport {
  /// So many warnings are kept.
  static constexpr int MaxWarnings = 100;
  /// So many keywords are told apart; lines with further ones are counted under "other".
  static constexpr std::size_t MaxKeywords = 100;

  std::map<QString, qint64> objects;       ///< Objects read or written, by kind.
  std::map<QString, qint64> skippedLines;  ///< Lines that were passed over and lost, by the keyword they began with.
  std::optional<TFormatDefect> firstError;
  QStringList warnings;        ///< The first of them, in order.
  qint64 droppedWarnings = 0;  ///< Those beyond MaxWarnings.
  /// What did not come over: after Load what the file has and the layer lacks, after Save the reverse. A line for each
  /// sort of thing.
  QStringList losses;

  void CountObject(const QString &kind, qint64 count = 1) {
    if (count > 0) objects[kind] += count;
  }
  void CountSkippedLine(const QString &keyword, qint64 count = 1);
  void Warn(const QString &words);
  /// Each sort of thing is kept once.
  void Lose(const QString &words);
  /// With the count in the place of %1; nothing when it is 0.
  void Lose(const QString &words, qint64 count);
  /// Only the first error of a run is kept.
  void Fail(int line, const QString &words);

  /// Whether there was no error; warnings and skipped lines are none.
  [[nodiscard]] bool ok() const { return !firstError; }
  /// Whether nothing was lost, on purpose or by an error.
  [[nodiscard]] bool IsWhole() const { return ok() && losses.isEmpty(); }
  /// The losses, and what an error has cut off; empty when all came over.
  [[nodiscard]] QStringList AllLosses() const;
  [[nodiscard]] qint64 CountOfObjects() const;
  /// One line for people, such as "3 objects (2 Region, 1 Point); 4 lines skipped (4 Arc); error in line 7: …".
  [[nodiscard]] QString Summary() const;

  /// For providers: their words about a run are translated in the context of this class.
  Q_DECLARE_TR_FUNCTIONS(tessera::TFormatReport)
};

}  // namespace tessera
