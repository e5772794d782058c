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
const QString AsJson = QStringLiteral("--json");

QJsonArray LayersOf(const TProgramRun &run) {
  return QJsonDocument::fromJson(QByteArray::fromStdString(run.out)).object()[u"layers"].toArray();
}

TEST(InfoCommandTest, TellsWhatALayerHoldsInEveryLocale) {
  for (const char *locale : {"C", "de_DE.UTF-8", "ru_RU.UTF-8"}) {
    const TProgramRun run = RunTessera({Info, MapFileNamed("squares.mif")}, locale);
    EXPECT_EQ(run.status, 0) << locale;
    EXPECT_EQ(run.err, "") << locale;
    EXPECT_TRUE(run.out.starts_with("squares\n")) << run.out;
    for (const char *row : {"\n  objects        3 (1 TPolyline, 2 TRegion)\n", "\n  parts          4\n",
                            "\n  vertices       18\n", "\n  bounds         0 0 to 20 10\n", ", area Float\n"}) {
      EXPECT_NE(run.out.find(row), std::string::npos) << row << " in\n" << run.out;
    }
  }
}

TEST(InfoCommandTest, TellsTheSameAsJson) {
  const QString file = MapFileNamed("squares.mif");
  const TProgramRun run = RunTessera({Info, file, AsJson});
  EXPECT_EQ(run.status, 0);
  ASSERT_EQ(LayersOf(run).size(), 1) << run.out;
  QJsonObject layer = LayersOf(run)[0].toObject();
  EXPECT_EQ(layer.take(u"file").toString(), file);
  EXPECT_TRUE(layer.take(u"provider").toString().contains(u"MIF"));
  const QByteArray expected = R"({
    "name": "squares", "objectCount": 3, "objects": {"TPolyline": 1, "TRegion": 2}, "parts": 4, "vertices": 18,
    "bounds": [0, 0, 20, 10], "error": null, "warnings": [],
    "fields": [{"name": "name", "type": "Char", "size": 0}, {"name": "area", "type": "Float", "size": 0}],
    "skippedLines": {"Charset": 1, "CoordSys": 1, "Data": 1, "Version": 1}})";
  EXPECT_EQ(layer, QJsonDocument::fromJson(expected).object()) << run.out;
}

TEST(InfoCommandTest, ShowsWhatCanBeReadOfFilesWithADefectOrMissing) {
  const TProgramRun run = RunTessera({Info, QStringLiteral("missing.mif"), MapFileNamed("defect.mif"), AsJson});
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.CountOfErrorLines(), 2) << run.err;
  EXPECT_TRUE(run.Complains("defect.mif: error in line 18: ")) << run.err;
  ASSERT_EQ(LayersOf(run).size(), 1);
  const QJsonValue error = LayersOf(run)[0][u"error"];
  EXPECT_EQ(error[u"line"].toInt(), 18);
  EXPECT_TRUE(error[u"words"].toString().contains(u"zero"));
  EXPECT_EQ(RunTessera({Info, MapFileNamed("defect.mif")}).status, 0);
}

TEST(InfoCommandTest, ComplainsInOneLineOfWhatCannotBeRead) {
  const QTemporaryDir folder;
  const std::pair<QString, std::string> rows[] = {
      {folder.filePath(QStringLiteral("missing.mif")), "there is no such file"},
      {folder.path(), "this is not a file"},
      {QStringLiteral(TESSERA_PROGRAM), "no format is known"},
      {MapFileNamed("unreadable.mif"), "error in line 3"},
  };
  for (const auto &[file, words] : rows) {
    const TProgramRun run = RunTessera({Info, file});
    EXPECT_EQ(run.status, 1) << words;
    EXPECT_EQ(run.CountOfErrorLines(), 1) << run.err;
    EXPECT_TRUE(run.err.starts_with("tessera: " + file.toStdString() + ": " + words)) << run.err;
    EXPECT_EQ(run.out, "");
  }
}

TEST(InfoCommandTest, TellsHowItIsUsedAndRejectsWrongUsage) {
  for (const char *arguments : {"--help", "info --help", "render --help"}) {
    const TProgramRun run = RunTessera(Words(arguments));
    EXPECT_EQ(run.status, 0);
    EXPECT_NE(run.out.find("Exit status"), std::string::npos) << run.out;
    EXPECT_EQ(run.err, "");
  }
  for (const char *arguments : {"", "show", "info", "info a.mif --colour"}) {
    const TProgramRun run = RunTessera(Words(arguments));
    EXPECT_EQ(run.status, 2) << arguments;
    EXPECT_EQ(run.CountOfErrorLines(), 1) << run.err;
  }
}

}  // namespace
}  // namespace tessera::test
