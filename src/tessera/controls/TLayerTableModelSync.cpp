// SPDX-License-Identifier: MIT
// How the table follows its layer.
#include <tessera/controls/TLayerTableModel.h>
#include <tessera/controls/detail/CellValues.h>
#include <tessera/controls/detail/LayerTableLink.h>
#include <tessera/controls/detail/RowChanges.h>

#include <QScopeGuard>

#include <algorithm>
#include <unordered_map>

namespace tessera {
namespace {

/// Views take a time for each run of rows that grows with their number.
constexpr std::size_t MostRuns = 100;

}  // namespace

void TLayerTableModel::SetLayer(TMapLayer *layer) {
  if (layer == GetLayer() && layer != nullptr) return Refresh();
  beginResetModel();
  m_layer = THandle<TMapLayer>(layer);
  FollowMap();
  m_columns = CurrentColumns();
  m_rows = CurrentRows();
  endResetModel();
}

void TLayerTableModel::FollowMap() {
  TMapLayer *layer = GetLayer();
  TTessera *map = layer ? layer->GetMap() : nullptr;
  if (map == m_map) return;
  if (m_map) m_map->disconnect(this);
  m_map = map;
  m_link->SetMap(map);
  if (map == nullptr) return;
  // What no link is told of: layers that go all together, or with their map.
  connect(map, &TTesseraEvents::OnBeforeDelLayer, this, [this] { RefreshLater(); });
  connect(map, &QObject::destroyed, this, [this] { RefreshLater(); });
}

void TLayerTableModel::Forget() {
  beginResetModel();
  m_layer = {};
  FollowMap();
  m_rows.clear();
  m_columns.clear();
  endResetModel();
}

void TLayerTableModel::MapEvent(TMapDataLinkEvent event, const TObject *sender) {
  const bool isOurLayer = sender == GetLayer();
  switch (event) {
    case mdlDelLayer:
      if (isOurLayer) Forget();
      break;
    case mdlLayerFieldsChanged:
      if (isOurLayer && !m_isChanging) SyncColumns();
      break;
    case mdlAddObject:
      if (isOurLayer) RefreshLater();
      break;
    case mdlRemoveObject:
    case mdlMoveObject:
      RefreshLater();
      break;
    case mdlObjectFieldsChanged:
      if (!m_isChanging) ObjectChanged(static_cast<const TCustomMapObject *>(sender));
      break;
    default:
      break;
  }
}

void TLayerTableModel::ObjectChanged(const TCustomMapObject *object) {
  if (object->GetObjectLayer() != GetLayer() || m_columns.empty()) return;
  const int row = RowOf(object);
  if (row >= 0) {
    Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1));
  } else {
    m_haveValuesChanged = true;
  }
}

void TLayerTableModel::TellOfAllValues() {
  if (m_rows.empty() || m_columns.empty()) return;
  Q_EMIT dataChanged(index(0, 0), index(rowCount() - 1, columnCount() - 1));
}

void TLayerTableModel::RefreshLater() {
  if (std::exchange(m_isRefreshDue, true)) return;
  QMetaObject::invokeMethod(this, &TLayerTableModel::Refresh, Qt::QueuedConnection);
}

void TLayerTableModel::Refresh() {
  m_isRefreshDue = false;
  if (GetLayer() == nullptr) {
    if (!m_rows.empty() || !m_columns.empty()) Forget();
    return;
  }
  FollowMap();
  SyncColumns();
  SyncRows();
  if (std::exchange(m_haveValuesChanged, false)) TellOfAllValues();
}

TLayerTableModel::Rows TLayerTableModel::CurrentRows() const {
  const TMapLayer *layer = GetLayer();
  Rows rows(layer ? std::size_t(layer->GetObjectCount()) : 0);
  for (std::size_t i = 0; i < rows.size(); ++i) rows[i] = layer->GetObjects(int(i));
  return rows;
}

TLayerTableModel::Columns TLayerTableModel::CurrentColumns() const {
  Columns columns;
  if (GetLayer() == nullptr) return columns;
  const TDataFields &fields = std::as_const(*GetLayer()).GetFields();
  for (int i = 0; i < fields.GetCount(); ++i) {
    const TDataFieldView field = fields.GetFields(i);
    if (field.GetVisible()) columns.push_back({i, field.GetName(), field.GetDataType(), field.GetSize()});
  }
  return columns;
}

void TLayerTableModel::SyncRows() {
  Rows rows = CurrentRows();
  if (rows != m_rows) ApplyRows(std::move(rows));
}

void TLayerTableModel::ApplyRows(Rows rows) {
  const detail::RowChanges changes = detail::FindRowChanges(m_rows, rows);
  if (changes.removed.size() + changes.inserted.size() > MostRuns) {
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
    return;
  }
  const auto done = qScopeGuard([this] { m_isApplying = false; });
  m_isApplying = true;
  for (const auto &[first, count] : changes.removed) {
    std::fill_n(m_rows.begin() + first, count, nullptr);
  }
  for (const auto &[first, count] : changes.removed) {
    beginRemoveRows({}, first, first + count - 1);
    m_rows.erase(m_rows.begin() + first, m_rows.begin() + first + count);
    endRemoveRows();
  }
  if (!changes.reordered.empty()) Reorder(changes.reordered);
  for (const auto &[first, count] : changes.inserted) {
    beginInsertRows({}, first, first + count - 1);
    m_rows.insert(m_rows.begin() + first, rows.begin() + first, rows.begin() + first + count);
    endInsertRows();
  }
}

void TLayerTableModel::Reorder(Rows rows) {
  Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
  m_rows.swap(rows);
  const QModelIndexList persistent = persistentIndexList();
  if (!persistent.isEmpty()) {
    std::unordered_map<const TCustomMapObject *, int> places;
    for (std::size_t i = 0; i < m_rows.size(); ++i) places.emplace(m_rows[i], int(i));
    for (const QModelIndex &before : persistent) {
      changePersistentIndex(before, index(places.at(rows[std::size_t(before.row())]), before.column()));
    }
  }
  Q_EMIT layoutChanged({}, VerticalSortHint);
}

void TLayerTableModel::SyncColumns() {
  Columns columns = CurrentColumns();
  if (columns == m_columns) return;
  // The first and the last columns of each are the same; those between went, came, or changed their definitions.
  const auto isSame = [](const detail::CellColumn &a, const detail::CellColumn &b) {
    return a.name == b.name && a.type == b.type && a.size == b.size;
  };
  const auto [oldMiddle, newMiddle] =
      std::mismatch(m_columns.begin(), m_columns.end(), columns.begin(), columns.end(), isSame);
  const int first = int(oldMiddle - m_columns.begin());
  const auto [oldEnd, newEnd] = std::mismatch(m_columns.rbegin(), std::make_reverse_iterator(oldMiddle),
                                              columns.rbegin(), std::make_reverse_iterator(newMiddle), isSame);
  const int gone = int(oldEnd.base() - oldMiddle);
  const int come = int(newEnd.base() - newMiddle);
  if (gone == come) {
    m_columns = std::move(columns);
    if (gone == 0) return;
    Q_EMIT headerDataChanged(Qt::Horizontal, first, first + gone - 1);
    TellOfAllValues();
    return;
  }
  Columns common = columns;
  common.erase(common.begin() + first, common.begin() + first + come);
  if (gone > 0) beginRemoveColumns({}, first, first + gone - 1);
  m_columns = std::move(common);
  if (gone > 0) endRemoveColumns();
  if (come > 0) beginInsertColumns({}, first, first + come - 1);
  m_columns = std::move(columns);
  if (come > 0) endInsertColumns();
}

}  // namespace tessera
