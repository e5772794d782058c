// SPDX-License-Identifier: MIT
#include "../support/FakeMapHost.h"

#include <tessera/base/Exceptions.h>
#include <tessera/base/MessageSink.h>
#include <tessera/layers/MapFiles.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/providers/CustomFormatProvider.h>

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <functional>

namespace tessera {
namespace {

/// A format whose files are read as the test says.
class TTestProvider : public TCustomFormatProvider {
 public:
  [[nodiscard]] TFormatReport TrySave(const TMapLayer &) const override {
    TFormatReport report;
    report.Lose(QStringLiteral("colours"));
    return report;
  }
  [[nodiscard]] QString GetDescription() const override { return QStringLiteral("Test format"); }
  [[nodiscard]] QString GetFilter() const override { return QStringLiteral("Test|*.test"); }
  [[nodiscard]] QUuid GetGUID() const override { return {}; }
  [[nodiscard]] bool CanProcessFile(const QString &fileName) const override {
    return fileName.endsWith(QStringLiteral(".test"));
  }
  bool Load(TMapLayer *layer, const QString &) override { return Do(layer); }
  bool Save(TMapLayer *layer, const QString &) override { return Do(layer); }

  std::function<void(TMapLayer &layer, TFormatReport &report)> work;

 private:
  bool Do(TMapLayer *layer) {
    work(*layer, NewReport());
    return false;
  }
};

class MapFilesTest : public testing::Test {
 protected:
  MapFilesTest() {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    layers.SetMap(&map);
  }

  [[nodiscard]] QString Told(const char *words) const { return path + QStringLiteral(": ") + QLatin1String(words); }

  const QTemporaryDir folder;
  const QString path = folder.filePath(QStringLiteral("some.test"));
  TTestProvider provider;
  test::TFakeMapHost map;
  TMapLayers layers;
};

TEST_F(MapFilesTest, KeepsWhatWasReadBeforeADefectAndMakesWarningsOfMessages) {
  int shown = 0;
  const TMessageSink before = SetMessageSink([&shown](const QString &) { ++shown; });
  provider.work = [](TMapLayer &layer, TFormatReport &report) {
    layer.NewObject<TPolyline>();
    report.Warn(QStringLiteral("odd"));
    report.Fail(7, QStringLiteral("bad number"));
    for (const char *text : {"Reading stopped: bad number!", "said", "said"}) ShowMessage(QLatin1String(text));
  };
  const TLoadedFile loaded = LoadMapFile(layers, path);
  EXPECT_EQ(layers.GetCount(), 1);
  EXPECT_EQ(loaded.error, QString());
  EXPECT_EQ(loaded.warnings, (QStringList{Told("error in line 7: bad number"), Told("odd"), Told("said")}));
  EXPECT_EQ(shown, 0);
  ShowMessage(QStringLiteral("after"));
  EXPECT_EQ(shown, 1) << "the sink is back in force";
  SetMessageSink(before);
}

TEST_F(MapFilesTest, LeavesNoLayerWhereNothingCouldBeRead) {
  provider.work = [](TMapLayer &, TFormatReport &report) { report.Fail(2, QStringLiteral("bad\nheader")); };
  EXPECT_EQ(LoadMapFile(layers, path).error, Told("error in line 2: bad header"));
  provider.work = [](TMapLayer &, TFormatReport &) { throw EInOutError(QStringLiteral("disk on fire")); };
  const TLoadedFile loaded = LoadMapFile(layers, path);
  EXPECT_EQ(loaded.error, Told("disk on fire"));
  EXPECT_EQ(loaded.layer, nullptr);
  EXPECT_EQ(layers.GetCount(), 0);
}

TEST_F(MapFilesTest, SurvivesHandlersThatDeleteTheLayerAndProvidersThatThrowAnything) {
  provider.work = [this](TMapLayer &, TFormatReport &) {
    layers.Delete(0);
    layers.Add(QString(), QStringLiteral("mine"))->NewObject<TPolyline>();
    throw 42;
  };
  layers.Add(QString(), QStringLiteral("first"));
  const TLoadedFile loaded = LoadMapFile(layers, path);
  EXPECT_EQ(loaded.error, Told("an error of an unknown kind"));
  provider.work = [this](TMapLayer &, TFormatReport &) { layers.Clear(); };
  EXPECT_EQ(LoadMapFile(layers, path).error, Told("its layer was deleted meanwhile"));
  EXPECT_EQ(layers.GetCount(), 0);
}

TEST_F(MapFilesTest, TellsWhatIsLostWhereALayerReplacesItsSource) {
  provider.work = [](TMapLayer &layer, TFormatReport &report) {
    layer.NewObject<TPolyline>();
    report.Lose(QStringLiteral("arcs"));
    report.Fail(3, QStringLiteral("odd"));
  };
  TMapLayer &layer = *LoadMapFile(layers, path).layer;
  const QString link = folder.filePath(QStringLiteral("link.test"));
  ASSERT_TRUE(QFile::link(path, link));
  const QStringList all{QStringLiteral("all that comes after this error in line 3: odd"), QStringLiteral("arcs"),
                        QStringLiteral("colours")};
  EXPECT_EQ(LossesOfSaving(layer, link), all);
  EXPECT_EQ(LossesOfSaving(layer, folder.filePath(QStringLiteral("other.test"))), QStringList());
  EXPECT_EQ(LossesOfSaving(layer, QString()), QStringList());
  EXPECT_FALSE(SaveMapFile(layer, path).error.isEmpty());
  EXPECT_EQ(LossesOfSaving(layer, path), all) << "nothing was replaced";
  provider.work = [](TMapLayer &, TFormatReport &report) { report.Lose(QStringLiteral("colours")); };
  const TSavedFile saved = SaveMapFile(layer, path);
  EXPECT_EQ(saved.warnings, QStringList(Told("lost: colours")));
  EXPECT_EQ(LossesOfSaving(layer, path), QStringList(QStringLiteral("colours")));
}

TEST_F(MapFilesTest, KeepsInMindWhatAProviderThatThrewHasNotRead) {
  provider.work = [](TMapLayer &layer, TFormatReport &) {
    layer.NewObject<TPolyline>();
    throw EInOutError(QStringLiteral("torn"));
  };
  const QStringList losses = LossesOfSaving(*LoadMapFile(layers, path).layer, path);
  EXPECT_EQ(losses.value(0), u"all that comes after this error: torn");
}

TEST_F(MapFilesTest, AsksForAPictureOfTheMapThatWasTurnedBackForSaving) {
  provider.work = [](TMapLayer &, TFormatReport &) {};
  TMapLayer *layer = layers.Add(QString(), QStringLiteral("turned"));
  for (const bool isRotated : {true, false}) {
    map.isRotated = isRotated;
    map.TakeEvents();
    EXPECT_EQ(SaveMapFile(*layer, path).error, QString());
    EXPECT_EQ(map.TakeEvents(),
              isRotated ? (std::vector<std::string>{"UnRotate", "DoUpdate"}) : std::vector<std::string>());
  }
}

TEST_F(MapFilesTest, TellsWhySavingFailed) {
  provider.work = [](TMapLayer &, TFormatReport &) {};
  TMapLayer &layer = *layers.Add(QString(), QStringLiteral("layer"));
  EXPECT_EQ(SaveMapFile(layer, path).error, QString());
  EXPECT_TRUE(SaveMapFile(layer, QStringLiteral("map.none")).error.contains(u"no format is known"));
  provider.work = [](TMapLayer &, TFormatReport &) { throw EInOutError(QStringLiteral("disk full")); };
  EXPECT_EQ(SaveMapFile(layer, path).error, Told("disk full"));
  provider.work = [](TMapLayer &, TFormatReport &report) { report.Fail(0, QStringLiteral("no such column")); };
  EXPECT_EQ(SaveMapFile(layer, path).error, Told("no such column"));
}

}  // namespace
}  // namespace tessera
