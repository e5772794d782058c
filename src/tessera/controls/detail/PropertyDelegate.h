// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/controls/detail/ChangeDelegate.h>

namespace tessera::detail {

/// Gives every value of an ObjectPropertiesModel its editor: a list for choices, a dialog, which does not block, for
/// colours, a line for all else.
class PropertyDelegate : public ChangeDelegate {
 public:
  using ChangeDelegate::ChangeDelegate;

  QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option, const QModelIndex &index) const override;

 protected:
  void Show(QWidget &editor, const QModelIndex &index) const override;
  [[nodiscard]] QVariant ShownBy(const QWidget &editor) const override;
};

}  // namespace tessera::detail
