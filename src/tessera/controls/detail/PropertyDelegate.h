// SPDX-License-Identifier: MIT
#pragma once

#include <QStyledItemDelegate>

namespace tessera::detail {

/// Gives every value of an ObjectPropertiesModel its editor: a list for choices, a dialog, which does not block, for
/// colours, a line for all else.
class PropertyDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
  void setEditorData(QWidget *editor, const QModelIndex &index) const override;
  /// An editor in which nothing was changed changes nothing.
  void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;
};

}  // namespace tessera::detail
