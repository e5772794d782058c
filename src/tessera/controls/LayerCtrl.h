// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/map/TTessera.h>

#include <QPixmap>
#include <QTableView>

namespace tessera {

namespace detail {
class LayerListModel;
class MapByName;
}  // namespace detail
class TLayerControl;

/// By which a layer control follows its map: layers that come, go or move refresh all of it, a layer that changes its
/// switches or its name only its row.
class TESSERA_WIDGETS_EXPORT TLayerControlDataLink : public TMapDataLink {
 public:
  explicit TLayerControlDataLink(TLayerControl &control) : m_control(control) {}
  void MapEvent(TMapDataLinkEvent event, TObject *sender, int info) override;

 private:
  TLayerControl &m_control;
};

/// The list of a map's layers, one row each in their order (the first lies at the bottom of the map), with four columns
/// of switches on the right: visible, selectable, editable, labelled. A click turns a switch; Delete removes the layer
/// of the selected row, unless a handler of the map forbids it; a row that is dragged by its name moves its layer.
///
/// With the keyboard the arrows go to every switch, Space turns it, and Ctrl with Up or Down moves the layer. The map
/// and the control may be destroyed in any order. All rectangles are client pixels of the viewport.
class TESSERA_WIDGETS_EXPORT TLayerControl : public QTableView {
  Q_OBJECT
  Q_PROPERTY(QByteArray Map READ GetMapName WRITE SetMapName)
  Q_PROPERTY(bool Glyphs READ GetGlyphs WRITE SetGlyphs)
  Q_PROPERTY(bool DrawVertLines READ GetDrawVertLines WRITE SetDrawVertLines)
  Q_PROPERTY(bool DrawHorzLines READ GetDrawHorzLines WRITE SetDrawHorzLines)

 public:
  explicit TLayerControl(QWidget *parent = nullptr);
  ~TLayerControl() override;

  /// The map whose layers are shown; none before there is one and after it is gone.
  [[nodiscard]] TTessera *GetMap() const;
  void SetMap(TTessera *map);
  /// The map by its name on the same form, which may come later.
  [[nodiscard]] QByteArray GetMapName() const;
  void SetMapName(const QByteArray &name);
  /// Whether switches are drawn as pictures, instead of check boxes. True at first.
  [[nodiscard]] bool GetGlyphs() const { return m_glyphs; }
  void SetGlyphs(bool glyphs);
  /// A line at the left edge of each column of switches. False at first.
  [[nodiscard]] bool GetDrawVertLines() const { return m_drawVertLines; }
  void SetDrawVertLines(bool draw);
  /// A line under each row. True at first.
  [[nodiscard]] bool GetDrawHorzLines() const { return m_drawHorzLines; }
  void SetDrawHorzLines(bool draw);

  /// The layer at the selected row's place in the map; none when no row is selected.
  [[nodiscard]] TMapLayer *GetCurrentLayer() const;
  /// The selected row; -1 when there is none.
  [[nodiscard]] int GetItemIndex() const;
  /// Selects a row; none outside the rows.
  void SetItemIndex(int index);
  /// The row on whose name the last click was; -1 before there was one.
  [[nodiscard]] int GetCurrentIndex() const { return m_currentIndex; }
  /// The picture of a switch, 16 x 13 pixels at the control's resolution: 0 visible, 2 editable, 4 selectable and 6
  /// labelled, each followed by the one for "not". @throws ERangeError outside 0 … 7.
  [[nodiscard]] QPixmap GetIndicators(int index) const;

  /// All of a row.
  [[nodiscard]] QRect GetItemRect(int index) const;
  [[nodiscard]] QRect GetNameRect(int index) const;
  /// From the first switch to the last.
  [[nodiscard]] QRect GetIndicatorRect(int index) const;
  [[nodiscard]] QRect GetVisibleRect(int index) const;
  [[nodiscard]] QRect GetSelectableRect(int index) const;
  [[nodiscard]] QRect GetEditableRect(int index) const;
  [[nodiscard]] QRect GetAutolabelRect(int index) const;

  [[nodiscard]] TLayerControlDataLink *GetDataLink() const { return m_dataLink.get(); }
  /// Takes over a link, which follows the map from now on, and hands back the present one, which follows none. @pre
  /// `dataLink` is not none.
  std::unique_ptr<TLayerControlDataLink> SetDataLink(std::unique_ptr<TLayerControlDataLink> dataLink);
  /// Shows the map's layers as they are now. Needed only for layers that a program has put into the place of others.
  void Refresh();
  /// Redraws the row of a layer.
  void RefreshLayer(const TObject *layer);

 protected:
  void paintEvent(QPaintEvent *event) override;
  void mousePressEvent(QMouseEvent *event) override;
  void mouseDoubleClickEvent(QMouseEvent *event) override;
  void mouseMoveEvent(QMouseEvent *event) override;
  void mouseReleaseEvent(QMouseEvent *event) override;
  void keyPressEvent(QKeyEvent *event) override;

 private:
  void Set(bool &member, bool value);
  void RefreshLater();
  [[nodiscard]] QRect GetColumnRect(int index, int column) const;
  void Pressed(const QMouseEvent &event);
  /// Turns the switch of the current cell. False when it has none.
  bool ToggleCurrent();
  void DeleteCurrent();
  void MoveLayer(const TMapLayer *layer, int newIndex);
  [[nodiscard]] QRect GetDropMark() const;
  void SetDropGap(int gap);
  void EndDrag();

  detail::LayerListModel *m_model;
  detail::MapByName *m_mapByName;
  std::unique_ptr<TLayerControlDataLink> m_dataLink;
  THandle<TMapLayer> m_dragged;
  QPoint m_pressedAt;
  int m_dropGap = -1;  ///< Before which row the dragged layer would be dropped; -1 when none is being dragged.
  int m_currentIndex = -1;
  bool m_glyphs = true;
  bool m_drawVertLines = false;
  bool m_drawHorzLines = true;
};

}  // namespace tessera
