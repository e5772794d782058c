// SPDX-License-Identifier: MIT
#include "../map/MapFixture.h"
#include "../support/MapInput.h"

#include <tessera/StdMapTools.h>
#include <tessera/objects/TCircle.h>
#include <tessera/objects/TSymbol.h>
#include <tessera/objects/TText.h>

#include <QUndoStack>

#include <cmath>

namespace tessera::test {
namespace {

/// Two squares of an editable layer, from (60, 40) to (100, 60), on a map whose pixel (x, y) shows (x, 100 - y). The
/// handles stand 10 pixels around that.
class TTransformToolTest : public MapFixture {
 protected:
  TTransformToolTest() {
    map.SetUndoStack(&stack);
    tool.SetTessera(&map);
    layer->SetEditable(true);
    for (double x : {60., 80.}) map.GetSelection()->Add(AddSquare(layer, x, 40, 20, clRed));
    plain = Repainted();
    tool.SetActive(true);
  }
  [[nodiscard]] TBounds Bounds() const {
    TBounds all = TBounds::Empty();
    for (const TCustomMapObject *object : map.GetSelection()->Items()) all.Widen(object->GetBounds());
    return all;
  }
  void ExpectBounds(const TBounds &expected) const {
    constexpr double Rounding = 1e-9;
    for (const double TBounds::*side : {&TBounds::MinX, &TBounds::MinY, &TBounds::MaxX, &TBounds::MaxY}) {
      EXPECT_NEAR(Bounds().*side, expected.*side, Rounding);
    }
  }

  QUndoStack stack;
  TTransformTool tool;
  MapInput input{map};
  TMapLayer *layer = AddLayer();
  QImage plain;
};

TEST_F(TTransformToolTest, ScalesTurnsAndMovesWhatIsSelectedInOneStep) {
  struct Case {
    const char *name;
    QPoint press, release;
    Qt::KeyboardModifiers keys;
    TBounds bounds;
  };
  const TBounds before{60, 40, 100, 60};
  const Case cases[] = {
      {"the corner", {110, 30}, {130, 40}, {}, {60, 40, 120, 50}},
      {"a press beside the middle of the corner", {113, 27}, {133, 37}, {}, {60, 40, 120, 50}},
      {"the corner with Shift", {110, 30}, {150, 40}, Qt::ShiftModifier, {60, 40, 140, 80}},
      {"the corner over the opposite one", {110, 30}, {50, 30}, {}, {40, 40, 60, 60}},
      {"the left side", {50, 50}, {10, 90}, {}, {20, 40, 100, 60}},
      {"the lower side with Shift", {80, 70}, {95, 80}, Qt::ShiftModifier, {60, 30, 100, 60}},
      {"between the handles", {102, 45}, {112, 40}, {}, {70, 45, 110, 65}},
      {"between the handles with Shift", {80, 50}, {90, 49}, Qt::ShiftModifier, {70, 40, 110, 60}},
      {"a quarter to the left", {80, 10}, {40, 50}, {}, {70, 30, 90, 70}},
      {"about a quarter with Shift", {80, 10}, {40, 55}, Qt::ShiftModifier, {70, 30, 90, 70}},
      {"no way", {110, 30}, {110, 30}, {}, before},
      {"to nothing", {110, 30}, {70, 60}, {}, before},
      {"elsewhere", {150, 90}, {110, 30}, {}, before},
  };
  for (const Case &one : cases) {
    SCOPED_TRACE(one.name);
    const QImage withHandles = Repainted();
    EXPECT_NE(withHandles, plain);
    input.Press(one.press, one.keys);
    input.MoveTo({1, 1}, Qt::LeftButton);
    input.MoveTo(one.release, Qt::LeftButton, one.keys);
    input.Release(one.release);
    ExpectBounds(one.bounds);
    EXPECT_EQ(stack.canUndo(), !(one.bounds == before));
    stack.undo();
    EXPECT_EQ(Bounds(), before);
    EXPECT_EQ(Shown(), withHandles);
  }
}

TEST_F(TTransformToolTest, ShowsHandlesThatFollowTheMapAndLeaveNoTrace) {
  TSelectionTool other;
  other.SetTessera(&map);
  const QImage handles = Shown();
  EXPECT_NE(handles, plain);
  const std::pair<const char *, std::function<void()>> disturbances[] = {
      {"nothing", [] {}},
      {"a repaint", [this] { map.Invalidate(); }},
      {"a new picture", [this] { map.DoUpdate(true); }},
      {"a drag that is given up",
       [this] {
         input.Press({110, 30});
         input.MoveTo({150, 10});
         Shown();
         input.Key(Qt::Key_Escape);
         input.Release({150, 10});
       }},
      {"a mouse that is lost",
       [this] {
         input.Press({110, 30});
         input.MoveTo({150, 10});
         input.MoveTo({160, 10}, Qt::NoButton);
       }},
      {"another view",
       [&] {
         LookAt(90, 50);
         EXPECT_NE(Shown(), handles);
         LookAt(100, 50);
       }},
      {"another selection",
       [&] {
         TCustomMapObject *first = map.GetSelection()->GetItem(0);
         map.GetSelection()->Remove(first);
         EXPECT_NE(Shown(), handles);
         map.GetSelection()->Add(first);
       }},
      {"a layer that is not editable",
       [this] {
         layer->SetEditable(false);
         EXPECT_EQ(Shown(), plain);
         layer->SetEditable(true);
       }},
  };
  for (const auto &[name, disturb] : disturbances) {
    SCOPED_TRACE(name);
    disturb();
    EXPECT_EQ(Shown(), handles);
    other.SetActive(true);
    EXPECT_EQ(Shown(), plain);
    tool.SetActive(true);
    EXPECT_EQ(Shown(), handles);
  }
  tool.SetTessera(nullptr);
  EXPECT_EQ(Shown(), plain);
  {
    TTransformTool gone;
    gone.SetTessera(&map);
    gone.SetActive(true);
    EXPECT_EQ(Shown(), handles);
  }
  EXPECT_EQ(Shown(), plain);
  EXPECT_EQ(stack.count(), 0);
}

TEST_F(TTransformToolTest, MakesNumbersOfWhatHasNoExtent) {
  const auto check = [](const TCustomMapObject &object) {
    for (const TMapPoint &point : object.GetParts().GetFirst().GetPoints().Points()) {
      EXPECT_TRUE(std::isfinite(point.X) && std::isfinite(point.Y));
    }
  };
  auto *symbol = layer->NewObject<TSymbol>();
  symbol->MoveTo(60, 50);
  auto *line = layer->NewObject<TPolyline>();
  for (double x : {60., 100.}) line->GetParts().Add().GetPoints().Add(x, 50);
  auto *text = layer->NewObject<TText>();
  text->SetText(QStringLiteral("text"));
  text->MoveTo(60, 50);
  for (TCustomMapObject *object : std::initializer_list<TCustomMapObject *>{symbol, line, text}) {
    object->Select();
    Repainted();
    for (const Qt::KeyboardModifiers keys : {Qt::NoModifier, Qt::ShiftModifier}) {
      for (int x = 40; x < 120; x += 5) {
        for (int y = 20; y < 80; y += 5) {
          input.Press({x, y}, keys);
          input.MoveTo({60, 50}, Qt::LeftButton, keys);
          input.Release({60, 50});
          check(*object);
          stack.undo();
          stack.clear();
        }
      }
    }
  }
}

TEST_F(TTransformToolTest, ScalesALabelByItsLetters) {
  auto *text = layer->NewObject<TText>();
  text->SetText(QStringLiteral("text"));
  text->MoveTo(60, 40);
  text->SetWidth(40);
  text->SetHeight(20);
  text->Select();
  Repainted();
  input.Drag({110, 30}, {130, 10});
  EXPECT_EQ(text->GetPosition(), (TMapPoint{60, 40}));
  EXPECT_EQ(text->GetWidth(), 60);
  EXPECT_EQ(text->GetHeight(), 40);
  stack.undo();
  EXPECT_EQ(text->GetWidth(), 40);
}

}  // namespace
}  // namespace tessera::test
