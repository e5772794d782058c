// SPDX-License-Identifier: MIT
#include <apps/common/VectorPicture.h>
#include <apps/editor/MapPrinting.h>

#include <QPainter>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>

#include <algorithm>

namespace tessera::apps {
namespace {

/// A page that lies as the map does.
QPageLayout::Orientation OrientationFor(const TTessera &map) {
  return map.width() > map.height() ? QPageLayout::Landscape : QPageLayout::Portrait;
}

}  // namespace

void PrintMap(TTessera &map, QPrinter &printer) {
  QPainter painter(&printer);
  if (!painter.isActive() || map.size().isEmpty()) return;
  const QRect page = painter.viewport();
  const double scale = std::min(double(page.width()) / map.width(), double(page.height()) / map.height());
  painter.scale(scale, scale);
  DrawAsVectors(map, painter);
}

void PreviewPrint(TTessera &map, QWidget *parent) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageOrientation(OrientationFor(map));
  QPrintPreviewDialog preview(&printer, parent);
  QObject::connect(&preview, &QPrintPreviewDialog::paintRequested, &map,
                   [&map](QPrinter *page) { PrintMap(map, *page); });
  preview.exec();
}

void AskAndPrint(TTessera &map, QWidget *parent) {
  QPrinter printer(QPrinter::HighResolution);
  printer.setPageOrientation(OrientationFor(map));
  QPrintDialog dialog(&printer, parent);
  if (dialog.exec() == QDialog::Accepted) PrintMap(map, printer);
}

}  // namespace tessera::apps
