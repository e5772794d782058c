// SPDX-License-Identifier: MIT
// Handlers may do anything, and everything may be destroyed in any order.
#include "MapFixture.h"

#include <QSignalSpy>

#include <memory>
#include <random>
#include <stdexcept>

namespace tessera::test {
namespace {

/// Calls `handle` on every event that links are told of.
class Link : public TMapDataLink {
 public:
  std::function<void(TMapDataLinkEvent event, TObject *sender)> handle;
  void MapEvent(TMapDataLinkEvent event, TObject *sender, int /*info*/) override {
    if (handle) handle(event, sender);
  }
};

class LifetimeTest : public MapFixture {
 public:
  // Handlers use the test, which goes before the map does.
  ~LifetimeTest() override { map.disconnect(); }

 protected:
  template <typename Handler>
  void On(void (TTessera::*signal)(TTessera *, TMapLayer *, bool, bool &), Handler handler) {
    QObject::connect(&map, signal, &map, handler);
  }
  TRegion *AddRegion(TMapLayer *to) { return AddSquare(to, 20, 20, 40, clRed); }

  TMapLayer *layer = AddLayer();
  TRegion *square = AddRegion(layer);
};

TEST_F(LifetimeTest, DeletesTheLayerItWasAskedToWhateverTheHandlersMove) {
  TMapLayer *other = AddLayer();
  int calls = 0;
  // The event is sent twice, and moving twice would bring the layer back.
  On(&TTessera::OnBeforeDelLayer, [&] {
    if (calls++ == 0) map.GetLayers()->Move(0, 1);
  });
  map.GetLayers()->Delete(0);
  ASSERT_EQ(map.GetLayers()->GetCount(), 1);
  EXPECT_EQ(map.GetLayers()->First(), other);
  map.GetLayers()->Clear();
  EXPECT_EQ(map.GetLayers()->GetCount(), 0);
}

TEST_F(LifetimeTest, LetsObjectsAndLayersOutliveTheirMap) {
  auto closing = std::make_unique<TTessera>();
  closing->resize(50, 50);
  TMapLayer *first = closing->GetLayers()->Add(QString(), QStringLiteral("first"));
  AddRegion(first)->Select();
  const std::unique_ptr<TCustomMapObject> object = first->RemoveObject(first->First());
  AddRegion(first);
  const std::unique_ptr<TMapLayer> kept = closing->GetLayers()->SetLayer(0, std::make_unique<TMapLayer>());
  closing->grab();
  EXPECT_EQ(object->GetMap(), closing.get());
  EXPECT_EQ(kept->GetMap(), nullptr);
  EXPECT_EQ(kept->First()->GetMap(), nullptr);
  closing.reset();
  EXPECT_EQ(object->GetMap(), nullptr);
  kept->First()->Select();
  kept->SetVisible(false);
}

TEST_F(LifetimeTest, ReadsItsLayersWhileItCloses) {
  auto closing = std::make_unique<TTessera>();
  closing->GetLayers()->Add(QString(), QStringLiteral("a"));
  closing->GetLayers()->Add(QString(), QStringLiteral("b"));
  QStringList seen;
  QObject::connect(closing.get(), &TTessera::OnBeforeDelLayer, closing.get(), [&](TTessera *sender, TMapLayer *gone) {
    seen << gone->GetName() + QString::number(sender->GetLayers()->GetCount());
  });
  closing.reset();
  EXPECT_EQ(seen, (QStringList{QStringLiteral("a2"), QStringLiteral("b2")}));
}

TEST_F(LifetimeTest, TellsOfTheEndOfObjectsThatAreStillWhole) {
  Link link;
  link.SetMap(&map);
  int regions = 0;
  const auto look = [&](TObject *object) {
    auto *region = dynamic_cast<TRegion *>(object);
    if (region == nullptr) return;
    region->DrawSelection();
    region->DrawSelection();
    EXPECT_TRUE(region->GetMap() == &map);
    EXPECT_TRUE(region->GetLayer() == layer);
    ++regions;
  };
  link.handle = [&](TMapDataLinkEvent event, TObject *sender) {
    if (event == mdlRemoveObject) look(sender);
  };
  QObject::connect(&map, &TTessera::OnDeleteObject, &map, look);
  Shown();
  layer->DeleteObjects();
  EXPECT_EQ(regions, 2) << "the handler and the link";
  delete AddRegion(layer);
  EXPECT_EQ(regions, 4) << "deleted by whoever has it";
  link.SetMap(nullptr);
  EXPECT_EQ(link.GetMap(), nullptr);
}

TEST_F(LifetimeTest, SurvivesWhateverHandlersOfAnEndThrow) {
  QObject::connect(&map, &TTessera::OnDeleteObject, &map, [] { throw std::runtime_error("object"); });
  On(&TTessera::OnBeforeDelLayer, [](TTessera *, TMapLayer *, bool confirm) {
    if (!confirm) throw 42;
  });
  delete AddRegion(layer);
  EXPECT_EQ(messages, QStringList(QStringLiteral("object")));
  EXPECT_THROW(layer->DeleteObjects(), std::runtime_error);
  EXPECT_EQ(layer->GetObjectCount(), 0);
  EXPECT_THROW(map.GetLayers()->Delete(0), int);
  EXPECT_EQ(map.GetLayers()->GetCount(), 0);
}

TEST_F(LifetimeTest, ComesToAnEndThoughHandlersSelectAndAddAgain) {
  Shown();
  AddRegion(layer);
  QObject::connect(&map, &TTessera::OnDelSelection, &map,
                   [this](TTessera *, TCustomMapObject *object) { map.GetSelection()->Add(object, false); });
  QObject::connect(&map, &TTessera::OnDeleteObject, &map, [this] { AddRegion(layer); });
  square->Select();
  map.GetSelection()->Clear();
  EXPECT_EQ(map.GetSelection()->GetCount(), 0);
  square->Select();
  layer->RemoveObject(square).reset();
  EXPECT_EQ(map.GetSelection()->GetCount(), 0);
  layer->DeleteObjects();
  EXPECT_EQ(layer->GetObjectCount(), 0);
}

TEST_F(LifetimeTest, LosesNoObjectThatIsTakenOutToWhatHandlersThrow) {
  QObject::connect(&map, &TTessera::OnAfterRemoveObject, &map, [] { throw std::runtime_error("after"); });
  const std::unique_ptr<TCustomMapObject> taken = layer->TakeObject(square);
  EXPECT_EQ(taken.get(), square);
  EXPECT_EQ(messages, QStringList(QStringLiteral("after")));
}

TEST_F(LifetimeTest, EndsItsBatchWhenAHandlerThrowsWhileALayerIsDeselected) {
  map.SetFastSelection(false);
  square->Select();
  QObject::connect(&map, &TTessera::OnDelSelection, &map, [] { throw std::runtime_error("no"); });
  EXPECT_THROW(layer->SetVisible(false), std::runtime_error);
  EXPECT_FALSE(map.GetInUpdate());
  EXPECT_EQ(map.GetSelection()->GetCount(), 0);
}

TEST_F(LifetimeTest, PutsWhatItIsGivenOnTheMapAndTakesWhatItHandsBackOffIt) {
  const auto selection = map.SetSelection(std::make_unique<TSelection>());
  EXPECT_EQ(selection->GetMap(), nullptr);
  EXPECT_EQ(map.GetSelection()->GetMap(), &map);
  square->Select();
  EXPECT_TRUE(square->GetSelected());
  const auto links = map.SetDataLinks(std::make_unique<TMapDataLinks>());
  Link link;
  link.SetMap(&map);
  EXPECT_EQ(link.GetMap(), &map);
  const auto displayed = map.SetDisplayed(std::make_unique<TDisplayedObjects>());
  EXPECT_EQ(map.GetDisplayed()->GetMap(), &map);
  Shown();
  EXPECT_EQ(map.GetDisplayed()->GetCount(), 1);
  auto layers = map.SetLayers(std::make_unique<TMapLayers>());
  EXPECT_EQ(layers->GetMap(), nullptr);
  EXPECT_EQ(square->GetMap(), nullptr);
  EXPECT_EQ(map.GetDisplayed()->GetCount() + map.GetSelection()->GetCount(), 0);
  EXPECT_EQ(AddLayer()->GetMap(), &map);
  map.SetLayers(std::move(layers));
  EXPECT_EQ(square->GetMap(), &map);
}

TEST_F(LifetimeTest, AnswersNoneWhenAHandlerHasDestroyedWhatWasAdded) {
  const auto deleteObject =
      QObject::connect(&map, &TTessera::OnAddObject, &map, [this] { layer->RemoveObject(layer->Last()).reset(); });
  EXPECT_EQ(layer->AddObject(std::make_unique<TRegion>(), true), nullptr);
  QObject::disconnect(deleteObject);
  QObject::connect(&map, &TTessera::OnAddLayer, &map, [this] { map.GetLayers()->Clear(); });
  EXPECT_EQ(map.GetLayers()->Add(QString(), QString()), nullptr);
}

/// A map whose handlers do something hostile now and then, and in whose midst hostile things are done.
class HostileMap : public MapFixture {
 public:
  ~HostileMap() override {
    map.disconnect();
    link.SetMap(nullptr);
  }

 protected:
  void Connect() {
    link.SetMap(&map);
    link.handle = [this](TMapDataLinkEvent, TObject *) { Strike(); };
    const auto strikeOn = [this](auto... signal) { (QObject::connect(&map, signal, &map, [this] { Strike(); }), ...); };
    using T = TTessera;
    strikeOn(&T::OnAddLayer, &T::OnBeforeDelLayer, &T::OnAfterDelLayer, &T::OnAddObject, &T::OnBeforeRemoveObject,
             &T::OnAfterRemoveObject, &T::OnDeleteObject, &T::OnAddSelection, &T::OnDelSelection, &T::OnUpdate,
             &T::OnZoom, &T::OnPaint, &T::OnShowProgress, &T::OnStopProgress);
  }
  void Strike() {
    if (depth >= 3 || Any(4) != 0) return;
    ++depth;
    const auto rise = std::shared_ptr<void>(nullptr, [this](void *) { --depth; });
    Act(Any(20));
  }
  /// Something a program may do, in any state.
  void Act(int what) {
    TMapLayers &layers = *map.GetLayers();
    TSelection &selection = *map.GetSelection();
    TMapLayer *layer = layers.GetCount() == 0 ? nullptr : layers.GetLayer(Any(layers.GetCount()));
    TCustomMapObject *object =
        layer == nullptr || layer->GetObjectCount() == 0 ? nullptr : layer->GetObjects(Any(layer->GetObjectCount()));
    switch (what) {
      case 0:
        throw std::runtime_error("hostile");
      case 1:
        throw 42;
      case 2:
      case 3:
        if (layers.GetCount() < 4) AddLayer();
        break;
      case 4:
        if (layers.GetCount() > 0) layers.Delete(Any(layers.GetCount()));
        break;
      case 5:
        if (layers.GetCount() > 0) layers.Move(Any(layers.GetCount()), Any(layers.GetCount()));
        break;
      case 6:
        if (Any(4) == 0) layers.Clear();
        break;
      case 7:
        selection.Clear();
        break;
      case 8:
        if (Any(6) == 0) map.SetSelection(std::make_unique<TSelection>());
        break;
      default:
        if (layer && layer->GetObjectCount() < 8 && Any(2) == 0) {
          layer->AddObject(std::make_unique<TRegion>(), Any(2) == 0);
        } else if (object) {
          ActOn(*layer, *object, what);
        }
    }
  }
  void ActOn(TMapLayer &layer, TCustomMapObject &object, int what) {
    TCustomMapObject *one[] = {&object};
    switch (what) {
      case 9:
        return layer.SetVisible(Any(2) == 0);
      case 10:
        return layer.SetEditable(Any(2) == 0);
      case 11:
        return layer.DeleteObjects();
      case 12:
        return static_cast<void>(layer.RemoveObject(&object));
      case 13:
        taken = layer.TakeObject(&object);
        return;
      case 14:
        if (taken) layer.PutObject(Any(layer.GetObjectCount() + 1), std::move(taken));
        return;
      case 15:
        return static_cast<void>(layer.DeleteObjects(one));
      case 16:
        return layer.MoveObject(layer.IndexOf(&object), Any(layer.GetObjectCount()));
      case 17:
        return static_cast<void>(layer.SetObjects(layer.IndexOf(&object), std::make_unique<TRegion>()));
      case 18:
        object.SetPen(TPen());
        return;
      default:
        return map.GetSelection()->Add(&object, Any(2) == 0);
    }
  }
  void CheckThatAllFits() {
    ASSERT_FALSE(map.GetInUpdate());
    for (const auto &layer : map.GetLayers()->Items()) {
      ASSERT_EQ(layer->GetMap(), &map);
      for (int i = 0; i < layer->GetObjectCount(); ++i) {
        ASSERT_EQ(layer->GetObjects(i)->GetLayer(), layer.get());
        ASSERT_EQ(layer->IndexOf(layer->GetObjects(i)), i);
      }
    }
    for (TCustomMapObject *object : map.GetSelection()->Items()) ASSERT_EQ(object->GetMap(), &map);
  }
  int Any(int count) { return int(random() % unsigned(count)); }

  Link link;
  std::mt19937 random;
  std::unique_ptr<TCustomMapObject> taken;
  int depth = 0;
};

TEST_F(HostileMap, StaysSoundWhateverHandlersDo) {
  Connect();
  for (unsigned seed = 0; seed < 60; ++seed) {
    random.seed(seed);
    SCOPED_TRACE(seed);
    for (int step = 0; step < 150; ++step) {
      try {
        if (step % 10 == 0) map.grab();
        map.SetFastSelection(Any(2) == 0);
        Act(Any(20));
      } catch (const std::runtime_error &error) {
        ASSERT_STREQ(error.what(), "hostile");
      } catch (int) {
      } catch (const std::out_of_range &) {
        // What a handler took away was asked for by its index.
      }
      CheckThatAllFits();
      if (HasFatalFailure()) break;
    }
  }
}

}  // namespace
}  // namespace tessera::test
