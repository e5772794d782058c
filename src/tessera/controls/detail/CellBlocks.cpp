// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/controls/TLayerTableModel.h>
#include <tessera/controls/detail/CellBlocks.h>
#include <tessera/controls/detail/DelimitedText.h>

#include <QIODevice>

#include <algorithm>

namespace tessera::detail {
namespace {

using Targets = std::vector<std::pair<QPersistentModelIndex, QVariant>>;

/// The selected columns of one row.
struct RowPiece {
  int row;
  int left;
  int right;
  bool operator<(const RowPiece &other) const { return row != other.row ? row < other.row : left < other.left; }
};

std::vector<RowPiece> PiecesOf(const QItemSelection &selection) {
  std::vector<RowPiece> pieces;
  for (const QItemSelectionRange &range : selection) {
    for (int row = range.top(); row <= range.bottom(); ++row) pieces.push_back({row, range.left(), range.right()});
  }
  std::sort(pieces.begin(), pieces.end());
  return pieces;
}

int Write(const Targets &targets) {
  int refused = 0;
  for (const auto &[index, value] : targets) {
    // A cell that was written before may have changed what rows there are.
    auto *model = const_cast<QAbstractItemModel *>(index.model());
    if (!index.isValid() || !model->setData(index, value, Qt::EditRole)) ++refused;
  }
  return refused;
}

Targets EverySelected(const QItemSelection &selection, const QVariant &value) {
  Targets targets;
  for (const QModelIndex &index : selection.indexes()) targets.emplace_back(index, value);
  return targets;
}

void WriteLine(QString &line, QIODevice &device) {
  line += QStringLiteral("\r\n");
  const QByteArray bytes = line.toUtf8();
  if (device.write(bytes) != bytes.size()) throw EInOutError(device.errorString());
  line.clear();
}

}  // namespace

QString CopyCells(const QItemSelection &selection) {
  const std::vector<RowPiece> pieces = PiecesOf(selection);
  if (pieces.empty()) return {};
  const QAbstractItemModel &table = *selection.front().model();
  const auto isFurtherLeft = [](const RowPiece &a, const RowPiece &b) { return a.left < b.left; };
  const auto isFurtherRight = [](const RowPiece &a, const RowPiece &b) { return a.right < b.right; };
  const int left = std::min_element(pieces.begin(), pieces.end(), isFurtherLeft)->left;
  const int right = std::max_element(pieces.begin(), pieces.end(), isFurtherRight)->right;
  QString text;
  for (auto piece = pieces.begin(); piece != pieces.end();) {
    const int row = piece->row;
    for (int column = left; column <= right; ++column) {
      while (piece != pieces.end() && piece->row == row && piece->right < column) ++piece;
      if (column > left) text += u'\t';
      const bool isSelected = piece != pieces.end() && piece->row == row && piece->left <= column;
      if (!isSelected) continue;
      AppendDelimited(text, table.index(row, column).data(TLayerTableModel::TextRole).toString(), u'\t');
    }
    while (piece != pieces.end() && piece->row == row) ++piece;
    text += u'\n';
  }
  return text;
}

int PasteCells(const std::vector<QStringList> &block, const QModelIndex &topLeft, const QItemSelection &selection) {
  if (block.empty() || !topLeft.isValid()) return 0;
  if (block.size() == 1 && block[0].size() == 1) {
    const Targets everywhere = EverySelected(selection, block[0][0]);
    return Write(everywhere.empty() ? Targets{{topLeft, block[0][0]}} : everywhere);
  }
  Targets targets;
  for (int i = 0; i < int(block.size()); ++i) {
    for (int j = 0; j < block[std::size_t(i)].size(); ++j) {
      const QModelIndex index = topLeft.sibling(topLeft.row() + i, topLeft.column() + j);
      if (index.isValid()) targets.emplace_back(index, block[std::size_t(i)][j]);
    }
  }
  return Write(targets);
}

int ClearCells(const QItemSelection &selection) {
  return Write(EverySelected(selection, {}));
}

void WriteCsv(const QAbstractItemModel &table, QIODevice &device) {
  QString line;
  const int columns = table.columnCount();
  for (int column = 0; column < columns; ++column) {
    if (column > 0) line += u',';
    AppendDelimited(line, table.headerData(column, Qt::Horizontal, TLayerTableModel::TextRole).toString(), u',');
  }
  WriteLine(line, device);
  for (int row = 0; row < table.rowCount(); ++row) {
    for (int column = 0; column < columns; ++column) {
      if (column > 0) line += u',';
      AppendDelimited(line, table.index(row, column).data(TLayerTableModel::NeutralRole).toString(), u',');
    }
    WriteLine(line, device);
  }
}

}  // namespace tessera::detail
