// SPDX-License-Identifier: MIT
#include "BenchData.h"
#include "CircleBench.h"
#include "EditBench.h"
#include "FileBench.h"
#include "GridBench.h"
#include "InputBench.h"
#include "LabelBench.h"
#include "ProgramBench.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QTextStream>

#include <memory>
#include <stdexcept>

namespace tessera::bench {
namespace {

constexpr QSize PictureSize(1024, 768);

/// The sets that are files, the letter that chooses each, and what is to be reached.
struct FileSet {
  BenchSet set;
  char letter;
  FileGoals goals;
};
constexpr FileSet FileSets[] = {
    {BenchSet::Regions, 'L', {1 / 24.0, 19.5, 21, {0.25, 0.5, 0.15}, 1.3}},
    {BenchSet::Lines, 'R', {1 / 20.0, 20, 0, {0.6, 1.5, 1.5}}},
    {BenchSet::Points, 'P', {1 / 14.0, 130, 150, {3, 0, 0}, 1.3}},
    {BenchSet::SmallPlainPoints, 's', {1 / 14.0, 130, 150, {1, 0, 0}}},
    {BenchSet::LargePlainPoints, 'l', {1 / 14.0, 130, 150, {1, 0, 0}}},
};

void DescribeOptions(QCommandLineParser &parser) {
  parser.setApplicationDescription(
      QStringLiteral("Measures Tessera side by side with GDAL and with a bare QPainter loop."));
  parser.addHelpOption();
  parser.addOptions({
      {QStringLiteral("quick"), QStringLiteral("Use sets of a twentieth of the size.")},
      {QStringLiteral("runs"), QStringLiteral("Run each side <n> times; pictures thrice as often."),
       QStringLiteral("n"), QStringLiteral("3")},
      {QStringLiteral("sets"),
       QStringLiteral("Measure only these of the sets L, R, P, s and l (P with one small or large symbol), T"
                      " (labels), E (editing), H (input, on L), B (the attribute grid, on P), C (circles) and W"
                      " (the program tessera, on L, R and P)."),
       QStringLiteral("letters"), QStringLiteral("LRPslTEHBCW")},
      {QStringLiteral("data"), QStringLiteral("Keep the sets in <directory>."), QStringLiteral("directory"),
       QDir::temp().filePath(QStringLiteral("tessera-bench"))},
      {QStringLiteral("draw"), QStringLiteral("Measure drawing only.")},
      {QStringLiteral("index"), QStringLiteral("Measure the spatial index only.")},
      {QStringLiteral("tables"), QStringLiteral("Measure loading TAB files only.")},
      {QStringLiteral("pictures"), QStringLiteral("Keep what is drawn in <directory>."), QStringLiteral("directory")},
      {QStringLiteral("json"), QStringLiteral("Write the figures to <file>, too."), QStringLiteral("file")},
  });
  parser.addPositionalArgument(QStringLiteral("files"), QStringLiteral("MIF files to measure instead of the sets."),
                               QStringLiteral("[file.mif…]"));
}

BenchScale ScaleOf(const QCommandLineParser &parser) {
  return parser.isSet(QStringLiteral("quick")) ? BenchScale::Quick : BenchScale::Full;
}

/// The files named, or else the sets chosen, made when they are not there yet.
std::vector<BenchFile> FilesToMeasure(const QCommandLineParser &parser) {
  std::vector<BenchFile> files;
  for (const QString &path : parser.positionalArguments()) {
    files.push_back({QFileInfo(path).completeBaseName(), path, SymbolSizePx(BenchSet::Points), {}});
  }
  if (!files.empty()) return files;
  for (const auto &[set, letter, goals] : FileSets) {
    if (!parser.value(QStringLiteral("sets")).contains(QLatin1Char(letter))) continue;
    const QString path = EnsureSet(set, ScaleOf(parser), parser.value(QStringLiteral("data")));
    files.push_back({NameOf(set), path, SymbolSizePx(set), goals});
  }
  return files;
}

/// The sets that are no files.
void MeasureOtherSets(const QCommandLineParser &parser, const FileBenchSettings &settings, BenchTable &table) {
  const QString sets = parser.value(QStringLiteral("sets"));
  if (sets.contains(u'T')) {
    LabelBench labels(PictureSize, table);
    labels.Run(settings.fastRuns);
    settings.KeepPicture(labels.OursPicture(), QStringLiteral("T ours"));
    settings.KeepPicture(labels.ReferencePicture(), QStringLiteral("T reference"));
  }
  if (sets.contains(u'C')) MeasureCircles(PictureSize, table, settings.fastRuns);
  if (settings.drawsOnly) return;
  const QString directory = parser.value(QStringLiteral("data"));
  if (sets.contains(u'W')) {
    for (const auto &[set, timesGdal] :
         {std::pair(BenchSet::Regions, 18), std::pair(BenchSet::Lines, 15), std::pair(BenchSet::Points, 12)}) {
      ProgramBench(NameOf(set), EnsureSet(set, ScaleOf(parser), directory), timesGdal, PictureSize, table)
          .Run(settings.slowRuns);
    }
  }
  if (sets.contains(u'H')) {
    InputBench(EnsureSet(BenchSet::Regions, ScaleOf(parser), directory), PictureSize, table).Run(settings.fastRuns);
  }
  if (sets.contains(u'B')) {
    MeasureGrid(EnsureSet(BenchSet::Points, ScaleOf(parser), directory), PictureSize, table, settings.fastRuns);
  }
  if (!sets.contains(u'E')) return;
  const QString points = EnsureSet(BenchSet::Points, ScaleOf(parser), directory);
  EditBench editing(PictureSize, table);
  editing.MeasureNextPicture(EnsureSet(BenchSet::Regions, ScaleOf(parser), directory), settings.fastRuns);
  editing.MeasureDeleting(points, settings.slowRuns);
  editing.MeasureHiding(points, settings.slowRuns);
}

void Run(const QCommandLineParser &parser) {
  const int runs = std::max(1, parser.value(QStringLiteral("runs")).toInt());
  const FileBenchSettings settings = {PictureSize,
                                      runs,
                                      3 * runs,
                                      parser.isSet(QStringLiteral("draw")),
                                      parser.isSet(QStringLiteral("index")),
                                      parser.isSet(QStringLiteral("tables")),
                                      parser.value(QStringLiteral("pictures"))};
  BenchTable table;
  for (const BenchFile &file : FilesToMeasure(parser)) FileBench(file, settings, table).Run();
  const bool measuresFilesOnly = settings.indexOnly || settings.tablesOnly;
  if (parser.positionalArguments().isEmpty() && !measuresFilesOnly) MeasureOtherSets(parser, settings, table);
  QTextStream(stdout) << table.ToMarkdown();
  if (!parser.isSet(QStringLiteral("json"))) return;
  QFile json(parser.value(QStringLiteral("json")));
  if (!json.open(QIODevice::WriteOnly) || json.write(table.ToJson()) < 0) {
    throw std::runtime_error(json.fileName().toStdString() + ": " + json.errorString().toStdString());
  }
}

}  // namespace
}  // namespace tessera::bench

int main(int argc, char **argv) {
  if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
  // The files have decimal points whatever the machine is set to.
  QLocale::setDefault(QLocale::c());
  const QApplication application(argc, argv);
  try {
    if (argc == 3 && QByteArrayView(argv[1]) == tessera::bench::ReadWithGdal) {
      // Kept to the end of the process, as the program does.
      static const tessera::bench::GdalMap *const map =
          std::make_unique<tessera::bench::GdalMap>(QString::fromLocal8Bit(argv[2])).release();
      return map == nullptr ? 1 : 0;
    }
    QCommandLineParser parser;
    tessera::bench::DescribeOptions(parser);
    parser.process(application);
    tessera::bench::Run(parser);
  } catch (const std::exception &error) {
    QTextStream(stderr) << error.what() << Qt::endl;
    return 1;
  }
  return 0;
}
