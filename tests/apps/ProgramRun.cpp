// SPDX-License-Identifier: MIT
#include "ProgramRun.h"

#include <QProcess>

namespace tessera::test {

TProgramRun RunTessera(const QStringList &arguments, const char *locale) {
  constexpr int PatienceMs = 60000;
  QProcess process;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("LC_ALL"), QString::fromLatin1(locale));
  process.setProcessEnvironment(environment);
  process.start(QStringLiteral(TESSERA_PROGRAM), arguments);
  const bool isDone = process.waitForFinished(PatienceMs) && process.exitStatus() == QProcess::NormalExit;
  return {isDone ? process.exitCode() : -1, process.readAllStandardOutput().toStdString(),
          process.readAllStandardError().toStdString()};
}

QStringList Words(const char *text) {
  return QString::fromLatin1(text).split(u' ', Qt::SkipEmptyParts);
}

QString MapFileNamed(const char *name) {
  return QStringLiteral(TESSERA_TEST_DATA "/apps/") + QLatin1String(name);
}

}  // namespace tessera::test
