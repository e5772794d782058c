// SPDX-License-Identifier: MIT
// A map that a person can move about in, select on and draw on, made in code: the tools are the buttons of a tool bar.
#include <tessera/MapObjects.h>
#include <tessera/StdMapTools.h>
#include <tessera/formats/SimpleMIFFormatProvider.h>

#include <QApplication>
#include <QMainWindow>
#include <QToolBar>

int main(int argc, char *argv[]) {
  const QApplication application(argc, argv);
  const tessera::TSimpleMIFFormatProvider mif;
  QMainWindow window;
  auto *map = new tessera::TTessera;
  window.setCentralWidget(map);

  QToolBar *bar = window.addToolBar(QStringLiteral("Tools"));
  for (tessera::TCustomMapTool *tool : std::initializer_list<tessera::TCustomMapTool *>{
           new tessera::TSelectionTool(map), new tessera::TPanTool(map), new tessera::TZoomInTool(map),
           new tessera::TPolylineTool(map), new tessera::TRegionTool(map), new tessera::TSymbolTool(map),
           new tessera::TTextTool(map)}) {
    tool->SetTessera(map);
    bar->addAction(tool->GetDisplayName(), tool, [tool] { tool->SetActive(true); });
  }
  bar->actions().first()->trigger();

  for (const QString &file : QApplication::arguments().mid(1)) map->GetLayers()->Add(file, QString());
  map->GetLayers()->Add(QString(), QStringLiteral("Drawn"))->SetEditable(true);
  window.resize(900, 600);
  window.show();
  map->ShowAll();
  return QApplication::exec();
}
