// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/base/GuardedCall.h>
#include <tessera/controls/LayerCtrl.h>
#include <tessera/controls/detail/LayerIndicators.h>
#include <tessera/controls/detail/LayerListModel.h>
#include <tessera/controls/detail/LayerRowDelegate.h>
#include <tessera/map/detail/MapByName.h>

#include <QApplication>
#include <QHeaderView>
#include <QMouseEvent>
#include <QPainter>

namespace tessera {

using Model = detail::LayerListModel;

void TLayerControlDataLink::MapEvent(TMapDataLinkEvent event, TObject *sender, int /*info*/) {
  switch (event) {
    case mdlAfterAddLayer:
    case mdlAfterDelLayer:
    case mdlMoveLayer:
    case mdlExchangeLayer:
      m_control.Refresh();
      break;
    case mdlLayerVisibleChanged:
    case mdlLayerSelectableChanged:
    case mdlLayerEditableChanged:
    case mdlLayerAutolabelChanged:
    case mdlLayerNameChanged:
      m_control.RefreshLayer(sender);
      break;
    default:
      break;
  }
}

TLayerControl::TLayerControl(QWidget *parent)
    : QTableView(parent),
      m_model(new Model(this)),
      m_mapByName(new detail::MapByName(
          *this, [this](TTessera *map) { SetMap(map); }, [this] { return GetMap(); })),
      m_dataLink(std::make_unique<TLayerControlDataLink>(*this)) {
  setModel(m_model);
  setItemDelegate(new detail::LayerRowDelegate(*this));
  setShowGrid(false);
  setWordWrap(false);
  setTabKeyNavigation(false);
  setEditTriggers(NoEditTriggers);
  setSelectionBehavior(SelectRows);
  setSelectionMode(SingleSelection);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setAccessibleName(tr("Layers"));
  // A button that was let go elsewhere ends a drag.
  viewport()->setMouseTracking(true);
  verticalHeader()->hide();
  verticalHeader()->setMinimumSectionSize(1);
  verticalHeader()->setDefaultSectionSize(detail::LayerRowHeightPx);
  verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->hide();
  horizontalHeader()->setMinimumSectionSize(1);
  horizontalHeader()->setDefaultSectionSize(detail::LayerSwitchWidthPx);
  horizontalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  horizontalHeader()->setSectionResizeMode(Model::NameColumn, QHeaderView::Stretch);
}

TLayerControl::~TLayerControl() = default;

TTessera *TLayerControl::GetMap() const {
  return m_model->GetMap();
}

QByteArray TLayerControl::GetMapName() const {
  return m_mapByName->GetName();
}

void TLayerControl::SetMapName(const QByteArray &name) {
  m_mapByName->SetName(name);
}

void TLayerControl::SetMap(TTessera *map) {
  m_mapByName->Forget();
  if (TTessera *present = GetMap()) present->disconnect(this);
  m_dataLink->SetMap(map);
  EndDrag();
  m_currentIndex = -1;
  m_model->SetMap(map);
  if (map == nullptr) return;
  // What no link is told of: layers that are inserted, and those that go all together.
  connect(map, &TTesseraEvents::OnAddLayer, this, [this] { RefreshLater(); });
  connect(map, &TTesseraEvents::OnBeforeDelLayer, this, [this] { RefreshLater(); });
  connect(map, &QObject::destroyed, this, [this] { RefreshLater(); });
}

void TLayerControl::Set(bool &member, bool value) {
  if (std::exchange(member, value) != value) viewport()->update();
}

void TLayerControl::SetGlyphs(bool glyphs) {
  Set(m_glyphs, glyphs);
}
void TLayerControl::SetDrawVertLines(bool draw) {
  Set(m_drawVertLines, draw);
}
void TLayerControl::SetDrawHorzLines(bool draw) {
  Set(m_drawHorzLines, draw);
}

std::unique_ptr<TLayerControlDataLink> TLayerControl::SetDataLink(std::unique_ptr<TLayerControlDataLink> dataLink) {
  m_dataLink->SetMap(nullptr);
  m_dataLink.swap(dataLink);
  m_dataLink->SetMap(GetMap());
  return dataLink;
}

void TLayerControl::Refresh() {
  m_model->Sync();
  viewport()->update();
}

void TLayerControl::RefreshLater() {
  QMetaObject::invokeMethod(this, &TLayerControl::Refresh, Qt::QueuedConnection);
}

void TLayerControl::RefreshLayer(const TObject *layer) {
  m_model->NoteChange(layer);
}

int TLayerControl::GetItemIndex() const {
  const QModelIndexList selected = selectionModel()->selectedRows();
  return selected.isEmpty() ? -1 : selected.front().row();
}

void TLayerControl::SetItemIndex(int index) {
  if (index >= 0 && index < m_model->rowCount()) {
    selectRow(index);
  } else {
    clearSelection();
  }
}

TMapLayer *TLayerControl::GetCurrentLayer() const {
  const TMapLayers *layers = m_model->GetLayers();
  const int index = GetItemIndex();
  return layers && index >= 0 && index < layers->GetCount() ? layers->GetLayer(index) : nullptr;
}

QPixmap TLayerControl::GetIndicators(int index) const {
  CheckedIndex(index, detail::LayerIndicatorCount, "Indicator");
  const double ratio = devicePixelRatioF();
  QPixmap picture((QSizeF(detail::LayerIndicatorSizePx) * ratio).toSize());
  picture.setDevicePixelRatio(ratio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  detail::PaintLayerIndicator(painter, {}, index, palette().color(QPalette::Text));
  return picture;
}

QRect TLayerControl::GetItemRect(int index) const {
  if (index < 0 || index >= m_model->rowCount()) return {};
  return {0, rowViewportPosition(index), viewport()->width(), detail::LayerRowHeightPx};
}

QRect TLayerControl::GetColumnRect(int index, int column) const {
  const QRect item = GetItemRect(index);
  const int left = item.right() + 1 - (Model::ColumnCount - column) * detail::LayerSwitchWidthPx;
  return item.isEmpty() ? item : QRect(left + 2, item.top() + 1, detail::LayerSwitchWidthPx - 4, item.height() - 2);
}

QRect TLayerControl::GetVisibleRect(int index) const {
  return GetColumnRect(index, Model::VisibleColumn);
}
QRect TLayerControl::GetSelectableRect(int index) const {
  return GetColumnRect(index, Model::SelectableColumn);
}
QRect TLayerControl::GetEditableRect(int index) const {
  return GetColumnRect(index, Model::EditableColumn);
}
QRect TLayerControl::GetAutolabelRect(int index) const {
  return GetColumnRect(index, Model::AutoLabelColumn);
}

QRect TLayerControl::GetNameRect(int index) const {
  constexpr int SwitchesPx = (Model::ColumnCount - 1) * detail::LayerSwitchWidthPx;
  const QRect item = GetItemRect(index);
  return item.isEmpty() ? item : item.adjusted(4, 0, -SwitchesPx, 0);
}

QRect TLayerControl::GetIndicatorRect(int index) const {
  constexpr int SwitchesPx = (Model::ColumnCount - 1) * detail::LayerSwitchWidthPx;
  const QRect item = GetItemRect(index);
  return item.isEmpty() ? item : item.adjusted(item.width() - SwitchesPx + 4, 0, 0, 0);
}

}  // namespace tessera
