// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QFile>
#include <QUiLoader>
#include <QWidget>

#include <cstdlib>
#include <memory>

/// Succeeds when the form of the example has a map and a tool, which is linked to it.
int main(int argc, char *argv[]) {
  const QApplication application(argc, argv);
  QFile file(QStringLiteral(FORM));
  const std::unique_ptr<QWidget> form(QUiLoader().load(&file));
  const auto *map = form ? form->findChild<QWidget *>(QStringLiteral("map")) : nullptr;
  const auto *tool = form ? form->findChild<QWidget *>(QStringLiteral("panTool")) : nullptr;
  const bool isWhole =
      map && tool && map->inherits("tessera::TTessera") && tool->property("Tessera") == QByteArray("map");
  return isWhole ? EXIT_SUCCESS : EXIT_FAILURE;
}
