// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/controls/detail/ChangeDelegate.h>

namespace tessera::detail {

/// Gives every cell of a layer's table the editor that fits its column: a line that tells the range for numbers, with
/// no more characters than a text may have, and editors of dates and times. What is no value of the column the model
/// refuses.
class CellDelegate : public ChangeDelegate {
 public:
  using ChangeDelegate::ChangeDelegate;

  QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override;

 protected:
  void Show(QWidget &editor, const QModelIndex &index) const override;
  [[nodiscard]] QVariant ShownBy(const QWidget &editor) const override;
};

}  // namespace tessera::detail
