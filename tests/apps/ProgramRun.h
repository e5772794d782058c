// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

namespace tessera::test {

/// What a run of the program `tessera` came to.
struct TProgramRun {
  int status = -1;  ///< -1 when it did not end by itself.
  QString out;
  QString err;

  [[nodiscard]] QStringList ErrorLines() const { return err.split(u'\n', Qt::SkipEmptyParts); }
};

/// Runs `tessera` in an environment whose locale is `locale`.
[[nodiscard]] TProgramRun RunTessera(const QStringList &arguments, const QString &locale = QStringLiteral("C.UTF-8"));

/// The path of a map file among the test data.
[[nodiscard]] QString MapFileNamed(const QString &name);

}  // namespace tessera::test
