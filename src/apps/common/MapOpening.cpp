// SPDX-License-Identifier: MIT
#include <apps/common/MapOpening.h>
#include <tessera/base/Exceptions.h>

#include <QCoreApplication>
#include <QFileInfo>

namespace tessera::apps {
namespace {

struct MapOpening {
  Q_DECLARE_TR_FUNCTIONS(tessera::apps::MapOpening)
};

QStringList WarningsOf(const QString &fileName, const TWorkspaceReport &report) {
  QStringList warnings;
  const auto warn = [&](const QString &words) { warnings << fileName + QStringLiteral(": ") + words; };
  for (const QString &table : report.missingTables) warn(MapOpening::tr("there is no file of the table %1").arg(table));
  for (const QString &table : report.unreadTables) warn(MapOpening::tr("%1 could not be read whole").arg(table));
  if (!report.skipped.empty()) {
    const TWorkspaceStatement &first = report.skipped.front();
    warn(MapOpening::tr("%1 statements are passed over, the first in line %2: %3")
             .arg(report.skipped.size())
             .arg(first.line)
             .arg(first.words));
  }
  return warnings;
}

std::vector<TLoadedFile> OpenWorkspace(TTessera &map, const QString &fileName) {
  TLoadedFile failed;
  failed.fileName = fileName;
  const int before = map.GetLayers()->GetCount();
  try {
    const TWorkspaceReport report = map.LoadWOR(fileName);
    failed.warnings = WarningsOf(fileName, report);
    if (!report.isRead) failed.error = fileName + u": " + MapOpening::tr("there is no such file, or it cannot be read");
  } catch (const std::exception &error) {
    failed.error = fileName + QStringLiteral(": ") + MessageOf(error);
  }
  std::vector<TLoadedFile> loaded;
  for (int i = before; i < map.GetLayers()->GetCount(); ++i) {
    TLoadedFile &file = loaded.emplace_back();
    file.layer = map.GetLayers()->GetLayer(i);
    file.fileName = file.layer->GetFileName();
    file.provider = QStringLiteral("workspace ") + QFileInfo(fileName).fileName();
  }
  if (loaded.empty()) {
    if (failed.error.isEmpty())
      failed.error = fileName + u": " + MapOpening::tr("the workspace shows no table that is here");
    loaded.push_back(failed);
  } else {
    loaded.front().warnings = failed.warnings;
    if (!failed.error.isEmpty()) loaded.front().warnings.prepend(failed.error);
  }
  return loaded;
}

}  // namespace

bool IsWorkspaceName(const QString &fileName) {
  return QFileInfo(fileName).suffix().compare(QStringLiteral("wor"), Qt::CaseInsensitive) == 0;
}

std::vector<TLoadedFile> OpenMapFile(TTessera &map, const QString &fileName) {
  if (IsWorkspaceName(fileName)) return OpenWorkspace(map, fileName);
  return {LoadMapFile(*map.GetLayers(), fileName)};
}

QString WorkspaceNameFilter() {
  return MapOpening::tr("MapInfo workspaces (*.wor)");
}

}  // namespace tessera::apps
