// SPDX-License-Identifier: MIT
// What mouse and keys do to the layers. Handlers of the map may do anything, also destroy the control: nothing of it is
// used after they ran.
#include <tessera/base/GuardedCall.h>
#include <tessera/controls/LayerCtrl.h>
#include <tessera/controls/detail/LayerListModel.h>
#include <tessera/editing/TMapEdits.h>

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>

namespace tessera {

using Model = detail::LayerListModel;

void TLayerControl::mousePressEvent(QMouseEvent *event) {
  QTableView::mousePressEvent(event);
  Pressed(*event);
}

void TLayerControl::mouseDoubleClickEvent(QMouseEvent *event) {
  QTableView::mouseDoubleClickEvent(event);
  // The second press of a double click is a press like the first.
  Pressed(*event);
}

void TLayerControl::Pressed(const QMouseEvent &event) {
  EndDrag();
  m_dragged = {};
  const QPoint at = event.position().toPoint();
  const int row = rowAt(at.y());
  if (m_model->GetMap() == nullptr || row < 0) return;
  for (const auto column :
       {Model::VisibleColumn, Model::SelectableColumn, Model::EditableColumn, Model::AutoLabelColumn}) {
    if (!GetColumnRect(row, column).contains(at)) continue;
    GuardedCall([&] { m_model->Toggle(row, column); });
    return;
  }
  if (!GetNameRect(row).contains(at)) return;
  m_currentIndex = row;
  if (event.button() != Qt::LeftButton) return;
  m_pressedAt = at;
  m_dragged = THandle<TMapLayer>(m_model->LayerAt(row));
}

void TLayerControl::mouseMoveEvent(QMouseEvent *event) {
  if (!m_dragged || !event->buttons().testFlag(Qt::LeftButton)) {
    m_dragged = {};
    EndDrag();
    // A press on a switch is no beginning of a selection by dragging.
    if (event->buttons() == Qt::NoButton) QTableView::mouseMoveEvent(event);
    return;
  }
  const QPoint at = event->position().toPoint();
  if (m_dropGap < 0 && (at - m_pressedAt).manhattanLength() < QApplication::startDragDistance()) return;
  const int row = rowAt(at.y());
  if (row >= 0) scrollTo(m_model->index(row, Model::NameColumn));
  const bool isBelowAll = row < 0 && at.y() > 0;
  const bool isLowerHalf = row >= 0 && at.y() > GetItemRect(row).center().y();
  SetDropGap(isBelowAll ? m_model->rowCount() : std::max(0, row) + (isLowerHalf ? 1 : 0));
}

void TLayerControl::mouseReleaseEvent(QMouseEvent *event) {
  QTableView::mouseReleaseEvent(event);
  const int gap = m_dropGap;
  EndDrag();
  const TMapLayer *layer = std::exchange(m_dragged, {}).Get();
  const TMapLayers *layers = m_model->GetLayers();
  const int from = layers && layer ? layers->IndexOf(layer) : -1;
  if (gap >= 0 && from >= 0) MoveLayer(layer, gap > from ? gap - 1 : gap);
}

void TLayerControl::MoveLayer(const TMapLayer *layer, int newIndex) {
  const TMapLayers *layers = m_model->GetLayers();
  const int from = layers && layer ? layers->IndexOf(layer) : -1;
  if (from < 0 || newIndex == from || newIndex < 0 || newIndex >= layers->GetCount()) return;
  GuardedCall([&] { TMapEdits(m_model->GetMap()).MoveLayer(from, newIndex); });
}

QRect TLayerControl::GetDropMark() const {
  constexpr int HeightPx = 3;
  if (m_dropGap < 0 || m_model->rowCount() == 0) return {};
  const int last = m_model->rowCount() - 1;
  const int y = m_dropGap > last ? GetItemRect(last).bottom() + 1 : GetItemRect(m_dropGap).top();
  return {0, std::max(0, y - HeightPx / 2), viewport()->width(), HeightPx};
}

void TLayerControl::SetDropGap(int gap) {
  if (gap == m_dropGap) return;
  viewport()->update(GetDropMark());
  m_dropGap = gap;
  viewport()->update(GetDropMark());
}

void TLayerControl::EndDrag() {
  SetDropGap(-1);
}

void TLayerControl::paintEvent(QPaintEvent *event) {
  QTableView::paintEvent(event);
  if (m_dropGap < 0) return;
  QPainter painter(viewport());
  painter.fillRect(GetDropMark(), palette().brush(QPalette::Highlight));
}

bool TLayerControl::ToggleCurrent() {
  const QModelIndex current = currentIndex();
  if (current.column() <= Model::NameColumn) return false;
  GuardedCall([&] { m_model->Toggle(current.row(), Model::Column(current.column())); });
  return true;
}

void TLayerControl::DeleteCurrent() {
  const TMapLayers *layers = m_model->GetLayers();
  const int index = GetItemIndex();
  if (layers && index >= 0 && index < layers->GetCount())
    GuardedCall([&] { TMapEdits(m_model->GetMap()).DeleteLayer(index); });
}

void TLayerControl::keyPressEvent(QKeyEvent *event) {
  const bool isMove = event->modifiers() == Qt::ControlModifier;
  if (event->key() == Qt::Key_Escape && m_dropGap >= 0) {
    m_dragged = {};
    EndDrag();
  } else if (isMove && (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down)) {
    MoveLayer(GetCurrentLayer(), GetItemIndex() + (event->key() == Qt::Key_Up ? -1 : 1));
  } else if (event->key() == Qt::Key_Space || event->key() == Qt::Key_Select) {
    if (!ToggleCurrent()) event->ignore();
  } else {
    QTableView::keyPressEvent(event);
    if (event->key() == Qt::Key_Delete) DeleteCurrent();
  }
}

}  // namespace tessera
