// SPDX-License-Identifier: MIT
#include "BareLoop.h"
#include "BenchData.h"
#include "BenchTable.h"
#include "CircleBench.h"
#include "EditBench.h"
#include "GdalReference.h"
#include "GridBench.h"
#include "HeapUse.h"
#include "IndexBench.h"
#include "InputBench.h"
#include "LabelBench.h"
#include "TesseraSide.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QTemporaryDir>
#include <QTextStream>

#include <stdexcept>

namespace tessera::bench {
namespace {

constexpr QSize PictureSize(1024, 768);

struct Settings {
  /// How often what takes seconds is run: reading and writing.
  int slowRuns;
  /// How often a picture is drawn.
  int fastRuns;
  bool drawsOnly;
  bool indexOnly;
  /// Where the pictures drawn are kept; nowhere when empty.
  QString picturesDir;

  void KeepPicture(const QImage &picture, QString title) const {
    if (picturesDir.isEmpty()) return;
    QDir().mkpath(picturesDir);
    picture.save(QDir(picturesDir).filePath(title.replace(u'/', u'-') + QStringLiteral(".png")));
  }
};

struct MapFile {
  QString label;
  QString mifPath;
};

/// Measures everything there is to measure about one file.
class FileBench {
 public:
  FileBench(MapFile file, const Settings &settings, BenchTable &table)
      : m_file(std::move(file)), m_settings(settings), m_table(table) {}

  void Run() {
    const bool measuresAll = !m_settings.drawsOnly && !m_settings.indexOnly;
    if (measuresAll) {
      MeasureLoad();
      MeasureMemory();
    }
    m_gdal = std::make_unique<GdalMap>(m_file.mifPath);
    m_tessera = std::make_unique<TesseraSide>(m_file.mifPath, PictureSize);
    if (measuresAll) MeasureSave();
    const FlatMap map = m_gdal->Flatten();
    m_gdal.reset();
    if (!m_settings.indexOnly) MeasureDrawing(map);
    if (!m_settings.drawsOnly) MeasureIndex(map);
  }

 private:
  /// Reading and writing have to be eight times as fast.
  static constexpr double FileTarget = 1.0 / 8;

  [[nodiscard]] QString Title(const QString &what) const { return m_file.label + u' ' + what; }

  void MeasureLoad() {
    const auto ours = [this] {
      std::unique_ptr<TesseraSide> map;
      return SecondsOf([&] { map = std::make_unique<TesseraSide>(m_file.mifPath, PictureSize); });
    };
    const auto reference = [this] {
      std::unique_ptr<GdalMap> map;
      return SecondsOf([&] { map = std::make_unique<GdalMap>(m_file.mifPath); });
    };
    m_table.Measure({Title(QStringLiteral("load")), QStringLiteral("s"), ours, reference, FileTarget},
                    m_settings.slowRuns);
  }

  /// The memory that a loaded map keeps: by vertex, or by object where all objects are points.
  void MeasureMemory() {
    constexpr double BytesPerVertex = 20;
    constexpr double BytesPerPoint = 240;
    auto before = HeapUse();
    const auto tessera = std::make_unique<TesseraSide>(m_file.mifPath, PictureSize);
    const auto oursBytes = static_cast<double>(HeapUse() - before);
    before = HeapUse();
    const auto gdal = std::make_unique<GdalMap>(m_file.mifPath);
    const auto gdalBytes = static_cast<double>(HeapUse() - before);
    const auto vertices = static_cast<double>(tessera->CountVertices());
    const bool hasOnlyPoints = tessera->CountVertices() == static_cast<std::size_t>(tessera->GetObjectCount());
    m_table.Measure({Title(QStringLiteral("memory")),
                     hasOnlyPoints ? QStringLiteral("bytes/object") : QStringLiteral("bytes/vertex"),
                     [&] { return oursBytes / vertices; },
                     [&] { return gdalBytes / vertices; },
                     {},
                     hasOnlyPoints ? BytesPerPoint : BytesPerVertex},
                    1);
  }

  void MeasureSave() {
    const QTemporaryDir directory;
    const auto ours = [&] {
      return SecondsOf([&] { m_tessera->Write(directory.filePath(QStringLiteral("ours.mif"))); });
    };
    const auto reference = [&] {
      return SecondsOf([&] { m_gdal->Write(directory.filePath(QStringLiteral("reference.mif"))); });
    };
    m_table.Measure({Title(QStringLiteral("save")), QStringLiteral("s"), ours, reference, FileTarget},
                    m_settings.slowRuns);
  }

  void MeasureDrawing(const FlatMap &map) {
    constexpr double AreaTarget = 1.5;
    constexpr double PointTarget = 3;
    BareLoop loop(map);
    QImage picture(PictureSize, QImage::Format_RGB32);
    // Zoom 4 shows a sixteenth of the area.
    for (const int zoom : {1, 4, 16}) {
      const QString title =
          Title(zoom == 1 ? QStringLiteral("picture of all") : QStringLiteral("picture of 1/%1").arg(zoom * zoom));
      const BareView view = loop.ViewOf(PictureSize, zoom);
      m_tessera->Show(view);
      const auto ours = [&] { return 1000 * SecondsOf([&] { m_tessera->Draw(); }); };
      const auto reference = [&] { return 1000 * SecondsOf([&] { loop.Draw(view, picture); }); };
      const double target = map.HasOnlyPoints() ? PointTarget : AreaTarget;
      m_table.Measure({title, QStringLiteral("ms"), ours, reference, target}, m_settings.fastRuns);
      m_settings.KeepPicture(m_tessera->Picture(), title + QStringLiteral(" ours"));
      m_settings.KeepPicture(picture, title + QStringLiteral(" reference"));
      if (map.HasOnlyPoints()) break;
    }
  }

  void MeasureIndex(const FlatMap &map) {
    IndexBench(m_tessera->Layer(), m_file.label, m_table).Run(m_settings.slowRuns, m_settings.fastRuns);
    if (map.HasOnlyPoints()) return;
    const BareView view = BareLoop(map).ViewOf(PictureSize, 16);
    m_tessera->Show(view);
    TesseraSide alone(m_file.mifPath, PictureSize);
    alone.Show(view);
    alone.KeepOnlyShown();
    const auto drawAlone = [&] { return 1000 * SecondsOf([&] { alone.Draw(); }); };
    for (const bool useIndex : {false, true}) {
      m_tessera->Layer().SetUseIndex2D(useIndex);
      const auto draw = [&] { return 1000 * SecondsOf([&] { m_tessera->Draw(); }); };
      const QString title = Title(QStringLiteral("picture of 1/256 with%1 the index, or of what it shows alone"))
                                .arg(useIndex ? QString() : QStringLiteral("out"));
      m_table.Measure({title, QStringLiteral("ms"), draw, drawAlone, {}}, m_settings.fastRuns);
    }
    // One after the other, so that the difference is not that of two moments.
    const auto search = [&] { return -drawAlone() + 1000 * SecondsOf([&] { m_tessera->Draw(); }); };
    const auto allowance = [] { return 3.0; };
    m_table.Measure({Title(QStringLiteral("finding the objects of the picture, or 3 ms")), QStringLiteral("ms"), search,
                     allowance, 1.0},
                    m_settings.fastRuns);
  }

  void KeepPicture(const QImage &picture, const QString &title) const { m_settings.KeepPicture(picture, title); }

  MapFile m_file;
  const Settings &m_settings;
  BenchTable &m_table;
  std::unique_ptr<GdalMap> m_gdal;
  std::unique_ptr<TesseraSide> m_tessera;
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
       QStringLiteral("Measure only these of the sets L, R, P, T (labels), E (editing), H (input, on L), B (the"
                      " attribute grid, on P) and C (circles)."),
       QStringLiteral("letters"), QStringLiteral("LRPTEHBC")},
      {QStringLiteral("data"), QStringLiteral("Keep the sets in <directory>."), QStringLiteral("directory"),
       QDir::temp().filePath(QStringLiteral("tessera-bench"))},
      {QStringLiteral("draw"), QStringLiteral("Measure drawing only.")},
      {QStringLiteral("index"), QStringLiteral("Measure the spatial index only.")},
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
std::vector<MapFile> FilesToMeasure(const QCommandLineParser &parser) {
  std::vector<MapFile> files;
  for (const QString &path : parser.positionalArguments()) files.push_back({QFileInfo(path).completeBaseName(), path});
  if (!files.empty()) return files;
  for (const BenchSet set : {BenchSet::Regions, BenchSet::Lines, BenchSet::Points}) {
    const QString name = NameOf(set);
    if (!parser.value(QStringLiteral("sets")).contains(name)) continue;
    files.push_back({name, EnsureSet(set, ScaleOf(parser), parser.value(QStringLiteral("data")))});
  }
  return files;
}

/// The sets that are no files.
void MeasureOtherSets(const QCommandLineParser &parser, const Settings &settings, BenchTable &table) {
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
  const Settings settings = {runs, 3 * runs, parser.isSet(QStringLiteral("draw")),
                             parser.isSet(QStringLiteral("index")), parser.value(QStringLiteral("pictures"))};
  BenchTable table;
  for (const MapFile &file : FilesToMeasure(parser)) FileBench(file, settings, table).Run();
  if (parser.positionalArguments().isEmpty() && !settings.indexOnly) MeasureOtherSets(parser, settings, table);
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
