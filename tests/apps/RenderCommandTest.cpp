// SPDX-License-Identifier: MIT
#include "ProgramRun.h"

#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace tessera::test {
namespace {

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
    const TProgramRun run = RunTessera(arguments + Words(options));
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

TEST_F(RenderCommandTest, ShowsAllOfTheData) {
  const TProgramRun run = Render("squares.mif");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out + run.err, "");
  ASSERT_EQ(image.size(), QSize(216, 116));
  EXPECT_EQ(At(1, 9), Red);
  EXPECT_EQ(At(11, 5), Blue);
  EXPECT_EQ(At(19, 1), Blue);
  EXPECT_EQ(At(15, 5), White) << "the hole";
  EXPECT_EQ(At(-0.5, 5), White) << "the margin";
}

TEST_F(RenderCommandTest, DrawsTheFirstFileAtTheBottom) {
  Render("squares.mif cover.mif");
  EXPECT_EQ(At(1, 9), Green);
  EXPECT_EQ(At(8, 9), Red);
  Render("cover.mif squares.mif");
  EXPECT_EQ(At(1, 9), Red);
}

TEST_F(RenderCommandTest, LooksAtAPlaceWithAZoom) {
  const TProgramRun run = Render("squares.mif", "--center -1,10.5 --zoom 4");
  EXPECT_EQ(run.status, 0) << run.err;
  const QPointF middle(-1, 10.5);
  EXPECT_EQ(At(0.2, 9.8, 40, middle), Red);
  EXPECT_EQ(At(-0.2, 9.8, 40, middle), White);
  EXPECT_EQ(At(0.2, 10.2, 40, middle), White);
}

TEST_F(RenderCommandTest, TellsWhatItTookInOneLineOfJson) {
  for (const auto &[option, rebuilds] : {std::pair("--timings=3", 3), std::pair("--timings", 5)}) {
    const TProgramRun run = Render("squares.mif", option);
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.out.find('\n'), run.out.size() - 1);
    const QJsonObject line = QJsonDocument::fromJson(QByteArray::fromStdString(run.out)).object();
    EXPECT_EQ(line[u"rebuildMs"].toArray().size(), rebuilds) << run.out;
    EXPECT_GT(line[u"loadMs"].toDouble(), 0);
    EXPECT_EQ(line[u"objectsDrawn"].toInt(), 3);
    EXPECT_EQ(line[u"verticesDrawn"].toInt(), 18);
    EXPECT_GT(line[u"peakMemoryKiB"].toInt(), 1000);
    EXPECT_EQ(At(1, 9), Red);
  }
}

TEST_F(RenderCommandTest, ComplainsInOneLineOfWhatItCannotDo) {
  struct Row {
    const char *files, *options;
    int status;
    bool draws = false;
    const char *words = "";
  };
  const Row rows[] = {{"squares.mif missing.mif", "", 1, false, "missing.mif: there is no such file"},
                      {"squares.mif", "--out /nowhere/map.png", 1, false, "/nowhere/map.png"},
                      {"squares.mif", "--size 0x100", 2},
                      {"squares.mif", "--size 100", 2},
                      {"squares.mif", "--center 1;2", 2},
                      {"squares.mif", "--zoom 0", 2},
                      {"squares.mif", "--fit --zoom 2", 2},
                      {"squares.mif", "--timings=none", 2},
                      {"squares.mif", "--out map.nothing", 2},
                      {"defect.mif", "", 0, true, "defect.mif: error in line 18"}};
  for (const auto &[files, options, status, draws, words] : rows) {
    const TProgramRun run = Render(files, options, "");
    EXPECT_EQ(run.status, status) << options;
    EXPECT_EQ(run.CountOfErrorLines(), 1) << run.err;
    EXPECT_TRUE(run.Complains(words)) << run.err;
    EXPECT_EQ(image.size(), draws ? QSize(1024, 768) : QSize(0, 0)) << files << ' ' << options;
  }
}

}  // namespace
}  // namespace tessera::test
