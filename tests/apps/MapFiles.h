// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace tessera::test {

/// The path of a map file among the test data.
inline QString MapFileNamed(const char *name) {
  return QStringLiteral(TESSERA_TEST_DATA "/apps/") + QLatin1String(name);
}

}  // namespace tessera::test
