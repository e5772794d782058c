// SPDX-License-Identifier: MIT
// A sheet of specimens: every kind of object on a map, and everything it can be drawn with. Themes.h is the place to
// start reading.
#include "SaveLayers.h"
#include "Themes.h"

#include <tessera/base/Exceptions.h>
#include <tessera/formats/SimpleMIFFormatProvider.h>

#include <QApplication>
#include <QCommandLineParser>
#include <QImageWriter>

#include <algorithm>
#include <clocale>
#include <cstdio>

namespace tessera::gallery {
namespace {

enum TExitStatus { esDone = 0, esFailed = 1, esWrongUsage = 2 };

void BuildSheet(TTessera &map) {
  // One repaint at the end instead of one for every object.
  map.BeginUpdate();
  TSheet sheet(map);
  sheet.AddTitle(QStringLiteral("Tessera"), QStringLiteral("Every kind of object on a map, and what it is drawn with"));
  AddLines(sheet);
  AddAreas(sheet);
  AddShapes(sheet);
  AddSymbols(sheet);
  AddTexts(sheet);
  AddLabels(sheet);
  AddPicture(sheet);
  AddGroundCircles(sheet);
  AddSprites(sheet);
  map.EndUpdate(true);
}

/// @throws EInOutError when the picture cannot be written.
void SavePicture(TTessera &map, const QSize &sizePx, const QString &fileName) {
  map.resize(sizePx);
  ShowSheet(map);
  map.PaintMapToBitmap();
  TBitmap picture;
  map.AssignToBitmap(picture);
  QImageWriter writer(fileName);
  if (!writer.write(picture.GetImage())) throw EInOutError(fileName + QStringLiteral(": ") + writer.errorString());
}

/// The size of "WxH"; empty for anything else.
QSize SizeOf(const QString &text) {
  constexpr int MaxSidePx = 32767;
  const QStringList sides = text.split(u'x');
  const QSize size(sides.value(0).toInt(), sides.value(1).toInt());
  const bool isSize = sides.size() == 2 && !size.isEmpty() && std::max(size.width(), size.height()) <= MaxSidePx;
  return isSize ? size : QSize();
}

int Complain(const QString &words, int status) {
  std::fprintf(stderr, "tessera-gallery: %s\n", words.toUtf8().constData());
  return status;
}

int Run(const QCommandLineParser &options, bool hasDisplay) {
  const QSize sizePx = SizeOf(options.value(QStringLiteral("size")));
  if (sizePx.isEmpty()) return Complain(QStringLiteral("--size takes WxH"), esWrongUsage);
  const QString picture = options.value(QStringLiteral("out"));
  const QString folder = options.value(QStringLiteral("save"));
  const bool opensWindow = picture.isEmpty() && folder.isEmpty();
  if (opensWindow && !hasDisplay) {
    return Complain(QStringLiteral("there is no display to open a window on; see --help"), esWrongUsage);
  }
  const TSimpleMIFFormatProvider mif;
  TTessera map;
  BuildSheet(map);
  if (!folder.isEmpty()) SaveLayers(map, folder);
  if (!picture.isEmpty()) SavePicture(map, sizePx, picture);
  if (!opensWindow) return esDone;
  map.setWindowTitle(QStringLiteral("Tessera: gallery"));
  map.resize(sizePx);
  ShowSheet(map);
  map.show();
  return QApplication::exec();
}

/// Without a display Qt draws into memory, which is all that pictures and files take.
bool LookForDisplay() {
#ifdef Q_OS_LINUX
  if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("WAYLAND_DISPLAY")) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    return false;
  }
#endif
  return true;
}

}  // namespace
}  // namespace tessera::gallery

int main(int argc, char **argv) {
  const bool hasDisplay = tessera::gallery::LookForDisplay();
  const QApplication application(argc, argv);
  QApplication::setApplicationName(QStringLiteral("tessera-gallery"));
  // Files are written with the number format in force; the decimal point is what other programs expect.
  QLocale::setDefault(QLocale::c());
  std::setlocale(LC_NUMERIC, "C");

  QCommandLineParser options;
  options.setApplicationDescription(
      QStringLiteral("Shows every kind of object on a map: in a window, or where --out and --save say."));
  options.addHelpOption();
  options.addOptions({
      {QStringLiteral("out"), QStringLiteral("Writes the sheet as a picture."), QStringLiteral("PICTURE")},
      {QStringLiteral("size"), QStringLiteral("The size in pixels, 1200x900 without."), QStringLiteral("WxH"),
       QStringLiteral("1200x900")},
      {QStringLiteral("save"), QStringLiteral("Writes what a MIF file can hold, one file for each layer."),
       QStringLiteral("FOLDER")},
  });
  options.process(application);
  try {
    return tessera::gallery::Run(options, hasDisplay);
  } catch (const std::exception &error) {
    return tessera::gallery::Complain(QString::fromUtf8(error.what()), tessera::gallery::esFailed);
  }
}
