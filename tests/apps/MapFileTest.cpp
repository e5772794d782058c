// SPDX-License-Identifier: MIT
#include <apps/common/MapFile.h>
#include <tessera/base/Exceptions.h>
#include <tessera/base/MessageSink.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/providers/CustomFormatProvider.h>

#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <functional>

namespace tessera::apps {
namespace {

/// A format whose files are read as the test says.
class TTestProvider : public TCustomFormatProvider {
 public:
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

class MapFileTest : public testing::Test {
 protected:
  MapFileTest() {
    QFile file(path);
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
  }

  [[nodiscard]] QString Told(const char *words) const { return path + QStringLiteral(": ") + QLatin1String(words); }

  const QTemporaryDir folder;
  const QString path = folder.filePath(QStringLiteral("some.test"));
  TTestProvider provider;
  TTessera map;
};

TEST_F(MapFileTest, KeepsWhatWasReadBeforeADefectAndMakesWarningsOfMessages) {
  int shown = 0;
  const TMessageSink before = SetMessageSink([&shown](const QString &) { ++shown; });
  provider.work = [](TMapLayer &layer, TFormatReport &report) {
    layer.NewObject<TPolyline>();
    report.Warn(QStringLiteral("odd"));
    report.Fail(7, QStringLiteral("bad number"));
    for (const char *text : {"Reading stopped: bad number!", "said", "said"}) ShowMessage(QLatin1String(text));
  };
  const TLoadedFile loaded = LoadMapFile(map, path);
  EXPECT_EQ(map.GetLayers()->GetCount(), 1);
  EXPECT_EQ(loaded.error, QString());
  EXPECT_EQ(loaded.warnings, (QStringList{Told("error in line 7: bad number"), Told("odd"), Told("said")}));
  EXPECT_EQ(shown, 0);
  ShowMessage(QStringLiteral("after"));
  EXPECT_EQ(shown, 1) << "the sink is back in force";
  SetMessageSink(before);
}

TEST_F(MapFileTest, LeavesNoLayerWhereNothingCouldBeRead) {
  provider.work = [](TMapLayer &, TFormatReport &report) { report.Fail(2, QStringLiteral("bad\nheader")); };
  EXPECT_EQ(LoadMapFile(map, path).error, Told("error in line 2: bad header"));
  provider.work = [](TMapLayer &, TFormatReport &) { throw EInOutError(QStringLiteral("disk on fire")); };
  const TLoadedFile loaded = LoadMapFile(map, path);
  EXPECT_EQ(loaded.error, Told("disk on fire"));
  EXPECT_EQ(loaded.layer, nullptr);
  EXPECT_EQ(map.GetLayers()->GetCount(), 0);
}

TEST_F(MapFileTest, TellsWhySavingFailed) {
  provider.work = [](TMapLayer &, TFormatReport &) {};
  TMapLayer &layer = *map.GetLayers()->Add(QString(), QStringLiteral("layer"));
  EXPECT_EQ(SaveMapFile(layer, path), QString());
  EXPECT_TRUE(SaveMapFile(layer, QStringLiteral("map.none")).contains(u"no format is known"));
  provider.work = [](TMapLayer &, TFormatReport &) { throw EInOutError(QStringLiteral("disk full")); };
  EXPECT_EQ(SaveMapFile(layer, path), Told("disk full"));
  provider.work = [](TMapLayer &, TFormatReport &report) { report.Fail(0, QStringLiteral("no such column")); };
  EXPECT_EQ(SaveMapFile(layer, path), Told("no such column"));
}

}  // namespace
}  // namespace tessera::apps
