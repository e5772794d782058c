// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QString>

#include <variant>
#include <vector>

namespace tessera {
class TDataFields;
}

namespace tessera::detail {

/// The file that a layer was as, by its name, its size and the time of its last change.
struct JournalSource {
  QString fileName;  ///< Empty for a layer that has no file.
  qint64 sizeBytes = 0;
  qint64 changedMs = 0;
  quint64 objectCount = 0;  ///< Which the layer had.

  /// The file as it is now; none when it is not there.
  [[nodiscard]] static JournalSource Of(const QString &fileName);
  /// Whether the file is still as it was.
  [[nodiscard]] bool IsThere() const;
};

// What is written of a layer, which has a number in its journal.

/// It is as its file is.
struct JournalBegin {
  quint64 layer = 0;
  JournalSource source;
};
/// Its list of objects is made of others, of which each stood in the list before, or is packed.
struct JournalChange {
  struct Run {
    quint64 first = 0;
    quint64 count = 0;  ///< 0 for packed objects.
    QByteArray packed;
  };
  quint64 layer = 0;
  QString name;
  QByteArray columns;
  std::vector<Run> runs;
};
/// Nothing is to be restored of it.
struct JournalEnd {
  quint64 layer = 0;
};
/// It is being saved: when the file it had is another than it was, then that has all of the layer.
struct JournalSaving {
  quint64 layer = 0;
};

using JournalRecord = std::variant<JournalBegin, JournalChange, JournalEnd, JournalSaving>;
[[nodiscard]] QByteArray PackRecord(const JournalRecord &record);
/// @throws EConvertError
[[nodiscard]] JournalRecord UnpackRecord(const QByteArray &bytes);

/// Columns without values.
[[nodiscard]] QByteArray PackColumns(const TDataFields &columns);
/// @throws EConvertError
void UnpackColumns(const QByteArray &bytes, TDataFields &columns);

}  // namespace tessera::detail
