// SPDX-License-Identifier: MIT
#include <apps/editor/FindBar.h>
#include <apps/editor/LayerFiles.h>
#include <tessera/base/GuardedCall.h>
#include <tessera/layers/TLayerFilter.h>
#include <tessera/map/SelectionChange.h>

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QProgressDialog>

#include <algorithm>
#include <optional>

namespace tessera::apps {
namespace {

/// What one sees of a search: at first the pointer of waiting, later a dialog that keeps the window alive, lets nothing
/// of it be changed, and gives the search up.
class SearchDialog : public QProgressDialog {
 public:
  SearchDialog(const QString &words, const QString &cancel, QWidget *parent)
      : QProgressDialog(words, cancel, 0, 0, parent) {
    setWindowModality(Qt::ApplicationModal);
    reset();  // which keeps it from coming up by itself
    m_sinceStart.start();
    m_sinceEvents.start();
    m_waiting.emplace();
  }
  /// To be asked from time to time.
  [[nodiscard]] bool IsGivenUp() {
    constexpr int QuietMs = 500;
    constexpr int EventsMs = 50;
    if (!m_sinceStart.hasExpired(QuietMs) || !m_sinceEvents.hasExpired(EventsMs)) return wasCanceled();
    m_waiting.reset();
    if (!isVisible()) show();
    QCoreApplication::processEvents();
    m_sinceEvents.restart();
    return wasCanceled();
  }

 private:
  QElapsedTimer m_sinceStart;
  QElapsedTimer m_sinceEvents;
  std::optional<WaitCursor> m_waiting;
};

}  // namespace

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
  GuardedCall([&] { FindIn(*layer); });
}

void FindBar::FindIn(TMapLayer &layer) {
  TLayerFilter filter(layer, m_expression->text());
  SearchDialog dialog(tr("Searching %1…").arg(layer.GetName()), tr("Cancel"), this);
  const auto ids = filter.Find([&dialog] { return dialog.IsGivenUp(); });
  if (!ids) {
    m_answer->setText(filter.GetError().isEmpty() ? tr("The search was given up.") : filter.GetError());
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
