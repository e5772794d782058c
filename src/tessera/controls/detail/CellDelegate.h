// SPDX-License-Identifier: MIT
#pragma once

#include <QStyledItemDelegate>

namespace tessera::detail {

/// Gives every cell of a layer's table the editor that fits its column: a line that tells the range for numbers, with
/// no more characters than a text may have, and editors of dates and times. What is no value of the column the model
/// refuses.
class CellDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
  void setEditorData(QWidget *editor, const QModelIndex &index) const override;
  /// An editor in which nothing was changed changes nothing.
  void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;
};

}  // namespace tessera::detail
