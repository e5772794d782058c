// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/controls/detail/ObjectRows.h>

#include <QAbstractTableModel>

#include <optional>

namespace tessera::detail {

/// The properties of objects as a table of names and values. A value that is not the same for all is shown as such.
class ObjectPropertiesModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  enum Column { NameColumn, ValueColumn, ColumnCount };
  /// Of the values: the choices of a Choice; whether the objects differ; whether it is a colour.
  enum Role { ChoicesRole = Qt::UserRole, IsMixedRole, IsColorRole };

  using QAbstractTableModel::QAbstractTableModel;

  /// Shows objects. The rows stay where they are if they are the same as before. Of more than 10000 objects the values
  /// are not compared: they count as different.
  void Show(std::span<TCustomMapObject *const> objects, bool canChange);

  /// How numbers and dates are shown and read; at first the default QLocale.
  [[nodiscard]] const QLocale &GetLocale() const { return m_locale; }
  void SetLocale(const QLocale &locale) { m_locale = locale; }

  int rowCount(const QModelIndex &parent = {}) const override;
  int columnCount(const QModelIndex &parent = {}) const override;
  QVariant data(const QModelIndex &index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  /// Gives all objects a value, as one step that can be undone. False for what is no value.
  bool setData(const QModelIndex &index, const QVariant &value, int role) override;
  Qt::ItemFlags flags(const QModelIndex &index) const override;

 private:
  /// Of a row; none where the objects differ.
  using Value = std::optional<QVariant>;

  [[nodiscard]] std::vector<TCustomMapObject *> ObjectsThere() const;
  void Read(std::span<TCustomMapObject *const> objects);
  void TellOfValues();
  [[nodiscard]] QString TextOf(int row) const;

  std::vector<THandle<TCustomMapObject>> m_objects;
  std::vector<ObjectRow> m_rows;
  std::vector<Value> m_values;
  QLocale m_locale;
  bool m_canChange = false;
};

}  // namespace tessera::detail
