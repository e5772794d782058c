// SPDX-License-Identifier: MIT
#include <apps/editor/MeasureLabel.h>
#include <apps/editor/ProgressPanel.h>
#include <apps/editor/StatusPanel.h>

#include <QEvent>
#include <QHBoxLayout>
#include <QLabel>

#include <algorithm>
#include <cmath>

namespace tessera::apps {
namespace {

/// As many decimals as it takes for neighbouring pixels to differ.
int DecimalsOf(const TViewport &viewport) {
  constexpr double MaxDecimals = 9;
  const auto pixelsPerUnit = double(viewport.GetScale().Kx);
  return int(std::clamp(std::ceil(std::log10(std::abs(pixelsPerUnit))), 0.0, MaxDecimals));
}

}  // namespace

StatusPanel::StatusPanel(TTessera &map, QWidget *parent)
    : QWidget(parent),
      m_map(map),
      m_summary(new QLabel(this)),
      m_editing(new QLabel(this)),
      m_selection(new QLabel(this)),
      m_sizes(new MeasureLabel(map, this)),
      m_coordinates(new QLabel(this)),
      m_zoom(new QLabel(this)),
      m_follower(map, [this](TMapDataLinkEvent, TObject *) { m_refresh.start(); }) {
  m_summary->setTextFormat(Qt::PlainText);
  // A long summary does not keep the window from becoming narrow.
  m_summary->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  auto *row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(2 * row->spacing());
  row->addWidget(m_summary, 1);
  row->addWidget(new ProgressPanel(map, this));
  const std::initializer_list<QLabel *> labels = {m_editing, m_selection, m_sizes, m_coordinates, m_zoom};
  for (QLabel *label : labels) row->addWidget(label);
  ShowZoom(map);
  ShowLayersAndSelection(map);
  // Many notices, of a big selection say, are one change here.
  m_refresh.setSingleShot(true);
  connect(&m_refresh, &QTimer::timeout, &map, [this, &map] { ShowLayersAndSelection(map); });
  connect(&map, &TTessera::OnZoom, this, [this](const TTessera *sender) { ShowZoom(*sender); });
  connect(&map, &TTessera::OnMouseMove, this, [this](const TTessera *sender, TShiftState, int x, int y) {
    m_cursor = QPoint(x, y);
    ShowCoordinates(*sender);
  });
  // The map has moved under the cursor.
  connect(&map, &TTessera::OnUpdate, this, [this](const TTessera *sender) { ShowCoordinates(*sender); });
}

void StatusPanel::SetSummary(const QString &text) {
  m_summary->setText(text);
  m_summary->setToolTip(text.toHtmlEscaped());
}

QString StatusPanel::GetSummary() const {
  return m_summary->text();
}
QString StatusPanel::GetCoordinates() const {
  return m_coordinates->text();
}
QString StatusPanel::GetZoom() const {
  return m_zoom->text();
}

QString StatusPanel::GetEditing() const {
  return m_editing->text();
}
QString StatusPanel::GetSelection() const {
  return m_selection->text();
}

void StatusPanel::ShowLayersAndSelection(const TTessera &map) {
  const TMapLayer *layer = map.GetLayers()->GetEditableLayer();
  m_editing->setText(layer == nullptr ? tr("Nothing editable") : tr("Editing %1").arg(layer->GetName()));
  m_selection->setText(tr("Selected: %1").arg(map.GetSelection()->GetCount()));
}

void StatusPanel::ShowCoordinates(const TTessera &map) {
  if (!m_cursor) return;
  const TMapPoint point = map.GetViewport().ScreenToMap(m_cursor->x(), m_cursor->y());
  const int decimals = DecimalsOf(map.GetViewport());
  // Where the comma stands before decimals it cannot part the numbers as well.
  const QString between = locale().decimalPoint() == QStringLiteral(",") ? QStringLiteral("; ") : QStringLiteral(", ");
  m_coordinates->setText(NumberText(point.X, decimals) + between + NumberText(point.Y, decimals));
}

QString StatusPanel::NumberText(double number, int decimals) const {
  QLocale format = locale();
  format.setNumberOptions(QLocale::OmitGroupSeparator);
  return format.toString(number, 'f', decimals);
}

void StatusPanel::changeEvent(QEvent *event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::LocaleChange) return;
  ShowZoom(m_map);
  ShowCoordinates(m_map);
}

void StatusPanel::ShowZoom(const TTessera &map) {
  m_zoom->setText(tr("Zoom %1").arg(NumberText(map.GetZoom(), QLocale::FloatingPointShortest)));
}

}  // namespace tessera::apps
