// SPDX-License-Identifier: MIT
#include "MapFixture.h"

#include <tessera/base/DebugTrace.h>
#include <tessera/layers/ObjectsAt.h>
#include <tessera/objects/TCircle.h>
#include <tessera/objects/TSprite.h>
#include <tessera/objects/TText.h>

#include <QSignalSpy>

#include <random>

namespace tessera::test {
namespace {

using Objects = std::vector<TCustomMapObject *>;

class PickingTest : public MapFixture {
 protected:
  Objects Selected() const { return {map.GetSelection()->Items().begin(), map.GetSelection()->Items().end()}; }
};

TEST_F(PickingTest, SelectsTheFirstObjectOfTheTopmostLayerThatIsHit) {
  map.SelectObjectAt(50, 50, true);
  TMapLayer *low = AddLayer();
  TMapLayer *high = AddLayer();
  TCustomMapObject *below = AddSquare(low, 20, 20, 60, clRed);
  TCustomMapObject *first = AddSquare(high, 40, 40, 40, clBlue);
  TCustomMapObject *second = AddSquare(high, 40, 40, 40, clNavy);
  below->Select();
  map.GetDisplayed()->Clear();
  map.SelectObjectAt(150, 50, true);
  EXPECT_EQ(Selected(), Objects{below}) << "there is no picture yet";
  Repainted();
  const QSignalSpy updates(&map, &TTessera::OnUpdate);
  map.SelectObjectAt(50, 50, true);
  EXPECT_EQ(Selected(), Objects{first});
  EXPECT_EQ(updates.count(), 2) << "of the selection, and of the picking";
  map.SelectObjectAt(25, 25, false);
  EXPECT_EQ(Selected(), (Objects{first, below}));
  map.SelectObjectAt(50, 50, true);
  EXPECT_EQ(Selected(), (Objects{first, below})) << "it is selected already";
  map.SelectObjectAt(50, 50, false);
  EXPECT_EQ(Selected(), Objects{below});
  second->Select();
  map.SetCtrlClickCount(1);
  map.SelectObjectAt(50, 50, false);
  EXPECT_EQ(Selected(), Objects{below}) << "the top layer is passed over, and the selection cleared first";
  map.SetCtrlClickCount(2);
  map.SelectObjectAt(50, 50, true);
  EXPECT_EQ(Selected(), Objects{});
  map.SetCtrlClickCount(0);
  high->SetSelectable(false);
  map.SelectObjectAt(50, 50, true);
  EXPECT_EQ(Selected(), Objects{below});
  map.SelectObjectAt(150, 50, false);
  EXPECT_EQ(Selected(), Objects{});
}

TEST_F(PickingTest, SelectsAllObjectsAtAPoint) {
  TMapLayer *low = AddLayer();
  TMapLayer *high = AddLayer();
  TCustomMapObject *below = AddSquare(low, 20, 20, 60, clRed);
  TCustomMapObject *first = AddSquare(high, 40, 40, 40, clBlue);
  TCustomMapObject *second = AddSquare(high, 40, 40, 40, clNavy);
  TCustomMapObject *aside = AddSquare(high, 140, 40, 40, clNavy);
  Repainted();
  aside->Select();
  QStringList told;
  QObject::connect(&map, &TTessera::OnStartProgress, &map, [&] { told << QStringLiteral("start"); });
  QObject::connect(&map, &TTessera::OnAddSelection, &map, [&] { told << QStringLiteral("add"); });
  QObject::connect(&map, &TTessera::OnStopProgress, &map, [&] { told << QStringLiteral("stop"); });
  map.SelectObjectsAt(50, 50, false);
  EXPECT_EQ(Selected(), (Objects{aside, first, second, below}));
  EXPECT_EQ(told.join(u' '), QStringLiteral("start add add add stop"));
  map.SelectObjectsAt(25, 25, true);
  EXPECT_EQ(Selected(), Objects{below});
  low->SetVisible(false);
  map.SelectObjectAt(25, 25, true);
  EXPECT_EQ(Selected(), Objects{});
  map.SelectObjectsAt(25, 25, true);
  EXPECT_EQ(Selected(), Objects{below}) << "hidden, but still in the picture";
}

TEST_F(PickingTest, HitsThinLinesAndSmallPointsWithinATolerance) {
  TMapLayer *layer = AddLayer();
  auto *line = layer->NewObject<TPolyline>();
  line->GetParts().Add().GetPoints().Add(20, 50);
  line->GetParts().GetFirst().GetPoints().Add(120, 50);
  LookAt(100, 50, 2);
  Repainted();
  map.SelectObjectAt(60, 51.9, true);
  EXPECT_EQ(Selected(), Objects{});
  map.SetPickTolerancePx(4);
  map.SelectObjectAt(60, 51.9, true);
  EXPECT_EQ(Selected(), Objects{line});
  map.SelectObjectsAt(60, 52.1, true);
  EXPECT_EQ(Selected(), Objects{}) << "5 pixels off";
  map.SelectObjectsAt(60, 48.1, true);
  EXPECT_EQ(Selected(), Objects{line});
}

/// Picking as it is described: layer by layer from the top, and for each of them all displayed objects.
TCustomMapObject *PlainHit(const TTessera &map, double x, double y) {
  for (int i = map.GetLayers()->GetCount() - 1 - map.GetCtrlClickCount(); i >= 0; --i) {
    const TMapLayer *layer = map.GetLayers()->GetLayer(i);
    if (!layer->GetSelectable()) continue;
    for (TCustomMapObject *object : map.GetDisplayed()->Items()) {
      if (object->GetLayer() == layer && object->ContainsPoint(x, y)) return object;
    }
  }
  return nullptr;
}

// For the rows "click" of the benchmarks.
TEST_F(PickingTest, FindsAmongTheObjectsNearWhatThePlainSearchFinds) {
  std::mt19937 random(8);
  const auto below = [&random](int end) { return int(std::uniform_int_distribution<>(0, end - 1)(random)); };
  for (int i = 0; i < 6; ++i) {
    TMapLayer *layer = AddLayer();
    for (int k = 0; k < 25; ++k) AddSquare(layer, below(180), below(80), 5 + below(30), clRed);
    for (int k = 0; k < 10; ++k) {
      auto *symbol = layer->NewObject<TSymbol>();
      symbol->SetShape(40);
      symbol->MoveTo(below(200), below(100));
      auto *circle = layer->NewObject<TCircle>();
      circle->SetX(below(200));
      circle->SetY(below(100));
      circle->SetRadius(below(12));
    }
    if (i == 1) layer->NewObject<TSprite>()->SetX(100);
    if (i == 2) layer->NewObject<TText>()->SetText(QStringLiteral("text"));
    if (i == 3) layer->SetSelectable(false);
  }
  Repainted();
  map.GetLayers()->Exchange(0, 4);
  for (int i = 0; i < 600; ++i) {
    const double x = below(400) / 2.;
    const double y = below(200) / 2.;
    map.SetCtrlClickCount(below(5));
    const TCustomMapObject *hit = PlainHit(map, x, y);
    map.SelectObjectAt(x, y, true);
    EXPECT_EQ(Selected().empty() ? nullptr : Selected()[0], hit) << x << ' ' << y;
    // What is near changes with the size of symbols and with every move.
    TMapLayer *layer = map.GetLayers()->GetLayer(below(6));
    TCustomMapObject *object = layer->GetObjects(below(layer->GetObjectCount()));
    object->SetFont(TFont(QStringLiteral("Symbols"), below(60)));
    if (auto *symbol = dynamic_cast<TSymbol *>(object)) symbol->MoveTo(below(200), below(100));
  }
}

TEST_F(PickingTest, LetsHandlersTakeTheObjectsAway) {
  TMapLayer *layer = AddLayer();
  for (int i = 0; i < 5; ++i) AddSquare(layer, 20, 20, 60, clRed);
  Repainted();
  QObject::connect(&map, &TTessera::OnAddSelection, &map, [layer] { layer->DeleteObjects(); });
  map.SelectObjectsAt(50, 50, true);
  EXPECT_EQ(layer->GetObjectCount(), 0);
  EXPECT_EQ(Selected(), Objects{});
  AddSquare(layer, 20, 20, 60, clRed);
  Repainted();
  map.SelectObjectAt(50, 50, true);
  EXPECT_EQ(layer->GetObjectCount(), 0);
}

TEST_F(PickingTest, TracesWhereItSearches) {
  QStringList traced;
  AddLayer()->SetName(QStringLiteral("low"));
  AddLayer()->SetName(QStringLiteral("high"));
  AddSquare(map.GetLayers()->First(), 20, 20, 60, clRed);
  Repainted();
  const TTraceSink before = SetDebugTraceSink([&](const QString &format, std::initializer_list<QString> arguments) {
    traced << format;
    for (const QString &argument : arguments) traced << argument;
  });
  map.SelectObjectAt(50, 50, true);
  SetDebugTraceSink(before);
  EXPECT_EQ(traced, (QStringList{QStringLiteral("Start Searching Object From Layer %S To Layer %S"),
                                 QStringLiteral("high"), QStringLiteral("low")}));
}

TEST_F(PickingTest, FindsTheObjectsOfAllLayersShownTopmostFirst) {
  TMapLayer &low = *AddLayer();
  TMapLayer &high = *AddLayer();
  TCustomMapObject *a = AddSquare(&low, 20, 20, 60, clRed);
  TCustomMapObject *b = AddSquare(&high, 40, 40, 40, clBlue);
  TCustomMapObject *c = AddSquare(&high, 45, 45, 20, clNavy);
  AddSquare(&high, 100, 40, 10, clNavy);
  high.SetSelectable(false);
  const auto at = [&](double x, int tolerancePx) { return ObjectsAt(*map.GetLayers(), {x, 50}, tolerancePx); };
  EXPECT_EQ(at(50, 0), (Objects{c, b, a})) << "without a picture, selectable or not";
  EXPECT_EQ(at(30, 0), Objects{a});
  EXPECT_EQ(at(38, 3), (Objects{b, a}));
  EXPECT_EQ(at(38, 1), Objects{a});
  map.SetZoom(4);
  EXPECT_EQ(at(38, 3), Objects{a}) << "pixels are of the view";
  low.SetVisible(false);
  EXPECT_EQ(at(50, 0), (Objects{c, b}));
  high.SetMinZoom(5);
  high.SetMaxZoom(6);
  EXPECT_EQ(at(50, 0), Objects());
}

}  // namespace
}  // namespace tessera::test
