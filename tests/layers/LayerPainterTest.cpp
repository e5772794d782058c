// SPDX-License-Identifier: MIT
#include "../support/FakeMapHost.h"
#include "../support/RandomShapes.h"

#include <tessera/layers/detail/LayerPainting.h>
#include <tessera/objects/TCircle.h>
#include <tessera/objects/TPolyline.h>
#include <tessera/objects/TRectangle.h>
#include <tessera/objects/TRegion.h>
#include <tessera/objects/TSymbol.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>

namespace tessera::test {
namespace {

/// A kind that draws more than its outline.
class TMarkedRegion : public TRegion {
 public:
  void Draw() override {
    TRegion::Draw();
    GetMapHost()->GetCanvas().FillRect(QRect(GetPixels(0, 0), QSize(3, 3)));
  }
};

class LayerPainterTest : public testing::Test {
 protected:
  LayerPainterTest() : random(77) {
    host.layers = &layers;
    layers.SetMap(&host);
    host.ResizeClient(300, 200);
    host.isInUpdate = true;
    layer = layers.Insert(QString(), 0);
    for (int i = 0; i < 10; ++i) {
      TObjectStylePtr style(new TObjectStyle);
      style->pen.SetColor(RGB(i * 30, 0, 90));
      style->brush.SetColor(RGB(0, i * 30, 0));
      style->font = TFont(SymbolFontFamily.toString(), 3 + i * 3, RGB(250, 0, i * 30));
      // A large character, and one that is not put down over what is there.
      if (i == 5) style->font.SetSize(90);
      if (i == 6) style->pen.SetMode(TPenMode::pmXor);
      if (i >= 7) style->pen.SetStyle(TPenStyle::psClear);
      if (i >= 8) style->brush.SetStyle(TBrushStyle::bsClear);
      style->useBGColor = i == 9;
      styles.push_back(style);
    }
  }

  void AddShape(double largestPower) {
    TMapPoint at{random.Real(-20, 320), random.Real(-20, 220)};
    // Some share a pixel.
    if (random.Whole(0, 1) == 0) at = {random.Real(150, 156), random.Real(90, 96)};
    const double size = std::exp2(random.Real(-6, largestPower));
    TCustomMapObject *object = nullptr;
    const int kind = random.Whole(0, 30);
    if (kind < 3) {
      object = layer->NewObject<TMarkedRegion>();
    } else if (kind < 15) {
      object = layer->NewObject<TRegion>();
    } else {
      object = layer->NewObject<TPolyline>();
    }
    const auto ring = random.Ring(at, size, random.Whole(3, kind == 20 ? 900 : 12));
    for (const TMapPoint &point : ring)
      object->GetParts().GetCount() == 0 ? object->GetParts().Add().GetPoints().Add(point)
                                         : object->GetParts().GetFirst().GetPoints().Add(point);
    object->SetStyle(styles[std::size_t(random.Whole(0, 9))]);
  }
  void AddSymbol(int styleCount) {
    auto *symbol = layer->NewObject<TSymbol>();
    symbol->MoveTo(random.Real(-20, 320), random.Real(-20, 220));
    symbol->SetShape(random.Whole(31, 40));
    symbol->SetStyle(styles[std::size_t(random.Whole(0, styleCount - 1))]);
  }

  /// Draws the layer in steps as short as can be, and answers how many there were.
  int PaintInSteps() {
    detail::LayerPainting painting(*layer);
    int steps = 1;
    while (painting.Continue(QDeadlineTimer(0)) == detail::LayerPainting::State::Paused) ++steps;
    return steps;
  }

  /// Draws the layer, by itself, at once or in steps, or object by object, and compares pictures, displayed objects and
  /// tools left behind.
  void Compare(const std::function<void()> &paintLayer) {
    host.ClearPicture();
    host.displayed.Clear();
    paintLayer();
    const QImage fast = host.picture.GetImage().copy();
    const auto shown = host.displayed.Items();
    const std::vector<TCustomMapObject *> displayed(shown.begin(), shown.end());
    const TPen pen = host.canvas.Pen();
    const TFont font = host.canvas.Font();

    host.ClearPicture();
    host.displayed.Clear();
    TCardinalArray ids;
    layer->GetAllIdsInRect(Bounds2CellBounds(host.viewport.GetViewBounds()), ids);
    for (const std::uint32_t id : std::as_const(ids).Ids()) layer->GetObjects(int(id))->Paint();
    EXPECT_EQ(fast, host.picture.GetImage());
    EXPECT_TRUE(std::ranges::equal(displayed, host.displayed.Items()));
    EXPECT_EQ(pen, host.canvas.Pen());
    EXPECT_EQ(font, host.canvas.Font());
  }

  TFakeMapHost host;
  TMapLayers layers;
  TMapLayer *layer = nullptr;
  TRandomShapes random;
  std::vector<TObjectStylePtr> styles;
};

TEST_F(LayerPainterTest, DrawsAsTheObjectsDoOneByOne) {
  int mostSteps = 0;
  for (int run = 0; run < 60; ++run) {
    SCOPED_TRACE(run);
    layer->DeleteObjects();
    const int count = random.Whole(1, 900);
    // Symbols alone, most of them covered, small shapes alone, or all kinds in any order.
    const bool areSmall = run % 4 == 1;
    for (int i = 0; i < count; ++i)
      !areSmall && (run % 3 == 0 || random.Whole(0, 2) == 0) ? AddSymbol(run % 2 == 0 ? 2 : 7)
                                                             : AddShape(areSmall ? -3 : 6);
    host.viewport.Zoom = run % 4 == 1 ? 3 : 1;
    host.flags.UseGeneralization = run % 5 != 2;
    host.flags.FastSelection = run % 7 != 3;
    host.flags.ShowSmallObjects = run % 2 == 1;
    layer->SetAutoLabel(run % 11 == 4);
    for (int i = 0; i < 5; ++i) host.selection.Add(layer->GetObjects(random.Whole(0, count - 1)), false);
    Compare([this] { layer->Paint(); });
    for (int i = 0; i < 50; ++i)
      layer->GetObjects(random.Whole(0, count - 1))->SetStyle(styles[std::size_t(random.Whole(0, 6))]);
    Compare([this] { layer->Paint(); });
    int steps = 0;
    Compare([&] { steps = PaintInSteps(); });
    mostSteps = std::max(mostSteps, steps);
    host.selection.Clear();
  }
  EXPECT_GT(mostSteps, 100);
}

TEST_F(LayerPainterTest, DrawsWhatTheEdgeOfTheViewCutsOnRequest) {
  for (int i = 0; i < 300; ++i) {
    const TMapPoint at{random.Real(-50, 350), random.Real(-50, 250)};
    const double size = random.Real(5, 60);
    TCustomMapObject *object = nullptr;
    if (i % 2 == 0) {
      auto *circle = layer->NewObject<TCircle>();
      circle->SetX(at.X), circle->SetY(at.Y), circle->SetRadius(size);
      object = circle;
    } else {
      auto *rectangle = layer->NewObject<TRectangle>();
      rectangle->SetX0(at.X), rectangle->SetY0(at.Y), rectangle->SetX1(at.X + size), rectangle->SetY1(at.Y + 40);
      object = rectangle;
    }
    object->SetStyle(styles[std::size_t(i % 5)]);
  }
  const auto picture = [&](bool showsCut) {
    host.ClearPicture();
    host.flags.ShowCutObjects = showsCut;
    layer->Paint();
    return host.picture.GetImage().copy();
  };
  for (const bool usesIndex : {false, true}) {
    layer->SetUseIndex2D(usesIndex);
    const QImage whole = picture(true);
    EXPECT_NE(picture(false), whole);
    host.ClearPicture();
    for (int i = 0; i < layer->GetObjectCount(); ++i) layer->GetObjects(i)->Paint();
    EXPECT_EQ(whole, host.picture.GetImage()) << "with index: " << usesIndex;
  }
}

TEST_F(LayerPainterTest, SeesBetweenStepsWhatMakesThemUseless) {
  using State = detail::LayerPainting::State;
  const auto stateAfter = [&](const std::function<void()> &change) {
    layers.Clear();
    layer = layers.Insert(QString(), 0);
    for (int i = 0; i < 40; ++i) AddShape(6);
    detail::LayerPainting painting(*layer);
    EXPECT_EQ(painting.Continue(QDeadlineTimer(0)), State::Paused);
    change();
    return painting.Continue(QDeadlineTimer(0));
  };
  EXPECT_EQ(stateAfter([this] { AddShape(6); }), State::Paused) << "what comes later is of the next picture";
  EXPECT_EQ(stateAfter([this] { layer->SetObjects(39, std::make_unique<TSymbol>()); }), State::Paused);
  EXPECT_EQ(stateAfter([this] { layer->RemoveObject(layer->GetObjects(5)); }), State::Outdated);
  EXPECT_EQ(stateAfter([this] { layer->RemoveObject(layer->Last()); }), State::Outdated);
  EXPECT_EQ(stateAfter([this] { layer->PutObject(3, std::make_unique<TSymbol>()); }), State::Outdated);
  EXPECT_EQ(stateAfter([this] { layer->MoveObject(3, 7); }), State::Outdated);
  EXPECT_EQ(stateAfter([this] { layer->DeleteObjects(); }), State::Outdated);
  EXPECT_EQ(stateAfter([this] { layers.Clear(); }), State::Outdated);
}

}  // namespace
}  // namespace tessera::test
