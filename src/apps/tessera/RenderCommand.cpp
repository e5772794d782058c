// SPDX-License-Identifier: MIT
#include <apps/common/MapOpening.h>
#include <apps/common/PictureFile.h>
#include <apps/tessera/CommandLine.h>
#include <apps/tessera/LayerInfo.h>
#include <apps/tessera/RenderCommand.h>
#include <apps/tessera/RenderOptions.h>
#include <apps/tessera/TerminalProgress.h>
#include <tessera/controls/TMapLegend.h>
#include <tessera/controls/TScaleBar.h>

#include <QElapsedTimer>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>

#include <algorithm>
#include <numeric>
#include <vector>

namespace tessera::apps {
namespace {

double MsSince(const QElapsedTimer &timer) {
  return double(timer.nsecsElapsed()) / 1e6;
}

/// False when nothing could be read of some file. Every file is looked at, so that all complaints come at once.
bool LoadAll(TTessera &map, const QStringList &files) {
  bool isWhole = true;
  for (const QString &file : files) {
    for (const TLoadedFile &loaded : OpenMapFile(map, file)) {
      PrintComplaints(loaded);
      isWhole = isWhole && loaded.layer != nullptr;
    }
  }
  return isWhole;
}

void SetView(TTessera &map, const TRenderOptions &options) {
  map.ShowAll();
  if (options.center) {
    map.SetCenterX(options.center->X);
    map.SetCenterY(options.center->Y);
  }
  map.SetZoom(options.zoom);
}

/// The most memory the process ever held, in KiB; null where the system does not tell.
QJsonValue PeakMemoryKiB() {
  QFile status(QStringLiteral("/proc/self/status"));
  if (!status.open(QIODevice::ReadOnly)) return QJsonValue::Null;
  const QByteArray name("VmHWM:");
  for (const QByteArray &line : status.readAll().split('\n')) {
    if (line.startsWith(name)) return line.mid(name.size()).simplified().split(' ').first().toLongLong();
  }
  return QJsonValue::Null;
}

/// The middle of the frames after the first, for which more is worked out; null when there is none.
QJsonValue LaterFrameMs(std::vector<double> framesMs) {
  if (framesMs.size() < 2) return QJsonValue::Null;
  const auto middle = framesMs.begin() + 1 + std::ptrdiff_t(framesMs.size() - 1) / 2;
  std::nth_element(framesMs.begin() + 1, middle, framesMs.end());
  return *middle;
}

/// Makes the picture as often as asked and prints what it took.
void PrintTimings(TTessera &map, int rebuilds, double loadMs) {
  std::vector<double> framesMs;
  QJsonArray rebuildMs;
  for (int i = 0; i < rebuilds; ++i) {
    QElapsedTimer timer;
    timer.start();
    map.PaintMapToBitmap();
    framesMs.push_back(MsSince(timer));
    rebuildMs.append(framesMs.back());
  }
  const auto drawn = map.GetDisplayed()->Items();
  const qint64 vertices =
      std::accumulate(drawn.begin(), drawn.end(), qint64(0),
                      [](qint64 sum, const TCustomMapObject *object) { return sum + CountVertices(*object); });
  const QJsonObject line{{QStringLiteral("loadMs"), loadMs},
                         {QStringLiteral("rebuildMs"), rebuildMs},
                         {QStringLiteral("firstFrameMs"), framesMs.front()},
                         {QStringLiteral("laterFrameMs"), LaterFrameMs(framesMs)},
                         {QStringLiteral("objectsDrawn"), qint64(drawn.size())},
                         {QStringLiteral("verticesDrawn"), vertices},
                         {QStringLiteral("peakMemoryKiB"), PeakMemoryKiB()}};
  Print(QString::fromUtf8(QJsonDocument(line).toJson(QJsonDocument::Compact)) + u'\n');
}

/// Writes the picture, with what is asked for over the map.
QString SaveDecorated(TTessera &map, const TRenderOptions &options) {
  TScaleBar scaleBar;
  TMapLegend legend;
  // What is not asked for must not cost a look at all objects.
  const auto add = [&map](TMapDecoration &decoration) {
    decoration.SetMap(&map);
    decoration.SetInPictures(true);
  };
  if (options.scaleBar) {
    scaleBar.SetMeasure(*options.scaleBar);
    add(scaleBar);
  }
  if (options.showsLegend) {
    // Symbols of the map between its samples would pass for samples.
    legend.SetTransparent(false);
    add(legend);
  }
  return SaveMapPicture(map, options.picture);
}

}  // namespace

int RunRender(const QStringList &arguments) {
  const auto options = ParseRenderOptions(arguments);
  if (!options) return esDone;

  TTessera &map = CommandMap();
  const TerminalProgress progress(map);
  map.resize(options->sizePx);
  map.GetPainting()->SetShowSmallObjects(options->showsSmallObjects);
  map.GetPainting()->SetShowCutObjects(true);
  QElapsedTimer timer;
  timer.start();
  if (!LoadAll(map, options->files)) return esFailed;
  const double loadMs = MsSince(timer);

  SetView(map, *options);
  if (options->timedRebuilds > 0) {
    PrintTimings(map, options->timedRebuilds, loadMs);
  } else {
    map.PaintMapToBitmap();
  }
  if (const QString error = SaveDecorated(map, *options); !error.isEmpty()) {
    PrintComplaint(error);
    return esFailed;
  }
  return esDone;
}

}  // namespace tessera::apps
