// SPDX-License-Identifier: MIT
#include <tessera/base/GuardedCall.h>
#include <tessera/controls/detail/SelectionInStep.h>
#include <tessera/map/SelectionChange.h>

#include <algorithm>

namespace tessera::detail {

SelectionInStep::SelectionInStep(QAbstractItemView &view, RowFilter &filter, TLayerTableModel &model)
    : QObject(&view), m_view(view), m_filter(filter), m_model(model) {
  connect(view.selectionModel(), &QItemSelectionModel::selectionChanged, this,
          [this](const auto &selected, const auto &deselected) { Push(selected, deselected); });
  // Rows of objects that are selected already.
  connect(&model, &QAbstractItemModel::modelReset, this, &SelectionInStep::PullLater);
  connect(&model, &QAbstractItemModel::rowsInserted, this, &SelectionInStep::PullLater);
}

std::vector<int> SelectionInStep::RowsOf(const QItemSelection &selection) {
  std::vector<int> rows;
  for (const QItemSelectionRange &range : selection) {
    for (int row = range.top(); row <= range.bottom(); ++row) rows.push_back(row);
  }
  std::sort(rows.begin(), rows.end());
  rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
  return rows;
}

TCustomMapObject *SelectionInStep::ObjectAt(int row) const {
  return m_model.ObjectAt(m_filter.mapToSource(m_filter.index(row, 0)).row());
}

void SelectionInStep::Push(const QItemSelection &selected, const QItemSelection &deselected) {
  const TMapLayer *layer = m_model.GetLayer();
  TTessera *map = layer && !m_isPulling ? layer->GetMap() : nullptr;
  if (map == nullptr) return;
  TObjectHandles come;
  TObjectHandles gone;
  const std::vector<int> held = RowsOf(m_view.selectionModel()->selection());
  for (const int row : RowsOf(deselected)) {
    if (!std::binary_search(held.begin(), held.end(), row)) gone.emplace_back(ObjectAt(row));
  }
  for (const int row : RowsOf(selected)) come.emplace_back(ObjectAt(row));
  const QPointer<SelectionInStep> self = this;
  m_isPushing = true;
  GuardedCall([&] { ChangeSelection(*map, gone, come); });
  if (self) m_isPushing = false;
}

void SelectionInStep::PullLater() {
  if (m_isPushing || std::exchange(m_isPullDue, true)) return;
  QMetaObject::invokeMethod(
      this, [this] { Pull(); }, Qt::QueuedConnection);
}

std::vector<int> SelectionInStep::SelectedOnMap() const {
  const TMapLayer *layer = m_model.GetLayer();
  TTessera *map = layer ? layer->GetMap() : nullptr;
  std::vector<int> rows;
  if (map == nullptr) return rows;
  for (const TCustomMapObject *object : map->GetSelection()->Items()) {
    const int row = m_model.RowOf(object);
    const QModelIndex shown = m_filter.mapFromSource(m_model.index(row, 0));
    if (row >= 0 && shown.isValid()) rows.push_back(shown.row());
  }
  std::sort(rows.begin(), rows.end());
  return rows;
}

void SelectionInStep::Pull() {
  m_isPullDue = false;
  if (m_model.GetIsRefreshDue()) m_model.Refresh();
  const std::vector<int> rows = SelectedOnMap();
  if (rows == RowsOf(m_view.selectionModel()->selection())) return;
  QItemSelection selection;
  const int last = m_filter.columnCount() - 1;
  for (std::size_t first = 0; first < rows.size();) {
    std::size_t end = first + 1;
    while (end < rows.size() && rows[end] == rows[end - 1] + 1) ++end;
    selection.append({m_filter.index(rows[first], 0), m_filter.index(rows[end - 1], last)});
    first = end;
  }
  m_isPulling = true;
  m_view.selectionModel()->select(selection, QItemSelectionModel::ClearAndSelect);
  m_isPulling = false;
  if (!rows.empty()) m_view.scrollTo(m_filter.index(rows.front(), std::max(0, m_view.currentIndex().column())));
}

}  // namespace tessera::detail
