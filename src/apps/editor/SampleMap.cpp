// SPDX-License-Identifier: MIT
#include <apps/editor/SampleMap.h>

#include <QCoreApplication>
#include <QDir>
#include <QSettings>

#include <algorithm>

namespace tessera::apps {

QStringList SampleMapFiles() {
  const QDir folder(QCoreApplication::applicationDirPath() + QStringLiteral("/../share/tessera/samples/world"));
  QStringList files;
  for (const char *layer : {"graticule", "countries", "cities"}) {
    files.append(folder.canonicalPath() + u'/' + QLatin1String(layer) + QStringLiteral(".mif"));
  }
  const bool areThere =
      std::all_of(files.begin(), files.end(), [](const QString &file) { return QFile::exists(file); });
  return areThere ? files : QStringList();
}

bool TakeFirstRun() {
  const QString key = QStringLiteral("hasRun");
  QSettings settings;
  const bool isFirst = !settings.value(key).toBool();
  settings.setValue(key, true);
  return isFirst;
}

}  // namespace tessera::apps
