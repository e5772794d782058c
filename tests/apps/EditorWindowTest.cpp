// SPDX-License-Identifier: MIT
#include "ProgramRun.h"

#include <apps/common/ProgramSetup.h>
#include <apps/editor/MessageBar.h>
#include <apps/editor/ProgressPanel.h>
#include <apps/editor/StatusPanel.h>
#include <apps/editor/TEditorWindow.h>

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

  const QString squares = MapFileNamed(QStringLiteral("squares.mif"));
  const QString cover = MapFileNamed(QStringLiteral("cover.mif"));
  const QTemporaryDir folder;
  const TStandardProviders providers;
  TEditorWindow window;
  TTessera &map = window.GetMap();
  MessageBar &messages = window.GetMessageBar();
};

TEST_F(EditorWindowTest, OpensFilesBottomFirstAndShowsThemWhole) {
  window.OpenFiles({squares, cover});
  QApplication::processEvents();
  ASSERT_EQ(map.GetLayers()->GetCount(), 2);
  EXPECT_EQ(map.GetLayers()->GetLayer(0)->GetName(), QStringLiteral("squares"));
  EXPECT_EQ(map.GetLayers()->GetLayer(1)->GetName(), QStringLiteral("cover"));
  EXPECT_TRUE(map.GetViewBounds().ContainsBounds({0, 0, 20, 10}));
  EXPECT_EQ(map.GetDisplayed()->GetCount(), 4);
  EXPECT_EQ(messages.GetCount(), 0);
  EXPECT_TRUE(window.GetStatusPanel().GetSummary().startsWith(QStringLiteral("cover.mif: 1 object")));
}

TEST_F(EditorWindowTest, KeepsTheViewWhenFilesComeOnTop) {
  window.OpenFiles({cover});
  map.SetCenterX(3);
  map.SetZoom(5);
  window.OpenFiles({squares});
  EXPECT_EQ(map.GetCenterX(), 3);
  EXPECT_EQ(map.GetZoom(), 5);
  window.FitAll();
  EXPECT_EQ(map.GetCenterX(), 10);
  EXPECT_EQ(map.GetZoom(), 1);
}

TEST_F(EditorWindowTest, OpensDroppedFiles) {
  QMimeData files;
  files.setUrls({QUrl::fromLocalFile(squares), QUrl(QStringLiteral("mailto:nobody"))});
  const QPoint at(20, 40);
  QDragEnterEvent enter(at, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&window, &enter);
  EXPECT_TRUE(enter.isAccepted());
  QDropEvent drop(at, Qt::CopyAction, &files, Qt::LeftButton, Qt::NoModifier);
  QApplication::sendEvent(&window, &drop);
  QApplication::processEvents();
  ASSERT_EQ(map.GetLayers()->GetCount(), 1);
  EXPECT_EQ(map.GetLayers()->First()->GetName(), QStringLiteral("squares"));
}

TEST_F(EditorWindowTest, LeavesOtherDropsToOthers) {
  QMimeData text;
  text.setText(QStringLiteral("no file"));
  QDragEnterEvent enter(QPoint(20, 40), Qt::CopyAction, &text, Qt::LeftButton, Qt::NoModifier);
  enter.ignore();
  QApplication::sendEvent(&window, &enter);
  EXPECT_FALSE(enter.isAccepted());
}

TEST_F(EditorWindowTest, TellsInTheMessageBarWhatCannotBeRead) {
  const QSize before = map.size();
  window.OpenFiles({QStringLiteral("missing.mif"), MapFileNamed(QStringLiteral("defect.mif"))});
  QApplication::processEvents();
  EXPECT_EQ(map.GetLayers()->GetCount(), 1);
  EXPECT_TRUE(messages.isVisible());
  EXPECT_EQ(messages.GetCount(), 2);
  EXPECT_EQ(messages.GetText(), QStringLiteral("missing.mif: there is no such file"));
  messages.Dismiss();
  EXPECT_TRUE(messages.GetText().contains(QStringLiteral("defect.mif: error in line 18")));
  EXPECT_EQ(map.size(), before) << "the bar lies over the map";
}

TEST_F(EditorWindowTest, ShowsMessagesThatComeUpWhilePainting) {
  QObject::connect(&map, &TTessera::OnPaint, &window, [] { ShowMessage(QStringLiteral("painted")); });
  window.OpenFiles({cover});
  QApplication::processEvents();
  QApplication::processEvents();
  EXPECT_EQ(messages.GetText(), QStringLiteral("painted"));
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
  window.OpenFiles({squares});
  // A pixel is a few hundredths of a map unit.
  const QPoint middle(map.width() / 2, map.height() / 2);
  QTest::mouseMove(&map, middle + QPoint(5, 5));
  QTest::mouseMove(&map, middle);
  const QStringList numbers = window.GetStatusPanel().GetCoordinates().split(QStringLiteral(", "));
  ASSERT_EQ(numbers.size(), 2);
  EXPECT_NEAR(numbers[0].toDouble(), 10, 0.1);
  EXPECT_NEAR(numbers[1].toDouble(), 5, 0.1);
  EXPECT_TRUE(numbers[0].contains(u'.'));

  map.SetCenterX(map.GetCenterX() + 30);
  QApplication::processEvents();
  EXPECT_NEAR(window.GetStatusPanel().GetCoordinates().section(u',', 0, 0).toDouble(), 40, 0.1)
      << "the map has moved under the cursor";
}

TEST_F(EditorWindowTest, ShowsTheZoom) {
  EXPECT_EQ(window.GetStatusPanel().GetZoom(), QStringLiteral("Zoom 1"));
  map.SetZoom(2.5);
  EXPECT_EQ(window.GetStatusPanel().GetZoom(), QStringLiteral("Zoom 2.5"));
}

TEST_F(EditorWindowTest, SavesALayerThatReadsBack) {
  window.OpenFiles({squares});
  const QString file = folder.filePath(QStringLiteral("copy.mif"));
  EXPECT_TRUE(window.SaveLayer(*map.GetLayers()->First(), file));
  window.OpenFiles({file});
  ASSERT_EQ(map.GetLayers()->GetCount(), 2);
  EXPECT_EQ(map.GetLayers()->Last()->GetObjectCount(), 3);
  EXPECT_FALSE(window.SaveLayer(*map.GetLayers()->First(), folder.filePath(QStringLiteral("copy.none"))));
  QApplication::processEvents();
  EXPECT_TRUE(messages.GetText().contains(QStringLiteral("copy.none: no format is known")));
}

TEST_F(EditorWindowTest, ExportsThePictureAsShown) {
  window.OpenFiles({squares});
  const QString file = folder.filePath(QStringLiteral("map.png"));
  EXPECT_TRUE(window.ExportPicture(file));
  const QImage picture(file);
  ASSERT_EQ(picture.size(), map.size());
  int x = 0;
  int y = 0;
  map.MapToScreen(1, 9, x, y, false);
  EXPECT_EQ(picture.pixel(x, y), qRgb(255, 0, 0));
  EXPECT_FALSE(window.ExportPicture(folder.filePath(QStringLiteral("none/map.png"))));
  QApplication::processEvents();
  EXPECT_TRUE(messages.GetText().contains(QStringLiteral("none/map.png")));
}

TEST_F(EditorWindowTest, StaysEmptyWithoutFiles) {
  EXPECT_EQ(map.GetLayers()->GetCount(), 0);
  EXPECT_EQ(messages.GetCount(), 0);
  EXPECT_TRUE(window.acceptDrops());
}

}  // namespace
}  // namespace tessera::apps
