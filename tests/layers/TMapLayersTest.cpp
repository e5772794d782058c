// SPDX-License-Identifier: MIT
#include "../support/FakeMapHost.h"
#include "../support/TraceRecorder.h"

#include <tessera/base/Exceptions.h>
#include <tessera/objects/TPolyline.h>

#include <QDir>
#include <gtest/gtest.h>

namespace tessera::test {
namespace {

using Events = std::vector<std::string>;

/// A map with the layers a, b and c.
class TMapLayersTest : public testing::Test {
 protected:
  TMapLayersTest() {
    host.layers = &layers;
    layers.SetMap(&host);
    for (const char name : {'a', 'b', 'c'}) {
      TMapLayer *layer = layers.Insert(QString(), layers.GetCount());
      layer->SetName(QChar::fromLatin1(name));
      host.Name(layer, std::string(1, name));
    }
    host.Name(&layers, "layers");
    host.TakeEvents();
  }
  QString Names() const {
    QString names;
    for (const auto &layer : layers.Items()) names += layer ? layer->GetName() : QStringLiteral("-");
    return names;
  }

  TFakeMapHost host;
  TMapLayers layers;
  TTraceRecorder trace;
};

TEST_F(TMapLayersTest, AddsANamedLayerWhereThereIsNoFile) {
  const TMapLayer *layer = layers.Add(QStringLiteral("no such.road"), QStringLiteral("Roads"));
  EXPECT_EQ(layers.Last(), layer);
  EXPECT_EQ(layer->GetName(), QStringLiteral("Roads"));
  EXPECT_EQ(layer->GetMapHost(), &host);
  EXPECT_EQ(host.TakeEvents(), (Events{"AddLayer ?", "mdlAfterAddLayer ?"}));
  const QString path = QDir().absoluteFilePath(QStringLiteral("no such.road"));
  EXPECT_EQ(trace.texts, QStringList{QStringLiteral("File \"%1\" does not exists!").arg(path)});
}

TEST_F(TMapLayersTest, InsertsALayerWithoutTellingDataLinks) {
  layers.Insert(QString(), 1)->SetName(QStringLiteral("x"));
  EXPECT_EQ(host.TakeEvents(), (Events{"AddLayer ?", "mdlLayerNameChanged ?"}));
  layers.Insert(QString(), 4)->SetName(QStringLiteral("y"));
  EXPECT_EQ(Names(), QStringLiteral("axbcy"));
  EXPECT_THROW(layers.Insert(QString(), 6), ERangeError);
}

TEST_F(TMapLayersTest, DeletesALayerUnlessItIsForbidden) {
  layers.Last()->NewObject<TPolyline>()->Select();
  host.TakeEvents();
  layers.Delete(1);
  EXPECT_EQ(Names(), QStringLiteral("ac"));
  EXPECT_EQ(host.TakeEvents(), (Events{"BeforeDelLayer(confirm) b", "mdlDelLayer b", "BeforeDelLayer b", "DoUpdate",
                                       "DoUpdate", "AfterDelLayer", "mdlAfterDelLayer layers"}));
  host.onBeforeDelLayer = [](TMapLayer &, bool &allowDelete) { allowDelete = false; };
  layers.Delete(1);
  EXPECT_EQ(Names(), QStringLiteral("ac"));
  EXPECT_EQ(host.TakeEvents(), Events{"BeforeDelLayer(confirm) c"});
  EXPECT_EQ(host.selection.GetCount(), 1);
  EXPECT_THROW(layers.Delete(2), ERangeError);
  host.onBeforeDelLayer = {};
  layers.Delete(1);
  EXPECT_EQ(host.selection.GetCount(), 0) << "objects leave the selection with their layer";
}

TEST_F(TMapLayersTest, ClearsWithoutAskingOrTellingDataLinks) {
  host.onBeforeDelLayer = [](TMapLayer &, bool &allowDelete) { allowDelete = false; };
  layers.Clear();
  EXPECT_EQ(host.TakeEvents(), (Events{"BeforeDelLayer a", "DoUpdate", "BeforeDelLayer b", "DoUpdate",
                                       "BeforeDelLayer c", "DoUpdate", "DoUpdate"}));
}

TEST_F(TMapLayersTest, MovesAndExchangesLayers) {
  struct Row {
    int from, to;
    const char *names;
    const char *event;
  };
  for (const Row &row : {Row{0, 2, "bca", "mdlMoveLayer a"}, Row{2, 0, "abc", "mdlMoveLayer a"},
                         Row{1, 2, "acb", "mdlMoveLayer b"}, Row{0, 0, "acb", "mdlMoveLayer a"}}) {
    layers.Move(row.from, row.to);
    EXPECT_EQ(Names(), QString::fromLatin1(row.names));
    EXPECT_EQ(host.TakeEvents(), (Events{"DoUpdate", row.event}));
  }
  layers.Exchange(0, 2);
  EXPECT_EQ(Names(), QStringLiteral("bca"));
  EXPECT_EQ(host.TakeEvents(), (Events{"DoUpdate", "mdlExchangeLayer layers"}));
  EXPECT_THROW(layers.Move(0, 3), ERangeError);
  EXPECT_THROW(layers.Exchange(3, 0), ERangeError);
}

TEST_F(TMapLayersTest, FindsTheFirstLayerOfANameAndTheEditableOne) {
  layers.GetLayer(1)->SetName(QString::fromUtf8("Улицы"));
  layers.GetLayer(2)->SetName(QString::fromUtf8("УЛИЦЫ"));
  EXPECT_EQ(layers.Search(QString::fromUtf8("улицы")), layers.GetLayer(1));
  EXPECT_EQ(layers.Search(QStringLiteral("A")), layers.First());
  EXPECT_EQ(layers.Search(QStringLiteral("d")), nullptr);
  EXPECT_EQ(layers.GetEditableLayer(), nullptr);
  layers.GetLayer(1)->SetEditable(true);
  EXPECT_EQ(layers.GetEditableLayer(), layers.GetLayer(1));
  layers.SetMap(nullptr);
  EXPECT_EQ(layers.Search(QStringLiteral("a")), nullptr);
}

}  // namespace
}  // namespace tessera::test
