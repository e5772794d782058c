// SPDX-License-Identifier: MIT
#pragma once

#include <QItemSelection>
#include <QString>
#include <QStringList>

#include <vector>

class QAbstractItemModel;
class QIODevice;

namespace tessera::detail {

/// The selected cells as text: a line for each row that has some, from the first selected column to the last, separated
/// by tabs. Cells in between that are not selected are blank.
[[nodiscard]] QString CopyCells(const QItemSelection &selection);

/// Writes a block of texts into the cells, whose first is written to `topLeft`; what lies beyond the table is dropped.
/// A single text goes into every selected cell. The rows that are written to stand as they do before the first is.
/// Answers how many cells did not take theirs.
int PasteCells(const std::vector<QStringList> &block, const QModelIndex &topLeft, const QItemSelection &selection);

/// Unassigns the selected cells. Answers how many did not take that.
int ClearCells(const QItemSelection &selection);

/// Writes a table as comma-separated values (RFC 4180, UTF-8), its first line the names of the columns. @throws
/// EInOutError when the device does not take them.
void WriteCsv(const QAbstractItemModel &table, QIODevice &device);

}  // namespace tessera::detail
