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
  /// Appends objects named a, b, c …
  std::vector<TCustomMapObject *> AddObjects(int count) {
    std::vector<TCustomMapObject *> objects;
    for (int i = 0; i < count; ++i) {
      objects.push_back(layer->NewObject<TPolyline>());
      AddPart(*objects.back(), {{10, 10}, {90, 90}});
      host.Name(objects.back(), std::string(1, char('a' + i)));
    }
    host.TakeEvents();
    return objects;
  }

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
  TPen pen;
  pen.SetWidth(9);
  layer->SetDefaultPen(pen);
  const auto *symbol = layer->NewObject<TSymbol>();
  const auto *text = layer->NewObject<TText>();
  EXPECT_EQ(symbol->GetStyle().constData(), std::as_const(host.symbolStyle).constData());
  EXPECT_EQ(text->GetFont().GetName(), QStringLiteral("Courier New"));
  EXPECT_EQ(symbol->GetFields().GetFields(0).GetSize(), 255);

  TMapLayer alone;
  alone.GetFields().Add(QStringLiteral("No"), TDataType::dtInteger, 0);
  const auto *object = alone.NewObject<TPolyline>();
  EXPECT_EQ(object->GetFields().GetCount(), 1);
  EXPECT_EQ(object->GetBGColor(), clWhite);
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
  host.TakeEvents();
  layer->DeleteObject(-1);
  EXPECT_EQ(host.TakeEvents(), Events{"DoUpdate"});
  EXPECT_THROW(layer->DeleteObject(0), ERangeError);
  EXPECT_THROW(layer->DeleteObject(-2), ERangeError);
}

TEST_F(TMapLayerTest, DeletesItsObjectsFromTheLastToTheFirst) {
  AddObjects(3);
  layer->DeleteObjects();
  EXPECT_EQ(host.TakeEvents(),
            (Events{"DeleteObject c", "mdlRemoveObject c", "DoUpdate", "DeleteObject b", "mdlRemoveObject b",
                    "DoUpdate", "DeleteObject a", "mdlRemoveObject a", "DoUpdate", "DoUpdate"}));
  EXPECT_EQ(layer->GetObjectCount(), 0);
  EXPECT_EQ(host.displayed.GetCount(), 0);
}

TEST_F(TMapLayerTest, HandsObjectsOutWithoutDestroyingThem) {
  const auto objects = AddObjects(3);
  const std::unique_ptr<TCustomMapObject> removed = layer->RemoveObject(objects[1]);
  EXPECT_EQ(removed.get(), objects[1]);
  EXPECT_EQ(layer->RemoveObject(objects[1]), nullptr);
  EXPECT_EQ(layer->GetObjects(1), objects[2]);
  EXPECT_EQ(removed->GetMapHost(), &host);
  const std::unique_ptr<TCustomMapObject> replaced = layer->SetObjects(0, std::make_unique<TPolyline>());
  EXPECT_EQ(replaced.get(), objects[0]);
  EXPECT_EQ(replaced->GetMapHost(), nullptr);
  EXPECT_EQ(layer->First()->GetLayer(), layer);
  EXPECT_EQ(host.TakeEvents(), Events());
  for (const int index : {-1, 2}) {
    EXPECT_THROW(static_cast<void>(layer->GetObjects(index)), ERangeError);
    EXPECT_THROW(layer->SetObjects(index, nullptr), ERangeError);
  }
  EXPECT_THROW(static_cast<void>(other->First()), ERangeError);
  EXPECT_THROW(static_cast<void>(other->Last()), ERangeError);
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

TEST_F(TMapLayerTest, TellsOfLabelsOnlyWhenTheyChange) {
  layer->SetAutoLabel(false);
  EXPECT_EQ(host.TakeEvents(), Events());
  layer->SetAutoLabel(true);
  EXPECT_EQ(host.TakeEvents(), (Events{"mdlLayerAutolabelChanged layer", "DoUpdate"}));
}

TEST_F(TMapLayerTest, TellsLinksOfWhatChangesInItAndItsObjectsUnlessItIsBeingLoaded) {
  TCustomMapObject *object = AddObjects(1)[0];
  const auto change = [&](double zoom, const QString &name) {
    layer->SetMinZoom(zoom);
    layer->SetName(name);
    layer->SetLabelFieldIndex(int(zoom));
    layer->GetFields().Add(name, TDataType::dtString, 5);
    object->SetPen(TPen());
    object->GetFields().Add(name, TDataType::dtString, 5).SetAsString(name);
  };
  change(1, QStringLiteral("Roads"));
  EXPECT_EQ(host.TakeEvents(),
            (Events{"mdlLayerZoomChanged layer", "mdlLayerNameChanged layer", "mdlLayerLabelChanged layer",
                    "mdlLayerFieldsChanged layer", "mdlObjectStyleChanged a", "mdlObjectFieldsChanged a",
                    "mdlObjectFieldsChanged a"}));
  layer->SetMinZoom(1);
  EXPECT_EQ(host.TakeEvents(), Events());
  host.isLoading = true;
  object->SetPen(TPen());
  object->GetFields().Add(QString(), TDataType::dtString, 5);
  EXPECT_EQ(host.TakeEvents(), Events());
}

TEST_F(TMapLayerTest, IsShownBetweenItsTwoZooms) {
  struct Row {
    double min, max, zoom;
    bool isShown;
  };
  for (const Row &row : {Row{0, 0, 5, true}, Row{0, 1000, 5, false}, Row{2, 0, 5, false}, Row{2, 8, 1.99, false},
                         Row{2, 8, 2, true}, Row{2, 8, 8, true}, Row{2, 8, 8.01, false}}) {
    layer->SetMinZoom(row.min);
    layer->SetMaxZoom(row.max);
    host.viewport.Zoom = row.zoom;
    EXPECT_EQ(layer->ValidZoom(), row.isShown) << row.min << ' ' << row.max << ' ' << row.zoom;
  }
}

TEST_F(TMapLayerTest, PaintsWhatIsInViewUnlessHidden) {
  const auto objects = AddObjects(3);
  objects[1]->GetParts().Clear();
  AddPart(*objects[1], {{-20, 50}, {-10, 50}});
  objects[1]->UpdateBounds();
  const auto painted = [&] {
    host.displayed.Clear();
    layer->Paint();
    return host.displayed.GetCount();
  };
  EXPECT_EQ(painted(), 2);
  EXPECT_EQ(host.displayed.GetItem(1), objects[2]);
  host.isReady = false;
  EXPECT_EQ(painted(), 0);
  host.isReady = true;
  layer->SetMinZoom(7);
  EXPECT_EQ(painted(), 0);
  layer->SetMinZoom(0);
  layer->SetVisible(false);
  EXPECT_EQ(painted(), 0);
}

TEST_F(TMapLayerTest, HighlightsItsSelectionOnlyInTheFastWay) {
  AddObjects(1)[0]->Select();
  const auto changesThePicture = [&] {
    const QImage before = host.picture.GetImage().copy();
    layer->PaintSelection();
    return host.picture.GetImage() != before;
  };
  EXPECT_TRUE(changesThePicture());
  other->PaintSelection();
  host.flags.FastSelection = false;
  EXPECT_FALSE(changesThePicture());
  host.flags.FastSelection = true;
  layer->SetMaxZoom(9);
  EXPECT_FALSE(changesThePicture());
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

TEST_F(TMapLayerTest, LoadsByTheProviderThatAcceptsTheFile) {
  TRoadProvider provider;
  const QString file = QStringLiteral("/maps/of.town/main.v2.road");
  EXPECT_TRUE(layer->LoadFromFile(file, QString()));
  EXPECT_EQ(provider.askedLayer, layer);
  EXPECT_EQ(layer->GetFileName(), file);
  EXPECT_EQ(layer->GetName(), QStringLiteral("main.v2"));
  EXPECT_TRUE(layer->LoadFromFile(file, QStringLiteral("Roads")));
  EXPECT_EQ(layer->GetName(), QStringLiteral("Roads"));
  provider.answer = false;
  EXPECT_FALSE(layer->LoadFromFile(QStringLiteral("b.road"), QString()));
  EXPECT_FALSE(layer->LoadFromFile(QStringLiteral("b.rail"), QString()));
  EXPECT_EQ(layer->GetFileName(), file);
  EXPECT_EQ(layer->GetName(), QStringLiteral("Roads"));
}

TEST_F(TMapLayerTest, SavesUnrotatedByTheProviderThatAcceptsTheFile) {
  TRoadProvider provider;
  EXPECT_FALSE(layer->SaveToFile(QString()));
  EXPECT_FALSE(layer->SaveToFile(QStringLiteral("b.rail")));
  host.isRotated = true;
  EXPECT_TRUE(layer->SaveToFile(QStringLiteral("b.road")));
  EXPECT_EQ(host.TakeEvents(), Events{"UnRotate"});
  layer->SetFileName(QStringLiteral("own.road"));
  provider.answer = false;
  EXPECT_FALSE(layer->SaveToFile(QString()));
  EXPECT_EQ(provider.askedFile, QStringLiteral("own.road"));
  EXPECT_EQ(host.TakeEvents(), Events());
}

}  // namespace
}  // namespace tessera::test
