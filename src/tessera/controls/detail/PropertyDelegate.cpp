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

void PropertyDelegate::Show(QWidget &editor, const QModelIndex &index) const {
  const QVariant value = index.data(Qt::EditRole);
  if (auto *list = qobject_cast<QComboBox *>(&editor)) {
    list->setCurrentIndex(value.isValid() ? value.toInt() : -1);
  } else if (auto *line = qobject_cast<QLineEdit *>(&editor)) {
    line->setText(value.toString());
  }
}

QVariant PropertyDelegate::ShownBy(const QWidget &editor) const {
  if (const auto *list = qobject_cast<const QComboBox *>(&editor)) return list->currentIndex();
  // Where objects differ an empty line is shown, and one that was emptied is another value.
  const auto *line = qobject_cast<const QLineEdit *>(&editor);
  return line && line->isModified() ? line->text() : QVariant();
}

}  // namespace tessera::detail
