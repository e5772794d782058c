// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/base/GuardedCall.h>
#include <tessera/base/MessageSink.h>
#include <tessera/controls/TDataBrowser.h>
#include <tessera/controls/detail/CellBlocks.h>
#include <tessera/controls/detail/CellDelegate.h>
#include <tessera/controls/detail/DataBrowserLink.h>
#include <tessera/controls/detail/DelimitedText.h>
#include <tessera/controls/detail/RowFilter.h>
#include <tessera/controls/detail/SelectionInStep.h>
#include <tessera/editing/TEditScope.h>
#include <tessera/map/detail/MapByName.h>

#include <QClipboard>
#include <QEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QSaveFile>
#include <QVBoxLayout>

namespace tessera {
namespace {

constexpr int RowMarginPx = 6;

}  // namespace

TDataBrowser::TDataBrowser(QWidget *parent)
    : QWidget(parent),
      m_mapByName(new detail::MapByName(
          *this, [this](TTessera *map) { SetMap(map); }, [this] { return GetMap(); })),
      m_link(std::make_unique<detail::DataBrowserLink>(*this)),
      m_model(new TLayerTableModel(this)),
      m_filter(new detail::RowFilter(this)),
      m_view(new QTableView(this)) {
  auto *layout = new QVBoxLayout(this);
  layout->setContentsMargins({});
  MakeBar();
  layout->addWidget(m_view);
  MakeView();
  MakeActions();
  connect(m_model, &TLayerTableModel::OnRefused, this, [this](const QString &message) {
    if (m_refusals) {
      m_refusals->append(message);
    } else {
      GuardedCall([&] { ShowMessage(message); });
    }
  });
}

TDataBrowser::~TDataBrowser() = default;

void TDataBrowser::MakeView() {
  m_filter->setSourceModel(m_model);
  m_view->setAccessibleName(tr("Attributes"));
  m_view->setModel(m_filter);
  m_view->setItemDelegate(new detail::CellDelegate(m_view));
  m_filter->KeepRowsEditedIn(*m_view);
  m_view->setAlternatingRowColors(true);
  m_view->setWordWrap(false);
  m_view->verticalHeader()->setDefaultSectionSize(m_view->fontMetrics().height() + RowMarginPx);
  m_view->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  m_view->horizontalHeader()->setSortIndicatorClearable(true);
  m_view->horizontalHeader()->setSortIndicator(-1, Qt::AscendingOrder);
  m_view->setSortingEnabled(true);
  m_selection = new detail::SelectionInStep(*m_view, *m_filter, *m_model);
}

void TDataBrowser::changeEvent(QEvent *event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::LocaleChange) m_model->SetLocale(locale());
}

TTessera *TDataBrowser::GetMap() const {
  return m_map;
}

QByteArray TDataBrowser::GetMapName() const {
  return m_mapByName->GetName();
}

void TDataBrowser::SetMapName(const QByteArray &name) {
  m_mapByName->SetName(name);
}

void TDataBrowser::SetMap(TTessera *map) {
  m_mapByName->Forget();
  m_map = map;
  m_link->SetMap(map);
  ShowNamedLayer();
}

void TDataBrowser::SetLayer(TMapLayer *layer) {
  m_layerName = layer ? layer->GetName() : QString();
  if (layer) {
    m_mapByName->Forget();
    m_map = layer->GetMap();
    m_link->SetMap(m_map.data());
  }
  ShowLayer(layer);
}

void TDataBrowser::SetLayerName(const QString &name) {
  m_layerName = name;
  ShowNamedLayer();
}

void TDataBrowser::SetReadOnly(bool readOnly) {
  m_model->SetReadOnly(readOnly);
}

void TDataBrowser::ShowNamedLayer() {
  const TMapLayers *layers = m_map && !m_layerName.isEmpty() ? m_map->GetLayers() : nullptr;
  ShowLayer(layers ? layers->Search(m_layerName) : nullptr);
}

void TDataBrowser::ShowLayer(TMapLayer *layer) {
  if (layer == GetLayer()) return;
  m_model->SetLayer(layer);
  SortBy(-1, Qt::AscendingOrder);
}

void TDataBrowser::MapEvent(TMapDataLinkEvent event, const TObject *sender) {
  switch (event) {
    case mdlLayerNameChanged:
      if (sender == GetLayer()) m_layerName = GetLayer()->GetName();
      [[fallthrough]];
    case mdlAfterAddLayer:
      if (GetLayer() == nullptr) ShowNamedLayer();
      break;
    case mdlAddSelection:
    case mdlDelSelection:
      m_selection->PullLater();
      break;
    default:
      break;
  }
}

void TDataBrowser::SetFilter(const QString &text) {
  m_selection->KeepWhile([&] { m_filter->SetFilter(text); });
}

QString TDataBrowser::GetFilter() const {
  return m_filter->GetFilter();
}

void TDataBrowser::SortBy(int column, Qt::SortOrder order) {
  m_view->sortByColumn(column, order);
}

bool TDataBrowser::Find(const QString &text, TFindDirection direction) {
  const qint64 columns = m_filter->columnCount();
  const qint64 cells = columns * m_filter->rowCount();
  const QModelIndex current = m_view->currentIndex();
  const bool isForward = direction == fdForward;
  const qint64 start = current.isValid() ? current.row() * columns + current.column() : isForward ? -1 : 0;
  for (qint64 step = 1; step <= cells; ++step) {
    const qint64 cell = (start + (isForward ? step : cells - step)) % cells;
    const QModelIndex index = m_filter->index(int(cell / columns), int(cell % columns));
    if (!index.data(TLayerTableModel::TextRole).toString().contains(text, Qt::CaseInsensitive)) continue;
    m_view->setCurrentIndex(index);
    m_view->scrollTo(index);
    return true;
  }
  return false;
}

void TDataBrowser::Copy() {
  const QItemSelection selection = m_view->selectionModel()->selection();
  if (!selection.isEmpty()) QGuiApplication::clipboard()->setText(detail::CopyCells(selection));
}

template <typename Change>
void TDataBrowser::ChangeCells(const QString &text, Change change) {
  if (GetReadOnly()) return;
  const QPointer<TDataBrowser> self(this);
  QStringList refusals;
  m_refusals = &refusals;
  int refusedCount = 0;
  GuardedCall([&] {
    const TEditScope oneStep(m_map.data(), text);
    refusedCount = change();
  });
  if (self) m_refusals = nullptr;
  if (refusedCount == 0) return;
  const QString first = refusals.value(0);
  const QString notice = refusedCount == 1 ? first : tr("%1 cells keep their values. %2").arg(refusedCount).arg(first);
  GuardedCall([&] { ShowMessage(notice); });
}

void TDataBrowser::Paste() {
  const QString text = QGuiApplication::clipboard()->text();
  ChangeCells(tr("paste values"), [&] {
    return detail::PasteCells(detail::SplitDelimited(text, u'\t'), m_view->currentIndex(),
                              m_view->selectionModel()->selection());
  });
}

void TDataBrowser::ClearCells() {
  ChangeCells(tr("clear values"), [this] { return detail::ClearCells(m_view->selectionModel()->selection()); });
}

void TDataBrowser::ExportCsv(const QString &fileName) const {
  QSaveFile file(fileName);
  if (!file.open(QIODevice::WriteOnly)) throw EInOutError(file.errorString());
  detail::WriteCsv(*m_filter, file);
  if (!file.commit()) throw EInOutError(file.errorString());
}

}  // namespace tessera
