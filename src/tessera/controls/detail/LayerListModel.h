// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/THandle.h>
#include <tessera/layers/TMapLayer.h>
#include <tessera/map/TTessera.h>

#include <QAbstractTableModel>
#include <QPointer>

#include <vector>

namespace tessera::detail {

/// The layers of a map as rows, in their order: the name, then the four switches. It knows the map's layers as they
/// were at the last Sync; a layer that has gone since is an empty row.
class LayerListModel : public QAbstractTableModel {
 public:
  enum Column { NameColumn, VisibleColumn, SelectableColumn, EditableColumn, AutoLabelColumn, ColumnCount };

  using QAbstractTableModel::QAbstractTableModel;

  /// Shows another map; none when null. It may go at any time.
  void SetMap(TTessera *map);
  [[nodiscard]] TTessera *GetMap() const { return m_map; }
  /// The layers of the map; none without a map.
  [[nodiscard]] TMapLayers *GetLayers() const { return m_map ? m_map->GetLayers() : nullptr; }
  /// The layer of a row; none when it has gone, or outside the rows.
  [[nodiscard]] TMapLayer *LayerAt(int row) const;
  /// Adds, removes and reorders rows so that they are the map's layers.
  void Sync();
  /// Tells views that a layer's row has changed.
  void NoteChange(const TObject *layer);
  /// Turns a switch of a layer the other way, by the layer's own rules.
  void Toggle(int row, Column column);
  [[nodiscard]] static bool IsOn(const TMapLayer &layer, Column column);

  [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex &index, int role) const override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  bool setData(const QModelIndex &index, const QVariant &value, int role) override;
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;

 private:
  using Rows = std::vector<THandle<TMapLayer>>;
  [[nodiscard]] int RowOf(const TObject *layer) const;
  void RemoveRowsNotIn(const TMapLayers *layers);
  void InsertRowsOf(const TMapLayers &layers);
  void Reorder(const TMapLayers &layers);

  QPointer<TTessera> m_map;
  Rows m_rows;
};

}  // namespace tessera::detail
