// SPDX-License-Identifier: MIT
#include <tessera/controls/detail/ObjectPropertiesModel.h>
#include <tessera/controls/detail/PropertyDelegate.h>

#include <QColorDialog>
#include <QComboBox>
#include <QLineEdit>

namespace tessera::detail {
namespace {

void OpenColorDialog(QWidget *parent, const QModelIndex &index) {
  auto *dialog = new QColorDialog(index.data(Qt::DecorationRole).value<QColor>(), parent->window());
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  auto *model = const_cast<QAbstractItemModel *>(index.model());
  QObject::connect(dialog, &QColorDialog::colorSelected, model,
                   [model, at = QPersistentModelIndex(index)](const QColor &color) { model->setData(at, color); });
  dialog->open();
}

}  // namespace

QWidget *PropertyDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem & /*option*/,
                                        const QModelIndex &index) const {
  const QStringList choices = index.data(ObjectPropertiesModel::ChoicesRole).toStringList();
  if (!choices.isEmpty()) {
    auto *list = new QComboBox(parent);
    list->addItems(choices);
    auto *self = const_cast<PropertyDelegate *>(this);
    connect(list, &QComboBox::activated, self, [self, list] {
      Q_EMIT self->commitData(list);
      Q_EMIT self->closeEditor(list);
    });
    return list;
  }
  if (index.data(ObjectPropertiesModel::IsColorRole).toBool()) {
    OpenColorDialog(parent, index);
    return nullptr;
  }
  return new QLineEdit(parent);
}

void PropertyDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const {
  const QVariant value = index.data(Qt::EditRole);
  if (auto *list = qobject_cast<QComboBox *>(editor)) {
    list->setCurrentIndex(value.isValid() ? value.toInt() : -1);
  } else if (auto *line = qobject_cast<QLineEdit *>(editor)) {
    line->setText(value.toString());
  }
}

void PropertyDelegate::setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const {
  const auto *list = qobject_cast<QComboBox *>(editor);
  const auto *line = qobject_cast<QLineEdit *>(editor);
  const QVariant before = index.data(Qt::EditRole);
  const bool isChosen =
      list && list->currentIndex() >= 0 && (!before.isValid() || list->currentIndex() != before.toInt());
  if (isChosen) model->setData(index, list->currentIndex());
  if (line && line->isModified()) model->setData(index, line->text());
}

}  // namespace tessera::detail
