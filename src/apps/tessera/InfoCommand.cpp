// SPDX-License-Identifier: MIT
#include <apps/common/MapOpening.h>
#include <apps/tessera/CommandLine.h>
#include <apps/tessera/InfoCommand.h>
#include <apps/tessera/LayerInfo.h>
#include <apps/tessera/TerminalProgress.h>

#include <QJsonArray>
#include <QJsonDocument>

namespace tessera::apps {
namespace {

const QString JsonOption = QStringLiteral("json");

}  // namespace

int RunInfo(const QStringList &arguments) {
  QCommandLineParser parser;
  SetUpParser(parser, QStringLiteral("Tells what each map file holds."), QStringLiteral("info FILE…"));
  parser.addOption(QCommandLineOption(JsonOption, QStringLiteral("Prints one JSON document: {\"layers\": […]}.")));
  if (!Parse(parser, arguments)) return esDone;
  const QStringList files = FilesOf(parser);
  const bool asJson = parser.isSet(JsonOption);

  TTessera &map = CommandMap();
  const TerminalProgress progress(map);
  QJsonArray layers;
  int status = esDone;
  for (const QString &file : files) {
    for (const TLoadedFile &loaded : OpenMapFile(map, file)) {
      PrintComplaints(loaded);
      if (loaded.layer == nullptr) {
        status = esFailed;
      } else if (const TLayerInfo info = Inspect(*loaded.layer); asJson) {
        layers.append(ToJson(loaded, info));
      } else {
        Print(ToText(loaded, info));
      }
    }
    // One file at a time is enough to hold, and the last one goes with the process.
    if (&file != &files.back()) map.GetLayers()->Clear();
  }
  if (asJson) Print(QString::fromUtf8(QJsonDocument(QJsonObject{{QStringLiteral("layers"), layers}}).toJson()));
  return status;
}

}  // namespace tessera::apps
