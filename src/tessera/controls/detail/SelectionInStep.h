// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/controls/TLayerTableModel.h>
#include <tessera/controls/detail/RowFilter.h>

#include <QAbstractItemView>

namespace tessera::detail {

/// Keeps the selection of a view of a layer's table and that of the map in step, as far as the layer's objects go: an
/// object is selected when some cell of its row is. What the view selects is selected on the map at once, and the other
/// way round when control is back in the event loop.
class SelectionInStep : public QObject {
 public:
  /// A child of the view, which shows `filter` over `model`.
  SelectionInStep(QAbstractItemView &view, RowFilter &filter, TLayerTableModel &model);

  /// Runs `change`, which changes what rows are shown, so that objects whose rows go stay selected on the map.
  template <typename Change>
  void KeepWhile(Change change) {
    m_isPulling = true;
    change();
    m_isPulling = false;
    Pull();
  }
  /// The map's selection has changed.
  void PullLater();

 private:
  /// Rows of the view that have a selected cell, ascending, each once.
  [[nodiscard]] static std::vector<int> RowsOf(const QItemSelection &selection);
  [[nodiscard]] std::vector<int> SelectedOnMap() const;
  [[nodiscard]] TCustomMapObject *ObjectAt(int row) const;
  void Push(const QItemSelection &selected, const QItemSelection &deselected);
  void Pull();

  QAbstractItemView &m_view;
  RowFilter &m_filter;
  TLayerTableModel &m_model;
  bool m_isPulling = false;
  bool m_isPushing = false;
  bool m_isPullDue = false;
};

}  // namespace tessera::detail
