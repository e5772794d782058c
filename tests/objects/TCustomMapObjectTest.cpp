// SPDX-License-Identifier: MIT
#include "../support/ObjectChecks.h"

#include <tessera/objects/TPolyline.h>

#include <gtest/gtest.h>

namespace tessera::test {
namespace {

using Events = std::vector<std::string>;

/// An object on a map, with the bounds [10, 10 .. 20, 40].
class TCustomMapObjectTest : public testing::Test {
 protected:
  TCustomMapObjectTest() {
    AddPart(object, {{10, 10}, {20, 10}});
    AddPart(object, {{20, 40}});
    object.SetMap(&host);
  }

  TFakeMapHost host;
  TPolyline object;
};

TEST_F(TCustomMapObjectTest, AnswersByItsBoundsAndVertices) {
  ExpectHits(object, {{10, 10}, {20, 40}, {15, 25}, {10, 40}}, {{9.99, 20}, {20.01, 20}, {15, 9.99}, {15, 40.01}});
  ExpectRectAnswers(object, {{{10, 10, 20, 40}, true, true, true},
                             {{0, 0, 50, 50}, true, false, true},
                             {{12, 20, 15, 30}, true, true, false},  // in its bounds, without a vertex
                             {{0, 20, 50, 30}, true, false, false},  // like a plus
                             {{21, 0, 50, 50}, false, false, false},
                             {{50, 50, 0, 0}, false, false, false}});
  TPolyline fresh;
  fresh.GetParts().Add();
  ExpectRectAnswers(fresh, {{{-1e10, -1e10, 1e10, 1e10}, false, false, true}});
  EXPECT_TRUE(fresh.Within(object)) << "an object without vertices lies everywhere";
  EXPECT_FALSE(fresh.ContainsPoint(0, 0) || object.Intersects(fresh) || fresh.Contains(object));
}

TEST_F(TCustomMapObjectTest, ComputesItsBoundsAnewFromAllVertices) {
  object.GetParts().GetFirst().GetPoints().SetPoint(0, {15, -3});
  object.GetParts().GetFirst().GetPoints().Delete(1);
  EXPECT_EQ(object.GetBounds(), (TBounds{10, 10, 20, 40}));
  object.UpdateBounds();
  EXPECT_EQ(object.GetBounds(), (TBounds{15, -3, 20, 40}));
}

TEST_F(TCustomMapObjectTest, IsSelectedAloneBySelectAndOnlyRedrawsItsHighlightWhenSelectedIsSet) {
  TPolyline other;
  other.SetMap(&host);
  other.Select();
  for (const bool isSelected : {false, true}) {
    if (isSelected) object.Select();
    EXPECT_EQ(other.GetSelected(), !isSelected);
    const QImage before = host.picture.GetImage().copy();
    host.TakeEvents();
    object.SetSelected(!isSelected);
    EXPECT_EQ(object.GetSelected(), isSelected);
    EXPECT_NE(host.picture.GetImage(), before);
    object.SetSelected(isSelected);
    EXPECT_EQ(host.picture.GetImage(), before);
    if (isSelected) object.Select();
    EXPECT_EQ(host.TakeEvents(), Events());
  }
}

TEST_F(TCustomMapObjectTest, PaintsWithTheSelectedLookWhereSelectionsArePartOfThePicture) {
  TPen pen;
  pen.SetWidth(3);
  object.SetPen(pen);
  object.Select();
  object.Paint();
  EXPECT_EQ(host.canvas.Pen(), pen);
  host.flags.FastSelection = false;
  object.Paint();
  EXPECT_EQ(host.canvas.Pen().GetColor(), clNavy);
  EXPECT_EQ(host.canvas.Pen().GetWidth(), 5);
  EXPECT_EQ(host.canvas.Brush().GetBitmap(), host.selectionPattern.get());
  EXPECT_TRUE(host.displayed.Holds(&object));
}

TEST_F(TCustomMapObjectTest, LeavesSelectionDisplayedObjectsAndLayerWhenDestroyed) {
  TMapLayer layer;
  layer.SetMap(&host);
  auto *first = layer.NewObject<TPolyline>();
  auto *second = layer.NewObject<TPolyline>();
  host.Name(first, "first");
  first->Select();
  host.selection.Insert(first, 0, false);
  host.TakeEvents();
  layer.RemoveObject(first).reset();
  EXPECT_EQ(host.TakeEvents(), (Events{"DelSelection first", "DelSelection first", "mdlDelSelection first", "Update",
                                       "DelSelection first", "DelSelection first", "mdlDelSelection first", "Update",
                                       "DeleteObject first", "mdlRemoveObject first", "DoUpdate"}));
  EXPECT_EQ(host.selection.GetCount(), 0);
  EXPECT_EQ(host.displayed.GetCount(), 1);
  host.isBeingDestroyed = true;
  second->Select();
  host.TakeEvents();
  layer.RemoveObject(second).reset();
  EXPECT_EQ(host.TakeEvents(), Events());
}

TEST(LabelTest, StandsAtTheVertexOrInTheMiddleOfTheBoundsUnlessItCannotBe) {
  TFakeMapHost host;
  TMapLayer layer;
  layer.GetFields().Add(QStringLiteral("No"), TDataType::dtInteger, 0);
  layer.GetFields().Add(QStringLiteral("Name"), TDataType::dtString, 0);
  layer.SetMap(&host);
  layer.SetAutoLabel(true);
  layer.SetLabelFieldIndex(1);
  host.symbolStyle->pen.SetColor(clWhite);
  const auto labelOf = [&](std::initializer_list<TMapPoint> points, const TBounds &more = TBounds::Empty()) {
    auto *object = layer.NewObject<TPolyline>();
    AddPart(*object, points);
    object->GetParts().AddBounds(more);
    object->GetFields().GetFields(1).SetAsString(QStringLiteral("HHH"));
    host.ClearPicture();
    object->Paint();
    return InkOf(host);
  };
  constexpr int TolerancePx = 4;  // letters do not fill their boxes evenly
  EXPECT_LE((labelOf({{30, 70}}).center() - TPoint(30, 30)).manhattanLength(), TolerancePx);
  EXPECT_LE((labelOf({{30, 20}, {70, 20}, {70, 40}}).center() - TPoint(50, 70)).manhattanLength(), TolerancePx);
  EXPECT_TRUE(labelOf({{50, 50}, {101, 50}}).isNull()) << "out of view";
  EXPECT_TRUE(labelOf({{10, 50}, {20, 50}, {30, 50}}, {-1e12, 50, 30, 50}).isNull()) << "in the middle, far off";
  for (const int field : {-1, 2}) {
    layer.SetLabelFieldIndex(field);
    EXPECT_TRUE(labelOf({{50, 50}}).isNull()) << field;
  }
  layer.SetLabelFieldIndex(1);
  layer.SetAutoLabel(false);
  EXPECT_TRUE(labelOf({{50, 50}}).isNull());
}

}  // namespace
}  // namespace tessera::test
