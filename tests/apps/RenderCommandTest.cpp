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
  TProgramRun Render(const QStringList &files, const QStringList &options) {
    QStringList arguments{QStringLiteral("render")};
    for (const QString &file : files) arguments.append(MapFileNamed(file));
    arguments += {QStringLiteral("--out"), picture};
    const TProgramRun run = RunTessera(arguments + options);
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
  const QStringList squares{QStringLiteral("squares.mif")};
  const QStringList size{QStringLiteral("--size"), QStringLiteral("216x116")};
  QImage image;
};

TEST_F(RenderCommandTest, ShowsAllOfTheData) {
  const TProgramRun run = Render(squares, size);
  EXPECT_EQ(run.status, 0) << run.err.toStdString();
  EXPECT_EQ(QString(run.out + run.err).toStdString(), "");
  ASSERT_EQ(image.size(), QSize(216, 116));
  EXPECT_EQ(At(1, 9), Red);
  EXPECT_EQ(At(11, 5), Blue);
  EXPECT_EQ(At(19, 1), Blue);
  EXPECT_EQ(At(15, 5), White) << "the hole";
  EXPECT_EQ(At(-0.5, 5), White) << "the margin";
}

TEST_F(RenderCommandTest, DrawsTheFirstFileAtTheBottom) {
  Render({QStringLiteral("squares.mif"), QStringLiteral("cover.mif")}, size);
  EXPECT_EQ(At(1, 9), Green);
  EXPECT_EQ(At(8, 9), Red);
  Render({QStringLiteral("cover.mif"), QStringLiteral("squares.mif")}, size);
  EXPECT_EQ(At(1, 9), Red);
}

TEST_F(RenderCommandTest, ShowsTallDataWhole) {
  // 5 x 10 map units, as high as the space between the margins.
  Render({QStringLiteral("cover.mif")}, size);
  const QPointF middle(2.5, 5);
  EXPECT_EQ(At(0.2, 9.8, 10, middle), Green);
  EXPECT_EQ(At(4.8, 0.2, 10, middle), Green);
  EXPECT_EQ(At(5.2, 5, 10, middle), White);
  EXPECT_EQ(At(2.5, 10.2, 10, middle), White);
}

TEST_F(RenderCommandTest, LooksAtAPlaceWithAZoom) {
  const TProgramRun run = Render(squares, size + QStringList{QStringLiteral("--center"), QStringLiteral("-1,10.5"),
                                                             QStringLiteral("--zoom"), QStringLiteral("4")});
  EXPECT_EQ(run.status, 0) << run.err.toStdString();
  const QPointF middle(-1, 10.5);
  EXPECT_EQ(At(0.2, 9.8, 40, middle), Red);
  EXPECT_EQ(At(-0.2, 9.8, 40, middle), White);
  EXPECT_EQ(At(0.2, 10.2, 40, middle), White);
}

TEST_F(RenderCommandTest, TellsWhatItTookInOneLineOfJson) {
  const TProgramRun run = Render(squares, size + QStringList{QStringLiteral("--timings=3")});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out.count(u'\n'), 1);
  const QJsonObject line = QJsonDocument::fromJson(run.out.toUtf8()).object();
  EXPECT_EQ(line[QStringLiteral("rebuildMs")].toArray().size(), 3) << run.out.toStdString();
  EXPECT_GT(line[QStringLiteral("loadMs")].toDouble(), 0);
  EXPECT_EQ(line[QStringLiteral("objectsDrawn")].toInt(), 3);
  EXPECT_EQ(line[QStringLiteral("verticesDrawn")].toInt(), 18);
  EXPECT_GT(line[QStringLiteral("peakMemoryKiB")].toInt(), 1000);
  EXPECT_EQ(At(1, 9), Red);
}

TEST_F(RenderCommandTest, TakesTimingsWithoutACount) {
  const TProgramRun run = Render(squares, size + QStringList{QStringLiteral("--timings")});
  const QJsonObject line = QJsonDocument::fromJson(run.out.toUtf8()).object();
  EXPECT_EQ(line[QStringLiteral("rebuildMs")].toArray().size(), 5) << run.out.toStdString();
}

TEST_F(RenderCommandTest, WritesNoPictureWhenAFileCannotBeRead) {
  const TProgramRun run = Render({QStringLiteral("squares.mif"), QStringLiteral("missing.mif")}, size);
  EXPECT_EQ(run.status, 1);
  ASSERT_EQ(run.ErrorLines().size(), 1) << run.err.toStdString();
  EXPECT_TRUE(run.err.contains(QStringLiteral("missing.mif: there is no such file")));
  EXPECT_TRUE(image.isNull());
}

TEST_F(RenderCommandTest, DrawsWhatCanBeReadOfAFileWithADefect) {
  const TProgramRun run = Render({QStringLiteral("defect.mif")}, {});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.ErrorLines().size(), 1) << run.err.toStdString();
  EXPECT_EQ(image.size(), QSize(1024, 768));
}

TEST_F(RenderCommandTest, ComplainsOfAPictureThatCannotBeWritten) {
  const QString nowhere = folder.filePath(QStringLiteral("none/map.png"));
  const TProgramRun run =
      RunTessera({QStringLiteral("render"), MapFileNamed(squares.first()), QStringLiteral("--out"), nowhere});
  EXPECT_EQ(run.status, 1);
  ASSERT_EQ(run.ErrorLines().size(), 1);
  EXPECT_TRUE(run.err.contains(nowhere)) << run.err.toStdString();
}

TEST_F(RenderCommandTest, RejectsWrongOptions) {
  const QStringList wrong[] = {
      {QStringLiteral("--size"), QStringLiteral("0x100")},
      {QStringLiteral("--size"), QStringLiteral("100")},
      {QStringLiteral("--center"), QStringLiteral("1;2")},
      {QStringLiteral("--zoom"), QStringLiteral("0")},
      {QStringLiteral("--fit"), QStringLiteral("--zoom"), QStringLiteral("2")},
      {QStringLiteral("--timings=none")},
      {QStringLiteral("--out"), QStringLiteral("map.nothing")},
  };
  for (const QStringList &options : wrong) {
    const TProgramRun run = Render(squares, options);
    EXPECT_EQ(run.status, 2) << options.join(u' ').toStdString();
    EXPECT_EQ(run.ErrorLines().size(), 1) << run.err.toStdString();
    EXPECT_TRUE(image.isNull());
  }
}

}  // namespace
}  // namespace tessera::test
