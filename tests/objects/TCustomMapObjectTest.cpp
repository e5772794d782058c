// SPDX-License-Identifier: MIT
#include "../support/FakeMapHost.h"
#include "../support/Printers.h"

#include <tessera/base/Exceptions.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TSymbol.h>

#include <gtest/gtest.h>

namespace tessera {
namespace {

using test::AddPart;
using test::TFakeMapHost;
using Events = std::vector<std::string>;

/// An object whose bounds are [10, 10 .. 20, 40].
void MakeBent(TCustomMapObject &object) {
  AddPart(object, {{10, 10}, {20, 10}});
  AddPart(object, {{20, 40}});
}

TEST(TCustomMapObjectTest, ContainsThePointsOfItsBounds) {
  TPolyline object;
  MakeBent(object);
  for (const TMapPoint &point : {TMapPoint{10, 10}, {20, 40}, {15, 25}, {10, 40}}) {
    EXPECT_TRUE(object.ContainsPoint(point.X, point.Y)) << testing::PrintToString(point);
  }
  for (const TMapPoint &point : {TMapPoint{9.99, 20}, {20.01, 20}, {15, 9.99}, {15, 40.01}}) {
    EXPECT_FALSE(object.ContainsPoint(point.X, point.Y)) << testing::PrintToString(point);
  }
}

TEST(TCustomMapObjectTest, AnswersQuestionsAboutRectangles) {
  TPolyline object;
  MakeBent(object);
  struct Row {
    const char *name;
    TBounds r;
    bool intersects, within, contains;
  };
  const Row rows[] = {{"its bounds", {10, 10, 20, 40}, true, true, true},
                      {"around it", {0, 0, 50, 50}, true, true, false},
                      {"in its bounds, without a vertex", {12, 20, 15, 30}, true, false, true},
                      {"touching", {20, 40, 50, 50}, true, false, false},
                      {"like a plus", {0, 20, 50, 30}, true, false, false},
                      {"beside", {21, 0, 50, 50}, false, false, false},
                      {"inverted", {50, 50, 0, 0}, false, false, false}};
  for (const Row &row : rows) {
    EXPECT_EQ(object.IntersectsRect(row.r.MinX, row.r.MinY, row.r.MaxX, row.r.MaxY), row.intersects) << row.name;
    EXPECT_EQ(object.WithinRect(row.r.MinX, row.r.MinY, row.r.MaxX, row.r.MaxY), row.within) << row.name;
    EXPECT_EQ(object.ContainsRect(row.r.MinX, row.r.MinY, row.r.MaxX, row.r.MaxY), row.contains) << row.name;
  }
}

TEST(TCustomMapObjectTest, LiesEverywhereAndMeetsNothingWithoutVertices) {
  TPolyline fresh;
  fresh.GetParts().Add();
  TPolyline object;
  MakeBent(object);
  EXPECT_TRUE(fresh.WithinRect(0, 0, 1, 1));
  EXPECT_FALSE(fresh.ContainsPoint(0, 0));
  EXPECT_FALSE(fresh.IntersectsRect(-10, -10, 10, 10));
  EXPECT_FALSE(fresh.IntersectsRect(-1e10, -1e10, 1e10, 1e10));
  EXPECT_TRUE(object.Contains(fresh));
  EXPECT_TRUE(fresh.Within(object));
  EXPECT_FALSE(object.Intersects(fresh));
  EXPECT_FALSE(fresh.Contains(object));
}

/// Contains what lies in the upper half of its bounds.
class THalf : public TPolyline {
 public:
  bool ContainsPoint(double x, double y) const override { return y >= 25 && TPolyline::ContainsPoint(x, y); }
};

TEST(TCustomMapObjectTest, AsksTheKindsOwnContainsPoint) {
  THalf half;
  MakeBent(half);
  TPolyline high;
  AddPart(high, {{12, 30}, {15, 38}});
  TPolyline both;
  AddPart(both, {{12, 12}, {15, 38}});
  TPolyline low;
  AddPart(low, {{12, 12}});
  EXPECT_TRUE(half.Contains(high) && high.Within(half) && half.Intersects(high));
  EXPECT_TRUE(!half.Contains(both) && !both.Within(half) && half.Intersects(both));
  EXPECT_TRUE(!half.Contains(low) && !half.Intersects(low));
  EXPECT_TRUE(half.ContainsRect(12, 25, 15, 30));
  EXPECT_FALSE(half.ContainsRect(12, 24, 15, 30));
}

TEST(TCustomMapObjectTest, ComputesItsBoundsAnewFromAllVertices) {
  TPolyline object;
  MakeBent(object);
  object.GetParts().GetFirst().GetPoints().SetPoint(0, {15, -3});
  object.GetParts().GetFirst().GetPoints().Delete(1);
  EXPECT_EQ(object.GetBounds(), (TBounds{10, 10, 20, 40}));
  object.UpdateBounds();
  EXPECT_EQ(object.GetBounds(), (TBounds{15, -3, 20, 40}));
  object.GetParts().Clear();
  object.UpdateBounds();
  EXPECT_EQ(object.GetBounds(), TBounds::Empty());
}

TEST(TCustomMapObjectTest, TellsThePixelOfAVertex) {
  TFakeMapHost host;
  TPolyline object;
  MakeBent(object);
  object.SetMap(&host);
  EXPECT_EQ(object.GetPixels(1, 0), TPoint(20, 60));
  EXPECT_THROW(static_cast<void>(object.GetPixels(2, 0)), ERangeError);
  EXPECT_THROW(static_cast<void>(object.GetPixels(1, 1)), ERangeError);
}

TEST(TCustomMapObjectTest, IsSelectedAloneBySelect) {
  TFakeMapHost host;
  TPolyline first;
  TPolyline second;
  first.Select();
  EXPECT_FALSE(first.GetSelected());
  for (TPolyline *object : {&first, &second}) {
    object->SetMap(&host);
    MakeBent(*object);
  }
  first.Select();
  second.Select();
  EXPECT_FALSE(first.GetSelected());
  EXPECT_TRUE(second.GetSelected());
  host.TakeEvents();
  second.Select();
  EXPECT_EQ(host.TakeEvents(), Events());
}

TEST(TCustomMapObjectTest, OnlyRedrawsItsHighlightWhenSelectedIsSet) {
  TFakeMapHost host;
  TPolyline object;
  MakeBent(object);
  object.SetMap(&host);
  for (const bool isSelected : {false, true}) {
    if (isSelected) object.Select();
    const QImage before = host.picture.GetImage().copy();
    host.TakeEvents();
    object.SetSelected(!isSelected);
    EXPECT_EQ(object.GetSelected(), isSelected);
    EXPECT_EQ(host.TakeEvents(), Events());
    EXPECT_NE(host.picture.GetImage(), before);
    object.SetSelected(isSelected);
    EXPECT_EQ(host.picture.GetImage(), before);
  }
}

TEST(TCustomMapObjectTest, PreparesTheCanvasForItsHighlight) {
  TFakeMapHost host;
  TCustomMapObject object;
  object.SetMap(&host);
  TPen pen;
  pen.SetColor(RGB(10, 20, 30));
  pen.SetWidth(3);
  TBrush brush;
  brush.SetColor(RGB(40, 50, 60));
  brush.SetStyle(TBrushStyle::bsCross);
  object.SetPen(pen);
  object.SetBrush(brush);
  object.SetBGColor(RGB(70, 80, 90));
  struct Row {
    bool usesBackground;
    TColor brush, pen;
  };
  for (const Row &row : {Row{false, RGB(40, 50, 60 ^ 0x80), RGB(10, 20, 30 ^ 0x80)},
                         Row{true, RGB(70, 80, 90 ^ 0x80), RGB(10, 20, 30)}}) {
    object.SetUseBGColor(row.usesBackground);
    object.DrawSelection();
    EXPECT_EQ(host.canvas.Brush().GetColor(), row.brush);
    EXPECT_EQ(host.canvas.Brush().GetStyle(), TBrushStyle::bsSolid);
    EXPECT_EQ(host.canvas.Pen().GetColor(), row.pen);
    EXPECT_EQ(host.canvas.Pen().GetWidth(), 3);
    EXPECT_EQ(host.canvas.Pen().GetMode(), TPenMode::pmXor);
  }
  host.canvas.Pen() = TPen();
  host.flags.ShowSelection = false;
  object.DrawSelection();
  EXPECT_EQ(host.canvas.Pen(), TPen());
}

TEST(TCustomMapObjectTest, PaintsWithTheSelectedLookWhereSelectionsArePartOfThePicture) {
  TFakeMapHost host;
  TCustomMapObject object;
  object.SetMap(&host);
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
  EXPECT_TRUE(host.displayed.Holds(object));
}

TEST(TCustomMapObjectTest, SharesToolsUntilOneIsChanged) {
  TCustomMapObject first;
  TCustomMapObject second;
  first.SetBGColor(clRed);
  EXPECT_EQ(second.GetBGColor(), clWhite);
  second.SetStyle(first.GetStyle());
  second.SetUseBGColor(true);
  EXPECT_EQ(second.GetBGColor(), clRed);
  EXPECT_FALSE(first.GetUseBGColor());
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
    QRect ink;
    for (int y = 0; y < 100; ++y) {
      for (int x = 0; x < 100; ++x) {
        if (host.At(x, y) != clWhite) ink |= QRect(x, y, 1, 1);
      }
    }
    return ink;
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

TEST(TCustomMapObjectTest, LeavesSelectionDisplayedObjectsAndLayerWhenDestroyed) {
  TFakeMapHost host;
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
  EXPECT_EQ(layer.GetObjectCount(), 1);

  host.isBeingDestroyed = true;
  second->Select();
  host.TakeEvents();
  layer.RemoveObject(second).reset();
  EXPECT_EQ(host.TakeEvents(), Events());
  EXPECT_EQ(host.selection.GetCount(), 1);
  EXPECT_EQ(layer.GetObjectCount(), 0);
}

TEST(TCustomMapObjectTest, TakesOverPartsAndGivesItsOwnBack) {
  TPolyline object;
  MakeBent(object);
  TParts parts;
  parts.Add().GetPoints().Add(1, 2);
  object.SetParts(parts);
  object.GetParts().GetFirst().GetPoints().Add(3, 4);
  EXPECT_EQ(object.GetBounds(), (TBounds{1, 2, 3, 4}));
  EXPECT_EQ(parts.GetCount(), 2);
}

}  // namespace
}  // namespace tessera
