// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/controls/TLayerTableModel.h>

#include <QTableView>

class QLineEdit;

namespace tessera {

namespace detail {
class DataBrowserLink;
class MapByName;
class RowFilter;
class SelectionInStep;
}  // namespace detail

/// The attributes of a layer's objects in a grid: a row for each object, a column for each visible field, cells that
/// are edited in place. Rows are sorted by a click on a column's header (the third click brings back the layer's order)
/// and filtered by a text, which leaves the order of the layer as it is. Selected rows and selected objects are the
/// same. Blocks of cells are copied and pasted as text that is separated by tabs.
///
/// Input that does not fit its column is refused with a message (ShowMessage), and the old value stays. Map, layer and
/// browser may be destroyed in any order.
class TESSERA_WIDGETS_EXPORT TDataBrowser : public QWidget {
  Q_OBJECT
  Q_PROPERTY(QByteArray Map READ GetMapName WRITE SetMapName)
  Q_PROPERTY(QString Layer READ GetLayerName WRITE SetLayerName)
  Q_PROPERTY(bool ReadOnly READ GetReadOnly WRITE SetReadOnly)

 public:
  /// Which way Find goes, row by row, over the end to the beginning.
  enum TFindDirection { fdForward, fdBackward };
  Q_ENUM(TFindDirection)

  explicit TDataBrowser(QWidget *parent = nullptr);
  ~TDataBrowser() override;

  [[nodiscard]] TTessera *GetMap() const;
  /// Follows another map, and shows its layer that has the name of the present one.
  void SetMap(TTessera *map);
  /// The map by its name on the same form, which may come later.
  [[nodiscard]] QByteArray GetMapName() const;
  void SetMapName(const QByteArray &name);
  /// The layer that is shown; none when there is none of the name, or it is gone.
  [[nodiscard]] TMapLayer *GetLayer() const { return m_model->GetLayer(); }
  /// Shows a layer of any map, or of none, and takes over its map and its name.
  void SetLayer(TMapLayer *layer);
  /// The name of the layer that is to be shown, letter case aside, whether the map has it already or not.
  [[nodiscard]] const QString &GetLayerName() const { return m_layerName; }
  void SetLayerName(const QString &name);
  /// False at first.
  [[nodiscard]] bool GetReadOnly() const { return m_model->GetReadOnly(); }
  void SetReadOnly(bool readOnly);

  /// The table of the layer, in the layer's order.
  [[nodiscard]] TLayerTableModel *GetModel() const { return m_model; }
  /// The grid; its rows are those that the filter leaves, sorted.
  [[nodiscard]] QTableView *GetView() const { return m_view; }

  /// Shows only rows with this text in some cell, letter case aside; all when it is empty.
  void SetFilter(const QString &text);
  [[nodiscard]] QString GetFilter() const;
  /// Sorts by a column, unassigned values last when ascending; -1 brings back the layer's order.
  void SortBy(int column, Qt::SortOrder order);
  /// Goes to the next cell that holds a text, letter case aside, after the current one; the current one comes last.
  /// False, and nothing changes, when there is none.
  bool Find(const QString &text, tessera::TDataBrowser::TFindDirection direction = fdForward);
  /// Puts the selected cells on the clipboard.
  void Copy();
  /// Writes the clipboard's text into the cells from the current one on; a single text into every selected cell. A
  /// message tells how many cells did not take theirs, and why the first did not.
  void Paste();
  /// Unassigns the selected cells.
  void ClearCells();
  /// Writes the rows that are shown, as they are sorted, with the names of the columns: comma-separated values as in
  /// RFC 4180, in UTF-8, numbers and dates independent of the locale. The file is replaced only when all is written.
  /// @throws EInOutError when it cannot be written.
  void ExportCsv(const QString &fileName) const;

 protected:
  /// The locale of the widget is how numbers and dates are shown and typed.
  void changeEvent(QEvent *event) override;

 private:
  friend class detail::DataBrowserLink;
  void MakeView();
  void MakeBar();
  void MakeActions();
  void AddAction(const QString &text, const QKeySequence &key, void (TDataBrowser::*run)());
  void MapEvent(TMapDataLinkEvent event, const TObject *sender);
  void ShowNamedLayer();
  void ShowLayer(TMapLayer *layer);
  /// Runs changes of cells and tells in one message of those that were refused.
  template <typename Change>
  void ChangeCells(const QString &text, Change change);
  void FindTyped();
  void AskForNewColumn();
  void AskForName();
  void AskToRemoveColumn();
  void AskForFile();

  QPointer<TTessera> m_map;
  detail::MapByName *m_mapByName;
  std::unique_ptr<detail::DataBrowserLink> m_link;
  QString m_layerName;
  TLayerTableModel *m_model;
  detail::RowFilter *m_filter;
  QTableView *m_view;
  QLineEdit *m_filterEdit = nullptr;
  QLineEdit *m_findEdit = nullptr;
  detail::SelectionInStep *m_selection = nullptr;
  /// Refusals while cells are changed together; otherwise each is shown at once.
  QStringList *m_refusals = nullptr;
};

}  // namespace tessera
