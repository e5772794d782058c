// SPDX-License-Identifier: MIT
#include <tessera/base/GuardedCall.h>
#include <tessera/controls/LayerCtrl.h>
#include <tessera/controls/detail/LayerListModel.h>
#include <tessera/editing/TMapEdits.h>

#include <algorithm>

namespace tessera::detail {
namespace {

/// What one switch is, in words and as operations.
struct Switch {
  const char *name;
  const char *tipOn;
  const char *tipOff;
  bool (TMapLayer::*get)() const;
  void (TMapLayer::*set)(bool);
};

constexpr Switch Switches[] = {
    {QT_TRANSLATE_NOOP("tessera::TLayerControl", "Visible"),
     QT_TRANSLATE_NOOP("tessera::TLayerControl", "Visible; click to hide it"),
     QT_TRANSLATE_NOOP("tessera::TLayerControl", "Hidden; click to show it"), &TMapLayer::GetVisible,
     &TMapLayer::SetVisible},
    {QT_TRANSLATE_NOOP("tessera::TLayerControl", "Selectable"),
     QT_TRANSLATE_NOOP("tessera::TLayerControl", "Its objects can be selected; click to change that"),
     QT_TRANSLATE_NOOP("tessera::TLayerControl", "Its objects cannot be selected; click to change that"),
     &TMapLayer::GetSelectable, &TMapLayer::SetSelectable},
    {QT_TRANSLATE_NOOP("tessera::TLayerControl", "Editable"),
     QT_TRANSLATE_NOOP("tessera::TLayerControl", "It is being edited; click to end that"),
     QT_TRANSLATE_NOOP("tessera::TLayerControl", "Click to edit it"), &TMapLayer::GetEditable, &TMapLayer::SetEditable},
    {QT_TRANSLATE_NOOP("tessera::TLayerControl", "Labelled"),
     QT_TRANSLATE_NOOP("tessera::TLayerControl", "Its objects are labelled; click to take the labels away"),
     QT_TRANSLATE_NOOP("tessera::TLayerControl", "Click to label its objects"), &TMapLayer::GetAutoLabel,
     &TMapLayer::SetAutoLabel},
};

const Switch &SwitchOf(int column) {
  return Switches[column - LayerListModel::VisibleColumn];
}

QVariant NameData(const TMapLayer &layer, int role) {
  const bool isText = role == Qt::DisplayRole || role == Qt::AccessibleTextRole || role == Qt::ToolTipRole;
  return isText ? QVariant(layer.GetName()) : QVariant();
}

QVariant SwitchData(const TMapLayer &layer, LayerListModel::Column column, int role) {
  const bool isOn = LayerListModel::IsOn(layer, column);
  const Switch &its = SwitchOf(column);
  switch (role) {
    case Qt::CheckStateRole:
      return isOn ? Qt::Checked : Qt::Unchecked;
    case Qt::ToolTipRole:
    case Qt::AccessibleDescriptionRole:
      return TLayerControl::tr(isOn ? its.tipOn : its.tipOff);
    case Qt::AccessibleTextRole:
      return QStringLiteral("%1: %2").arg(layer.GetName(), TLayerControl::tr(its.name));
    default:
      return {};
  }
}

}  // namespace

void LayerListModel::SetMap(TTessera *map) {
  m_map = map;
  Sync();
}

TMapLayer *LayerListModel::LayerAt(int row) const {
  return row >= 0 && row < int(m_rows.size()) ? m_rows[std::size_t(row)].Get() : nullptr;
}

int LayerListModel::RowOf(const TObject *layer) const {
  const auto found =
      std::find_if(m_rows.begin(), m_rows.end(), [layer](const auto &row) { return row.Get() == layer; });
  return found == m_rows.end() ? -1 : int(found - m_rows.begin());
}

void LayerListModel::Sync() {
  const TMapLayers *layers = GetLayers();
  RemoveRowsNotIn(layers);
  if (layers == nullptr) return;
  InsertRowsOf(*layers);
  Reorder(*layers);
}

void LayerListModel::RemoveRowsNotIn(const TMapLayers *layers) {
  for (int row = int(m_rows.size()) - 1; row >= 0; --row) {
    const TMapLayer *layer = LayerAt(row);
    if (layer && layers && layers->IndexOf(layer) >= 0) continue;
    beginRemoveRows({}, row, row);
    m_rows.erase(m_rows.begin() + row);
    endRemoveRows();
  }
}

void LayerListModel::InsertRowsOf(const TMapLayers &layers) {
  for (int i = 0; i < layers.GetCount(); ++i) {
    if (RowOf(layers.GetLayer(i)) >= 0) continue;
    const int row = std::min(i, int(m_rows.size()));
    beginInsertRows({}, row, row);
    m_rows.emplace(m_rows.begin() + row, layers.GetLayer(i));
    endInsertRows();
  }
}

void LayerListModel::Reorder(const TMapLayers &layers) {
  Rows ordered;
  for (const auto &layer : layers.Items()) ordered.emplace_back(layer.get());
  const auto isSame = [](const auto &a, const auto &b) { return a.Get() == b.Get(); };
  if (std::equal(ordered.begin(), ordered.end(), m_rows.begin(), m_rows.end(), isSame)) return;
  Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
  m_rows.swap(ordered);
  for (const QModelIndex &before : persistentIndexList()) {
    const TMapLayer *layer = ordered[std::size_t(before.row())].Get();
    changePersistentIndex(before, index(RowOf(layer), before.column()));
  }
  Q_EMIT layoutChanged({}, VerticalSortHint);
}

void LayerListModel::NoteChange(const TObject *layer) {
  const int row = layer ? RowOf(layer) : -1;
  if (row < 0) return;
  // Cell by cell, because views redraw a little more than a range of cells.
  for (int column = NameColumn; column < ColumnCount; ++column) {
    Q_EMIT dataChanged(index(row, column), index(row, column));
  }
}

bool LayerListModel::IsOn(const TMapLayer &layer, Column column) {
  return (layer.*SwitchOf(column).get)();
}

void LayerListModel::Toggle(int row, Column column) {
  TMapLayer *layer = LayerAt(row);
  if (layer == nullptr) return;
  const Switch &its = SwitchOf(column);
  const QString text = TLayerControl::tr("change “%1” of %2").arg(TLayerControl::tr(its.name), layer->GetName());
  TMapEdits(m_map).ChangeLayers(text, [&] { (layer->*its.set)(!IsOn(*layer, column)); });
}

int LayerListModel::rowCount(const QModelIndex &parent) const {
  return parent.isValid() ? 0 : int(m_rows.size());
}

int LayerListModel::columnCount(const QModelIndex &parent) const {
  return parent.isValid() ? 0 : ColumnCount;
}

QVariant LayerListModel::data(const QModelIndex &index, int role) const {
  const TMapLayer *layer = LayerAt(index.row());
  if (layer == nullptr) return {};
  return index.column() == NameColumn ? NameData(*layer, role) : SwitchData(*layer, Column(index.column()), role);
}

QVariant LayerListModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole || orientation != Qt::Horizontal) {
    return QAbstractTableModel::headerData(section, orientation, role);
  }
  return section == NameColumn ? TLayerControl::tr("Layer") : TLayerControl::tr(SwitchOf(section).name);
}

bool LayerListModel::setData(const QModelIndex &index, const QVariant &value, int role) {
  const TMapLayer *layer = LayerAt(index.row());
  if (role != Qt::CheckStateRole || index.column() == NameColumn || layer == nullptr) return false;
  const auto column = Column(index.column());
  if (IsOn(*layer, column) != (value.toInt() == Qt::Checked)) GuardedCall([&] { Toggle(index.row(), column); });
  return true;
}

Qt::ItemFlags LayerListModel::flags(const QModelIndex &index) const {
  const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
  return !index.isValid() || index.column() == NameColumn ? flags : flags | Qt::ItemIsUserCheckable;
}

}  // namespace tessera::detail
