// SPDX-License-Identifier: MIT
#pragma once

#include <QAbstractItemView>
#include <QCollator>
#include <QPointer>
#include <QSortFilterProxyModel>

#include <optional>
#include <vector>

namespace tessera::detail {

/// Orders and filters the rows of a layer's table for a view; the layer's order stays. Unassigned values come last, and
/// texts are ordered as the locale has it, letter case aside.
class RowFilter : public QSortFilterProxyModel {
 public:
  using QSortFilterProxyModel::QSortFilterProxyModel;

  /// Shows only rows with this text in some cell, letter case aside; all rows when it is empty.
  void SetFilter(const QString &text);
  [[nodiscard]] const QString &GetFilter() const { return m_filter; }
  /// While a cell is edited in this view, rows that come to lack the text stay, and go when the editing is over.
  void KeepRowsEditedIn(QAbstractItemView &view);
  void sort(int column, Qt::SortOrder order = Qt::AscendingOrder) override;

 protected:
  [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex &parent) const override;
  [[nodiscard]] bool lessThan(const QModelIndex &left, const QModelIndex &right) const override;

 private:
  /// What a cell is compared by.
  struct Key {
    bool isSet = false;
    double number = 0;
    std::optional<QCollatorSortKey> text;
  };
  [[nodiscard]] Key KeyOf(const QModelIndex &index) const;
  [[nodiscard]] static bool IsLess(const Key &left, const Key &right);
  [[nodiscard]] bool HasText(int row, const QModelIndex &parent) const;
  [[nodiscard]] bool IsEdited() const;
  void LetKeptRowsGo();

  QString m_filter;
  QPointer<QAbstractItemView> m_view;
  mutable bool m_keepsRows = false;  // without the text, for the time of an edit
  QCollator m_collator;
  std::vector<Key> m_keys;  ///< of all rows while they are sorted, so that none is worked out again and again
};

}  // namespace tessera::detail
