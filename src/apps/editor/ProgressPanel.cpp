// SPDX-License-Identifier: MIT
#include <apps/editor/ProgressPanel.h>

namespace tessera::apps {
namespace {

/// Readers tell their position with every line; more pictures than this a second nobody sees.
constexpr qint64 RepaintIntervalMs = 50;

}  // namespace

ProgressPanel::ProgressPanel(const TTessera &map, QWidget *parent) : QProgressBar(parent) {
  constexpr int WidthPx = 220;
  setFixedWidth(WidthPx);
  // It has its place from the start, because nothing is laid out while the work goes on.
  QSizePolicy policy = sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  setSizePolicy(policy);
  hide();
  connect(&map, &TTessera::OnStartProgress, this, &ProgressPanel::Start);
  connect(&map, &TTessera::OnShowProgress, this, &ProgressPanel::Show);
  connect(&map, &TTessera::OnStopProgress, this, &ProgressPanel::Stop);
}

void ProgressPanel::Start(TTessera *sender, int min, int max, const QString &caption) {
  if (sender->GetIsBusy()) return;
  setRange(min, max);
  setValue(min);
  setFormat(caption + QStringLiteral(" %p%"));
  show();
  repaint();
  m_sinceRepaint.start();
}

void ProgressPanel::Show(TTessera *sender, int position) {
  if (sender->GetIsBusy() || !m_sinceRepaint.hasExpired(RepaintIntervalMs)) return;
  setValue(position);
  repaint();
  m_sinceRepaint.start();
}

void ProgressPanel::Stop(TTessera *sender) {
  if (!sender->GetIsBusy()) hide();
}

}  // namespace tessera::apps
