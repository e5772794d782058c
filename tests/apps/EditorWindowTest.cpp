// SPDX-License-Identifier: MIT
#include "ProgramRun.h"

#include <apps/common/ProgramSetup.h>
#include <apps/editor/MessageBar.h>
#include <apps/editor/ProgressPanel.h>
#include <apps/editor/StatusPanel.h>
#include <apps/editor/TEditorWindow.h>
#include <tessera/objects/TCircle.h>

#include <QApplication>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QTemporaryDir>
#include <QTest>
#include <gtest/gtest.h>

namespace tessera::apps {
namespace {

using test::MapFileNamed;

class EditorWindowTest : public testing::Test {
 protected:
  EditorWindowTest() {
    window.show();
    QApplication::processEvents();
  }
  /// Opens files and lets the window settle.
  void Open(const QStringList &files) {
    window.OpenFiles(files);
    QApplication::processEvents();
  }
  [[nodiscard]] std::string LayerName(int index) const {
    return map.GetLayers()->GetLayer(index)->GetName().toStdString();
  }
  [[nodiscard]] static QByteArray BytesOf(const QString &path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
  }
  [[nodiscard]] QString PathOf(const char *name) const { return folder.filePath(QString::fromLatin1(name)); }

  const QString squares = MapFileNamed("squares.mif");
  const QString cover = MapFileNamed("cover.mif");
  const QTemporaryDir folder;
  const TStandardProviders providers;
  TEditorWindow window;
  TTessera &map = window.GetMap();
  MessageBar &messages = window.GetMessageBar();
};

TEST_F(EditorWindowTest, OpensFilesBottomFirstAndShowsThemWhole) {
  Open({squares, cover});
  ASSERT_EQ(map.GetLayers()->GetCount(), 2);
  EXPECT_EQ(LayerName(0), "squares");
  EXPECT_EQ(LayerName(1), "cover");
  EXPECT_TRUE(map.GetViewBounds().ContainsBounds({0, 0, 20, 10}));
  EXPECT_EQ(map.GetDisplayed()->GetCount(), 4);
  EXPECT_EQ(messages.GetCount(), 0);
  EXPECT_TRUE(window.GetStatusPanel().GetSummary().startsWith(u"cover.mif: 1 object"));
}

TEST_F(EditorWindowTest, KeepsTheViewWhenFilesComeOnTop) {
  Open({cover});
  EXPECT_EQ(window.GetStatusPanel().GetZoom(), u"Zoom 1");
  map.SetCenterX(3);
  map.SetZoom(5);
  Open({squares});
  EXPECT_EQ(map.GetCenterX(), 3);
  EXPECT_EQ(map.GetZoom(), 5);
  EXPECT_EQ(window.GetStatusPanel().GetZoom(), u"Zoom 5");
  window.FitAll();
  EXPECT_EQ(map.GetCenterX(), 10);
  EXPECT_EQ(map.GetZoom(), 1);
}

TEST_F(EditorWindowTest, OpensDroppedFilesAndLeavesOtherDropsToOthers) {
  const QPoint at(20, 40);
  QMimeData data;
  const auto isAccepted = [&] {
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(&window, &enter);
    return enter.isAccepted();
  };
  data.setText(QStringLiteral("no file"));
  EXPECT_FALSE(isAccepted());
  data.setUrls({QUrl::fromLocalFile(squares), QUrl(QStringLiteral("mailto:nobody"))});
  EXPECT_TRUE(isAccepted() && window.acceptDrops());
  QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&window, &drop);
  QApplication::processEvents();
  ASSERT_EQ(map.GetLayers()->GetCount(), 1);
  EXPECT_EQ(LayerName(0), "squares");
}

TEST_F(EditorWindowTest, TellsInTheMessageBarWhatCannotBeRead) {
  const QSize before = map.size();
  Open({QStringLiteral("missing.mif"), MapFileNamed("defect.mif")});
  EXPECT_EQ(map.GetLayers()->GetCount(), 1);
  EXPECT_TRUE(messages.isVisible());
  EXPECT_EQ(messages.GetCount(), 2);
  EXPECT_EQ(messages.GetText(), u"missing.mif: there is no such file");
  messages.Dismiss();
  EXPECT_TRUE(messages.GetText().contains(u"defect.mif: error in line 18"));
  EXPECT_EQ(map.size(), before) << "the bar lies over the map";
}

TEST_F(EditorWindowTest, ShowsMessagesThatComeUpWhilePainting) {
  QObject::connect(&map, &TTessera::OnPaint, &window, [] { ShowMessage(QStringLiteral("painted")); });
  Open({cover});
  QApplication::processEvents();
  EXPECT_EQ(messages.GetText(), u"painted");
}

TEST_F(EditorWindowTest, ShowsProgressWhileLoadingOnly) {
  const auto *panel = window.findChild<ProgressPanel *>();
  int shownWhileLoading = 0;
  int shownWhilePainting = 0;
  QObject::connect(&map, &TTessera::OnShowProgress, &window, [&](const TTessera *sender) {
    (sender->GetIsBusy() ? shownWhilePainting : shownWhileLoading) += panel->isVisible() ? 1 : 0;
  });
  EXPECT_FALSE(panel->isVisible());
  window.OpenFiles({squares});
  EXPECT_GT(shownWhileLoading, 0);
  EXPECT_FALSE(panel->isVisible());
  map.PaintMapToBitmap();
  EXPECT_EQ(shownWhilePainting, 0);
}

TEST_F(EditorWindowTest, ShowsThePointUnderTheCursor) {
  Open({squares});
  const auto shown = [this](int axis) { return window.GetStatusPanel().GetCoordinates().section(u',', axis, axis); };
  constexpr double SomePixels = 0.1;  // in map units
  const QPoint middle(map.width() / 2, map.height() / 2);
  QTest::mouseMove(&map, middle + QPoint(5, 5));
  QTest::mouseMove(&map, middle);
  EXPECT_NEAR(shown(1).toDouble(), 5, SomePixels);
  map.SetCenterX(map.GetCenterX() + 30);
  QApplication::processEvents();
  EXPECT_NEAR(shown(0).toDouble(), 40, SomePixels) << "the map has moved under the cursor";
  EXPECT_TRUE(shown(0).contains(u'.'));
}

TEST_F(EditorWindowTest, SavesALayerThatReadsBack) {
  Open({squares});
  EXPECT_FALSE(window.SaveLayer(*map.GetLayers()->First(), PathOf("copy.none")));
  QApplication::processEvents();
  EXPECT_TRUE(messages.GetText().contains(u"copy.none: no format is known"));
  EXPECT_TRUE(window.SaveLayer(*map.GetLayers()->First(), PathOf("copy.mif")));
  Open({PathOf("copy.mif")});
  ASSERT_EQ(map.GetLayers()->GetCount(), 2);
  EXPECT_EQ(map.GetLayers()->Last()->GetObjectCount(), 3);
}

TEST_F(EditorWindowTest, AsksBeforeALayerReplacesItsSourceThatItDoesNotHoldWhole) {
  for (const char *ending : {"mif", "mid"}) {
    ASSERT_TRUE(QFile::copy(MapFileNamed(("defect." + std::string(ending)).c_str()),
                            PathOf("own") + u'.' + QLatin1String(ending)));
  }
  const QString own = PathOf("own.mif");
  const QByteArray before = BytesOf(own);
  Open({own});
  TMapLayer &layer = *map.GetLayers()->First();
  QStringList asked;
  bool answer = false;
  window.SetLossQuestion([&](const QString &, const QStringList &losses) {
    asked = losses;
    return answer;
  });
  EXPECT_FALSE(window.SaveLayer(layer, own));
  EXPECT_TRUE(asked.value(0).startsWith(u"all that comes after this error in line 18"));
  EXPECT_EQ(BytesOf(own), before);
  EXPECT_EQ(window.ProposeFileFor(layer), PathOf("own-1.mif"));

  asked.clear();
  EXPECT_TRUE(window.SaveLayer(layer, PathOf("own-1.mif"))) << "another file loses nothing";
  EXPECT_EQ(asked, QStringList());
  EXPECT_FALSE(window.SaveLayer(layer, own)) << "it still lacks what it was not read of the first";
  answer = true;
  EXPECT_TRUE(window.SaveLayer(layer, own));
  EXPECT_NE(BytesOf(own), before);
  asked.clear();
  EXPECT_TRUE(window.SaveLayer(layer, own));
  EXPECT_FALSE(asked.join(u' ').contains(u"error")) << "the file holds no more than the layer now";
}

TEST_F(EditorWindowTest, TellsWhatASavedFileDoesNotHold) {
  TMapLayer &layer = *map.GetLayers()->Add(QString(), QStringLiteral("round"));
  layer.NewObject<TCircle>();
  EXPECT_TRUE(window.SaveLayer(layer, PathOf("round.mif")));
  QApplication::processEvents();
  EXPECT_TRUE(messages.GetText().contains(u"without their shape: 1"));
  window.SetLossQuestion([](const QString &, const QStringList &losses) { return losses.isEmpty(); });
  EXPECT_FALSE(window.SaveLayer(layer, PathOf("round.mif"))) << "now the layer would replace what it was saved to";
}

TEST_F(EditorWindowTest, ExportsThePictureAsShown) {
  Open({squares});
  EXPECT_TRUE(window.ExportPicture(PathOf("map.png")));
  const QImage picture(PathOf("map.png"));
  ASSERT_EQ(picture.size(), map.size());
  int x = 0;
  int y = 0;
  map.MapToScreen(1, 9, x, y, false);
  EXPECT_EQ(picture.pixel(x, y), qRgb(255, 0, 0));
  EXPECT_FALSE(window.ExportPicture(PathOf("none/map.png")));
  QApplication::processEvents();
  EXPECT_TRUE(messages.GetText().contains(u"none/map.png"));
}

}  // namespace
}  // namespace tessera::apps
