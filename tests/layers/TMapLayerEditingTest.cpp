// SPDX-License-Identifier: MIT
#include "../support/FakeMapHost.h"

#include <tessera/base/Exceptions.h>
#include <tessera/base/MessageSink.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TSymbol.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace tessera::test {
namespace {

using Events = std::vector<std::string>;
using Objects = std::vector<TCustomMapObject *>;

class TMapLayerEditingTest : public testing::Test {
 protected:
  TMapLayerEditingTest() {
    host.layers = &layers;
    layers.SetMap(&host);
    layer = layers.Insert(QString(), 0);
    host.Name(layer, "layer");
  }
  Objects AddObjects(int count) { return AddNamedLines(host, *layer, count); }
  Objects Order() {
    Objects order;
    for (int i = 0; i < layer->GetObjectCount(); ++i) order.push_back(layer->GetObjects(i));
    return order;
  }

  TFakeMapHost host;
  TMapLayers layers;
  TMapLayer *layer = nullptr;
};

TEST_F(TMapLayerEditingTest, TakesAnObjectOutAndPutsItBackWithAllItHas) {
  const Objects objects = AddObjects(3);
  TPen pen;
  pen.SetColor(clRed);
  objects[1]->SetPen(pen);
  objects[1]->GetFields().Add(QStringLiteral("Name"), TDataType::dtString, 5).SetAsString(QStringLiteral("road"));
  objects[1]->Select();
  layer->Paint();
  host.TakeEvents();
  const THandle<TCustomMapObject> handle(objects[1]);
  std::unique_ptr<TCustomMapObject> taken = layer->TakeObject(objects[1]);
  EXPECT_EQ(host.TakeEvents(), (Events{"BeforeRemoveObject b", "DelSelection b", "DelSelection b", "mdlDelSelection b",
                                       "Update", "mdlRemoveObject b", "AfterRemoveObject", "DoUpdate"}));
  EXPECT_EQ(handle.Get(), objects[1]);
  EXPECT_EQ(taken->GetMapHost(), nullptr);
  EXPECT_EQ(taken->GetObjectLayer(), nullptr);
  EXPECT_FALSE(host.displayed.Holds(objects[1]));
  EXPECT_EQ(Order(), (Objects{objects[0], objects[2]}));
  EXPECT_EQ(layer->PutObject(0, std::move(taken)), handle.Get());
  EXPECT_EQ(host.TakeEvents(), (Events{"DoUpdate", "AddObject b", "mdlAddObject layer"}));
  EXPECT_EQ(Order(), (Objects{objects[1], objects[0], objects[2]}));
  EXPECT_EQ(objects[1]->GetPen().GetColor(), clRed);
  EXPECT_EQ(objects[1]->GetFields().GetFields(0).GetAsString(), QStringLiteral("road"));
  layer->MoveObject(0, 1);
  EXPECT_EQ(host.TakeEvents(), (Events{"DoUpdate", "mdlMoveObject b"}));
  EXPECT_EQ(Order(), objects);
  layer->DeleteObjects();
  EXPECT_FALSE(handle);
}

TEST_F(TMapLayerEditingTest, KeepsWhatAHandlerRefusesToRemove) {
  const Objects objects = AddObjects(3);
  host.onBeforeRemoveObject = [&](TCustomMapObject &object, bool &canRemove) { canRemove = &object != objects[1]; };
  EXPECT_EQ(layer->TakeObject(objects[1]), nullptr);
  EXPECT_EQ(layer->DeleteObjects(objects), 2);
  EXPECT_EQ(Order(), Objects{objects[1]});
  // Neither of these asks.
  host.TakeEvents();
  layer->RemoveObject(objects[1]).reset();
  EXPECT_EQ(host.TakeEvents(), (Events{"DeleteObject b", "mdlRemoveObject b", "DoUpdate"}));
  for (const int index : {-1, 1}) {
    EXPECT_THROW(layer->PutObject(index, std::make_unique<TPolyline>()), ERangeError);
    EXPECT_THROW(layer->MoveObject(index, 0), ERangeError);
  }
}

TEST_F(TMapLayerEditingTest, DrawsWhatAStaleIndexStillNamesAndSaysSoOnce) {
  QStringList messages;
  const TMessageSink before = SetMessageSink([&](const QString &text) { messages << text; });
  const Objects objects = AddObjects(12);
  layer->SetUseIndex2D(true);
  layer->RemoveObject(objects[0]).reset();
  for (int i = 0; i < 2; ++i) {
    host.displayed.Clear();
    layer->Paint();
    EXPECT_EQ(host.displayed.GetCount(), 11);
  }
  EXPECT_EQ(messages.size(), 1);
  SetMessageSink(before);
}

/// A layer that is edited at random, beside the plain list of its objects.
class EditedLayer {
 public:
  /// With so many objects, which stand beside each other in their order.
  EditedLayer(unsigned seed, int count) : m_random(seed) {
    for (int i = 0; i < count; ++i) {
      m_model.push_back(m_layer.NewObject<TPolyline>());
      const double x = 1000.0 * i / count;
      AddPart(*m_model.back(), {{x, Point().Y}, {x + 1, Point().Y}});
    }
  }

  void Edit() {
    const int count = int(m_model.size());
    TCustomMapObject *object = count == 0 ? nullptr : m_model[std::size_t(Any(count))];
    const int what = count == 0 ? 0 : Any(12);
    if (what < 2) {
      m_model.push_back(m_layer.NewObject<TPolyline>());
      AddPart(*m_model.back(), {Point(), Point()});
    } else if (what == 2) {
      Put(Any(count + 1), NewLine());
    } else if (what == 3) {
      Put(Any(count), Take(object));
    } else if (what == 4) {
      const int from = Any(count);
      const int to = Any(count);
      m_layer.MoveObject(from, to);
      MoveInModel(from, to);
    } else if (what == 5) {
      TakeManyAndPutThemBack();
    } else if (what == 6) {
      if (count < 100 || Any(10) == 0) DeleteMany();
    } else if (what == 7) {
      const int index = Any(count);
      auto line = NewLine();
      m_model[std::size_t(index)] = line.get();
      m_layer.SetObjects(index, std::move(line));
    } else if (Any(50) == 0) {
      for (TCustomMapObject *each : m_model) {
        Reshape(*each, 8);
        each->UpdateBounds();
      }
    } else {
      Reshape(*object, what);
    }
  }

  void Check() {
    ASSERT_EQ(m_layer.GetObjectCount(), int(m_model.size()));
    for (std::size_t i = 0; i < m_model.size(); ++i) ASSERT_EQ(m_layer.IndexOf(m_model[i]), int(i));
    const TMapPoint a = Point();
    const TMapPoint b = Point();
    const TBounds rect{std::min(a.X, b.X), std::min(a.Y, b.Y), std::max(a.X, b.X), std::max(a.Y, b.Y)};
    ASSERT_EQ(IdsIn(rect), PlainIds(rect));
  }

 private:
  [[nodiscard]] std::vector<std::uint32_t> IdsIn(const TBounds &rect) const {
    TCardinalArray ids;
    m_layer.GetAllIdsInRect(Bounds2CellBounds(rect), ids);
    return {ids.Ids().begin(), ids.Ids().end()};
  }
  std::vector<std::uint32_t> PlainIds(const TBounds &r) const {
    std::vector<std::uint32_t> ids;
    for (std::size_t i = 0; i < m_model.size(); ++i) {
      const TCustomMapObject &object = *m_model[i];
      if (object.IntersectsRect(r.MinX, r.MinY, r.MaxX, r.MaxY) || object.WithinRect(r.MinX, r.MinY, r.MaxX, r.MaxY) ||
          object.ContainsRect(r.MinX, r.MinY, r.MaxX, r.MaxY)) {
        ids.push_back(std::uint32_t(i));
      }
    }
    return ids;
  }
  static void Reshape(TCustomMapObject &object, TMapPoints &points, const TMapPoint &to, int what) {
    if (what == 8) points.SetPoint(0, to);
    if (what == 9) object.GetParts().AddPoint(to.X, to.Y, 0);
    if (what == 10) points.Add(to);
    if (what == 11) object.UpdateBounds();
  }
  void Reshape(TCustomMapObject &object, int what) {
    Reshape(object, object.GetParts().GetFirst().GetPoints(), Point(), what);
  }
  std::unique_ptr<TCustomMapObject> NewLine() {
    auto line = std::make_unique<TPolyline>();
    AddPart(*line, {Point(), Point()});
    return line;
  }
  void Put(int index, std::unique_ptr<TCustomMapObject> object) {
    m_model.insert(m_model.begin() + index, object.get());
    m_layer.PutObject(index, std::move(object));
  }
  std::unique_ptr<TCustomMapObject> Take(TCustomMapObject *object) {
    std::erase(m_model, object);
    return m_layer.TakeObject(object);
  }
  void MoveInModel(int from, int to) {
    TCustomMapObject *moved = m_model[std::size_t(from)];
    m_model.erase(m_model.begin() + from);
    m_model.insert(m_model.begin() + to, moved);
  }
  Objects Some() {
    Objects some;
    for (TCustomMapObject *object : m_model) {
      if (Any(3) == 0) some.push_back(object);
    }
    std::shuffle(some.begin(), some.end(), m_random);
    return some;
  }
  void TakeManyAndPutThemBack() {
    const Objects some = Some();
    auto taken = m_layer.TakeObjects(some);
    ASSERT_EQ(taken.size(), some.size());
    ASSERT_EQ(m_layer.GetObjectCount(), int(m_model.size() - some.size()));
    if (Any(2) == 0 && !taken.empty()) Reshape(*taken.front().object, 8);
    if (Any(2) == 0) static_cast<void>(IdsIn({0, 0, 1, 1}));
    m_layer.PutObjects(std::move(taken));
  }
  void DeleteMany() {
    for (TCustomMapObject *object : Some()) {
      if (Any(2) == 0) continue;
      std::erase(m_model, object);
      m_layer.RemoveObject(object).reset();
    }
    const Objects some = Some();
    std::erase_if(m_model, [&](auto *object) { return std::find(some.begin(), some.end(), object) != some.end(); });
    ASSERT_EQ(m_layer.DeleteObjects(some), int(some.size()));
  }
  TMapPoint Point() { return {double(Any(1000)), double(Any(1000))}; }
  int Any(int count) { return int(m_random() % unsigned(count)); }

  std::mt19937 m_random;
  TMapLayer m_layer;
  Objects m_model;
};

TEST(EditedLayerTest, FollowsAPlainListThroughRandomEdits) {
  for (unsigned seed = 0; seed < 25; ++seed) {
    const bool isLong = seed % 2 == 1;
    EditedLayer layer(seed, isLong ? 600 : 0);
    for (int step = 0; step < 400; ++step) {
      SCOPED_TRACE(testing::Message() << "seed " << seed << " step " << step);
      ASSERT_NO_FATAL_FAILURE(layer.Edit());
      if (!isLong && step % 3 != 0) continue;  // gaps and changes may pile up
      ASSERT_NO_FATAL_FAILURE(layer.Check());
    }
  }
}

}  // namespace
}  // namespace tessera::test
