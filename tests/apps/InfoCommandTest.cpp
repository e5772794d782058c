// SPDX-License-Identifier: MIT
#include "ProgramRun.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace tessera::test {
namespace {

const QString Info = QStringLiteral("info");

QJsonArray LayersOf(const TProgramRun &run) {
  return QJsonDocument::fromJson(run.out.toUtf8()).object()[QStringLiteral("layers")].toArray();
}

QJsonArray Numbers(std::initializer_list<double> numbers) {
  QJsonArray array;
  for (const double number : numbers) array.append(number);
  return array;
}

TEST(InfoCommandTest, TellsWhatALayerHolds) {
  const TProgramRun run = RunTessera({Info, MapFileNamed(QStringLiteral("squares.mif"))});
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err.toStdString(), "");
  EXPECT_TRUE(run.out.startsWith(QStringLiteral("squares\n"))) << run.out.toStdString();
  for (const char *row : {"\n  objects        3 (1 TPolyline, 2 TRegion)\n", "\n  parts          4\n",
                          "\n  vertices       18\n", "\n  bounds         0 0 to 20 10\n", ", area Float\n"}) {
    EXPECT_TRUE(run.out.contains(QLatin1String(row))) << row << " in\n" << run.out.toStdString();
  }
}

TEST(InfoCommandTest, TellsTheSameAsJson) {
  const QString file = MapFileNamed(QStringLiteral("squares.mif"));
  const TProgramRun run = RunTessera({Info, file, QStringLiteral("--json")});
  EXPECT_EQ(run.status, 0);
  ASSERT_EQ(LayersOf(run).size(), 1) << run.out.toStdString();
  const QJsonObject layer = LayersOf(run)[0].toObject();
  EXPECT_EQ(layer[QStringLiteral("name")].toString(), QStringLiteral("squares"));
  EXPECT_EQ(layer[QStringLiteral("file")].toString(), file);
  EXPECT_TRUE(layer[QStringLiteral("provider")].toString().contains(QStringLiteral("MIF")));
  EXPECT_EQ(layer[QStringLiteral("objectCount")].toInt(), 3);
  EXPECT_EQ(layer[QStringLiteral("objects")].toObject(),
            (QJsonObject{{QStringLiteral("TPolyline"), 1}, {QStringLiteral("TRegion"), 2}}));
  EXPECT_EQ(layer[QStringLiteral("parts")].toInt(), 4);
  EXPECT_EQ(layer[QStringLiteral("vertices")].toInt(), 18);
  EXPECT_EQ(layer[QStringLiteral("bounds")].toArray(), Numbers({0, 0, 20, 10}));
  EXPECT_TRUE(layer[QStringLiteral("error")].isNull());
  const QJsonArray fields = layer[QStringLiteral("fields")].toArray();
  ASSERT_EQ(fields.size(), 2);
  EXPECT_EQ(fields[0][QStringLiteral("name")].toString(), QStringLiteral("name"));
  EXPECT_EQ(fields[0][QStringLiteral("type")].toString(), QStringLiteral("Char"));
  EXPECT_EQ(fields[1][QStringLiteral("type")].toString(), QStringLiteral("Float"));
}

TEST(InfoCommandTest, ReadsADecimalPointInEveryLocale) {
  for (const char *locale : {"C", "de_DE.UTF-8", "ru_RU.UTF-8"}) {
    const TProgramRun run =
        RunTessera({Info, MapFileNamed(QStringLiteral("squares.mif"))}, QString::fromLatin1(locale));
    EXPECT_EQ(run.status, 0) << locale;
    EXPECT_EQ(run.err.toStdString(), "") << locale;
    EXPECT_TRUE(run.out.contains(QStringLiteral("3 (1 TPolyline, 2 TRegion)"))) << locale;
  }
}

TEST(InfoCommandTest, ShowsWhatCanBeReadOfAFileWithADefect) {
  const TProgramRun run = RunTessera({Info, MapFileNamed(QStringLiteral("defect.mif")), QStringLiteral("--json")});
  EXPECT_EQ(run.status, 0);
  ASSERT_EQ(run.ErrorLines().size(), 1) << run.err.toStdString();
  EXPECT_TRUE(run.err.contains(QStringLiteral("defect.mif: error in line 18: "))) << run.err.toStdString();
  ASSERT_EQ(LayersOf(run).size(), 1);
  const QJsonObject error = LayersOf(run)[0].toObject()[QStringLiteral("error")].toObject();
  EXPECT_EQ(error[QStringLiteral("line")].toInt(), 18);
  EXPECT_TRUE(error[QStringLiteral("words")].toString().contains(QStringLiteral("zero")));
}

TEST(InfoCommandTest, ComplainsInOneLineOfWhatCannotBeRead) {
  const QTemporaryDir folder;
  const struct {
    QString file;
    QString words;
  } rows[] = {
      {folder.filePath(QStringLiteral("missing.mif")), QStringLiteral("there is no such file")},
      {folder.path(), QStringLiteral("this is not a file")},
      {QStringLiteral(TESSERA_PROGRAM), QStringLiteral("no format is known")},
      {MapFileNamed(QStringLiteral("unreadable.mif")), QStringLiteral("error in line 3")},
  };
  for (const auto &row : rows) {
    const TProgramRun run = RunTessera({Info, row.file});
    EXPECT_EQ(run.status, 1) << row.words.toStdString();
    ASSERT_EQ(run.ErrorLines().size(), 1) << run.err.toStdString();
    EXPECT_TRUE(run.err.startsWith(QStringLiteral("tessera: ") + row.file + QStringLiteral(": ") + row.words))
        << run.err.toStdString();
    EXPECT_EQ(run.out.toStdString(), "");
  }
}

TEST(InfoCommandTest, GoesOnWithTheOtherFiles) {
  const TProgramRun run = RunTessera(
      {Info, QStringLiteral("missing.mif"), MapFileNamed(QStringLiteral("cover.mif")), QStringLiteral("--json")});
  EXPECT_EQ(run.status, 1);
  ASSERT_EQ(LayersOf(run).size(), 1);
  EXPECT_EQ(LayersOf(run)[0][QStringLiteral("name")].toString(), QStringLiteral("cover"));
}

TEST(InfoCommandTest, TellsHowItIsUsed) {
  const QStringList asked[] = {{QStringLiteral("--help")},
                               {QStringLiteral("info"), QStringLiteral("--help")},
                               {QStringLiteral("render"), QStringLiteral("--help")}};
  for (const QStringList &arguments : asked) {
    const TProgramRun run = RunTessera(arguments);
    EXPECT_EQ(run.status, 0);
    EXPECT_TRUE(run.out.contains(QStringLiteral("Exit status"))) << run.out.toStdString();
    EXPECT_EQ(run.err.toStdString(), "");
  }
}

TEST(InfoCommandTest, RejectsWrongUsage) {
  const QStringList wrong[] = {{},
                               {QStringLiteral("show")},
                               {QStringLiteral("info")},
                               {QStringLiteral("info"), QStringLiteral("a.mif"), QStringLiteral("--colour")}};
  for (const QStringList &arguments : wrong) {
    const TProgramRun run = RunTessera(arguments);
    EXPECT_EQ(run.status, 2) << arguments.join(u' ').toStdString();
    EXPECT_EQ(run.ErrorLines().size(), 1) << run.err.toStdString();
  }
}

}  // namespace
}  // namespace tessera::test
