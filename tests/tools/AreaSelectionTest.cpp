// SPDX-License-Identifier: MIT
// What the tools select that draw a figure around it.
#include "../map/MapFixture.h"
#include "../support/MapInput.h"

#include <tessera/StdMapTools.h>
#include <tessera/objects/TCircle.h>
#include <tessera/objects/TRectangle.h>
#include <tessera/objects/TSymbol.h>

#include <algorithm>
#include <iterator>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace tessera::test {
namespace {

using MakeTool = std::unique_ptr<TCustomMapTool> (*)();
template <class Kind>
std::unique_ptr<TCustomMapTool> Make() {
  return std::make_unique<Kind>();
}

struct FigureCase {
  MakeTool make;
  /// Corners in pixels: of a drag, or of a polygon.
  std::vector<QPoint> clicks;
  const char *met, *held;
};

const FigureCase Figures[] = {
    {Make<TRectSelectionTool>, {{10, 90}, {70, 35}}, "acgilsv", "isv"},
    {Make<TCircleSelectionTool>, {{40, 60}, {72, 60}}, "acgilv", "iv"},
    {Make<TPolygonSelectionTool>, {{10, 90}, {70, 90}, {10, 35}}, "acgilv", "i"},
    {Make<TPolygonSelectionTool>, {{10, 90}, {70, 90}, {70, 35}, {40, 85}, {10, 35}}, "acgilv", "i"},
};

/// Objects that are tagged by letters.
class AreaSelectionTest : public MapFixture, public testing::WithParamInterface<FigureCase> {
 protected:
  AreaSelectionTest() : tool(GetParam().make()) {
    layer = AddLayer();
    AddSquare(layer, -50, -50, 300, clNavy)->SetTag('g');  // the ground under all
    TRegion *around = AddSquare(layer, -50, -50, 300, clRed);
    around->SetTag('h');
    TMapPoints &hole = around->GetParts().Add().GetPoints();
    for (const TMapPoint &corner : {TMapPoint{5, 5}, {75, 5}, {75, 75}, {5, 75}}) hole.Add(corner.X, corner.Y);
    AddSquare(layer, 20, 20, 10, clBlue)->SetTag('i');
    auto *across = layer->NewObject<TRectangle>();
    across->SetX0(45);
    across->SetY0(30);
    across->SetX1(90);
    across->SetY1(50);
    across->SetTag('a');
    AddLine({-10, 60}, {210, 60})->SetTag('l');
    AddLine({15, 50}, {65, 50})->SetTag('v');  // between the arms of a V
    auto *circle = layer->NewObject<TCircle>();
    circle->SetX(30);
    circle->SetY(5);
    circle->SetRadius(6);
    circle->SetTag('c');
    auto *symbol = layer->NewObject<TSymbol>();
    symbol->SetX(66);
    symbol->SetY(62);
    symbol->SetTag('s');
    outside = AddSquare(layer, 150, 20, 10, clNavy);
    outside->SetTag('o');
    for (const bool isVisible : {true, false}) {
      TMapLayer *other = AddLayer();
      AddSquare(other, 22, 22, 5, clRed)->SetTag('u');
      other->SetSelectable(!isVisible);
      other->SetVisible(isVisible);
    }
    tool->SetTessera(&map);
    tool->SetActive(true);
    Repainted();
  }

  TPolyline *AddLine(const TMapPoint &from, const TMapPoint &to) {
    auto *line = layer->NewObject<TPolyline>();
    TMapPoints &points = line->GetParts().Add().GetPoints();
    for (const TMapPoint &point : {from, to}) points.Add(point.X, point.Y);
    return line;
  }
  void Draw(Qt::KeyboardModifiers keys = {}) {
    const std::vector<QPoint> &clicks = GetParam().clicks;
    if (clicks.size() == 2) return input.Drag(clicks[0], clicks[1], Qt::LeftButton, keys);
    for (std::size_t i = 0; i + 1 < clicks.size(); ++i) input.Click(clicks[i]);
    input.DoubleClick(clicks.back(), Qt::LeftButton, keys);
  }
  /// The letters of what is selected, in alphabetical order.
  std::string Selected() {
    std::string letters;
    for (const TCustomMapObject *object : map.GetSelection()->Items()) letters += char(object->GetTag());
    std::sort(letters.begin(), letters.end());
    return letters;
  }
  static std::string Sorted(std::string letters) {
    std::sort(letters.begin(), letters.end());
    return letters;
  }

  TMapLayer *layer = nullptr;
  TCustomMapObject *outside = nullptr;
  std::unique_ptr<TCustomMapTool> tool;
  MapInput input{map};
};

TEST_P(AreaSelectionTest, SelectsWhatMeetsTheFigureOrLiesInIt) {
  const std::string met = GetParam().met;
  EXPECT_TRUE(tool->GetEnabled());
  outside->Select();
  Draw(Qt::ShiftModifier);
  EXPECT_EQ(Selected(), Sorted(met + "o")) << "Shift adds";
  Draw(Qt::ShiftModifier);
  EXPECT_EQ(Selected(), Sorted(met + "o")) << "and never takes out";
  Draw(Qt::ControlModifier);
  EXPECT_EQ(Selected(), "o") << "Ctrl takes out";
  Draw();
  EXPECT_EQ(Selected(), met);
  EXPECT_TRUE(tool->setProperty("Within", true));
  Draw();
  EXPECT_EQ(Selected(), GetParam().held);
}

TEST_P(AreaSelectionTest, AFigureOfNoSizeIsAClick) {
  Draw();
  layer->MoveObject(layer->IndexOf(outside), 0);  // the topmost of the displayed ones
  Repainted();
  if (GetParam().clicks.size() == 2) {
    input.Click({155, 75});
    EXPECT_EQ(Selected(), "o");
  }
  map.GetSelection()->Clear();
  input.DoubleClick({155, 75});
  EXPECT_EQ(Selected(), "o");
}

TEST_P(AreaSelectionTest, LeavesNothingAfterEscape) {
  outside->Select();
  const QImage before = Shown();
  const std::vector<QPoint> &clicks = GetParam().clicks;
  input.Press(clicks.front());
  input.MoveTo(clicks.back());
  EXPECT_NE(Shown(), before);
  input.Key(Qt::Key_Escape);
  EXPECT_FALSE(tool->GetInGesture());
  EXPECT_EQ(Shown(), before);
  input.Release(clicks.back());
  EXPECT_EQ(Selected(), "o");
}

TEST_P(AreaSelectionTest, SurvivesHandlersThatTakeEverythingAway) {
  std::vector<TTakenObject> taken;
  const auto takes = QObject::connect(&map, &TTessera::OnAddSelection, &map, [&] {
    std::vector<TCustomMapObject *> all;
    all.reserve(std::size_t(layer->GetObjectCount()));
    for (int i = 0; i < layer->GetObjectCount(); ++i) all.push_back(layer->GetObjects(i));
    std::ranges::move(layer->TakeObjects(all), std::back_inserter(taken));
  });
  Draw();
  EXPECT_EQ(Selected(), "") << "nothing that is in no layer";
  QObject::disconnect(takes);
  layer->PutObjects(std::move(taken));
  constexpr int Many = 300;  // more than are painted one by one
  for (const int more : {0, Many}) {
    for (int i = 0; i < more; ++i) AddSquare(layer, 20, 20, 10, clBlue);
    const auto deletes = QObject::connect(&map, &TTessera::OnAddSelection, &map, [this] {
      if (layer->GetObjectCount() > 0) layer->DeleteObjects();
    });
    Draw();
    EXPECT_EQ(layer->GetObjectCount(), 0);
    EXPECT_EQ(Selected(), "");
    QObject::disconnect(deletes);
    AddSquare(layer, 20, 20, 10, clBlue)->SetTag('i');
  }
  const auto throws = QObject::connect(&map, &TTessera::OnAddSelection, &map, [] { throw 1; });
  Draw();
  EXPECT_EQ(messages.size(), 1);
  EXPECT_EQ(Selected(), "i");
  QObject::disconnect(throws);
  messages.clear();
  QObject::connect(&map, &TTessera::OnDelSelection, &map, [this] { tool.reset(); });
  Draw(Qt::ControlModifier);
  EXPECT_EQ(tool, nullptr);
  EXPECT_EQ(Selected(), "");
  EXPECT_TRUE(messages.isEmpty());
}

INSTANTIATE_TEST_SUITE_P(EveryFigure, AreaSelectionTest, testing::ValuesIn(Figures));

}  // namespace
}  // namespace tessera::test
