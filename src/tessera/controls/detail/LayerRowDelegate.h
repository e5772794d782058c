// SPDX-License-Identifier: MIT
#pragma once

#include <QStyledItemDelegate>

namespace tessera {
class TLayerControl;
}

namespace tessera::detail {

/// Draws the cells of a layer control: the name on the row's colours, and the switches as pictures or check boxes.
class LayerRowDelegate : public QStyledItemDelegate {
 public:
  /// A child of its control.
  explicit LayerRowDelegate(TLayerControl &control);

  void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override;
  [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
  /// Clicks are the control's.
  bool editorEvent(QEvent *event, QAbstractItemModel *model, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;

 private:
  void PaintName(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) const;
  void PaintSwitch(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) const;
  void PaintLines(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) const;
  void PaintFocus(QPainter &painter, const QStyleOptionViewItem &option, const QModelIndex &index) const;

  const TLayerControl &m_control;
};

inline constexpr int LayerRowHeightPx = 15;
inline constexpr int LayerSwitchWidthPx = 18;

}  // namespace tessera::detail
