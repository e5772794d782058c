// SPDX-License-Identifier: MIT
#include <tessera/controls/detail/ChangeDelegate.h>

namespace tessera::detail {
namespace {

/// What the editor showed at first, among its properties.
constexpr char ShownAtFirst[] = "tesseraShownAtFirst";

}  // namespace

void ChangeDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const {
  Show(*editor, index);
  editor->setProperty(ShownAtFirst, ShownBy(*editor));
}

void ChangeDelegate::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const {
  const QVariant shown = ShownBy(*editor);
  if (shown != editor->property(ShownAtFirst)) model->setData(index, shown);
}

}  // namespace tessera::detail
