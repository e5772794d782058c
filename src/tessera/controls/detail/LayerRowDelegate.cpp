// SPDX-License-Identifier: MIT
#include <tessera/controls/LayerCtrl.h>
#include <tessera/controls/detail/LayerIndicators.h>
#include <tessera/controls/detail/LayerListModel.h>
#include <tessera/controls/detail/LayerRowDelegate.h>

#include <QPainter>
#include <QStyle>

namespace tessera::detail {
namespace {

using Model = LayerListModel;

QPalette::ColorGroup GroupOf(const QStyleOptionViewItem &option) {
  if (!option.state.testFlag(QStyle::State_Enabled)) return QPalette::Disabled;
  return option.state.testFlag(QStyle::State_Active) ? QPalette::Active : QPalette::Inactive;
}

/// The number of the picture that shows the switch when it is on.
int IndicatorOf(int column) {
  switch (column) {
    case Model::VisibleColumn:
      return 0;
    case Model::EditableColumn:
      return 2;
    case Model::SelectableColumn:
      return 4;
    default:
      return 6;
  }
}

/// Whether a check box is drawn as one that cannot be turned.
bool IsInactive(const TMapLayer &layer, int column) {
  if (column == Model::SelectableColumn) return layer.GetEditable() || !layer.GetVisible();
  return column == Model::EditableColumn && !layer.GetVisible();
}

void PaintCheckBox(QPainter &painter, const QWidget &control, const QRect &rect, const TMapLayer &layer, int column) {
  QStyleOptionButton button;
  button.initFrom(&control);
  button.rect = rect;
  const bool isOn = Model::IsOn(layer, Model::Column(column));
  button.state.setFlag(QStyle::State_On, isOn).setFlag(QStyle::State_Off, !isOn);
  button.state.setFlag(QStyle::State_Enabled,
                       button.state.testFlag(QStyle::State_Enabled) && !IsInactive(layer, column));
  button.state.setFlag(QStyle::State_HasFocus, false);
  const bool isRadio = column == Model::EditableColumn;
  control.style()->drawPrimitive(isRadio ? QStyle::PE_IndicatorRadioButton : QStyle::PE_IndicatorCheckBox, &button,
                                 &painter, &control);
}

}  // namespace

LayerRowDelegate::LayerRowDelegate(TLayerControl &control) : QStyledItemDelegate(&control), m_control(control) {}

QSize LayerRowDelegate::sizeHint(const QStyleOptionViewItem & /*option*/, const QModelIndex &index) const {
  return {index.column() == Model::NameColumn ? 0 : LayerSwitchWidthPx, LayerRowHeightPx};
}

bool LayerRowDelegate::editorEvent(QEvent * /*event*/, QAbstractItemModel * /*model*/,
                                   const QStyleOptionViewItem & /*option*/, const QModelIndex & /*index*/) {
  return false;
}

void LayerRowDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const {
  painter->save();
  painter->setClipRect(option.rect);
  if (index.column() == Model::NameColumn) {
    PaintName(*painter, option, index);
  } else {
    PaintSwitch(*painter, option, index);
  }
  PaintLines(*painter, option, index);
  PaintFocus(*painter, option, index);
  painter->restore();
}

void LayerRowDelegate::PaintName(QPainter &painter, const QStyleOptionViewItem &option,
                                 const QModelIndex &index) const {
  const QRect rect = m_control.GetNameRect(index.row());
  const bool isSelected = option.state.testFlag(QStyle::State_Selected);
  const QPalette::ColorGroup group = GroupOf(option);
  painter.fillRect(rect, option.palette.brush(group, isSelected ? QPalette::Highlight : QPalette::Base));
  painter.setPen(option.palette.color(group, isSelected ? QPalette::HighlightedText : QPalette::Text));
  painter.setFont(m_control.font());
  painter.save();
  painter.setClipRect(rect, Qt::IntersectClip);
  painter.drawText(rect.adjusted(1, 1, 0, 0), Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine,
                   index.data().toString());
  painter.restore();
}

void LayerRowDelegate::PaintSwitch(QPainter &painter, const QStyleOptionViewItem &option,
                                   const QModelIndex &index) const {
  const TMapLayer *layer = static_cast<const Model *>(index.model())->LayerAt(index.row());
  if (layer == nullptr) return;
  const QPalette::ColorGroup group = GroupOf(option);
  painter.fillRect(option.rect, option.palette.brush(group, QPalette::Base));
  // Two pixels on the left and right, one at top and bottom.
  const QRect rect = option.rect.adjusted(2, 1, -2, -1);
  if (m_control.GetGlyphs()) {
    const bool isOn = Model::IsOn(*layer, Model::Column(index.column()));
    PaintLayerIndicator(painter, rect.topLeft(), IndicatorOf(index.column()) + (isOn ? 0 : 1),
                        option.palette.color(group, QPalette::Text));
  } else {
    PaintCheckBox(painter, m_control, rect, *layer, index.column());
  }
}

void LayerRowDelegate::PaintLines(QPainter &painter, const QStyleOptionViewItem &option,
                                  const QModelIndex &index) const {
  const QRect rect = option.rect;
  const QBrush brush = option.palette.brush(QPalette::Mid);
  if (m_control.GetDrawHorzLines()) painter.fillRect(QRect(rect.left(), rect.bottom(), rect.width(), 1), brush);
  if (m_control.GetDrawVertLines() && index.column() != Model::NameColumn) {
    painter.fillRect(QRect(rect.left(), rect.top(), 1, rect.height()), brush);
  }
}

void LayerRowDelegate::PaintFocus(QPainter &painter, const QStyleOptionViewItem &option,
                                  const QModelIndex &index) const {
  const QModelIndex current = m_control.currentIndex();
  if (!m_control.hasFocus() || current.row() != index.row()) return;
  QStyleOptionFocusRect focus;
  focus.initFrom(&m_control);
  focus.backgroundColor = option.palette.color(QPalette::Base);
  focus.rect = m_control.GetItemRect(index.row());
  m_control.style()->drawPrimitive(QStyle::PE_FrameFocusRect, &focus, &painter, &m_control);
  // The switch that Space would turn.
  if (current.column() != index.column() || index.column() == Model::NameColumn) return;
  painter.setPen(option.palette.color(QPalette::Highlight));
  painter.setBrush(Qt::NoBrush);
  painter.drawRect(option.rect.adjusted(1, 0, -2, -2));
}

}  // namespace tessera::detail
