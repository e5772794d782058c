// SPDX-License-Identifier: MIT
#include <apps/editor/LayerFiles.h>
#include <apps/editor/LoadingPanel.h>

#include <QFileInfo>
#include <QHBoxLayout>
#include <QProgressBar>
#include <QPushButton>

namespace tessera::apps {

LoadingPanel::LoadingPanel(LayerFiles &files, QWidget *parent) : QWidget(parent), m_bar(new QProgressBar) {
  constexpr int WidthPx = 220;
  m_bar->setFixedWidth(WidthPx);
  auto *cancel = new QPushButton(tr("Cancel"));
  cancel->setToolTip(tr("Stop opening files"));
  // Plain keys belong to the map.
  cancel->setFocusPolicy(Qt::TabFocus);
  auto *row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(m_bar);
  row->addWidget(cancel);
  hide();
  connect(cancel, &QPushButton::clicked, &files, &LayerFiles::CancelOpening);
  connect(&files, &LayerFiles::Opening, this, &LoadingPanel::Show);
  connect(&files, &LayerFiles::Opened, this, &QWidget::hide);
}

void LoadingPanel::Show(const QString &fileName, int percent) {
  m_bar->setFormat(QFileInfo(fileName).fileName().replace(u'%', QStringLiteral("%%")) + QStringLiteral(" %p%"));
  m_bar->setValue(percent);
  show();
}

}  // namespace tessera::apps
