// SPDX-License-Identifier: MIT
#pragma once

#include <QStyledItemDelegate>

namespace tessera::detail {

/// Base of delegates whose editors change nothing as long as nothing was changed in them.
class ChangeDelegate : public QStyledItemDelegate {
 public:
  using QStyledItemDelegate::QStyledItemDelegate;

  void setEditorData(QWidget *editor, const QModelIndex &index) const final;
  void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const final;

 protected:
  /// Fills an editor that this delegate has made.
  virtual void Show(QWidget &editor, const QModelIndex &index) const = 0;
  /// What such an editor gives the model, unless it is what it gave when it was filled.
  [[nodiscard]] virtual QVariant ShownBy(const QWidget &editor) const = 0;
};

}  // namespace tessera::detail
