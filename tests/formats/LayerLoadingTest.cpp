// SPDX-License-Identifier: MIT
#include "../support/FakeMapHost.h"
#include "../support/FolderFixture.h"

#include <tessera/base/MessageSink.h>
#include <tessera/formats/SimpleMIFFormatProvider.h>
#include <tessera/layers/TLayerLoading.h>
#include <tessera/objects/TSymbol.h>

#include <QApplication>

#include <random>

namespace tessera::test {
namespace {

/// Reads one symbol, in the thread of the user interface only.
class UnmovedProvider : public TCustomFormatProvider {
 public:
  QString GetDescription() const override { return QStringLiteral("one"); }
  QString GetFilter() const override { return QStringLiteral("One|*.one"); }
  QUuid GetGUID() const override { return QUuid::createUuidV5(QUuid(), QStringLiteral("one")); }
  bool CanProcessFile(const QString &name) const override { return name.endsWith(u".one"); }
  bool Load(TMapLayer *layer, const QString & /*name*/) override { return layer->NewObject<TSymbol>() != nullptr; }
  bool Save(TMapLayer * /*layer*/, const QString & /*name*/) override { return false; }
};

/// Throws what no file can make a reader throw.
class ThrowingProvider : public UnmovedProvider {
 public:
  bool CanProcessFile(const QString &name) const override { return name.endsWith(u".throws"); }
  TFormatRun MakeRun(const QString & /*name*/) const override {
    return [](TMapLayer & /*layer*/) -> TFormatReport { throw 1; };
  }
};

/// A map whose handlers may do anything when a layer comes.
class HandledHost final : public TFakeMapHost {
 public:
  HandledHost() {
    TFakeMapHost::layers = &ownLayers;
    ownLayers.SetMap(this);
  }
  ~HandledHost() { ownLayers.SetMap(nullptr); }
  [[nodiscard]] bool IsFollowed() const override { return false; }
  void FireAddLayer(TMapLayer &layer) override {
    TFakeMapHost::FireAddLayer(layer);
    if (onAddLayer) onAddLayer();
  }

  TMapLayers ownLayers;
  std::function<void()> onAddLayer;
};

class LayerLoadingTest : public FolderFixture {
 public:
  ~LayerLoadingTest() override { SetMessageSink(before); }

 protected:
  LayerLoadingTest() : before(SetMessageSink([this](const QString &text) { messages << text; })) { Renew(); }

  /// Begins anew with an empty map.
  void Renew() {
    events.clear();
    map = std::make_unique<HandledHost>();
    loading = std::make_unique<TLayerLoading>(*map->GetLayers());
    const auto end = [this](const char *event) {
      return [this, event](const TLoadedFile &file) {
        loaded = file;
        Note(event);
      };
    };
    QObject::connect(loading.get(), &TLayerLoading::OnLoaded, end("loaded"));
    QObject::connect(loading.get(), &TLayerLoading::OnFailed, end("failed"));
    QObject::connect(loading.get(), &TLayerLoading::OnCancelled, [this] { Note("cancelled"); });
  }
  /// Writes down an event after those of the map.
  void Note(const char *event) {
    TakeMapEvents();
    events << QString::fromLatin1(event);
  }
  void TakeMapEvents() {
    if (!map) return;
    for (const std::string &event : map->TakeEvents()) {
      if (event == "AddLayer ?") events << QStringLiteral("added");
      if (event == "mdlAfterAddLayer ?") events << QStringLiteral("told");
    }
  }
  /// A pair of files with lines of many points and symbols.
  QString WriteLines(int count, const QByteArray &tail = QByteArray()) {
    QByteArray mif = "Version 300\nColumns 2\n  NAME Char(20)\n  SIZE Integer\nData\n";
    QByteArray mid;
    std::mt19937 random(5);
    for (int i = 0; i < count; ++i) {
      mif += "Pline 40\n";
      for (int j = 0; j < 40; ++j) mif += QByteArray::number(random() % 1000) + ' ' + QByteArray::number(j) + '\n';
      mif += "Pen (1,2," + QByteArray::number(random() % 5 * 255) + ")\n";
      mid += "\"line " + QByteArray::number(i) + "\"," + QByteArray::number(i) + '\n';
    }
    WriteFile(QStringLiteral("lines.mif"), mif + tail + "\n");
    WriteFile(QStringLiteral("lines.mid"), mid);
    return PathOf(QStringLiteral("lines.mif"));
  }
  void Wait() {
    while (loading && loading->IsLoading()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  }
  QByteArray Saved(TMapLayer &layer) {
    layer.SaveToFile(PathOf(QStringLiteral("saved.mif")));
    return ReadFile(QStringLiteral("saved.mif")) + ReadFile(QStringLiteral("saved.mid"));
  }

  TMessageSink before;
  QStringList messages;
  QStringList events;
  TLoadedFile loaded;
  const TSimpleMIFFormatProvider provider;
  const UnmovedProvider unmoved;
  const ThrowingProvider throwing;
  std::unique_ptr<HandledHost> map;
  std::unique_ptr<TLayerLoading> loading;
};

TEST_F(LayerLoadingTest, GivesWhatLoadingAtOnceGives) {
  WriteFile(QStringLiteral("a.one"), "");
  for (const QString &file : {WriteLines(3000), PathOf(QStringLiteral("a.one"))}) {
    events.clear();
    loading->Start(file);
    EXPECT_EQ(map->GetLayers()->GetCount(), 0);
    Wait();
    EXPECT_EQ(events.join(u' '), u"added told loaded");
    ASSERT_EQ(map->GetLayers()->GetCount(), 1);
    TMapLayer &layer = *map->GetLayers()->First();
    EXPECT_EQ(loaded.layer, &layer);
    const TLoadedFile plain = LoadMapFile(*map->GetLayers(), file);
    EXPECT_EQ(layer.GetName(), plain.layer->GetName());
    EXPECT_EQ(layer.GetFileName(), plain.layer->GetFileName());
    EXPECT_EQ(layer.GetSource().losses, plain.layer->GetSource().losses);
    EXPECT_EQ(loaded.report.Summary(), plain.report.Summary());
    EXPECT_EQ(loaded.provider, plain.provider);
    EXPECT_EQ(loaded.warnings, plain.warnings);
    EXPECT_EQ(Saved(layer), Saved(*plain.layer));
    Renew();
  }
}

TEST_F(LayerLoadingTest, TellsWhatIsWrongAsLoadingAtOnceDoes) {
  WriteFile(QStringLiteral("b.throws"), "");
  WriteFile(QStringLiteral("empty.mif"), "Columns what\nData\n\n");
  const std::pair<QString, const char *> rows[] = {{PathOf(QStringLiteral("missing.mif")), "failed"},
                                                   {PathOf(QStringLiteral("empty.mif")), "failed"},
                                                   {WriteLines(9, "Pline 2\n1 2\nx y\n"), "added told loaded"}};
  for (const auto &[file, expected] : rows) {
    Renew();
    loading->Start(file);
    Wait();
    EXPECT_EQ(events.join(u' '), QLatin1String(expected));
    const int count = map->GetLayers()->GetCount();
    const TLoadedFile plain = LoadMapFile(*map->GetLayers(), file);
    EXPECT_EQ(loaded.error, plain.error);
    EXPECT_EQ(loaded.warnings, plain.warnings);
    EXPECT_EQ(count, plain.layer ? 1 : 0);
  }
  loading->Start(PathOf(QStringLiteral("b.throws")));
  Wait();
  EXPECT_TRUE(loaded.error.endsWith(u"an error of an unknown kind"));
  EXPECT_EQ(messages, QStringList());
}

TEST_F(LayerLoadingTest, LeavesNothingBehindWhenItIsCancelledAtAnyMoment) {
  enum Ending { Cancelled, Replaced, Destroyed, WithoutMap };
  const QString file = WriteLines(2000);
  std::mt19937 random(3);
  for (int run = 0; run < 40; ++run) {
    SCOPED_TRACE(run);
    Renew();
    loading->Start(file);
    for (auto turns = random() % 5000; turns > 0 && events.isEmpty(); --turns) QApplication::processEvents();
    if (!events.isEmpty()) continue;
    const auto ending = Ending(run % 4);
    if (ending == Cancelled) loading->Cancel();
    if (ending == Replaced) loading->Start(file);
    if (ending == Destroyed) loading.reset();
    if (ending == WithoutMap) map.reset();
    Wait();
    EXPECT_EQ(events.join(u' '), ending == Replaced ? u"added told loaded" : ending == Destroyed ? u"" : u"cancelled");
    EXPECT_EQ(map ? map->GetLayers()->GetCount() : 0, ending == Replaced ? 1 : 0);
  }
  EXPECT_EQ(messages, QStringList());
}

TEST_F(LayerLoadingTest, BearsHandlersThatThrowOrDestroyLayerMapAndItself) {
  const QString file = WriteLines(50);
  const struct {
    std::function<void()> onAddLayer;
    std::function<void()> onLoaded;
    const char *events;
    const char *message;
  } rows[] = {
      {[] { throw std::runtime_error("added"); }, nullptr, "added told loaded", "added"},
      {nullptr, [] { throw std::runtime_error("loaded"); }, "added told loaded", "loaded"},
      {[this] { map->GetLayers()->Clear(); }, nullptr, "added failed", ""},
      {[this] { loading.reset(); }, nullptr, "added told", ""},
      {nullptr, [this] { loading.reset(); }, "added told loaded", ""},
      {nullptr, [this] { map.reset(); }, "added told loaded", ""},
  };
  for (const auto &row : rows) {
    Renew();
    messages.clear();
    map->onAddLayer = row.onAddLayer;
    QObject::connect(loading.get(), &TLayerLoading::OnLoaded, [&row] {
      if (row.onLoaded) row.onLoaded();
    });
    loading->Start(file);
    Wait();
    TakeMapEvents();
    EXPECT_EQ(events.join(u' '), QLatin1String(row.events));
    EXPECT_EQ(messages.join(u' '), QLatin1String(row.message));
  }
}

TEST_F(LayerLoadingTest, LoadsSeveralFilesBesideEachOtherAndTellsOfProgress) {
  const QString file = WriteLines(3000);
  TLayerLoading other(*map->GetLayers());
  std::vector<int> percents;
  QObject::connect(&other, &TLayerLoading::OnProgress, [&](int percent) { percents.push_back(percent); });
  loading->Start(file);
  other.Start(file);
  // What is loaded at once does not wait for them, nor do they hear of its messages.
  static_cast<void>(LoadMapFile(*map->GetLayers(), PathOf(QStringLiteral("none.mif"))));
  Wait();
  while (other.IsLoading()) QApplication::processEvents(QEventLoop::WaitForMoreEvents);
  ASSERT_EQ(map->GetLayers()->GetCount(), 2);
  EXPECT_EQ(Saved(*map->GetLayers()->First()), Saved(*map->GetLayers()->Last()));
  EXPECT_TRUE(std::ranges::is_sorted(percents));
}

}  // namespace
}  // namespace tessera::test
