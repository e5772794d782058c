// SPDX-License-Identifier: MIT
#include "../map/MapFixture.h"
#include "../support/MapInput.h"

#include <tessera/StdMapTools.h>
#include <tessera/objects/TGeoCircle.h>

#include <QUndoStack>

namespace tessera::test {
namespace {

/// A region with a hole and a line in an editable layer, on a map whose pixel (x, y) shows (x, 100 - y).
class TVertexToolTest : public MapFixture {
 protected:
  TVertexToolTest() {
    map.SetUndoStack(&stack);
    layer->SetEditable(true);
    region = AddSquare(layer, 20, 20, 60, clRed);
    Fill(*region, {{30, 30}, {60, 30}, {30, 60}, {30, 30}});
    line = layer->NewObject<TPolyline>();
    Fill(*line, {{100, 20}, {140, 20}, {180, 80}});
    plain = Repainted();
    tool.SetTessera(&map);
    tool.SetActive(true);
  }
  static void Fill(TCustomMapObject &object, const std::vector<TMapPoint> &vertices) {
    TMapPoints &points = object.GetParts().Add().GetPoints();
    for (const TMapPoint &vertex : vertices) points.Add(vertex);
  }
  static std::string Figure(const TCustomMapObject &object) {
    std::string text;
    for (const TPart &part : object.GetParts().Items()) {
      for (const TMapPoint &at : part.GetPoints().Points()) {
        text += QString::asprintf("%g,%g ", at.X, at.Y).toStdString();
      }
      text += "| ";
    }
    return text;
  }

  QUndoStack stack;
  TVertexTool tool;
  MapInput input{map};
  TMapLayer *layer = AddLayer();
  TCustomMapObject *region;
  TCustomMapObject *line;
  QImage plain;
};

TEST_F(TVertexToolTest, ShowsTheVerticesOfWhatIsClicked) {
  TCustomMapObject *circle = layer->NewObject<TGeoCircle>();
  EXPECT_EQ(tool.GetEdited(), nullptr);
  input.Click({50, 50});
  EXPECT_EQ(tool.GetEdited(), region);
  EXPECT_EQ(map.GetSelection()->GetItem(0), region);
  Repainted();
  TSelectionTool other;
  other.SetTessera(&map);
  const auto looksWithout = [&] {
    other.SetActive(true);
    QImage picture = Shown();
    tool.SetActive(true);
    return picture;
  };
  const QImage withRegion = Shown();
  EXPECT_NE(withRegion, looksWithout());
  EXPECT_EQ(Shown(), withRegion);
  input.Click({120, 80});
  EXPECT_EQ(tool.GetEdited(), line);
  EXPECT_NE(Shown(), looksWithout());
  input.Click({195, 5});
  EXPECT_EQ(tool.GetEdited(), line) << "a click beside all";
  circle->Select();
  EXPECT_EQ(tool.GetEdited(), nullptr);
  map.GetSelection()->Clear();
  EXPECT_EQ(Repainted(), looksWithout());
  line->Select();
  layer->SetEditable(false);
  EXPECT_EQ(tool.GetEdited(), nullptr);
  EXPECT_EQ(stack.count(), 0);
}

TEST_F(TVertexToolTest, MovesInsertsAndDeletesVerticesEachInOneStep) {
  struct Case {
    const char *name;
    QPoint press, release;
    Qt::KeyboardModifiers keys;
    const char *after;
  };
  const Case cases[] = {
      {"a corner", {82, 22}, {90, 10}, {}, "20,20 80,20 90,90 20,80 20,20 | 30,30 60,30 30,60 30,30 | "},
      {"the seam", {20, 80}, {10, 90}, {}, "10,10 80,20 80,80 20,80 10,10 | 30,30 60,30 30,60 30,30 | "},
      {"a corner of the hole", {30, 40}, {30, 45}, {}, "20,20 80,20 80,80 20,80 20,20 | 30,30 60,30 30,55 30,30 | "},
      {"an edge", {50, 78}, {50, 90}, {}, "20,20 50,10 80,20 80,80 20,80 20,20 | 30,30 60,30 30,60 30,30 | "},
      {"the last edge", {20, 50}, {5, 50}, {}, "20,20 80,20 80,80 20,80 5,50 20,20 | 30,30 60,30 30,60 30,30 | "},
      {"a corner with Ctrl",
       {80, 20},
       {80, 20},
       Qt::ControlModifier,
       "20,20 80,20 20,80 20,20 | 30,30 60,30 30,60 30,30 | "},
      {"an edge with Ctrl", {50, 80}, {50, 90}, Qt::ControlModifier, nullptr},
      {"a corner that stays", {30, 40}, {30, 40}, Qt::ControlModifier, nullptr},
      {"a click", {80, 20}, {80, 20}, {}, nullptr},
  };
  region->Select();
  const std::string before = Figure(*region);
  const QImage shown = Repainted();
  for (const Case &one : cases) {
    SCOPED_TRACE(one.name);
    input.Press(one.press, one.keys);
    input.MoveTo({99, 1}, Qt::LeftButton, one.keys);
    Shown();
    input.MoveTo(one.release, Qt::LeftButton, one.keys);
    input.Release(one.release);
    EXPECT_EQ(Figure(*region), one.after ? one.after : before);
    EXPECT_EQ(stack.count(), one.after ? 1 : 0);
    stack.undo();
    stack.clear();
    tool.SetActive(false);
    tool.SetActive(true);
    EXPECT_EQ(Shown(), shown) << "no vertex is active, and nothing stays";
  }
  input.Press({80, 20});
  input.MoveTo({99, 1});
  input.Key(Qt::Key_Escape);
  input.Release({99, 1});
  EXPECT_EQ(stack.count(), 0);
}

TEST_F(TVertexToolTest, DeleteTakesOutTheActiveVertexAndNeverTheObject) {
  int deletes = 0;
  QObject::connect(&map, &TTessera::OnKeyDown, &map, [&](TTessera *, int &key) { deletes += key == Qt::Key_Delete; });
  line->Select();
  Repainted();
  input.Key(Qt::Key_Delete);
  EXPECT_EQ(deletes, 1) << "no vertex is active";
  input.Drag({140, 80}, {150, 70});
  EXPECT_EQ(tool.GetActiveVertex(), (TVertexPlace{0, 1}));
  input.Key(Qt::Key_Delete);
  EXPECT_EQ(Figure(*line), "100,20 180,80 | ");
  EXPECT_EQ(tool.GetActiveVertex(), (TVertexPlace{0, 0}));
  input.Key(Qt::Key_Delete);
  EXPECT_EQ(Figure(*line), "100,20 180,80 | ");
  EXPECT_EQ(deletes, 1);
  EXPECT_EQ(stack.count(), 2);
  layer->DeleteObjects();
  EXPECT_FALSE(tool.GetActiveVertex());
}

TEST_F(TVertexToolTest, DragsAnyOfManyVerticesThoughFewHaveHandles) {
  TMapPoints &points = line->GetParts().Add().GetPoints();
  for (int i = 0; i < 100'000; ++i) {
    const int row = i / 316;
    points.Add(120 + i % 316 * 0.1, 40 + row * 0.1);
  }
  line->Select();
  Repainted();
  input.Drag({130, 50}, {130, 95});
  EXPECT_EQ(points.GetPoint(100 * 316 + 100), (TMapPoint{130, 5})) << "one of many without a handle";
}

}  // namespace
}  // namespace tessera::test
