// SPDX-License-Identifier: MIT
#include <QApplication>
#include <QLocale>
#include <gtest/gtest.h>

/// Runs the tests off screen, with numbers and dates as in C whatever the machine is set to.
int main(int argc, char **argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("LC_ALL", "C.UTF-8");
  QLocale::setDefault(QLocale::c());
  QApplication application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
