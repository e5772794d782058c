// SPDX-License-Identifier: MIT
#include <designer/FormItem.h>
#include <icons/ThemedIcon.h>

#include <QDesignerFormWindowInterface>
#include <QPainter>

namespace tessera::designer {
namespace {

constexpr QSize ItemSizePx(80, 52);
constexpr QRect IconPx(28, 4, 24, 24);
constexpr QRect LabelPx(2, 30, 76, 20);

}  // namespace

bool IsOnForm(QWidget *parent) {
  return QDesignerFormWindowInterface::findFormWindow(parent) != nullptr;
}

FormItemLook::FormItemLook(const Component &component) : m_icon(ThemedIcon(QString::fromLatin1(component.icon))) {}

void FormItemLook::Show(QWidget &item) {
  item.setFixedSize(ItemSizePx);
  QObject::connect(&item, &QObject::objectNameChanged, &item, qOverload<>(&QWidget::update));
  item.show();
}

void FormItemLook::Paint(QWidget &item) const {
  QPainter painter(&item);
  painter.setPen(item.palette().color(QPalette::Mid));
  painter.drawRect(item.rect().adjusted(0, 0, -1, -1));
  m_icon.paint(&painter, IconPx);
  painter.setPen(item.palette().color(QPalette::WindowText));
  const QString name = item.fontMetrics().elidedText(item.objectName(), Qt::ElideMiddle, LabelPx.width());
  painter.drawText(LabelPx, Qt::AlignCenter, name);
}

}  // namespace tessera::designer
