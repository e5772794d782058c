// SPDX-License-Identifier: MIT
#include "MapFiles.h"

#include <QFile>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace tessera::test {
namespace {

/// What a run of the program `tessera` came to.
struct TProgramRun {
  int status = -1;  ///< -1 when it did not end by itself.
  std::string out;
  std::string err;

  [[nodiscard]] bool Complains(std::string_view words) const { return err.find(words) != std::string::npos; }
  [[nodiscard]] auto CountOfErrorLines() const { return std::count(err.begin(), err.end(), '\n'); }
};

TProgramRun RunTessera(const QStringList &arguments, const char *locale = "C.UTF-8") {
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

constexpr QRgb Red = 0xffff0000;
constexpr QRgb Green = 0xff00ff00;
constexpr QRgb Blue = 0xff0000ff;
constexpr QRgb White = 0xffffffff;

/// Draws the squares, 20 x 10 map units: with 216 x 116 pixels one map unit takes 10 pixels, and 8 pixels are left on
/// every side.
class RenderCommandTest : public testing::Test {
 protected:
  TProgramRun Render(const char *files, const char *options = "", const char *size = "--size 216x116") {
    QStringList arguments = Words("render") + Words(size) + QStringList{QStringLiteral("--out"), picture};
    for (const QString &file : Words(files)) arguments.append(MapFileNamed(file.toLatin1().constData()));
    TProgramRun run = RunTessera(arguments + Words(options));
    image = QImage(picture).convertToFormat(QImage::Format_ARGB32);
    return run;
  }

  /// The colour at a map point, for a picture of the given middle and pixels for each map unit.
  [[nodiscard]] QRgb At(double x, double y, double scale = 10, QPointF center = {10, 5}) const {
    return image.pixel(int(image.width() / 2.0 + (x - center.x()) * scale),
                       int(image.height() / 2.0 - (y - center.y()) * scale));
  }

  const QTemporaryDir folder;
  const QString picture = folder.filePath(QStringLiteral("map.png"));
  QImage image;
};

TEST_F(RenderCommandTest, ShowsAllOfTheDataFirstFileAtTheBottom) {
  const TProgramRun run = Render("cover.mif squares.mif");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out + run.err, "");
  ASSERT_EQ(image.size(), QSize(216, 116));
  EXPECT_EQ(At(1, 9), Red);
  EXPECT_EQ(At(19, 1), Blue);
  EXPECT_EQ(At(15, 5), White) << "the hole";
  EXPECT_EQ(At(-0.5, 5), White) << "the margin";
  Render("squares.mif cover.mif");
  EXPECT_EQ(At(1, 9), Green);
}

TEST_F(RenderCommandTest, LooksAtAPlaceWithAZoom) {
  const TProgramRun run = Render("squares.mif", "--center -1,10.5 --zoom 4");
  EXPECT_EQ(run.status, 0) << run.err;
  const QPointF middle(-1, 10.5);
  EXPECT_EQ(At(0.2, 9.8, 40, middle), Red);
  EXPECT_EQ(At(0.2, 10.2, 40, middle), White);
}

TEST_F(RenderCommandTest, TellsWhatItTookInOneLineOfJson) {
  const TProgramRun run = Render("squares.mif", "--timings=3");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out.find('\n'), run.out.size() - 1);
  const QJsonObject line = QJsonDocument::fromJson(QByteArray::fromStdString(run.out)).object();
  EXPECT_EQ(line[u"rebuildMs"].toArray().size(), 3) << run.out;
  EXPECT_EQ(line[u"firstFrameMs"], line[u"rebuildMs"][0]);
  const double later[] = {line[u"rebuildMs"][1].toDouble(), line[u"rebuildMs"][2].toDouble()};
  EXPECT_EQ(line[u"laterFrameMs"].toDouble(), std::max(later[0], later[1]));
  EXPECT_EQ(line[u"verticesDrawn"].toInt(), 18);
  EXPECT_GT(line[u"peakMemoryKiB"].toInt(), 1000);
}

TEST_F(RenderCommandTest, DrawsAScaleBarAsItIsMeasured) {
  // The row of pixels that the bar covers, with and without: how far they differ is how long it is.
  constexpr int BarRow = 101;
  Render("squares.mif");
  const QImage plain = image;
  const std::pair<const char *, int> rows[] = {{"--units map", 100},
                                               {"--units km --coordinates metres", 100},
                                               {"--units m --coordinates metres", 100},
                                               {"--units ft --coordinates metres", 61},
                                               {"", 90},  // 1000 km at 5 degrees north
                                               {"--units mi", 145}};
  for (const auto &[units, lengthPx] : rows) {
    const TProgramRun run = Render("squares.mif", ("--scale-bar " + std::string(units)).c_str());
    EXPECT_EQ(run.status, 0) << run.err;
    ASSERT_EQ(image.size(), plain.size());
    int first = image.width();
    int last = -1;
    for (int x = 0; x < image.width(); ++x) {
      if (image.pixel(x, BarRow) == plain.pixel(x, BarRow)) continue;
      first = std::min(first, x);
      last = x;
    }
    EXPECT_EQ(first, 12) << units;
    EXPECT_NEAR(last - first, lengthPx, 1) << units;
  }
}

TEST_F(RenderCommandTest, DrawsALegendIntoItsCornerOfEveryKindOfPicture) {
  Render("squares.mif");
  const QImage plain = image;
  EXPECT_EQ(Render("squares.mif", "--legend").status, 0);
  int changed[2][2] = {};
  for (int y = 0; y < image.height(); ++y) {
    for (int x = 0; x < image.width(); ++x) {
      changed[y < image.height() / 2][x < image.width() / 2] += image.pixel(x, y) != plain.pixel(x, y);
    }
  }
  EXPECT_GT(changed[1][0], 100) << "above, on the right";
  EXPECT_EQ(changed[0][0] + changed[0][1] + changed[1][1], 0);

  const auto drawingWith = [&](const char *options) {
    const QString drawing = folder.filePath(QStringLiteral("map.svg"));
    EXPECT_EQ(Render("squares.mif", (std::string(options) + " --out " + drawing.toStdString()).c_str()).status, 0);
    QFile file(drawing);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
  };
  const auto without = drawingWith("").count("<path");
  const auto withBar = drawingWith("--scale-bar").count("<path");
  EXPECT_GT(withBar, without);
  EXPECT_GT(drawingWith("--scale-bar --legend").count("<path"), withBar);
}

TEST_F(RenderCommandTest, ComplainsInOneLineOfWhatItCannotDo) {
  const std::tuple<const char *, const char *, int, const char *> rows[] = {
      {"squares.mif missing.mif", "", 1, "missing.mif: there is no such file"},
      {"squares.mif", "--out /nowhere/map.png", 1, "/nowhere/map.png"},
      {"squares.mif", "--size 0x100", 2, ""},
      {"squares.mif", "--center 1;2", 2, ""},
      {"squares.mif", "--fit --zoom 2", 2, ""},
      {"squares.mif", "--timings=none", 2, ""},
      {"squares.mif", "--scale-bar --units yards", 2, "km, m, mi, ft or map"},
      {"squares.mif", "--scale-bar --coordinates feet", 2, "degrees or metres"},
      {"squares.mif", "--units km", 2, "--scale-bar"},
      {"squares.mif", "--out map.nothing", 2, ""},
      {"defect.mif", "", 0, "defect.mif: error in line 18"}};
  for (const auto &[files, options, status, words] : rows) {
    const TProgramRun run = Render(files, options, "");
    EXPECT_EQ(run.status, status) << options;
    EXPECT_EQ(run.CountOfErrorLines(), 1) << run.err;
    EXPECT_TRUE(run.Complains(words)) << run.err;
    EXPECT_EQ(image.size(), status == 0 ? QSize(1024, 768) : QSize(0, 0)) << files << ' ' << options;
  }
}

const QString Info = QStringLiteral("info");
const QString AsJson = QStringLiteral("--json");

QJsonArray LayersOf(const TProgramRun &run) {
  return QJsonDocument::fromJson(QByteArray::fromStdString(run.out)).object()[u"layers"].toArray();
}

TEST(InfoCommandTest, TellsWhatALayerHoldsInAnotherLocale) {
  const TProgramRun run = RunTessera({Info, MapFileNamed("squares.mif")}, "de_DE.UTF-8");
  EXPECT_EQ(run.status, 0);
  EXPECT_TRUE(run.out.starts_with("squares\n")) << run.out;
  for (const char *row : {"\n  objects        3 (1 TPolyline, 2 TRegion)\n", "\n  vertices       18\n",
                          "\n  bounds         0 0 to 20 10\n", ", area Float\n"}) {
    EXPECT_NE(run.out.find(row), std::string::npos) << row << " in\n" << run.out;
  }
}

TEST(InfoCommandTest, TellsTheSameAsJson) {
  const QString file = MapFileNamed("squares.mif");
  const TProgramRun run = RunTessera({Info, file, AsJson});
  EXPECT_EQ(run.status, 0);
  ASSERT_EQ(LayersOf(run).size(), 1) << run.out;
  QJsonObject layer = LayersOf(run)[0].toObject();
  EXPECT_EQ(layer.take(u"file").toString(), file);
  EXPECT_TRUE(layer.take(u"provider").toString().contains(u"MapInfo"));
  const QByteArray expected = R"({
    "name": "squares", "objectCount": 3, "objects": {"TPolyline": 1, "TRegion": 2}, "parts": 4, "vertices": 18,
    "bounds": [0, 0, 20, 10], "error": null, "warnings": [],
    "fields": [{"name": "name", "type": "Char", "size": 0}, {"name": "area", "type": "Float", "size": 0}],
    "skippedLines": {}})";
  EXPECT_EQ(layer, QJsonDocument::fromJson(expected).object()) << run.out;
}

TEST(InfoCommandTest, FindsTheSameInTheWorkspaceOfTheWorldAsInItsLayers) {
  const QString samples = QStringLiteral(TESSERA_SAMPLES);
  QStringList files{Info, AsJson};
  for (const char *layer : {"graticule", "countries", "cities"}) {
    files << samples + QStringLiteral("/world/") + QLatin1String(layer) + QStringLiteral(".mif");
  }
  const TProgramRun workspace = RunTessera({Info, AsJson, samples + QStringLiteral("/workspace/world.wor")});
  if (workspace.err.find("could not be read") != std::string::npos) GTEST_SKIP() << "built without a MITAB library";
  const QJsonArray layers = LayersOf(RunTessera(files));
  ASSERT_EQ(layers.size(), 3);
  ASSERT_EQ(LayersOf(workspace).size(), 3) << workspace.err;
  EXPECT_EQ(workspace.err, "");
  for (int i = 0; i < 3; ++i) {
    for (const char *key : {"name", "objects", "parts", "vertices"}) {
      EXPECT_EQ(LayersOf(workspace)[i][QLatin1String(key)], layers[i][QLatin1String(key)]) << key << " of " << i;
    }
    for (int side = 0; side < 4; ++side) {
      EXPECT_NEAR(LayersOf(workspace)[i][u"bounds"][side].toDouble(), layers[i][u"bounds"][side].toDouble(), 1e-6);
    }
  }
}

TEST(InfoCommandTest, ShowsWhatCanBeReadOfFilesWithADefectOrMissing) {
  const TProgramRun run = RunTessera({Info, QStringLiteral("missing.mif"), MapFileNamed("defect.mif"), AsJson});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.CountOfErrorLines(), 2) << run.err;
  EXPECT_TRUE(run.Complains("defect.mif: error in line 18: ")) << run.err;
  ASSERT_EQ(LayersOf(run).size(), 1);
  EXPECT_EQ(LayersOf(run)[0][u"error"][u"line"].toInt(), 18);
}

TEST(InfoCommandTest, ComplainsInOneLineOfWhatCannotBeRead) {
  const std::pair<QString, std::string> rows[] = {{QStringLiteral("/nowhere/a.mif"), "there is no such file"},
                                                  {QStringLiteral("/"), "this is not a file"},
                                                  {QStringLiteral(TESSERA_PROGRAM), "no format is known"},
                                                  {MapFileNamed("unreadable.mif"), "error in line 3"}};
  for (const auto &[file, words] : rows) {
    const TProgramRun run = RunTessera({Info, file});
    EXPECT_EQ(run.status, 1) << words;
    EXPECT_EQ(run.CountOfErrorLines(), 1) << run.err;
    EXPECT_TRUE(run.err.starts_with("tessera: " + file.toStdString() + ": " + words)) << run.err;
  }
}

TEST(InfoCommandTest, TellsHowItIsUsedAndRejectsWrongUsage) {
  const TProgramRun help = RunTessera(Words("render --help"));
  EXPECT_EQ(help.status, 0);
  EXPECT_NE(help.out.find("Exit status"), std::string::npos) << help.out;
  for (const char *arguments : {"", "show", "info", "info a.mif --colour"}) {
    const TProgramRun run = RunTessera(Words(arguments));
    EXPECT_EQ(run.status, 2) << arguments;
    EXPECT_EQ(run.CountOfErrorLines(), 1) << run.err;
  }
}

const QString Convert = QStringLiteral("convert");

TEST(ConvertCommandTest, WritesTheOtherFormatAndBack) {
  const QTemporaryDir folder;
  const QString table = folder.filePath(QStringLiteral("squares.tab"));
  const QString text = folder.filePath(QStringLiteral("again.mif"));
  const TProgramRun there = RunTessera({Convert, MapFileNamed("squares.mif"), table});
  EXPECT_EQ(there.status, 0) << there.err;
  const TProgramRun back =
      RunTessera({Convert, table, text, QStringLiteral("--charset"), QStringLiteral("WindowsLatin1")});
  EXPECT_EQ(back.status, 0) << back.err;
  EXPECT_EQ(there.err + back.out + back.err, "");
  QFile written(text);
  ASSERT_TRUE(written.open(QIODevice::ReadOnly));
  const QByteArray bytes = written.readAll();
  EXPECT_TRUE(bytes.contains("Charset \"WindowsLatin1\"")) << bytes.constData();
  EXPECT_TRUE(bytes.contains("name Char(20)")) << bytes.constData();
  EXPECT_TRUE(bytes.contains("\n5.5 5.25")) << bytes.constData();
}

TEST(ConvertCommandTest, TellsWhatGotLost) {
  const QTemporaryDir folder;
  const QString text = folder.filePath(QStringLiteral("points.mif"));
  const QString table = folder.filePath(QStringLiteral("points.tab"));
  QFile file(text);
  ASSERT_TRUE(file.open(QIODevice::WriteOnly));
  file.write("Version 450\nColumns 1\n  A Integer\nData\n\nMultipoint 2\n1 1\n2 2\n");
  file.close();
  const TProgramRun run = RunTessera({Convert, text, table});
  EXPECT_EQ(run.status, 3);
  EXPECT_TRUE(run.Complains("lost when read: multipoints, read as symbols: 1")) << run.err;
  EXPECT_TRUE(QFile::exists(table));
  EXPECT_EQ(RunTessera({Convert, text, table, QStringLiteral("--allow-loss")}).status, 0);
}

TEST(ConvertCommandTest, ComplainsOfWhatItCannotDo) {
  const QString squares = MapFileNamed("squares.mif");
  const std::tuple<QStringList, int, const char *> rows[] = {
      {{squares}, 2, "a file to read and one to write"},
      {{squares, QStringLiteral("/tmp/a.shp")}, 2, "cannot be written"},
      {{squares, QStringLiteral("a.tab"), QStringLiteral("--charset"), QStringLiteral("Klingon")},
       2,
       "no character set"},
      {{QStringLiteral("missing.mif"), QStringLiteral("a.tab")}, 1, "there is no such file"},
      {{squares, QStringLiteral("/nowhere/a.tab")}, 1, "/nowhere/a.tab"}};
  for (const auto &[arguments, status, words] : rows) {
    const TProgramRun run = RunTessera(QStringList{Convert} + arguments);
    EXPECT_EQ(run.status, status);
    EXPECT_TRUE(run.Complains(words)) << run.err;
  }
}

}  // namespace
}  // namespace tessera::test
