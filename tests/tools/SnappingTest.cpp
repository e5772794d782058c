// SPDX-License-Identifier: MIT
// What the tools make of places that the mouse is drawn to.
#include "../map/MapFixture.h"
#include "../support/MapInput.h"

#include <tessera/StdMapTools.h>

#include <QUndoStack>

namespace tessera::test {
namespace {

/// A square whose corners lie between pixels, on a map whose pixel (x, y) shows (x, 100 - y).
class SnappingTest : public MapFixture {
 protected:
  SnappingTest() {
    map.SetUndoStack(&stack);
    layer->SetEditable(true);
    map.GetSnapping()->SetToVertices(true);
    Repainted();
  }
  template <class Kind>
  void Use(Kind &tool) {
    tool.SetTessera(&map);
    tool.SetActive(true);
  }
  static std::string Vertices(const TCustomMapObject &object) {
    std::string text;
    for (const TMapPoint &at : object.GetParts().GetFirst().GetPoints().Points()) {
      text += QString::asprintf("%g,%g ", at.X, at.Y).toStdString();
    }
    return text;
  }

  QUndoStack stack;
  MapInput input{map};
  TMapLayer *layer = AddLayer();
  TCustomMapObject *square = AddSquare(layer, 40.25, 20.25, 40.5, clRed);
};

TEST_F(SnappingTest, DrawsToTheVeryVertex) {
  TLineTool line;
  TPolylineTool polyline;
  TRectTool rectangle;
  TSymbolTool symbol;
  const QPoint nearLower(43, 83);
  const QPoint nearUpper(77, 42);
  Use(line);
  input.Drag(nearLower, nearUpper);
  EXPECT_EQ(Vertices(*layer->Last()), "40.25,20.25 80.75,60.75 ");
  Use(rectangle);
  input.Drag(nearLower, nearUpper);
  EXPECT_EQ(Vertices(*layer->Last()), "40.25,20.25 80.75,60.75 ");
  Use(polyline);
  input.Click(nearLower);
  input.Click({100, 50});
  input.DoubleClick(nearUpper);
  EXPECT_EQ(Vertices(*layer->Last()), "40.25,20.25 100,50 80.75,60.75 ");
  Use(symbol);
  input.Click(nearLower);
  EXPECT_EQ(Vertices(*layer->Last()), "40.25,20.25 ");
  map.GetSnapping()->SetTolerancePx(2);
  input.Click(nearLower);
  EXPECT_EQ(Vertices(*layer->Last()), "43,17 ");
}

TEST_F(SnappingTest, MovesScalesAndReshapesToWhatStays) {
  TCustomMapObject *moved = AddSquare(layer, 120.5, 20.5, 20, clBlue);
  const std::string before = Vertices(*moved);
  moved->Select();
  Repainted();
  const auto expect = [&](auto &&tool, const QPoint &press, const QPoint &release, const char *after) {
    Use(tool);
    input.Drag(press, release);
    EXPECT_EQ(Vertices(*moved), after) << tool.GetDisplayName().toStdString();
    stack.undo();
    EXPECT_EQ(Vertices(*moved), before);
  };
  expect(TMoveTool(), {122, 78}, {82, 78}, "80.75,20.25 100.75,20.25 100.75,40.25 80.75,40.25 80.75,20.25 ");
  expect(TVertexTool(), {120, 80}, {84, 78}, "80.75,20.25 140.5,20.5 140.5,40.5 120.5,40.5 80.75,20.25 ");
  expect(TVertexTool(), {120, 80}, {123, 79}, "123,21 140.5,20.5 140.5,40.5 120.5,40.5 123,21 ");
  expect(TTransformTool(), {110, 90}, {82, 81}, "80.75,20.25 140.5,20.25 140.5,40.5 80.75,40.5 80.75,20.25 ");
}

TEST_F(SnappingTest, MarksThePlaceAndLeavesNoTrace) {
  TLineTool line;
  TPanTool pan;
  const QImage plain = Shown();
  Use(line);
  const QPoint onVertex(42, 82);
  const std::pair<const char *, std::function<void()>> ends[] = {
      {"a move away",
       [this] {
         input.MoveTo({150, 10}, Qt::NoButton);
       }},
      {"another tool", [&] { pan.SetActive(true), line.SetActive(true); }},
      {"a repaint", [this] { map.DoUpdate(true); }},
      {"no snapping",
       [&] {
         map.GetSnapping()->SetToVertices(false);
         input.MoveTo(onVertex, Qt::NoButton);
         map.GetSnapping()->SetToVertices(true);
       }},
  };
  pan.SetTessera(&map);
  for (const auto &[name, end] : ends) {
    SCOPED_TRACE(name);
    input.MoveTo(onVertex, Qt::NoButton);
    EXPECT_NE(Shown(), plain);
    end();
    EXPECT_EQ(Shown(), plain);
  }
  pan.SetActive(true);
  input.MoveTo(onVertex, Qt::NoButton);
  EXPECT_EQ(Shown(), plain) << "it does not snap";
}

}  // namespace
}  // namespace tessera::test
