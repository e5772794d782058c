// SPDX-License-Identifier: MIT
#include <tessera/base/detail/DateTimes.h>
#include <tessera/controls/TLayerTableModel.h>
#include <tessera/controls/detail/CellDelegate.h>
#include <tessera/controls/detail/CellValues.h>

#include <QDateTimeEdit>
#include <QLineEdit>

namespace tessera::detail {
namespace {

TDataType TypeOf(const QModelIndex &index) {
  return TDataType(index.data(TLayerTableModel::TypeRole).toInt());
}

QDateTimeEdit *MakeMomentEditor(TDataType type, QWidget *parent) {
  QDateTimeEdit *editor = nullptr;
  const QString dateFormat = DateFormat(parent->locale());
  const QString timeFormat = QStringLiteral("HH:mm:ss");
  if (type == TDataType::dtTime) {
    editor = new QTimeEdit(parent);
    editor->setDisplayFormat(timeFormat);
    return editor;
  }
  editor = type == TDataType::dtDate ? new QDateEdit(parent) : new QDateTimeEdit(parent);
  editor->setDisplayFormat(type == TDataType::dtDate ? dateFormat : dateFormat + u' ' + timeFormat);
  editor->setCalendarPopup(true);
  editor->setMinimumDate(QDate(100, 1, 1));
  return editor;
}

QLineEdit *MakeLineEditor(const QModelIndex &index, QWidget *parent) {
  const TDataType type = TypeOf(index);
  auto *editor = new QLineEdit(parent);
  editor->setFrame(false);
  if (IsNumber(type)) editor->setAlignment(Qt::AlignRight);
  if (IsInteger(type)) {
    const IntegerRange range = RangeOf(type);
    editor->setPlaceholderText(QStringLiteral("%1 … %2").arg(range.low).arg(range.high));
    editor->setToolTip(editor->placeholderText());
  }
  const int size = index.data(TLayerTableModel::SizeRole).toInt();
  if (type == TDataType::dtString && size > 0) editor->setMaxLength(size);
  return editor;
}

void ShowMoment(QDateTimeEdit &editor, const QVariant &value) {
  if (value.typeId() == QMetaType::QTime) {
    editor.setTime(value.toTime());
  } else if (value.typeId() == QMetaType::QDate || value.typeId() == QMetaType::QDateTime) {
    editor.setDateTime(value.toDateTime());
  } else {
    editor.setDateTime(QDateTime(QDate::currentDate(), QTime(0, 0)));
  }
}

}  // namespace

QWidget *CellDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem & /*option*/,
                                    const QModelIndex &index) const {
  switch (TypeOf(index)) {
    case TDataType::dtDate:
    case TDataType::dtTime:
    case TDataType::dtDateTime:
      return MakeMomentEditor(TypeOf(index), parent);
    default:
      return MakeLineEditor(index, parent);
  }
}

void CellDelegate::Show(QWidget &editor, const QModelIndex &index) const {
  if (auto *line = qobject_cast<QLineEdit *>(&editor)) {
    line->setText(index.data(TLayerTableModel::TextRole).toString());
  } else {
    ShowMoment(static_cast<QDateTimeEdit &>(editor), index.data(Qt::EditRole));
  }
}

QVariant CellDelegate::ShownBy(const QWidget &editor) const {
  if (const auto *line = qobject_cast<const QLineEdit *>(&editor)) return line->text();
  const auto &moment = static_cast<const QDateTimeEdit &>(editor);
  if (qobject_cast<const QTimeEdit *>(&editor)) return moment.time();
  return qobject_cast<const QDateEdit *>(&editor) ? QVariant(moment.date()) : QVariant(moment.dateTime());
}

}  // namespace tessera::detail
