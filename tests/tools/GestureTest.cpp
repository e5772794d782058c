// SPDX-License-Identifier: MIT
// What a gesture shows, and that it leaves nothing behind. Runs with a device pixel ratio of 1 and of 2.
#include "../map/MapFixture.h"
#include "../support/MapInput.h"

#include <tessera/StdMapTools.h>
#include <tessera/graphics/TCanvas.h>
#include <tessera/map/TMapToolsManager.h>
#include <tessera/objects/TMapScopes.h>

#include <QDialog>
#include <QTimer>

#include <memory>

namespace tessera::test {
namespace {

/// A map with something to see on it, and a tool.
struct Scene {
  Scene() {
    map.resize(200, 100);
    map.ShowBounds({0, 0, 200, 100});
    TMapLayer *layer = map.GetLayers()->Add(QString(), QStringLiteral("layer"));
    for (int i = 0; i < 6; ++i) {
      auto *line = layer->NewObject<TPolyline>();
      TMapPoints &points = line->GetParts().Add().GetPoints();
      points.Add(20 * i, 10 + 7 * i);
      points.Add(120 + 13 * i, 95 - 9 * i);
    }
    layer->SetEditable(true);
    map.show();
    QApplication::processEvents();
  }

  QImage Shown() {
    // Twice, because a paint event may ask for another one.
    QApplication::processEvents();
    QApplication::processEvents();
    return map.grab().toImage();
  }

  TTessera map;
  MapInput input{map};
};

using MakeTool = std::unique_ptr<TCustomMapTool> (*)();
template <class Kind>
std::unique_ptr<TCustomMapTool> Make() {
  return std::make_unique<Kind>();
}

struct GestureCase {
  MakeTool make;
  /// Held by the mouse button, and so given up when that is lost.
  bool isHeld;
};
const GestureCase Gestures[] = {{Make<TZoomInTool>, true},
                                {Make<TZoomOutTool>, true},
                                {Make<TPanTool>, true},
                                {Make<TLineTool>, true},
                                {Make<TRectTool>, true},
                                {Make<TPolylineTool>, false},
                                {Make<TRegionTool>, false},
                                {Make<TTextTool>, false},
                                {Make<TRectSelectionTool>, true},
                                {Make<TCircleSelectionTool>, true},
                                {Make<TPolygonSelectionTool>, false},
                                {Make<TMeasureTool>, false}};

class GestureTest : public testing::TestWithParam<GestureCase> {
 protected:
  GestureTest() : m_sinkBefore(SetMessageSink([this](const QString &text) { messages << text; })) {
    tool = GetParam().make();
    tool->SetTessera(&scene.map);
    tool->SetActive(true);
  }
  ~GestureTest() override {
    EXPECT_TRUE(messages.isEmpty()) << messages.join(u'\n').toStdString();
    SetMessageSink(m_sinkBefore);
  }

  void Begin() {
    scene.input.Press({40, 30});
    if (!GetParam().isHeld) scene.input.Release({40, 30});
    if (IsTyping()) {
      scene.input.Type(QStringLiteral("Wq"));
    } else if (!GetParam().isHeld) {
      scene.input.Click({90, 20});
    }
    GoOn({120, 70});
    EXPECT_TRUE(tool->GetInGesture());
  }
  static bool IsTyping() { return GetParam().make == Make<TTextTool>; }
  void GoOn(const QPoint &to) { scene.input.MoveTo(to, GetParam().isHeld ? Qt::LeftButton : Qt::NoButton); }

  Scene scene;
  Scene plain;  // where no gesture is
  std::unique_ptr<TCustomMapTool> tool;
  QStringList messages;

 private:
  TMessageSink m_sinkBefore;
};

using Action = std::function<void(TTessera &)>;

/// What may happen to a map in the middle of a gesture, to which the gesture is of no concern.
const std::pair<const char *, Action> Disturbances[] = {
    {"nothing", [](TTessera & /*map*/) {}},
    {"a new picture", [](TTessera &map) { map.DoUpdate(true); }},
    {"a repaint of the library", [](TTessera &map) { map.Invalidate(); }},
    {"a repaint of Qt", [](TTessera &map) { map.repaint(); }},
    {"a part exposed", [](TTessera &map) { map.update(30, 30, 50, 30); }},
    {"a resize", [](TTessera &map) { map.resize(230, 120); }},
    {"a wheel zoom", [](TTessera &map) { MapInput(map).Wheel(120); }},
    {"a selection", [](TTessera &map) { map.GetLayers()->First()->First()->Select(); }},
    {"a deselection",
     [](TTessera &map) {
       map.GetLayers()->First()->First()->Select();
       QApplication::processEvents();
       map.GetSelection()->Clear();
     }},
    {"a batch of updates",
     [](TTessera &map) {
       const TUpdateScope update(map);
       map.SetCenterX(80);
       QApplication::processEvents();
     }},
    {"a picture for a file", [](TTessera &map) { map.PaintMapToBitmap(); }},
    {"an object that comes",
     [](TTessera &map) { map.GetLayers()->First()->NewObject<TPolyline>()->GetParts().Add().GetPoints().Add(50, 50); }},
};

TEST_P(GestureTest, LeavesNoTraceWhateverHappensMeanwhile) {
  for (const auto &[name, disturb] : Disturbances) {
    SCOPED_TRACE(name);
    const QImage before = scene.Shown();
    ASSERT_EQ(before, plain.Shown());
    Begin();
    EXPECT_NE(scene.Shown(), before) << "it shows";
    disturb(scene.map);
    disturb(plain.map);
    GoOn({100, 85});
    EXPECT_NE(scene.Shown(), plain.Shown()) << "it still shows";
    GoOn({101, 84});
    tool->Cancel();
    EXPECT_FALSE(tool->GetInGesture());
    EXPECT_EQ(scene.Shown(), plain.Shown());
    for (TTessera *map : {&scene.map, &plain.map}) map->resize(200, 100);
  }
}

TEST_P(GestureTest, IsGivenUpWithItsMapItsTurnOrItself) {
  TSelectionTool other;
  other.SetTessera(&scene.map);
  Scene elsewhere;
  const std::pair<const char *, std::function<void()>> ends[] = {
      {"another tool", [&] { other.SetActive(true); }},
      {"no tool", [this] { tool->SetActive(false); }},
      {"no map", [this] { tool->SetTessera(nullptr); }},
      {"another map", [&] { tool->SetTessera(&elsewhere.map); }},
      {"another manager", [this] { scene.map.SetMapToolsManager(std::make_unique<TMapToolsManager>()); }},
      {"no tool at all", [this] { tool.reset(); }},
  };
  for (const auto &[name, end] : ends) {
    SCOPED_TRACE(name);
    tool->SetTessera(nullptr);
    tool->SetTessera(&scene.map);
    tool->SetActive(true);
    Begin();
    scene.Shown();
    end();
    EXPECT_EQ(scene.Shown(), plain.Shown());
    EXPECT_EQ(scene.map.GetLayers()->First()->GetObjectCount(), 6);
    if (!tool) break;
    EXPECT_FALSE(tool->GetInGesture());
    scene.input.Release({100, 85});
    EXPECT_EQ(scene.Shown(), plain.Shown()) << "a release without a press";
  }
}

TEST_P(GestureTest, IsGivenUpWhenTheMouseIsLost) {
  const std::pair<const char *, std::function<void()>> losses[] = {
      {"released elsewhere",
       [this] {
         scene.input.MoveTo({50, 50}, Qt::NoButton);
       }},
      {"hidden",
       [this] {
         scene.map.hide();
         scene.map.show();
       }},
      {"disabled",
       [this] {
         scene.map.setEnabled(false);
         scene.map.setEnabled(true);
       }},
      {"a modal window",
       [this] {
         QDialog dialog(&scene.map);
         QTimer::singleShot(0, &dialog, &QDialog::reject);
         dialog.exec();
       }},
  };
  for (const auto &[name, lose] : losses) {
    SCOPED_TRACE(name);
    Begin();
    lose();
    EXPECT_EQ(tool->GetInGesture(), !GetParam().isHeld) << "what no button holds goes on";
    GoOn({80, 85});
    if (!GetParam().isHeld) {
      EXPECT_NE(scene.Shown(), plain.Shown());
      tool->Cancel();
    }
    EXPECT_EQ(scene.Shown(), plain.Shown());
    scene.input.Release({80, 85});
    EXPECT_EQ(scene.Shown(), plain.Shown());
  }
}

TEST_P(GestureTest, IsCancelledByEscape) {
  if (IsTyping()) return;  // there Escape puts the text
  int cancelled = 0;
  QObject::connect(tool.get(), &TCustomMapTool::OnCancel, &scene.map, [&] { ++cancelled; });
  Begin();
  scene.input.Key(Qt::Key_Escape);
  EXPECT_EQ(cancelled, 1);
  EXPECT_EQ(scene.Shown(), plain.Shown());
  scene.input.Key(Qt::Key_Escape);
  EXPECT_EQ(cancelled, 1) << "there was nothing to cancel";
}

TEST_P(GestureTest, DrawsRightWhateverModeTheCanvasWasLeftIn) {
  const auto leaveInXor = [](TTessera &map) {
    TCanvas &canvas = map.GetCanvas();
    canvas.Pen().SetMode(TPenMode::pmXor);
    canvas.Pen().SetWidth(5);
    canvas.Pen().SetColor(clRed);
    canvas.Brush().SetStyle(TBrushStyle::bsClear);
    canvas.Brush().SetColor(clRed);
  };
  Begin();
  const QImage before = scene.Shown();
  leaveInXor(scene.map);
  GoOn({100, 60});
  leaveInXor(scene.map);
  GoOn({120, 70});
  EXPECT_EQ(scene.Shown(), before);
}

TEST_P(GestureTest, StaysOutOfThePictureThatIsBeingMade) {
  Begin();
  const auto moves = QObject::connect(&scene.map, &TTessera::OnPaint, &scene.map, [this] { GoOn({60, 60}); });
  scene.map.DoUpdate(true);
  EXPECT_NE(scene.Shown(), plain.Shown());
  QObject::disconnect(moves);
  tool->Cancel();
  EXPECT_EQ(scene.Shown(), plain.Shown());
}

TEST_P(GestureTest, EndsWithItsMap) {
  auto map = std::make_unique<Scene>();
  tool->SetTessera(&map->map);
  map->input.Press({40, 30});
  map->Shown();
  map.reset();
  EXPECT_EQ(tool->GetTessera(), nullptr);
  EXPECT_EQ(tool->GetMapToolsManager(), nullptr);
  EXPECT_FALSE(tool->GetInGesture());
  tool->MouseMove(ssLeft, 5, 5);
  tool->MouseUp(Qt::LeftButton, {}, 5, 5);
  tool->DblClick();
  tool->Cancel();
  tool->Complete();
  tool->SetTessera(&scene.map);
  EXPECT_EQ(scene.map.GetMapToolsManager()->GetActiveMapTool(), tool.get());
}

INSTANTIATE_TEST_SUITE_P(EveryTool, GestureTest, testing::ValuesIn(Gestures));

}  // namespace
}  // namespace tessera::test
