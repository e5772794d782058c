// SPDX-License-Identifier: MIT
#include "../support/FakeMapHost.h"

#include <tessera/base/Exceptions.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TSymbol.h>
#include <tessera/objects/TText.h>
#include <tessera/providers/CustomFormatProvider.h>

#include <gtest/gtest.h>

namespace tessera::test {
namespace {

using Events = std::vector<std::string>;

class TMapLayerTest : public testing::Test {
 protected:
  TMapLayerTest() {
    host.layers = &layers;
    layers.SetMap(&host);
    layer = layers.Insert(QString(), 0);
    other = layers.Insert(QString(), 1);
    host.Name(layer, "layer");
    host.Name(other, "other");
    host.TakeEvents();
  }
  std::vector<TCustomMapObject *> AddObjects(int count) { return AddNamedLines(host, *layer, count); }

  TFakeMapHost host;
  TMapLayers layers;
  TMapLayer *layer = nullptr;
  TMapLayer *other = nullptr;
};

TEST_F(TMapLayerTest, TellsOfNewObjectsAndPaintsThem) {
  TCustomMapObject *object = layer->NewObject<TPolyline>();
  EXPECT_EQ(host.TakeEvents(), (Events{"SetModified(true)", "mdlAddObject layer"}));
  EXPECT_TRUE(host.displayed.Holds(object));
  EXPECT_EQ(object->GetLayer(), layer);
  EXPECT_EQ(object->GetMapHost(), &host);

  auto made = std::make_unique<TPolyline>();
  host.Name(made.get(), "made");
  host.isInUpdate = true;
  object = layer->AddObject(std::move(made), true);
  EXPECT_EQ(host.TakeEvents(), (Events{"SetModified(true)", "AddObject made", "mdlAddObject layer"}));
  EXPECT_FALSE(host.displayed.Holds(object));
  EXPECT_EQ(layer->Last(), object);

  host.ResizeClient(0, 100);
  host.isReady = host.isInUpdate = false;
  EXPECT_NO_THROW(AddObjects(1)) << "while the map has no area";
}

TEST_F(TMapLayerTest, GivesNewObjectsItsColumnsAndTheToolsOfTheMap) {
  layer->GetFields().Insert(0, QStringLiteral("Name"), TDataType::dtString, 0);
  host.symbolStyle->bgColor = clRed;
  const auto *symbol = layer->NewObject<TSymbol>();
  EXPECT_EQ(symbol->GetStyle().constData(), std::as_const(host.symbolStyle).constData());
  EXPECT_EQ(symbol->GetFields().GetFields(0).GetSize(), 255);
  EXPECT_EQ(layer->NewObject<TText>()->GetFont().GetName(), QStringLiteral("Courier New"));
  EXPECT_EQ(TMapLayer().NewObject<TPolyline>()->GetBGColor(), clWhite) << "without a map";
}

TEST_F(TMapLayerTest, DropsTheObjectAfterADeletedOne) {
  const auto objects = AddObjects(3);
  layer->DeleteObject(0);
  const std::unique_ptr<TCustomMapObject> dropped(objects[1]);
  EXPECT_EQ(host.TakeEvents(), (Events{"DeleteObject a", "mdlRemoveObject a", "DoUpdate", "DoUpdate"}));
  EXPECT_EQ(layer->GetObjectCount(), 1);
  EXPECT_EQ(layer->First(), objects[2]);
  EXPECT_THROW(layer->DeleteObject(0), ERangeError);
  EXPECT_EQ(layer->GetObjectCount(), 0);
  EXPECT_NO_THROW(layer->DeleteObject(-1));
  EXPECT_THROW(layer->DeleteObject(-2), ERangeError);
}

TEST_F(TMapLayerTest, DeletesItsObjectsFromTheLastToTheFirst) {
  AddObjects(2);
  layer->DeleteObjects();
  EXPECT_EQ(host.TakeEvents(), (Events{"DeleteObject b", "mdlRemoveObject b", "DoUpdate", "DeleteObject a",
                                       "mdlRemoveObject a", "DoUpdate", "DoUpdate"}));
  EXPECT_EQ(layer->GetObjectCount() + host.displayed.GetCount(), 0);
}

TEST_F(TMapLayerTest, HandsObjectsOutWithoutDestroyingThem) {
  const auto objects = AddObjects(3);
  const std::unique_ptr<TCustomMapObject> removed = layer->RemoveObject(objects[1]);
  EXPECT_EQ(removed.get(), objects[1]);
  EXPECT_EQ(layer->RemoveObject(objects[1]), nullptr);
  EXPECT_EQ(removed->GetMapHost(), &host);
  const std::unique_ptr<TCustomMapObject> replaced = layer->SetObjects(0, std::make_unique<TPolyline>());
  EXPECT_EQ(replaced.get(), objects[0]);
  EXPECT_EQ(replaced->GetMapHost(), nullptr);
  EXPECT_EQ(host.TakeEvents(), Events());
  EXPECT_THROW(layer->SetObjects(2, nullptr), ERangeError);
  EXPECT_THROW(static_cast<void>(layer->GetObjects(-1)), ERangeError);
  EXPECT_THROW(static_cast<void>(other->First()), ERangeError);
}

TEST_F(TMapLayerTest, EndsEditingAndSelectionWhenHidden) {
  const auto objects = AddObjects(1);
  layer->SetEditable(true);
  objects[0]->Select();
  host.TakeEvents();
  layer->SetVisible(false);
  EXPECT_EQ(host.TakeEvents(), (Events{"DelSelection a", "DelSelection a", "mdlDelSelection a", "Update", "DoUpdate",
                                       "mdlLayerVisibleChanged layer"}));
  EXPECT_FALSE(layer->GetEditable() || layer->GetSelectable() || objects[0]->GetSelected());
  layer->SetEditable(true);
  EXPECT_FALSE(layer->GetEditable());
  layer->SetVisible(true);
  EXPECT_EQ(host.TakeEvents(), (Events{"mdlLayerEditableChanged layer", "DoUpdate", "mdlLayerVisibleChanged layer"}));
  EXPECT_TRUE(layer->GetSelectable());
}

TEST_F(TMapLayerTest, BecomesSelectableWhenVisibleAndStaysSoWhenEditable) {
  struct Row {
    bool isVisible, isEditable, asked, isSelectable;
  };
  TCustomMapObject *object = AddObjects(1)[0];
  for (const Row &row : {Row{true, false, true, true}, Row{true, false, false, false}, Row{true, true, false, true},
                         Row{false, false, true, false}}) {
    layer->SetVisible(row.isVisible);
    layer->SetEditable(row.isEditable);
    object->Select();
    host.TakeEvents();
    layer->SetSelectable(row.asked);
    EXPECT_EQ(host.TakeEvents().back(), "mdlLayerSelectableChanged layer");
    EXPECT_EQ(object->GetSelected(), row.isSelectable);
    layer->SetVisible(true);
    EXPECT_EQ(layer->GetSelectable(), row.isSelectable);
  }
}

TEST_F(TMapLayerTest, IsTheOnlyEditableOne) {
  other->SetSelectable(false);
  layer->SetEditable(true);
  host.TakeEvents();
  other->SetEditable(true);
  EXPECT_EQ(host.TakeEvents(), (Events{"mdlLayerEditableChanged layer", "mdlLayerEditableChanged other"}));
  EXPECT_FALSE(layer->GetEditable());
  EXPECT_TRUE(other->GetEditable() && other->GetSelectable());
  other->SetEditable(false);
  EXPECT_FALSE(layer->GetEditable());
}

TEST_F(TMapLayerTest, TellsLinksOfWhatChangesInItAndItsObjectsUnlessItIsBeingLoaded) {
  TCustomMapObject *object = AddObjects(1)[0];
  const auto change = [&](double zoom, const QString &name) {
    layer->SetMinZoom(zoom);
    layer->SetName(name);
    layer->SetLabelFieldIndex(int(zoom));
    layer->SetAutoLabel(true);
    layer->GetFields().Add(name, TDataType::dtString, 5);
    object->SetPen(TPen());
    object->GetFields().Add(name, TDataType::dtString, 5).SetAsString(name);
  };
  change(1, QStringLiteral("Roads"));
  EXPECT_EQ(host.TakeEvents(),
            (Events{"mdlLayerZoomChanged layer", "mdlLayerNameChanged layer", "mdlLayerLabelChanged layer",
                    "mdlLayerAutolabelChanged layer", "DoUpdate", "mdlLayerFieldsChanged layer",
                    "mdlObjectStyleChanged a", "mdlObjectFieldsChanged a", "mdlObjectFieldsChanged a"}));
  layer->SetMinZoom(1);
  layer->SetAutoLabel(true);
  EXPECT_EQ(host.TakeEvents(), Events());
  host.isLoading = true;
  object->SetPen(TPen());
  object->GetFields().Add(QString(), TDataType::dtString, 5);
  EXPECT_EQ(host.TakeEvents(), Events());
}

TEST_F(TMapLayerTest, PaintsWhatIsInViewBetweenItsTwoZoomsUnlessHidden) {
  const auto objects = AddObjects(2);
  objects[0]->GetParts().GetFirst().GetPoints().SetPoint(0, {-20, 50});
  objects[0]->GetParts().GetFirst().GetPoints().SetPoint(1, {-10, 50});
  objects[0]->UpdateBounds();
  const auto isPainted = [&] {
    host.displayed.Clear();
    layer->Paint();
    EXPECT_FALSE(host.displayed.Holds(objects[0])) << "out of view";
    return host.displayed.Holds(objects[1]);
  };
  struct Row {
    double min, max, zoom;
    bool isShown;
  };
  for (const Row &row : {Row{0, 1000, 5, false}, Row{2, 0, 5, false}, Row{2, 8, 1.99, false}, Row{2, 8, 2, true},
                         Row{2, 8, 8, true}, Row{2, 8, 8.01, false}, Row{0, 0, 5, true}}) {
    layer->SetMinZoom(row.min);
    layer->SetMaxZoom(row.max);
    host.viewport.Zoom = row.zoom;
    EXPECT_EQ(isPainted(), row.isShown) << row.min << ' ' << row.max << ' ' << row.zoom;
  }
  host.isReady = false;
  EXPECT_FALSE(isPainted());
  host.isReady = true;
  layer->SetVisible(false);
  EXPECT_FALSE(isPainted());
}

/// Answers for files named *.road as it is told.
class TRoadProvider : public TCustomFormatProvider {
 public:
  QString GetDescription() const override { return {}; }
  QString GetFilter() const override { return {}; }
  QUuid GetGUID() const override { return {}; }
  bool Load(TMapLayer *layer, const QString &fileName) override { return Save(layer, fileName); }
  bool Save(TMapLayer *layer, const QString &fileName) override {
    askedLayer = layer;
    askedFile = fileName;
    return answer;
  }
  bool CanProcessFile(const QString &fileName) const override { return fileName.endsWith(QStringLiteral(".road")); }

  bool answer = true;
  TMapLayer *askedLayer = nullptr;
  QString askedFile;
};

TEST_F(TMapLayerTest, LoadsAndSavesUnrotatedByTheProviderThatAcceptsTheFile) {
  TRoadProvider provider;
  const QString file = QStringLiteral("/maps/of.town/main.v2.road");
  EXPECT_TRUE(layer->LoadFromFile(file, QString()));
  EXPECT_EQ(provider.askedLayer, layer);
  EXPECT_EQ(layer->GetName(), QStringLiteral("main.v2"));
  EXPECT_TRUE(layer->LoadFromFile(file, QStringLiteral("Roads")));
  EXPECT_FALSE(layer->SaveToFile(QStringLiteral("b.rail")));
  host.TakeEvents();
  host.isRotated = true;
  EXPECT_TRUE(layer->SaveToFile(QString()));
  EXPECT_EQ(provider.askedFile, file);
  EXPECT_EQ(host.TakeEvents(), Events{"UnRotate"});
  provider.answer = false;
  EXPECT_FALSE(layer->SaveToFile(QString()));
  EXPECT_FALSE(layer->LoadFromFile(QStringLiteral("b.road"), QString()));
  EXPECT_EQ(layer->GetFileName(), file);
  EXPECT_EQ(layer->GetName(), QStringLiteral("Roads"));
}

}  // namespace
}  // namespace tessera::test
