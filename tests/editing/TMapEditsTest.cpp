// SPDX-License-Identifier: MIT
#include "EditingFixture.h"

#include <tessera/base/Exceptions.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TText.h>

#include <algorithm>

namespace tessera::test {
namespace {

class TMapEditsTest : public TEditingFixture {
 protected:
  Objects AddObjects(int count) { return AddNamedLines(host, *layer, count); }
  static std::vector<std::string> Texts(const QUndoStack &stack) {
    std::vector<std::string> texts;
    texts.reserve(std::size_t(stack.count()));
    for (int i = 0; i < stack.count(); ++i) texts.push_back(stack.text(i).toStdString());
    return texts;
  }
  void Paint(TCustomMapObject *object, TColor color, const char *text) {
    Edits().ChangeObjects({&object, 1}, TObjectAspect::Style, QString::fromUtf8(text), [color](TCustomMapObject &o) {
      TPen pen = o.GetPen();
      pen.SetColor(color);
      o.SetPen(pen);
    });
  }
};

TEST_F(TMapEditsTest, WithoutAStackEditsAllTheSame) {
  host.undoStack = nullptr;
  const Objects objects = AddObjects(3);
  EXPECT_FALSE(Edits().IsRecording());
  Edits().AddColumn(*layer, QStringLiteral("Name"), TDataType::dtString, 9);
  Edits().SetValue(*objects[0], 0, QStringLiteral("road"));
  Edits().MoveObjects({objects.data(), 1}, 5, -5);
  Edits().ReorderObject(*layer, 0, 2);
  TPolyline other;
  AddPart(other, {{1, 2}, {3, 4}});
  Edits().SetGeometry(*objects[1], other.GetParts());
  host.TakeEvents();
  EXPECT_EQ(Edits().DeleteObjects({objects.data() + 2, 1}), 1);
  const auto events = host.TakeEvents();
  EXPECT_EQ(std::count(events.begin(), events.end(), "DeleteObject c"), 1);
  EXPECT_EQ(Order(), (Objects{objects[1], objects[0]}));
  EXPECT_EQ(objects[0]->GetFields().GetFields(0).GetAsString(), QStringLiteral("road"));
  EXPECT_EQ(objects[0]->GetBounds(), (TBounds{15, 5, 95, 85}));
  EXPECT_EQ(objects[1]->GetBounds(), (TBounds{1, 2, 3, 4}));
  EXPECT_EQ(other.GetParts().GetCount(), 0);
  ASSERT_NE(Edits().AddLayer(QString(), QStringLiteral("new")), nullptr);
  EXPECT_TRUE(Edits().DeleteLayer(1));
  EXPECT_EQ(layers.GetCount(), 1);
}

TEST_F(TMapEditsTest, DeletesWhatHandlersDoNotRefuseAndBringsBackPlacesAndSelection) {
  const Objects objects = AddObjects(5);
  for (int i : {3, 0, 1}) host.selection.Add(objects[std::size_t(i)], false);
  const Objects selected = Selected();
  host.onBeforeRemoveObject = [&](TCustomMapObject &object, bool &canRemove) { canRemove = &object != objects[1]; };
  const Objects doomed{objects[3], objects[1], objects[0]};
  EXPECT_EQ(Edits().DeleteObjects(doomed), 2);
  EXPECT_EQ(Order(), (Objects{objects[1], objects[2], objects[4]}));
  host.selection.Clear();
  host.selection.Add(objects[4], false);
  stack.undo();
  EXPECT_EQ(Order(), objects);
  EXPECT_EQ(Selected(), selected);
  stack.redo();
  EXPECT_EQ(Order(), (Objects{objects[1], objects[2], objects[4]}));
  host.onBeforeRemoveObject = [&](TCustomMapObject &, bool &canRemove) { canRemove = false; };
  EXPECT_EQ(Edits().DeleteObjects(Order()), 0);
  EXPECT_EQ(stack.count(), 1);
}

TEST_F(TMapEditsTest, AStepThatHandlersRefuseToTakeBackGoesAndChangesNothing) {
  TCustomMapObject *added = Edits().AddObject(*layer, std::make_unique<TPolyline>());
  ASSERT_EQ(stack.count(), 1);
  host.onBeforeRemoveObject = [](TCustomMapObject &, bool &canRemove) { canRemove = false; };
  stack.undo();
  EXPECT_EQ(Order(), Objects{added});
  EXPECT_EQ(stack.count(), 0);
}

TEST_F(TMapEditsTest, WhatHandlersThrowGoesOnAfterTheStepIsRecordedAndWhileUndoingToTheSink) {
  const Objects objects = AddObjects(2);
  host.onBeforeRemoveObject = [](TCustomMapObject &, bool &) { throw EInOutError(QStringLiteral("no")); };
  EXPECT_THROW(Edits().DeleteObjects(objects), EInOutError);
  EXPECT_EQ(Order(), objects);
  EXPECT_EQ(stack.count(), 0);
  const auto change = [](TCustomMapObject &object) {
    object.MoveBy(1, 1);
    throw EInOutError(QStringLiteral("late"));
  };
  EXPECT_THROW(Edits().ChangeObjects(objects, TObjectAspect::Geometry, QString(), change), EInOutError);
  EXPECT_EQ(objects[1]->GetBounds(), (TBounds{11, 11, 91, 91}));
  stack.undo();
  EXPECT_EQ(objects[0]->GetBounds(), (TBounds{10, 10, 90, 90}));
  EXPECT_EQ(objects[1]->GetBounds(), (TBounds{10, 10, 90, 90}));

  host.onBeforeRemoveObject = nullptr;
  Edits().AddObject(*layer, std::make_unique<TPolyline>());
  host.onBeforeRemoveObject = [](TCustomMapObject &, bool &) { throw EInOutError(QStringLiteral("no")); };
  stack.undo();
  EXPECT_EQ(messages, std::vector<std::string>{"no"});
  EXPECT_EQ(layer->GetObjectCount(), 3);
  host.onBeforeRemoveObject = nullptr;
  stack.redo();
  stack.undo();
  EXPECT_EQ(Order(), objects);
}

TEST_F(TMapEditsTest, WhatHandlersDoWhileAStepIsUndoneIsNotRecorded) {
  const Objects objects = AddObjects(2);
  Edits().DeleteObjects({objects.data(), 1});
  Paint(objects[1], clRed, "paint");
  stack.undo();
  host.onBeforeRemoveObject = [&](TCustomMapObject &, bool &) { Paint(objects[1], clBlue, "meanwhile"); };
  stack.undo();
  stack.redo();
  EXPECT_EQ(objects[1]->GetPen().GetColor(), clBlue);
  EXPECT_EQ(Texts(stack), (std::vector<std::string>{"delete objects (1)", "paint"}));
}

TEST_F(TMapEditsTest, StepsWhoseObjectsOrLayerAreGoneDoNoHarm) {
  const Objects objects = AddObjects(3);
  Paint(objects[0], clRed, "first");
  Edits().MoveObjects(objects, 1, 1);
  Edits().DeleteObjects({objects.data() + 2, 1});
  layer->DeleteObjects(std::array{objects[0]});  // behind the back of the stack
  stack.undo();
  EXPECT_EQ(Order(), (Objects{objects[1], objects[2]}));
  stack.undo();
  EXPECT_EQ(objects[1]->GetBounds(), (TBounds{10, 10, 90, 90}));
  EXPECT_EQ(stack.count(), 3);
  stack.undo();
  EXPECT_EQ(stack.count(), 2) << "nothing was left of the first";
  stack.redo();
  Edits().AddColumn(*layer, QStringLiteral("Name"), TDataType::dtString, 9);
  Edits().RemoveColumn(*layer, 0);
  layers.Clear();
  while (stack.canUndo()) stack.undo();
  EXPECT_EQ(stack.count(), 0);
  EXPECT_EQ(layers.GetCount(), 0);
}

TEST_F(TMapEditsTest, StepsOutliveTheMap) {
  {
    TFakeMapHost shortLived;
    TMapLayers held;
    shortLived.layers = &held;
    shortLived.undoStack = &stack;
    held.SetMap(&shortLived);
    TMapEdits edits(&shortLived);
    TMapLayer *own = edits.AddLayer(QString(), QStringLiteral("own"));
    TCustomMapObject *object = edits.AddObject(*own, std::make_unique<TPolyline>());
    edits.DeleteObjects({&object, 1});
    edits.DeleteLayer(0);
    held.SetMap(nullptr);
  }
  ASSERT_EQ(stack.count(), 4);
  while (stack.canUndo()) stack.undo();
  EXPECT_EQ(Texts(stack), std::vector<std::string>());
}

TEST_F(TMapEditsTest, AStepTouchesOnlyWhatItChanges) {
  const Objects objects = AddObjects(20);
  std::vector<const TMapPoint *> vertices;
  for (const TCustomMapObject *object : objects)
    vertices.push_back(object->GetParts().GetFirst().GetPoints().Points().data());
  TPolyline other;
  const TMapPoint *otherVertices = AddPart(other, {{1, 2}, {3, 4}}).GetPoints().Points().data();
  Edits().SetGeometry(*objects[7], other.GetParts());
  EXPECT_EQ(host.TakeEvents(), (std::vector<std::string>{"mdlObjectGeometryChanged h", "DoUpdate"}));
  EXPECT_EQ(objects[7]->GetParts().GetFirst().GetPoints().Points().data(), otherVertices) << "copied";
  Paint(objects[3], clRed, "paint");
  EXPECT_EQ(host.TakeEvents(), (std::vector<std::string>{"mdlObjectStyleChanged d", "DoUpdate"}));
  stack.undo();
  EXPECT_EQ(host.TakeEvents(), (std::vector<std::string>{"mdlObjectStyleChanged d", "DoUpdate"}));
  stack.undo();
  EXPECT_EQ(host.TakeEvents(), (std::vector<std::string>{"mdlObjectGeometryChanged h", "DoUpdate"}));
  for (std::size_t i = 0; i < objects.size(); ++i) {
    EXPECT_EQ(objects[i]->GetParts().GetFirst().GetPoints().Points().data(), vertices[i]) << i;
  }
}

TEST_F(TMapEditsTest, AScopeMakesOneStepOfItsEditsAndNoneOfNothing) {
  const Objects objects = AddObjects(2);
  {
    const TEditScope outer(&host, QStringLiteral("both"));
    const TEditScope inner(&host, QStringLiteral("one"));
    EXPECT_EQ(Edits().DeleteObjects({}), 0);
  }
  EXPECT_EQ(stack.count(), 0);
  {
    const TEditScope outer(&host, QStringLiteral("both"));
    Paint(objects[0], clRed, "first");
    const TEditScope inner(&host, QStringLiteral("one"));
    Paint(objects[1], clRed, "second");
  }
  EXPECT_EQ(Texts(stack), std::vector<std::string>{"both"});
  stack.undo();
  EXPECT_NE(objects[0]->GetPen().GetColor(), clRed);
  EXPECT_NE(objects[1]->GetPen().GetColor(), clRed);
}

TEST_F(TMapEditsTest, TakesALayerOutWithAllItHasUnlessAHandlerForbidsIt) {
  const Objects objects = AddObjects(2);
  objects[1]->Select();
  layer->SetEditable(true);
  layers.Insert(QString(), 1);
  host.onBeforeDelLayer = [](TMapLayer &, bool &allow) { allow = false; };
  EXPECT_FALSE(Edits().DeleteLayer(0));
  EXPECT_EQ(stack.count(), 0);
  host.onBeforeDelLayer = nullptr;
  host.TakeEvents();
  EXPECT_TRUE(Edits().DeleteLayer(0));
  EXPECT_EQ(host.TakeEvents(), (std::vector<std::string>{"BeforeDelLayer(confirm) layer", "mdlDelLayer layer",
                                                         "DelSelection b", "DelSelection b", "mdlDelSelection b",
                                                         "Update", "DoUpdate", "AfterDelLayer", "mdlAfterDelLayer ?"}));
  layers.First()->SetEditable(true);
  host.TakeEvents();
  stack.undo();
  EXPECT_EQ(host.TakeEvents(),
            (std::vector<std::string>{"mdlLayerEditableChanged ?", "DoUpdate", "AddLayer layer",
                                      "mdlAfterAddLayer layer", "AddSelection b", "mdlAddSelection b"}));
  EXPECT_EQ(layers.GetLayer(0), layer);
  EXPECT_EQ(layers.GetEditableLayer(), layer);
  EXPECT_FALSE(layers.Last()->GetEditable());
  EXPECT_EQ(Order(), objects);
  EXPECT_EQ(Selected(), Objects{objects[1]});
}

TEST_F(TMapEditsTest, ColumnsComeBackWithValuesAndLabelsButObjectsWithOthersAreLeftAlone) {
  const Objects objects = AddObjects(2);
  layer->SetAutoLabel(true);
  Edits().AddColumn(*layer, QStringLiteral("A"), TDataType::dtString, 9);
  Edits().AddColumn(*layer, QStringLiteral("B"), TDataType::dtInteger, 0);
  objects[1]->GetFields().Add(QStringLiteral("own"), TDataType::dtString, 3);
  Edits().SetValue(*objects[0], 1, 42);
  layer->SetLabelFieldIndex(1);
  Edits().RemoveColumn(*layer, 1);
  EXPECT_EQ(layer->GetLabelFieldIndex(), 0);
  EXPECT_EQ(objects[0]->GetFields().GetCount(), 1);
  stack.undo();
  EXPECT_EQ(layer->GetLabelFieldIndex(), 1);
  EXPECT_EQ(objects[0]->GetFields().GetFields(1).GetAsInteger(), 42);
  EXPECT_EQ(objects[1]->GetFields().GetCount(), 3);
  layer->GetFields().Add(QStringLiteral("C"), TDataType::dtString, 3);  // behind the back of the stack
  stack.undo();
  stack.undo();
  EXPECT_EQ(layer->GetFieldCount(), 3);
  EXPECT_EQ(stack.count(), 3) << "the second column is no longer the last";

  TMapLayer *bare = layers.Insert(QString(), 1);
  TCustomMapObject *stranger = bare->NewObject<TPolyline>();
  stranger->GetFields().Add(QStringLiteral("own"), TDataType::dtString, 3).SetAsString(QStringLiteral("abc"));
  Edits().AddColumn(*bare, QStringLiteral("A"), TDataType::dtString, 9);
  stack.undo();
  ASSERT_EQ(stranger->GetFields().GetCount(), 1) << "it did not follow, though it has as many as the layer had then";
  EXPECT_EQ(stranger->GetFields().GetFields(0).GetAsString(), QStringLiteral("abc"));
}

}  // namespace
}  // namespace tessera::test
