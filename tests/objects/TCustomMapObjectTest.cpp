// SPDX-License-Identifier: MIT
#include "../support/ObjectChecks.h"

#include <tessera/base/Exceptions.h>
#include <tessera/objects/TPolyline.h>

#include <gtest/gtest.h>

namespace tessera::test {
namespace {

using Events = std::vector<std::string>;

/// An object on a map, with the bounds [10, 10 .. 20, 40].
class TCustomMapObjectTest : public testing::Test {
 protected:
  TCustomMapObjectTest() {
    MakeBent(object);
    object.SetMap(&host);
  }
  static void MakeBent(TCustomMapObject &object) {
    AddPart(object, {{10, 10}, {20, 10}});
    AddPart(object, {{20, 40}});
  }

  TFakeMapHost host;
  TPolyline object;
};

TEST_F(TCustomMapObjectTest, AnswersByItsBoundsAndVertices) {
  ExpectHits(object, {{10, 10}, {20, 40}, {15, 25}, {10, 40}}, {{9.99, 20}, {20.01, 20}, {15, 9.99}, {15, 40.01}});
  ExpectRectAnswers(object, {{{10, 10, 20, 40}, true, true, true},
                             {{0, 0, 50, 50}, true, false, true},
                             {{12, 20, 15, 30}, true, true, false},  // in its bounds, without a vertex
                             {{20, 40, 50, 50}, true, false, false},
                             {{0, 20, 50, 30}, true, false, false},  // like a plus
                             {{21, 0, 50, 50}, false, false, false},
                             {{50, 50, 0, 0}, false, false, false}});
}

TEST_F(TCustomMapObjectTest, LiesEverywhereAndMeetsNothingWithoutVertices) {
  TPolyline fresh;
  fresh.GetParts().Add();
  ExpectHits(fresh, {}, {{0, 0}});
  ExpectRectAnswers(fresh, {{{-1e10, -1e10, 1e10, 1e10}, false, false, true}});
  EXPECT_TRUE(fresh.Within(object));
  EXPECT_FALSE(object.Intersects(fresh) || fresh.Contains(object));
}

TEST_F(TCustomMapObjectTest, ComputesItsBoundsAnewFromAllVertices) {
  EXPECT_EQ(object.GetPixels(1, 0), TPoint(20, 60));
  object.GetParts().GetFirst().GetPoints().SetPoint(0, {15, -3});
  object.GetParts().GetFirst().GetPoints().Delete(1);
  EXPECT_EQ(object.GetBounds(), (TBounds{10, 10, 20, 40}));
  object.UpdateBounds();
  EXPECT_EQ(object.GetBounds(), (TBounds{15, -3, 20, 40}));
  object.GetParts().Clear();
  object.UpdateBounds();
  EXPECT_EQ(object.GetBounds(), TBounds::Empty());
}

TEST_F(TCustomMapObjectTest, IsSelectedAloneBySelectAndOnlyRedrawsItsHighlightWhenSelectedIsSet) {
  TPolyline other;
  other.Select();
  EXPECT_FALSE(other.GetSelected()) << "without a map";
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

TEST_F(TCustomMapObjectTest, PreparesTheCanvasForItsHighlight) {
  GiveTools(object, host, TBrushStyle::bsCross);
  object.SetBGColor(RGB(70, 80, 90));
  constexpr TColor Turned = RGB(0, 0, 0x80);
  struct Row {
    bool usesBackground;
    TColor brush, pen;
  };
  for (const Row &row :
       {Row{false, FillColor ^ Turned, LineColor ^ Turned}, Row{true, RGB(70, 80, 90) ^ Turned, LineColor}}) {
    object.SetUseBGColor(row.usesBackground);
    object.DrawSelection();
    EXPECT_EQ(host.canvas.Brush().GetColor(), row.brush);
    EXPECT_EQ(host.canvas.Brush().GetStyle(), TBrushStyle::bsSolid);
    EXPECT_EQ(host.canvas.Pen().GetColor(), row.pen);
    EXPECT_EQ(host.canvas.Pen().GetMode(), TPenMode::pmXor);
  }
  host.canvas.Pen() = TPen();
  host.flags.ShowSelection = false;
  object.DrawSelection();
  EXPECT_EQ(host.canvas.Pen(), TPen());
}

TEST_F(TCustomMapObjectTest, PaintsWithTheSelectedLookWhereSelectionsArePartOfThePicture) {
  TPen pen;
  pen.SetWidth(3);
  object.SetPen(pen);
  object.Select();
  object.Paint();
  EXPECT_EQ(host.canvas.Pen(), pen);
  EXPECT_EQ(host.canvas.Brush(), TBrush());
  host.flags.FastSelection = false;
  object.Paint();
  EXPECT_EQ(host.canvas.Pen().GetColor(), clNavy);
  EXPECT_EQ(host.canvas.Pen().GetWidth(), 5);
  EXPECT_EQ(host.canvas.Brush().GetBitmap(), host.selectionPattern.get());
  EXPECT_TRUE(host.displayed.Holds(&object));
  EXPECT_EQ(object.GetPen(), pen);
}

TEST_F(TCustomMapObjectTest, LeavesSelectionDisplayedObjectsAndLayerWhenDestroyed) {
  TMapLayer layer;
  layer.SetMap(&host);
  auto *first = layer.NewObject<TPolyline>();
  auto *second = layer.NewObject<TPolyline>();
  host.Name(first, "first");
  first->Select();
  EXPECT_EQ(host.displayed.GetCount(), 2);
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
  EXPECT_EQ(host.selection.GetCount(), 1);
  EXPECT_EQ(layer.GetObjectCount(), 0);
}

/// A layer of a map with one labelled object.
class LabelTest : public testing::Test {
 protected:
  LabelTest() {
    layer.GetFields().Add(QStringLiteral("No"), TDataType::dtInteger, 0);
    layer.GetFields().Add(QStringLiteral("Name"), TDataType::dtString, 0);
    layer.SetMap(&host);
    layer.SetAutoLabel(true);
    layer.SetLabelFieldIndex(1);
    host.symbolStyle->pen.SetColor(clWhite);
  }
  /// Where the label of an object with these vertices is; null when there is none.
  QRect LabelOf(std::initializer_list<TMapPoint> points) {
    auto *object = layer.NewObject<TPolyline>();
    AddPart(*object, points);
    object->GetFields().GetFields(1).SetAsString(QStringLiteral("HHH"));
    host.ClearPicture();
    object->Paint();
    return InkOf(host);
  }

  TFakeMapHost host;
  TMapLayer layer;
};

TEST_F(LabelTest, StandsAtTheVertexOrInTheMiddleOfTheBounds) {
  constexpr int TolerancePx = 4;  // letters do not fill their boxes evenly
  EXPECT_LE((LabelOf({{30, 70}}).center() - TPoint(30, 30)).manhattanLength(), TolerancePx);
  EXPECT_LE((LabelOf({{30, 20}, {70, 20}, {70, 40}}).center() - TPoint(50, 70)).manhattanLength(), TolerancePx);
}

TEST_F(LabelTest, IsLeftOutWhereItCannotBe) {
  EXPECT_TRUE(LabelOf({{50, 50}, {101, 50}}).isNull());
  layer.SetAutoLabel(false);
  EXPECT_TRUE(LabelOf({{50, 50}}).isNull());
  layer.SetAutoLabel(true);
  for (const int field : {-1, 2}) {
    layer.SetLabelFieldIndex(field);
    EXPECT_TRUE(LabelOf({{50, 50}}).isNull()) << field;
  }
}

}  // namespace
}  // namespace tessera::test
