// SPDX-License-Identifier: MIT
#include <apps/common/PictureFile.h>
#include <apps/tessera/CommandLine.h>
#include <apps/tessera/RenderOptions.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace tessera::apps {
namespace {

const QString OutOption = QStringLiteral("out");
const QString SizeOption = QStringLiteral("size");
const QString CenterOption = QStringLiteral("center");
const QString ZoomOption = QStringLiteral("zoom");
const QString FitOption = QStringLiteral("fit");
const QString NoSmallOption = QStringLiteral("no-small");
const QString ScaleBarOption = QStringLiteral("scale-bar");
const QString UnitsOption = QStringLiteral("units");
const QString CoordinatesOption = QStringLiteral("coordinates");
const QString LegendOption = QStringLiteral("legend");
const QString TimingsOption = QStringLiteral("timings");

constexpr std::pair<const char *, TMapMeasure::TUnit> Units[] = {{"km", TMapMeasure::muKilometre},
                                                                 {"m", TMapMeasure::muMetre},
                                                                 {"mi", TMapMeasure::muMile},
                                                                 {"ft", TMapMeasure::muFoot},
                                                                 {"map", TMapMeasure::muMap}};

constexpr int MaxSidePx = 32767;
constexpr int MaxRebuilds = 10000;

EUsageError BadValue(const QString &option, const QString &wanted, const QString &value) {
  return EUsageError(QStringLiteral("--%1 takes %2, not '%3'").arg(option, wanted, value));
}

void AddOptions(QCommandLineParser &parser) {
  parser.addOptions({
      {OutOption, QStringLiteral("Writes the picture here; its ending (.png, …) tells the kind."),
       QStringLiteral("PICTURE")},
      {SizeOption, QStringLiteral("The picture's size in pixels, 1024x768 without."), QStringLiteral("WxH"),
       QStringLiteral("1024x768")},
      {CenterOption, QStringLiteral("The map point in the middle; without, the middle of the data."),
       QStringLiteral("X,Y")},
      {ZoomOption, QStringLiteral("1 shows all of the data, 2 half of its width and height, and so on."),
       QStringLiteral("Z")},
      {FitOption, QStringLiteral("Shows all of the data. This is so without --center and --zoom.")},
      {NoSmallOption, QStringLiteral("Leaves out what is too small to leave ink, instead of a pixel for each.")},
      {ScaleBarOption, QStringLiteral("Draws a scale bar into the lower left corner.")},
      {UnitsOption, QStringLiteral("What the scale bar tells: km, m, mi, ft, or map units; km without."),
       QStringLiteral("UNIT"), QStringLiteral("km")},
      {CoordinatesOption, QStringLiteral("What coordinates are to the scale bar: degrees or metres; degrees without."),
       QStringLiteral("KIND"), QStringLiteral("degrees")},
      {LegendOption, QStringLiteral("Draws a legend of the layers into the upper right corner.")},
      {TimingsOption,
       QStringLiteral("Makes the picture N times (5 without =N) and prints a line of JSON: the milliseconds of "
                      "loading, of each time, of the first one and of the middle one of the others, what was drawn, "
                      "and the most memory used in KiB."),
       QStringLiteral("N")},
  });
}

/// The one option whose value may be left out, which QCommandLineParser does not know.
QStringList WithFullTimings(QStringList arguments) {
  const QString bare = QStringLiteral("--") + TimingsOption;
  for (QString &argument : arguments) {
    if (argument == bare) argument = bare + QStringLiteral("=5");
  }
  return arguments;
}

/// The number that a text holds; not a number when it is none.
double NumberOf(const QString &text) {
  bool isNumber = false;
  const double number = text.toDouble(&isNumber);
  return isNumber && std::isfinite(number) ? number : std::nan("");
}

QSize SizeOf(const QString &text) {
  const QStringList sides = text.toLower().split(u'x');
  const QSize size = sides.size() == 2 ? QSize(sides[0].toInt(), sides[1].toInt()) : QSize();
  if (size.isEmpty() || size.width() > MaxSidePx || size.height() > MaxSidePx) {
    throw BadValue(SizeOption, QStringLiteral("WxH with sides from 1 to %1").arg(MaxSidePx), text);
  }
  return size;
}

TMapPoint PointOf(const QString &text) {
  const QStringList numbers = text.split(u',');
  const TMapPoint point = numbers.size() == 2 ? TMapPoint{NumberOf(numbers[0]), NumberOf(numbers[1])}
                                              : TMapPoint{std::nan(""), std::nan("")};
  if (std::isnan(point.X) || std::isnan(point.Y)) throw BadValue(CenterOption, QStringLiteral("X,Y"), text);
  return point;
}

double ZoomOf(const QString &text) {
  const double zoom = NumberOf(text);
  if (!(zoom > 0)) throw BadValue(ZoomOption, QStringLiteral("a number above 0"), text);
  return zoom;
}

TMapMeasure MeasureOf(const QString &unit, const QString &coordinates) {
  const auto *found = std::ranges::find_if(Units, [&](const auto &row) { return unit == QLatin1String(row.first); });
  if (found == std::end(Units)) throw BadValue(UnitsOption, QStringLiteral("km, m, mi, ft or map"), unit);
  const bool isGeodetic = coordinates == QStringLiteral("degrees");
  if (!isGeodetic && coordinates != QStringLiteral("metres")) {
    throw BadValue(CoordinatesOption, QStringLiteral("degrees or metres"), coordinates);
  }
  return {found->second, isGeodetic};
}

int RebuildsOf(const QString &text) {
  const int count = text.toInt();
  if (count < 1 || count > MaxRebuilds) {
    throw BadValue(TimingsOption, QStringLiteral("a count from 1 to %1").arg(MaxRebuilds), text);
  }
  return count;
}

void ReadDecorations(const QCommandLineParser &parser, TRenderOptions &options) {
  options.showsLegend = parser.isSet(LegendOption);
  if (parser.isSet(ScaleBarOption)) {
    options.scaleBar = MeasureOf(parser.value(UnitsOption), parser.value(CoordinatesOption));
  } else if (parser.isSet(UnitsOption) || parser.isSet(CoordinatesOption)) {
    throw EUsageError(QStringLiteral("--units and --coordinates want a --scale-bar"));
  }
}

}  // namespace

std::optional<TRenderOptions> ParseRenderOptions(const QStringList &arguments) {
  QCommandLineParser parser;
  SetUpParser(parser, QStringLiteral("Draws map files to a picture."), QStringLiteral("render FILE… --out PICTURE"));
  AddOptions(parser);
  if (!Parse(parser, WithFullTimings(arguments))) return std::nullopt;

  TRenderOptions options;
  options.files = FilesOf(parser);
  options.picture = parser.value(OutOption);
  options.sizePx = SizeOf(parser.value(SizeOption));
  if (options.picture.isEmpty()) throw EUsageError(QStringLiteral("--out PICTURE is missing"));
  if (!IsPictureName(options.picture)) {
    throw EUsageError(options.picture + QStringLiteral(": pictures of this kind cannot be written"));
  }
  if (parser.isSet(CenterOption)) options.center = PointOf(parser.value(CenterOption));
  if (parser.isSet(ZoomOption)) options.zoom = ZoomOf(parser.value(ZoomOption));
  if (parser.isSet(FitOption) && (parser.isSet(CenterOption) || parser.isSet(ZoomOption))) {
    throw EUsageError(QStringLiteral("--fit leaves nothing to --center and --zoom"));
  }
  ReadDecorations(parser, options);
  options.showsSmallObjects = !parser.isSet(NoSmallOption);
  if (parser.isSet(TimingsOption)) options.timedRebuilds = RebuildsOf(parser.value(TimingsOption));
  return options;
}

}  // namespace tessera::apps
