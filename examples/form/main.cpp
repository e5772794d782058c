// SPDX-License-Identifier: MIT
// A map with tools, made of one form: what can be set is set there. The MIF file it is called with can be drawn in.
#include "ui_form.h"

int main(int argc, char *argv[]) {
  const QApplication application(argc, argv);
  QMainWindow window;
  Ui::Form form;
  form.setupUi(&window);
  form.map->GetLayers()->Add(QApplication::arguments().value(1), QStringLiteral("Objects"))->SetEditable(true);
  window.show();
  return QApplication::exec();
}
