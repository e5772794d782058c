// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/THandle.h>
#include <tessera/map/TTessera.h>

#include <QAbstractTableModel>
#include <QPointer>

#include <memory>
#include <vector>

namespace tessera {

namespace detail {
class LayerTableLink;
struct CellColumn;
}  // namespace detail

/// The attributes of a layer's objects as a table for any view of Qt: a row for each object, in the layer's order, a
/// column for each visible field. Values are read when they are shown, so that a layer of a million objects costs the
/// model a pointer for each of them.
///
/// It follows the layer by what the map tells: values and columns that change at once, objects that come, go or move
/// when control is back in the event loop; until then a row that is out of date is empty. Only when objects come or go
/// in very many places at once is the model reset. Refresh does the same at once, and serves a layer that is on no map.
/// Layer, map and model may go in any order.
class TESSERA_WIDGETS_EXPORT TLayerTableModel : public QAbstractTableModel {
  Q_OBJECT
  Q_PROPERTY(bool ReadOnly READ GetReadOnly WRITE SetReadOnly)

 public:
  /// What data answers beside the roles of Qt. The value itself, under Qt::EditRole, is an int, a double, a bool, a
  /// QDate, QTime, QDateTime or a QString; nothing when it is unassigned, and a QString when it does not fit its
  /// column.
  enum Role {
    TextRole =
        Qt::UserRole,  ///< the value as text of the model's locale, also of the columns that views show as check boxes
    SortRole,          ///< a number, or a text in a column of texts
    NeutralRole,       ///< the value as text that does not depend on the locale
    TypeRole,          ///< a TDataType as int; of every cell and of the header
    SizeRole           ///< of a column of texts: characters
  };
  Q_ENUM(Role)

  explicit TLayerTableModel(QObject *parent = nullptr);
  ~TLayerTableModel() override;

  /// None before one is set, and after it is gone.
  [[nodiscard]] TMapLayer *GetLayer() const { return m_layer.Get(); }
  void SetLayer(TMapLayer *layer);
  /// Whether values and columns can be changed through the model. False at first.
  [[nodiscard]] bool GetReadOnly() const { return m_isReadOnly; }
  void SetReadOnly(bool readOnly);
  /// How numbers and dates are shown and read, whatever the process's number format is; at first the default QLocale.
  [[nodiscard]] const QLocale &GetLocale() const { return m_locale; }
  void SetLocale(const QLocale &locale);

  /// The object of a row; none when the row is out of date, or there is none.
  [[nodiscard]] TCustomMapObject *ObjectAt(int row) const;
  /// The row of an object; -1 when it is not in the layer, or has no row yet.
  [[nodiscard]] int RowOf(const TCustomMapObject *object) const;
  /// The column of a field of the layer; -1 when it is not visible, or there is none.
  [[nodiscard]] int ColumnOf(int field) const;
  /// The first column of that name; -1 when there is none.
  [[nodiscard]] int ColumnNamed(const QString &name) const;
  /// Reads objects and columns anew and tells views of the difference.
  void Refresh();
  /// Whether objects have come, gone or moved since the last Refresh, as far as the map has told.
  [[nodiscard]] bool GetIsRefreshDue() const { return m_isRefreshDue; }

  /// Appends a column to the layer and to its objects. A text column of size 0 gets size 255. False, after OnRefused,
  /// when the name is blank or there already, letter case aside, or without a layer.
  bool AddColumn(const QString &name, TDataType type, int size);
  /// Takes a column, with its values, from the layer and its objects. False when there is no such column.
  bool RemoveColumn(int column);
  /// Gives a column another name, under the conditions of AddColumn.
  bool RenameColumn(int column, const QString &name);

  [[nodiscard]] int rowCount(const QModelIndex &parent = {}) const override;
  [[nodiscard]] int columnCount(const QModelIndex &parent = {}) const override;
  [[nodiscard]] QVariant data(const QModelIndex &index, int role = Qt::DisplayRole) const override;
  /// Takes what EditRole answers, or a text that stands for it; no value at all unassigns. What is no value of the
  /// column is refused: OnRefused says why, and the old value stays. What handlers throw ends in the message sink.
  bool setData(const QModelIndex &index, const QVariant &value, int role = Qt::EditRole) override;
  [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  [[nodiscard]] Qt::ItemFlags flags(const QModelIndex &index) const override;

 Q_SIGNALS:
  /// An input was refused; the message says why, for the person who has made it.
  void OnRefused(const QString &message);

 private:
  friend class detail::LayerTableLink;
  using Rows = std::vector<TCustomMapObject *>;
  using Columns = std::vector<detail::CellColumn>;

  void MapEvent(TMapDataLinkEvent event, const TObject *sender);
  void ObjectChanged(const TCustomMapObject *object);
  void RefreshLater();
  void Forget();
  [[nodiscard]] Rows CurrentRows() const;
  [[nodiscard]] Columns CurrentColumns() const;
  void FollowMap();
  void SyncRows();
  void ApplyRows(Rows rows);
  void Reorder(Rows rows);
  void SyncColumns();
  [[nodiscard]] QVariant ValueData(const TDataFieldView &field, const detail::CellColumn &column, int role) const;
  bool SetValue(const QModelIndex &index, const TDataValue &value);
  bool Refuse(const QString &message);
  [[nodiscard]] QString WhyNoName(const QString &name, int ownField) const;
  template <typename Change>
  bool ChangeColumns(Change change);
  void TellOfAllValues();

  THandle<TMapLayer> m_layer;
  QPointer<TTessera> m_map;
  std::unique_ptr<detail::LayerTableLink> m_link;
  /// The objects by their addresses, which are looked at only when they stand in the layer at the same place. None for
  /// those that are gone while views are being told so.
  Rows m_rows;
  Columns m_columns;
  QLocale m_locale;
  bool m_isReadOnly = false;
  bool m_isRefreshDue = false;
  bool m_haveValuesChanged = false;  ///< of rows that were out of date
  bool m_isApplying = false;         ///< changes of rows, and telling views of each
  bool m_isChanging = false;         ///< itself; what the map tells of single values meanwhile is passed over
};

}  // namespace tessera
