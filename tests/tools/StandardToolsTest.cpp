// SPDX-License-Identifier: MIT
// What the standard tools make of clicks and drags.
#include "../map/MapFixture.h"
#include "../support/MapInput.h"

#include <tessera/StdMapTools.h>
#include <tessera/graphics/TCanvas.h>
#include <tessera/objects/TGeoCircle.h>
#include <tessera/objects/TRectangle.h>
#include <tessera/objects/TSymbol.h>

#include <QUndoStack>

#include <array>
#include <stdexcept>

namespace tessera::test {
namespace {

/// A tool on the map of 200 x 100 pixels whose pixel (x, y) shows the map point (x, 100 - y).
class StandardToolsTest : public MapFixture {
 protected:
  template <class Kind>
  void Use(Kind &tool) {
    tool.SetTessera(&map);
    tool.SetActive(true);
    QObject::connect(&tool, &TCustomMapTool::OnComplete, &map, [this] { ++completed; });
  }
  TMapLayer *AddEditableLayer() {
    TMapLayer *layer = AddLayer();
    layer->SetEditable(true);
    return layer;
  }
  /// The vertices of an object's only part, as text.
  static std::string Vertices(const TCustomMapObject &object) {
    EXPECT_EQ(object.GetParts().GetCount(), 1);
    std::string text;
    for (const TMapPoint &point : object.GetParts().GetFirst().GetPoints().Points()) {
      text += QString::asprintf("%g,%g ", point.X, point.Y).toStdString();
    }
    return text;
  }

  MapInput input{map};
  int completed = 0;
};

TEST_F(StandardToolsTest, SelectsTheObjectUnderAClick) {
  TSelectionTool tool;
  Use(tool);
  TCustomMapObject *red = AddSquare(AddLayer(), 20, 20, 40, clRed);
  TCustomMapObject *blue = AddSquare(AddLayer(), 40, 40, 40, clBlue);
  TCustomMapObject *green = AddSquare(AddLayer(), 40, 40, 40, clNavy);
  Repainted();
  const auto selected = [this] {
    return std::vector(map.GetSelection()->Items().begin(), map.GetSelection()->Items().end());
  };
  using Objects = std::vector<TCustomMapObject *>;
  const QPoint onRed(30, 70);
  const QPoint onAll(50, 50);
  input.Click(onRed, {}, Qt::RightButton);
  EXPECT_EQ(selected(), Objects{});
  input.Click(onRed);
  EXPECT_EQ(selected(), Objects{red});
  input.Click(onAll, Qt::ShiftModifier);
  EXPECT_EQ(selected(), (Objects{red, green}));
  input.Click(onRed, Qt::ShiftModifier);
  EXPECT_EQ(selected(), Objects{green});
  for (const auto &[count, hit] : {std::pair{1, blue}, {2, red}, {0, green}, {1, blue}}) {
    input.Click(onAll, Qt::ControlModifier);
    EXPECT_EQ(map.GetCtrlClickCount(), count);
    EXPECT_EQ(selected(), Objects{hit});
  }
  input.Click({150, 10});
  EXPECT_EQ(selected(), Objects{});
  EXPECT_EQ(map.GetCtrlClickCount(), 0);
  input.DoubleClick(onRed);
  EXPECT_EQ(selected(), Objects{red});
  EXPECT_EQ(completed, 0);
}

TEST_F(StandardToolsTest, TellsOfTheObjectsUnderAClickTopmostFirst) {
  auto tool = std::make_unique<TIdentifyTool>();
  Use(*tool);
  TCustomMapObject *red = AddSquare(AddLayer(), 20, 20, 40, clRed);
  TCustomMapObject *blue = AddSquare(AddLayer(), 40, 40, 40, clBlue);
  std::vector<TIdentifyTool::Objects> told;
  QObject::connect(tool.get(), &TIdentifyTool::OnIdentify, &map,
                   [&told](TIdentifyTool *, const TIdentifyTool::Objects &objects) { told.push_back(objects); });
  input.Click({50, 50}, {}, Qt::RightButton);
  EXPECT_EQ(told.size(), 0U);
  input.Click({50, 50});
  ASSERT_EQ(told.back().size(), 2U);
  EXPECT_EQ(told.back()[0].Get(), blue);
  EXPECT_EQ(told.back()[1].Get(), red);
  map.SetPickTolerancePx(5);
  input.Click({17, 60});
  ASSERT_EQ(told.back().size(), 1U);
  input.Click({150, 10});
  EXPECT_EQ(told.back().size(), 0U);
  EXPECT_EQ(map.GetSelection()->GetCount(), 0);
  QObject::connect(tool.get(), &TIdentifyTool::OnIdentify, &map, [&tool] { tool.reset(); });
  input.Click({50, 50});
  EXPECT_EQ(tool, nullptr);
}

TEST_F(StandardToolsTest, ZoomsInByAClickOrIntoARectangle) {
  TZoomInTool tool;
  Use(tool);
  struct ZoomCase {
    double zoom;
    QPoint from, to;
    double newZoom, centerX, centerY;
  };
  for (const auto &[zoom, from, to, newZoom, centerX, centerY] :
       {ZoomCase{1.5, {100, 50}, {100, 50}, 3, 100, 50}, ZoomCase{60, {100, 50}, {100, 50}, 100, 100, 50},
        ZoomCase{1.25, {120, 60}, {130, 60}, 2.5, 120, 42}, ZoomCase{100, {120, 60}, {120, 60}, 100, 100, 50},
        ZoomCase{2, {110, 60}, {101, 50}, 20, 103, 47.5}, ZoomCase{0.5, {90, 40}, {91, 40}, 1, 0, 0}}) {
    LookAt(100, 50, zoom);
    input.Drag(from, to);
    EXPECT_EQ(map.GetZoom(), newZoom);
    EXPECT_EQ(map.GetCenterX(), centerX) << zoom;
    EXPECT_EQ(map.GetCenterY(), centerY) << zoom;
  }
  EXPECT_EQ(completed, 6) << "also where the zoom stays";
}

TEST_F(StandardToolsTest, ZoomsOutByAClickOrIntoARectangle) {
  TZoomOutTool tool;
  Use(tool);
  map.SetMinZoom(0.25);
  for (const auto &[zoom, from, to, newZoom] : {std::tuple{8., QPoint(9, 9), QPoint(9, 9), 4.},
                                                {0.3, {9, 9}, {9, 9}, 0.25},
                                                {8., {10, 10}, {60, 20}, 2.},
                                                {8., {100, 90}, {50, 80}, 0.4},
                                                {8., {10, 90}, {60, 10}, 2.},
                                                {8., {10, 10}, {11, 10}, 0.25}}) {
    LookAt(100, 50, zoom);
    input.Drag(from, to);
    EXPECT_DOUBLE_EQ(map.GetZoom(), newZoom);
  }
  LookAt(10, 20, 2);
  input.Click({30, 40});
  EXPECT_EQ(map.GetCenterX(), 0) << "back at zoom 1";
  EXPECT_EQ(map.GetCenterY(), 0);
}

TEST_F(StandardToolsTest, PansByTheWayOfADrag) {
  TPanTool tool;
  Use(tool);
  AddSquare(AddLayer(), 20, 20, 40, clRed);
  map.SetColor(clNavy);
  map.GetCanvas().Brush().SetStyle(TBrushStyle::bsClear);
  const QImage before = Repainted();
  input.Press({40, 50});
  input.MoveTo({70, 40});
  const QImage dragged = Shown();
  EXPECT_EQ(dragged.copy(30, 0, 170, 90), before.copy(0, 10, 170, 90));
  EXPECT_EQ(dragged.pixel(10, 50), Pixel(clNavy));
  EXPECT_EQ(dragged.pixel(100, 95), Pixel(clNavy));
  EXPECT_EQ(map.GetCenterX(), 100) << "nothing has moved yet";
  input.MoveTo({10, 60});
  EXPECT_EQ(Shown().pixel(190, 50), Pixel(clNavy));
  EXPECT_EQ(Shown().pixel(50, 5), Pixel(clNavy));
  AddSquare(map.GetLayers()->First(), 100, 50, 10, clBlue);
  map.DoUpdate(true);
  input.MoveTo({70, 40});
  EXPECT_EQ(Shown().pixel(135, 35), Pixel(clBlue)) << "what came meanwhile moves, too";
  input.Release({70, 40});
  EXPECT_EQ(map.GetCenterX(), 70);
  EXPECT_EQ(map.GetCenterY(), 40);
  map.GetLayers()->First()->DeleteObjects(std::array{map.GetLayers()->First()->Last()});
  EXPECT_EQ(Shown(), dragged);
  input.Drag({40, 50}, {40, 50});
  EXPECT_EQ(map.GetCenterX(), 70);
  EXPECT_EQ(completed, 0);
}

TEST_F(StandardToolsTest, DrawsALineAndARectangleFromPressToRelease) {
  TMapLayer *layer = AddEditableLayer();
  TLineTool line;
  TRectTool rectangle;
  Use(line);
  input.Drag({40, 50}, {40, 50});
  EXPECT_EQ(layer->GetObjectCount(), 0);
  EXPECT_EQ(completed, 1);
  input.Drag({60, 50}, {40, 30}, Qt::RightButton);
  input.Drag({60, 50}, {40, 30});
  ASSERT_EQ(layer->GetObjectCount(), 1);
  EXPECT_NE(dynamic_cast<TPolyline *>(layer->First()), nullptr);
  EXPECT_EQ(Vertices(*layer->First()), "60,50 40,70 ");
  Use(rectangle);
  input.Drag({60, 90}, {40, 70});
  EXPECT_NE(dynamic_cast<TRectangle *>(layer->Last()), nullptr);
  EXPECT_EQ(Vertices(*layer->Last()), "60,10 40,30 ") << "the corner of the press is the first";
  EXPECT_EQ(Shown().pixel(40, 80), Pixel(clBlack)) << "at once";
  EXPECT_EQ(completed, 3);
}

TEST_F(StandardToolsTest, KeepsLinesToDirectionsAndRectanglesToSquaresWithShiftWhereThatIsOn) {
  TMapLayer *layer = AddEditableLayer();
  TLineTool line;
  TRectTool rectangle;
  TPolylineTool polyline;
  const auto drawn = [&](TCustomMapTool &tool) {
    Use(tool);
    input.Press({40, 50}, Qt::ShiftModifier);
    input.MoveTo({60, 57}, Qt::LeftButton, Qt::ShiftModifier);
    input.Release({60, 57});
    return Vertices(*layer->Last());
  };
  EXPECT_EQ(drawn(line), "40,50 60,43 ") << "off at first";
  map.GetSnapping()->SetShiftConstrains(true);
  EXPECT_EQ(drawn(line), "40,50 60,50 ");
  EXPECT_EQ(drawn(rectangle), "40,50 60,30 ");
  // Also from a place that the press is drawn to.
  map.GetSnapping()->SetGridStep(14);
  EXPECT_EQ(drawn(line), "42,56 62,56 ");
  map.GetSnapping()->SetGridStep(0);
  Use(polyline);
  input.Click({20, 20}, Qt::ShiftModifier);
  input.Click({50, 24}, Qt::ShiftModifier);
  input.MoveTo({60, 40}, Qt::NoButton, Qt::ShiftModifier);
  EXPECT_EQ(polyline.GetMapOutline().back(), (TMapPoint{65, 65}))
      << "along a slanting direction, by the mean of both ways";
  input.Click({54, 60}, Qt::ShiftModifier);
  input.DoubleClick({57, 70});
  EXPECT_EQ(Vertices(*layer->Last()), "20,80 50,80 50,40 57,30 ");
  // A vertex that a deep zoom has moved beyond the numbers of pixels.
  input.Click({20, 20}, Qt::ShiftModifier);
  map.SetMaxZoom(1e12);
  map.SetZoom(1e10);
  input.MoveTo({70, 64}, Qt::NoButton, Qt::ShiftModifier);
  EXPECT_EQ(polyline.GetMapOutline().back(), map.GetViewport().ScreenToMap(70, 64));
}

TEST_F(StandardToolsTest, ClicksPolylinesAndRegionsTogether) {
  TMapLayer *layer = AddEditableLayer();
  TPolylineTool line;
  TRegionTool region;
  Use(line);
  input.DoubleClick({40, 50});
  EXPECT_EQ(layer->GetObjectCount(), 0) << "one vertex is no line";
  EXPECT_FALSE(line.GetInGesture());
  input.Click({10, 90});
  input.MoveTo({20, 20}, Qt::NoButton);
  input.Click({5, 5}, {}, Qt::RightButton);
  input.Click({20, 80});
  input.DoubleClick({30, 90});
  ASSERT_EQ(layer->GetObjectCount(), 1);
  EXPECT_EQ(Vertices(*layer->First()), "10,10 20,20 30,10 ");
  input.DoubleClick({5, 5}, Qt::RightButton);
  Use(region);
  input.Click({10, 90});
  map.SetCenterX(110);
  input.DoubleClick({10, 80});
  EXPECT_EQ(layer->GetObjectCount(), 1) << "two vertices are no region";
  input.Click({10, 90});
  map.SetCenterX(100);
  input.Click({20, 80});
  input.DoubleClick({30, 90});
  ASSERT_EQ(layer->GetObjectCount(), 2);
  EXPECT_EQ(Vertices(*layer->Last()), "20,10 20,20 30,10 20,10 ") << "vertices stay where the view was";
  EXPECT_EQ(completed, 4);
}

TEST_F(StandardToolsTest, PutsSymbolsAndCirclesWhereItIsClicked) {
  TMapLayer *layer = AddEditableLayer();
  map.GetOptions()->SetDefaultSymbolShape(40);
  map.GetOptions()->SetDefaultSymbolFont(TFont(QStringLiteral("Symbols"), 20));
  TSymbolTool symbol;
  TCircleTool circle;
  Use(symbol);
  input.Click({30, 40}, {}, Qt::MiddleButton);
  input.DoubleClick({30, 40});
  ASSERT_EQ(layer->GetObjectCount(), 2) << "one for the press, one for the double click";
  for (int i = 0; i < 2; ++i) {
    auto *drawn = dynamic_cast<TSymbol *>(layer->GetObjects(i));
    ASSERT_NE(drawn, nullptr);
    EXPECT_EQ(Vertices(*drawn), "30,60 ");
    EXPECT_EQ(drawn->GetShape(), 40);
    EXPECT_EQ(drawn->GetFont(), map.GetOptions()->GetDefaultSymbolFont());
  }
  Use(circle);
  input.Click({50, 60});
  const auto *drawn = dynamic_cast<TGeoCircle *>(layer->Last());
  ASSERT_NE(drawn, nullptr);
  EXPECT_EQ(drawn->GetCenterX(), 50);
  EXPECT_EQ(drawn->GetCenterY(), 40);
  EXPECT_EQ(drawn->GetRadius(), TGeoCircle::DefaultRadius);
  EXPECT_EQ(completed, 3);
}

TEST_F(StandardToolsTest, DrawsOnlyIntoAnEditableLayer) {
  AddLayer();
  TLineTool line;
  TRectTool rectangle;
  TPolylineTool polyline;
  TRegionTool region;
  TSymbolTool symbol;
  TCircleTool circle;
  TTextTool text;
  for (TCustomMapTool *tool :
       std::initializer_list<TCustomMapTool *>{&line, &rectangle, &polyline, &region, &symbol, &circle, &text}) {
    Use(*tool);
    EXPECT_FALSE(tool->GetEnabled());
    input.Click({10, 10});
    input.Drag({60, 90}, {40, 70});
    input.DoubleClick({80, 70});
    input.Key(Qt::Key_Return);
    EXPECT_EQ(map.GetLayers()->First()->GetObjectCount(), 0);
    map.GetLayers()->First()->SetEditable(true);
    EXPECT_TRUE(tool->GetEnabled());
    map.GetLayers()->First()->SetEditable(false);
  }
  EXPECT_TRUE(messages.isEmpty());
}

TEST_F(StandardToolsTest, WhatEachDrawsIsAStepThatCanBeUndone) {
  QUndoStack stack;
  map.SetUndoStack(&stack);
  const TMapLayer *layer = AddEditableLayer();
  const auto expectStep = [&](auto &&tool, const std::function<void()> &draw) {
    Use(tool);
    draw();
    const TCustomMapObject *drawn = layer->GetObjectCount() == 1 ? layer->First() : nullptr;
    ASSERT_NE(drawn, nullptr) << tool.GetDisplayName().toStdString();
    ASSERT_EQ(stack.count(), 1) << tool.GetDisplayName().toStdString();
    stack.undo();
    EXPECT_EQ(layer->GetObjectCount(), 0) << tool.GetDisplayName().toStdString();
    stack.redo();
    EXPECT_EQ(layer->First(), drawn);
    stack.undo();
    stack.clear();
    tool.SetTessera(nullptr);
  };
  const auto drag = [this] { input.Drag({20, 20}, {80, 60}); };
  const auto click = [this] { input.Click({50, 50}); };
  const auto clicks = [this] {
    input.Click({20, 20});
    input.Click({80, 20});
    input.DoubleClick({50, 60});
  };
  expectStep(TLineTool(), drag);
  expectStep(TRectTool(), drag);
  expectStep(TPolylineTool(), clicks);
  expectStep(TRegionTool(), clicks);
  expectStep(TCircleTool(), click);
  expectStep(TSymbolTool(), click);
  expectStep(TTextTool(), [this] {
    input.Click({50, 50});
    input.Type(QStringLiteral("ab"));
    input.Key(Qt::Key_Return);
  });
  TLineTool line;
  Use(line);
  drag();
  map.RotateMap(0, 0, 30);
  EXPECT_EQ(stack.count(), 0) << "what it holds is not turned";
}

TEST_F(StandardToolsTest, MovesWhatIsSelectedInTheEditableLayer) {
  QUndoStack stack;
  map.SetUndoStack(&stack);
  TMoveTool tool;
  Use(tool);
  TCustomMapObject *fixed = AddSquare(AddLayer(), 120, 20, 10, clRed);
  EXPECT_FALSE(tool.GetEnabled());
  TMapLayer *layer = AddEditableLayer();
  TCustomMapObject *moved = AddSquare(layer, 20, 20, 10, clBlue);
  TCustomMapObject *unselected = AddSquare(layer, 80, 20, 10, clBlue);
  const QPoint on(25, 75);
  for (TCustomMapObject *object : {fixed, moved}) map.GetSelection()->Add(object);
  const QImage before = Repainted();
  for (const QPoint &elsewhere : {QPoint(85, 75), QPoint(125, 75), QPoint(50, 10)}) {
    input.Drag(elsewhere, {60, 60});
    EXPECT_EQ(stack.count(), 0) << "neither unselected, nor in another layer, nor beside all";
  }
  input.Press(on);
  input.MoveTo({60, 60});
  EXPECT_NE(Shown(), before);
  input.Key(Qt::Key_Escape);
  input.Release({60, 60});
  EXPECT_EQ(Shown(), before);
  input.Press(on);
  input.MoveTo({60, 60});
  input.MoveTo({60, 60}, Qt::NoButton);
  EXPECT_EQ(Shown(), before) << "lost";
  input.Drag(on, on);
  EXPECT_EQ(stack.count(), 0);

  struct WayCase {
    QPoint way;
    Qt::KeyboardModifiers keys;
    TMapPoint corner;
  };
  for (const auto &[way, keys, corner] : {WayCase{{30, -7}, {}, {50, 27}},
                                          {{30, -7}, Qt::ShiftModifier, {50, 20}},
                                          {{5, -30}, Qt::ShiftModifier, {20, 50}},
                                          {{-20, 16}, Qt::ShiftModifier, {2, 2}},
                                          {{30, -20}, Qt::ShiftModifier, {45, 45}}}) {
    input.Press(on, keys);
    input.MoveTo(on + way, Qt::LeftButton, keys);
    input.Release(on + way);
    const TBounds bounds = moved->GetBounds();
    EXPECT_EQ((TMapPoint{bounds.MinX, bounds.MinY}), corner);
    EXPECT_EQ(fixed->GetBounds().MinX, 120);
    EXPECT_EQ(unselected->GetBounds().MinX, 80);
    EXPECT_EQ(stack.count(), 1);
    stack.undo();
    EXPECT_EQ(Repainted(), before);
  }
}

TEST_F(StandardToolsTest, SurvivesHandlersThatTakeEverythingAway) {
  TMapLayer *layer = AddEditableLayer();
  const auto draw = [this] {
    input.Drag({60, 90}, {40, 70});
    input.Click({80, 20});
    input.Click({70, 20});
    input.DoubleClick({80, 70});
    input.Key(Qt::Key_Return);
  };
  for (const auto make :
       std::initializer_list<TCustomMapTool *(*)()>{[] { return static_cast<TCustomMapTool *>(new TLineTool); },
                                                    [] { return static_cast<TCustomMapTool *>(new TPolylineTool); },
                                                    [] { return static_cast<TCustomMapTool *>(new TSymbolTool); },
                                                    [] { return static_cast<TCustomMapTool *>(new TTextTool); },
                                                    [] { return static_cast<TCustomMapTool *>(new TZoomInTool); }}) {
    std::unique_ptr<TCustomMapTool> tool(make());
    Use(*tool);
    const auto deletes = QObject::connect(&map, &TTessera::OnAddObject, &map, [layer] { layer->DeleteObjects(); });
    draw();
    EXPECT_EQ(layer->GetObjectCount(), 0);
    QObject::disconnect(deletes);
    messages.clear();
    const auto throws = QObject::connect(tool.get(), &TCustomMapTool::OnComplete, &map, [] { throw 1; });
    const auto throwsToo = QObject::connect(&map, &TTessera::OnAddObject, &map, [] { throw 2; });
    draw();
    EXPECT_FALSE(messages.isEmpty());
    EXPECT_FALSE(tool->GetInGesture());
    QObject::disconnect(throws);
    QObject::disconnect(throwsToo);
    messages.clear();
    QObject::connect(tool.get(), &TCustomMapTool::OnComplete, &map, [&tool] { tool.reset(); });
    draw();
    EXPECT_EQ(tool, nullptr);
    EXPECT_TRUE(messages.isEmpty());
    layer->DeleteObjects();
  }
}

}  // namespace
}  // namespace tessera::test
