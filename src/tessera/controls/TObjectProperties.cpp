// SPDX-License-Identifier: MIT
#include <tessera/base/GuardedCall.h>
#include <tessera/controls/TObjectProperties.h>
#include <tessera/controls/detail/ObjectPropertiesModel.h>
#include <tessera/controls/detail/PropertyDelegate.h>

#include <QEvent>
#include <QHeaderView>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace tessera {

TObjectProperties::TObjectProperties(QWidget *parent)
    : TMapCompanion(parent), m_model(new detail::ObjectPropertiesModel(this)), m_view(new QTableView) {
  m_view->setModel(m_model);
  m_view->setItemDelegate(new detail::PropertyDelegate(m_view));
  m_view->setAccessibleName(tr("Properties"));
  m_view->setSelectionMode(QAbstractItemView::SingleSelection);
  m_view->verticalHeader()->hide();
  m_view->horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  m_view->horizontalHeader()->setStretchLastSection(true);
  auto *column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->addWidget(m_view);
  m_refresh.setSingleShot(true);
  connect(&m_refresh, &QTimer::timeout, this, [this] { GuardedCall([this] { Refresh(); }); });
}

void TObjectProperties::SetReadOnly(bool readOnly) {
  m_isReadOnly = readOnly;
  Refresh();
}

void TObjectProperties::changeEvent(QEvent *event) {
  TMapCompanion::changeEvent(event);
  if (event->type() != QEvent::LocaleChange) return;
  m_model->SetLocale(locale());
  m_refresh.start();
}

void TObjectProperties::MapEvent(TMapDataLinkEvent event, TObject * /*sender*/) {
  const bool isOfView = event == mdlMoveLayer || event == mdlExchangeLayer || event == mdlLayerZoomChanged;
  if (!isOfView) m_refresh.start();
}

void TObjectProperties::Refresh() {
  std::vector<TCustomMapObject *> selected;
  std::vector<TCustomMapObject *> changeable;
  if (const TTessera *map = GetMap()) {
    const auto items = map->GetSelection()->Items();
    selected.assign(items.begin(), items.end());
    const TMapLayer *layer = map->GetLayers()->GetEditableLayer();
    std::copy_if(items.begin(), items.end(), std::back_inserter(changeable),
                 [layer](const auto *object) { return layer && object->GetLayer() == layer; });
  }
  const bool canChange = !m_isReadOnly && !changeable.empty();
  m_model->Show(changeable.empty() ? selected : changeable, canChange);
}

}  // namespace tessera
