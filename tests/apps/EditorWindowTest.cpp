// SPDX-License-Identifier: MIT
#include "EditorFixture.h"

#include <apps/common/FileFilters.h>
#include <apps/editor/FindBar.h>
#include <apps/editor/IdentifyPanel.h>
#include <apps/editor/LayerDocks.h>
#include <apps/editor/LoadingPanel.h>
#include <apps/editor/MapDecorations.h>
#include <apps/editor/UnitsMenu.h>
#include <tessera/controls/TMapLegend.h>
#include <tessera/controls/TScaleBar.h>
#include <tessera/layers/ObjectsAt.h>
#include <tessera/objects/TSprite.h>
#include <tessera/tools/TIdentifyTool.h>

#include <QDragEnterEvent>
#include <QLineEdit>
#include <QMimeData>
#include <QProgressDialog>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QToolButton>

namespace tessera::apps {
namespace {

using test::MapFileNamed;

class EditorWindowTest : public EditorFixture {
 protected:
  const QString squares = MapFileNamed("squares.mif");
  const QString cover = MapFileNamed("cover.mif");
};

TEST_F(EditorWindowTest, OpensFilesBottomFirstAndShowsThemWholeIfTheyAreTheFirst) {
  Open({cover, squares});
  ASSERT_EQ(map.GetLayers()->GetCount(), 2);
  EXPECT_EQ(map.GetLayers()->First()->GetName(), u"cover");
  EXPECT_EQ(map.GetDisplayed()->GetCount(), 4);
  EXPECT_TRUE(window.GetStatusPanel().GetSummary().startsWith(u"squares.mif: 3 object"));
  map.SetCenterX(3);
  map.SetZoom(5);
  Open({squares});
  EXPECT_EQ(map.GetCenterX(), 3);
  EXPECT_EQ(window.GetStatusPanel().GetZoom(), u"Zoom 5");
  map.ShowAll();
  EXPECT_EQ(map.GetCenterX(), 10);
  EXPECT_EQ(messages.GetCount(), 0);
}

TEST_F(EditorWindowTest, OpensDroppedFilesAndLeavesOtherDropsToOthers) {
  QMimeData data;
  const auto drop = [&] {
    QDropEvent event({20, 40}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QDragEnterEvent enter({20, 40}, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(&window, &enter);
    if (enter.isAccepted()) QApplication::sendEvent(&window, &event);
    QApplication::processEvents();
    WaitForFiles();
    return enter.isAccepted() && window.acceptDrops();
  };
  data.setText(QStringLiteral("no file"));
  EXPECT_FALSE(drop());
  data.setUrls({QUrl::fromLocalFile(squares), QUrl(QStringLiteral("mailto:nobody"))});
  EXPECT_TRUE(drop());
  EXPECT_EQ(map.GetLayers()->GetCount(), 1);
}

TEST_F(EditorWindowTest, LeavesNothingOfFilesThatAreGivenUpByTheButtonOrByClosing) {
  const auto *panel = window.findChild<LoadingPanel *>();
  window.GetFiles().Open({cover, squares});
  EXPECT_TRUE(panel->isVisible());
  QTest::mouseClick(panel->findChild<QPushButton *>(), Qt::LeftButton);
  WaitForFiles();
  EXPECT_FALSE(panel->isVisible());
  EXPECT_EQ(map.GetLayers()->GetCount(), 0);
  Open({squares});
  EXPECT_EQ(map.GetDisplayed()->GetCount(), 3) << "all is shown, though the first files did not come";
  window.GetFiles().Open({cover});
  window.close();
  WaitForFiles();
  EXPECT_EQ(map.GetLayers()->GetCount(), 1);
  EXPECT_EQ(messages.GetCount(), 0);
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

TEST_F(EditorWindowTest, LeavesTheMapRoomWhenAllPanelsAreShownInASmallWindow) {
  for (QAction *panel : window.GetDocks().GetActions()) panel->setChecked(true);
  window.resize(1, 1);
  QApplication::processEvents();
  EXPECT_GE(map.visibleRegion().boundingRect().width(), 100);
  EXPECT_GE(map.visibleRegion().boundingRect().height(), 100);
}

TEST_F(EditorWindowTest, ShowsThePointUnderTheCursorWhenTheMapMovesToo) {
  Open({squares});
  QTest::mouseMove(&map, QPoint(5, 5));
  QTest::mouseMove(&map, QPoint(map.width() / 2, map.height() / 2));
  map.SetCenterX(map.GetCenterX() + 30);
  QApplication::processEvents();
  const QStringList shown = window.GetStatusPanel().GetCoordinates().split(u',');
  constexpr double SomePixels = 0.1;  // in map units
  EXPECT_NEAR(shown.value(0).toDouble(), 40, SomePixels);
  EXPECT_NEAR(shown.value(1).toDouble(), 5, SomePixels);
}

TEST_F(EditorWindowTest, DrawsTheScaleBarAndTheLegendThatAreShownIntoPictures) {
  Open({squares});
  const auto exported = [&](const char *name) {
    EXPECT_TRUE(window.ExportPicture(PathOf(name)));
    return BytesOf(PathOf(name));
  };
  const QByteArray plainPng = exported("plain.png");
  const QByteArray plainSvg = exported("plain.svg");
  for (QAction *action : window.GetDecorations().GetActions()) {
    EXPECT_FALSE(action->isChecked());
    action->setChecked(true);
    EXPECT_NE(exported("with.png"), plainPng);
    EXPECT_NE(exported("with.svg"), plainSvg);
  }
  EXPECT_TRUE(window.GetDecorations().GetScaleBar().isVisible());
  EXPECT_TRUE(window.GetDecorations().GetLegend().isVisible());
  EXPECT_EQ(window.GetDecorations().GetLegend().GetEntries().front().name, u"squares");
  EXPECT_TRUE(window.GetDecorations().GetScaleBar().GetText().endsWith(u" km"));
  TMapMeasure plain;
  window.GetUnits().SetMeasure(plain);
  EXPECT_FALSE(window.GetDecorations().GetScaleBar().GetText().contains(u' '));
  for (QAction *action : window.GetDecorations().GetActions()) action->setChecked(false);
  EXPECT_EQ(exported("with.png"), plainPng);
  const TEditorWindow next;
  EXPECT_EQ(next.GetUnits().GetMeasure(), plain) << "kept from one run to the next";
}

TEST_F(EditorWindowTest, FindsObjectsByTheirAttributes) {
  FindBar &bar = window.GetFindBar();
  const auto find = [&](const char *expression) {
    bar.GetEdit().setText(QString::fromUtf8(expression));
    QTest::keyClick(&bar.GetEdit(), Qt::Key_Return);
    return bar.GetAnswer();
  };
  EXPECT_FALSE(bar.isVisible());
  EXPECT_EQ(find("1"), u"There is no layer.");
  Open({squares});
  TMapLayer &layer = *map.GetLayers()->First();
  bar.Open();
  EXPECT_TRUE(bar.isVisible());
  map.GetSelection()->Add(layer.First(), true);
  EXPECT_EQ(find("rowid > 0"), u"squares: 2 found");
  EXPECT_EQ(map.GetSelection()->GetCount(), 2);
  EXPECT_FALSE(layer.First()->GetSelected());
  const TBounds box = layer.Last()->GetBounds();
  EXPECT_TRUE(map.GetViewBounds().ContainsPoint(box.MinX, box.MinY));
  EXPECT_EQ(find("rowid > AND 1"), u"near \"AND\": syntax error");
  EXPECT_EQ(bar.GetEdit().selectionStart(), 8);
  EXPECT_EQ(map.GetSelection()->GetCount(), 2);
  EXPECT_EQ(find("0"), u"squares: 0 found");
  EXPECT_EQ(map.GetSelection()->GetCount(), 0);
  layer.SetSelectable(false);
  EXPECT_TRUE(find("1").contains(u"cannot be selected"));
}

TEST_F(EditorWindowTest, GivesUpASearchThatTakesLong) {
  Open({squares});
  FindBar &bar = window.GetFindBar();
  QString endless = QStringLiteral("(SELECT count(*) FROM layer a0");
  for (int i = 1; i < 60; ++i) endless += QStringLiteral(", layer a%1").arg(i);
  bar.GetEdit().setText(endless + QStringLiteral(") > 0"));
  bool wasBlocked = false;
  QTimer giveUp;
  QObject::connect(&giveUp, &QTimer::timeout, &window, [&] {
    auto *dialog = qobject_cast<QProgressDialog *>(QApplication::activeModalWidget());
    if (dialog == nullptr) return;
    wasBlocked = dialog->isVisible();
    dialog->findChild<QPushButton *>()->click();
  });
  giveUp.start(20);
  QTest::keyClick(&bar.GetEdit(), Qt::Key_Return);
  EXPECT_TRUE(wasBlocked);
  EXPECT_EQ(bar.GetAnswer(), u"The search was given up.");
  EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
}

TEST_F(EditorWindowTest, TellsOfTheObjectsAtAClickOfTheIdentifyingTool) {
  Open({cover, squares});
  window.GetTools().Find<TIdentifyTool>()->SetActive(true);
  const IdentifyPanel &panel = window.GetDocks().GetIdentifyPanel();
  EXPECT_FALSE(panel.isVisible());
  const TMapLayer &layer = *map.GetLayers()->Last();
  const TBounds box = layer.First()->GetBounds();
  const QPoint at = map.GetViewport().MapToScreen((box.MinX + box.MaxX) / 2, (box.MinY + box.MaxY) / 2);
  const TMapPoint clicked = map.GetViewport().ScreenToMap(at.x(), at.y());
  const auto objects = ObjectsAt(*map.GetLayers(), clicked, map.GetPickTolerancePx());
  QTest::mouseClick(&map, Qt::LeftButton, {}, at);
  EXPECT_TRUE(panel.isVisible());
  const auto count = int(objects.size());
  ASSERT_GE(count, 2);
  ASSERT_EQ(panel.topLevelItemCount(), count);
  EXPECT_EQ(panel.topLevelItem(0)->text(0), u"squares");
  EXPECT_EQ(panel.topLevelItem(0)->text(1), u"Polyline");
  EXPECT_EQ(panel.topLevelItem(count - 1)->text(0), u"cover");
  ASSERT_EQ(panel.topLevelItem(0)->childCount(), layer.GetFieldCount());
  const TDataFieldView field = std::as_const(*objects.front()).GetFields().GetFields(0);
  EXPECT_EQ(panel.topLevelItem(0)->child(0)->text(0), field.GetName());
  EXPECT_EQ(panel.topLevelItem(0)->child(0)->text(1), field.GetAsString());
  map.GetLayers()->Clear();
  QApplication::processEvents();
  EXPECT_EQ(panel.topLevelItemCount(), count) << "what was told stays";
}

TEST_F(EditorWindowTest, AsksBeforeALayerReplacesItsSourceThatItDoesNotHoldWhole) {
  ASSERT_TRUE(QFile::copy(MapFileNamed("defect.mif"), PathOf("own.mif")));
  ASSERT_TRUE(QFile::copy(MapFileNamed("defect.mid"), PathOf("own.mid")));
  const QString own = PathOf("own.mif");
  const QByteArray before = BytesOf(own);
  Open({own});
  TMapLayer &layer = *map.GetLayers()->First();
  QStringList asked;
  bool answer = false;
  window.GetFiles().Questions().goOnLosing = [&](const QString &, const QStringList &losses) {
    asked = losses;
    return answer;
  };
  EXPECT_FALSE(window.GetFiles().SaveTo(layer, own));
  EXPECT_TRUE(asked.value(0).startsWith(u"all that comes after this error in line 18"));
  EXPECT_EQ(BytesOf(own), before);
  EXPECT_EQ(LayerFiles::ProposeFileFor(layer), PathOf("own-1.mif"));

  asked.clear();
  EXPECT_TRUE(window.GetFiles().SaveTo(layer, PathOf("own-1.mif"))) << "another file loses nothing";
  EXPECT_EQ(asked, QStringList());
  EXPECT_FALSE(window.GetFiles().SaveTo(layer, own)) << "it still lacks what it was not read of the first";
  answer = true;
  EXPECT_TRUE(window.GetFiles().SaveTo(layer, own));
  EXPECT_NE(BytesOf(own), before);
  asked.clear();
  EXPECT_TRUE(window.GetFiles().SaveTo(layer, own));
  EXPECT_FALSE(asked.join(u' ').contains(u"error")) << "the file holds no more than the layer now";
}

TEST_F(EditorWindowTest, TellsWhatASavedFileDoesNotHold) {
  TMapLayer &layer = *map.GetLayers()->Add(QString(), QStringLiteral("round"));
  layer.NewObject<TSprite>();
  EXPECT_TRUE(window.GetFiles().SaveTo(layer, PathOf("round.mif")));
  QApplication::processEvents();
  EXPECT_TRUE(messages.GetText().contains(u"pictures of sprites, written as symbols: 1"));
}

TEST_F(EditorWindowTest, ExportsThePictureAsShownIfItCan) {
  Open({squares});
  EXPECT_TRUE(window.ExportPicture(PathOf("map.png")));
  EXPECT_TRUE(window.ExportPicture(PathOf("map.pdf")));
  EXPECT_TRUE(BytesOf(PathOf("map.pdf")).startsWith("%PDF"));
  const QImage picture(PathOf("map.png"));
  ASSERT_EQ(picture.size(), map.size());
  int x = 0;
  int y = 0;
  map.MapToScreen(1, 9, x, y, false);
  EXPECT_EQ(picture.pixel(x, y), qRgb(255, 0, 0));
  EXPECT_FALSE(window.ExportPicture(PathOf("none/map.png")));
  EXPECT_FALSE(window.GetFiles().SaveTo(*map.GetLayers()->First(), PathOf("copy.none")));
}

TEST(MessageBarTest, ShowsQueuedMessagesOneByOneAndEachOnceOnly) {
  QWidget window;
  MessageBar bar(&window);
  for (int i = 0; i < 1000; ++i) {
    bar.Post(QStringLiteral("again"));
    bar.Post(QString::number(i));
  }
  EXPECT_TRUE(bar.isHidden()) << "before the present event is done";
  QApplication::processEvents();
  EXPECT_EQ(bar.GetCount(), 100) << "no more than can be read";
  EXPECT_EQ(bar.GetText(), u"again");
  bar.findChild<QToolButton *>()->click();
  EXPECT_EQ(bar.GetText(), u"0");
  while (bar.GetCount() > 0) bar.Dismiss();
  EXPECT_TRUE(bar.isHidden());
}

TEST(FileFiltersTest, TurnsProviderFiltersIntoThoseOfQt) {
  const std::pair<const char *, const char16_t *> rows[] = {
      {"Maps|*.a", u"Maps (*.a)"},
      {"Maps (*.a)|*.a|Plans (*.b)|*.b;*.c", u"Maps (*.a);;Plans (*.b *.c)"},
      {"Maps (of old) (*.a)|*.a", u"Maps (of old) (*.a)"},
      {"Maps (*.a)|", u""}};
  for (const auto &[filter, names] : rows) {
    EXPECT_EQ(ToNameFilters(QString::fromLatin1(filter)).join(QStringLiteral(";;")), names) << filter;
  }
  EXPECT_EQ(ToCommonNameFilter({QStringLiteral("Maps (of old) (*.a *.b)"), QStringLiteral("Plans (*.b *.c)")}),
            u"All map files (*.a *.b *.c)");
}

}  // namespace
}  // namespace tessera::apps
