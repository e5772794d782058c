// SPDX-License-Identifier: MIT
#include <apps/editor/FindBar.h>
#include <apps/editor/LayerFiles.h>
#include <tessera/base/GuardedCall.h>
#include <tessera/layers/TLayerFilter.h>
#include <tessera/map/SelectionChange.h>

#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>

#include <algorithm>

namespace tessera::apps {

FindBar::FindBar(TTessera &map, LayerChoice layer, QWidget *parent)
    : QToolBar(tr("Find"), parent),
      m_map(map),
      m_layer(std::move(layer)),
      m_expression(new QLineEdit),
      m_answer(new QLabel) {
  setObjectName(QStringLiteral("find"));
  m_expression->setPlaceholderText(tr("Name LIKE 'B%' AND Population > 1e6"));
  m_expression->setToolTip(tr("A condition over the columns of the chosen layer, as in SQL"));
  m_expression->setClearButtonEnabled(true);
  m_answer->setTextFormat(Qt::PlainText);
  addWidget(m_expression);
  addAction(tr("Find"), this, &FindBar::Find);
  addWidget(m_answer);
  connect(m_expression, &QLineEdit::returnPressed, this, &FindBar::Find);
  hide();
}

void FindBar::Open() {
  show();
  m_expression->setFocus();
  m_expression->selectAll();
}

QString FindBar::GetAnswer() const {
  return m_answer->text();
}

void FindBar::Find() {
  TMapLayer *layer = m_layer();
  if (layer == nullptr) return m_answer->setText(tr("There is no layer."));
  if (!layer->GetSelectable())
    return m_answer->setText(tr("The objects of %1 cannot be selected.").arg(layer->GetName()));
  const WaitCursor cursor;
  GuardedCall([&] { FindIn(*layer); });
}

void FindBar::FindIn(TMapLayer &layer) {
  constexpr int PatienceMs = 10000;
  QElapsedTimer timer;
  timer.start();
  TLayerFilter filter(layer, m_expression->text());
  const auto ids = filter.Find([&timer] { return timer.hasExpired(PatienceMs); });
  if (!ids) {
    m_answer->setText(filter.GetError().isEmpty() ? tr("The search takes too long.") : filter.GetError());
    if (filter.GetErrorPlace() >= 0) m_expression->setSelection(filter.GetErrorPlace(), 1);
    return;
  }
  std::vector<TCustomMapObject *> found;
  for (const int id : *ids) found.push_back(layer.GetObjects(id));
  m_answer->setText(tr("%1: %2 found").arg(layer.GetName()).arg(found.size()));
  Select(found);
}

void FindBar::Select(const std::vector<TCustomMapObject *> &objects) {
  const auto before = m_map.GetSelection()->Items();
  const TObjectHandles gone(before.begin(), before.end());
  const TObjectHandles come(objects.begin(), objects.end());
  ChangeSelection(m_map, gone, come);
  if (m_map.GetSelection()->GetCount() > 0) m_map.GetSelection()->Zoom();
}

}  // namespace tessera::apps
