// SPDX-License-Identifier: MIT
#include <tessera/controls/TLayerTableModel.h>
#include <tessera/controls/detail/RowFilter.h>

#include <utility>

namespace tessera::detail {

void RowFilter::SetFilter(const QString &text) {
  if (text == m_filter) return;
  m_filter = text;
  invalidateFilter();
}

void RowFilter::KeepRowsEditedIn(QAbstractItemView &view) {
  m_view = &view;
  // The view itself closes the editor, or opens the next one, when it hears of this.
  connect(view.itemDelegate(), &QAbstractItemDelegate::closeEditor, this, &RowFilter::LetKeptRowsGo,
          Qt::QueuedConnection);
}

bool RowFilter::IsEdited() const {
  // Any editor counts here, however it came to be open.
  return m_view && m_view->isPersistentEditorOpen(m_view->currentIndex());
}

void RowFilter::LetKeptRowsGo() {
  if (IsEdited() || !std::exchange(m_keepsRows, false)) return;
  invalidateFilter();
}

bool RowFilter::filterAcceptsRow(int row, const QModelIndex &parent) const {
  if (m_filter.isEmpty() || HasText(row, parent)) return true;
  if (!IsEdited()) return false;
  m_keepsRows = true;
  return true;
}

bool RowFilter::HasText(int row, const QModelIndex &parent) const {
  const QAbstractItemModel &table = *sourceModel();
  for (int column = 0; column < table.columnCount(parent); ++column) {
    const QString text = table.index(row, column, parent).data(TLayerTableModel::TextRole).toString();
    if (text.contains(m_filter, Qt::CaseInsensitive)) return true;
  }
  return false;
}

RowFilter::Key RowFilter::KeyOf(const QModelIndex &index) const {
  const QVariant value = index.data(TLayerTableModel::SortRole);
  if (!value.isValid()) return {};
  if (value.typeId() == QMetaType::QString) return {true, 0, m_collator.sortKey(value.toString().toCaseFolded())};
  return {true, value.toDouble(), {}};
}

bool RowFilter::IsLess(const Key &left, const Key &right) {
  if (!left.isSet || !right.isSet) return left.isSet && !right.isSet;
  return left.text && right.text ? *left.text < *right.text : left.number < right.number;
}

bool RowFilter::lessThan(const QModelIndex &left, const QModelIndex &right) const {
  if (m_keys.empty()) return IsLess(KeyOf(left), KeyOf(right));
  return IsLess(m_keys[std::size_t(left.row())], m_keys[std::size_t(right.row())]);
}

void RowFilter::sort(int column, Qt::SortOrder order) {
  const QAbstractItemModel *table = sourceModel();
  if (table && column >= 0 && column < table->columnCount()) {
    m_keys.reserve(std::size_t(table->rowCount()));
    for (int row = 0; row < table->rowCount(); ++row) m_keys.push_back(KeyOf(table->index(row, column)));
  }
  QSortFilterProxyModel::sort(column, order);
  m_keys = {};
}

}  // namespace tessera::detail
