// SPDX-License-Identifier: MIT
#include <apps/common/ProgramSetup.h>

#include <QLocale>

#include <clocale>

namespace tessera::apps {

void UseDecimalPoint() {
  QLocale::setDefault(QLocale::c());
  std::setlocale(LC_NUMERIC, "C");
}

}  // namespace tessera::apps
