// SPDX-License-Identifier: MIT
#include "ProgramRun.h"

#include <QProcess>

namespace tessera::test {

TProgramRun RunTessera(const QStringList &arguments, const QString &locale) {
  constexpr int PatienceMs = 60000;
  QProcess process;
  QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
  environment.insert(QStringLiteral("LC_ALL"), locale);
  process.setProcessEnvironment(environment);
  process.start(QStringLiteral(TESSERA_PROGRAM), arguments);
  TProgramRun run;
  const bool isDone = process.waitForFinished(PatienceMs) && process.exitStatus() == QProcess::NormalExit;
  if (isDone) run.status = process.exitCode();
  run.out = QString::fromUtf8(process.readAllStandardOutput());
  run.err = QString::fromUtf8(process.readAllStandardError());
  return run;
}

QString MapFileNamed(const QString &name) {
  return QStringLiteral(TESSERA_TEST_DATA "/apps/") + name;
}

}  // namespace tessera::test
