// SPDX-License-Identifier: MIT
// Drawing, selecting, deleting and saving with the editor, by hand as it were.
#include "../support/MapInput.h"
#include "EditorFixture.h"

#include <apps/editor/LayerDocks.h>
#include <apps/editor/MeasureLabel.h>
#include <apps/editor/NewLayerDialog.h>
#include <apps/editor/OptionsDialog.h>
#include <apps/editor/RecentFiles.h>
#include <apps/editor/UnitsMenu.h>
#include <icons/ThemedIcon.h>
#include <tessera/controls/LayerCtrl.h>
#include <tessera/controls/LayersComboBox.h>
#include <tessera/controls/TDataBrowser.h>
#include <tessera/controls/TObjectProperties.h>
#include <tessera/objects/ObjectMeasure.h>
#include <tessera/objects/TText.h>
#include <tessera/tools/TMeasureTool.h>

#include <QClipboard>
#include <QComboBox>
#include <QPainter>
#include <QSpinBox>
#include <QSvgRenderer>
#include <QTableView>
#include <QTableWidget>
#include <QTest>
#include <QUndoStack>

namespace tessera::apps {
namespace {

using test::MapFileNamed;
using Unsaved = FileQuestions::Unsaved;

class EditorEditingTest : public EditorFixture {
 protected:
  EditorEditingTest() {
    map.ShowBounds({0, 0, 40, 30});
    window.GetFiles().Questions().aboutUnsaved = [this](const TMapLayer &layer) {
      asked << layer.GetName();
      return answer;
    };
    window.GetFiles().Questions().whereToSave = [this](const TMapLayer &) { return whereToSave; };
  }
  TMapLayer *AddLayer() {
    TDataFields fields;
    fields.Add(QStringLiteral("Name"), TDataType::dtString, 20);
    return window.AddLayer(QStringLiteral("drawn"), fields);
  }
  /// Chooses a tool as the tool bar does.
  void Use(int number) {
    window.GetTools().GetActions().at(number)->trigger();
    QApplication::processEvents();
  }
  void DrawOneOfEachKind() {
    Use(4);
    input.Drag({50, 50}, {150, 90});
    Use(5);
    input.Click({200, 60});
    input.Click({250, 90});
    input.DoubleClick({300, 60});
    Use(6);
    input.Drag({50, 150}, {150, 220});
    Use(7);
    input.Click({200, 150});
    input.Click({290, 150});
    input.DoubleClick({250, 220});
    Use(8);
    input.Click({400, 200});
    Use(9);
    input.Click({350, 60});
    Use(10);
    input.Click({60, 300});
    input.Type(QStringLiteral("Река 1"));
    input.Key(Qt::Key_Return);
    Use(0);
  }
  QAction *ActionNamed(const char *text) {
    for (QAction *action : window.findChildren<QAction *>()) {
      if (action->text() == QLatin1String(text)) return action;
    }
    return nullptr;
  }

  test::MapInput input{map};
  QStringList asked;
  Unsaved answer = Unsaved::Cancel;
  QString whereToSave = PathOf("drawn.mif");
};

TEST_F(EditorEditingTest, ChangesPropertiesOfSelectedObjectsAsStepsThatCanBeUndone) {
  const auto *panel = window.findChild<TObjectProperties *>();
  ASSERT_NE(panel, nullptr);
  AddLayer();
  Use(6);
  input.Drag({50, 150}, {150, 220});
  TCustomMapObject &drawn = *map.GetLayers()->Last()->Last();
  drawn.Select();
  QApplication::processEvents();
  const int steps = window.GetUndoStack().count();
  QAbstractItemModel &properties = *panel->GetView()->model();
  const auto widths = properties.match(properties.index(0, 0), Qt::DisplayRole, QStringLiteral("Line width"));
  ASSERT_EQ(widths.size(), 1);
  EXPECT_TRUE(properties.setData(widths.front().siblingAtColumn(1), 5));
  EXPECT_EQ(drawn.GetPen().GetWidth(), 5);
  EXPECT_EQ(window.GetUndoStack().count(), steps + 1);
  EXPECT_TRUE(window.isWindowModified());
}

TEST_F(EditorEditingTest, TellsTheSizeOfWhatIsDrawnMeasuredAndSelected) {
  const MeasureLabel &sizes = window.GetStatusPanel().GetMeasureLabel();
  TMapMeasure plain;
  window.GetUnits().SetMeasure(plain);
  AddLayer();
  const auto sizeOf = [&](const QPoint &a, const QPoint &b, const QPoint &c, bool hasArea) {
    std::vector<TMapPoint> line;
    for (const QPoint &pixel : {a, b, c}) line.push_back(map.GetViewport().ScreenToMap(pixel.x(), pixel.y()));
    return TextOfOutline(line, plain, hasArea);
  };
  const QPoint corners[] = {{200, 60}, {250, 90}, {300, 60}};
  const int measuring = int(window.GetTools().GetActions().size()) - 1;
  const std::pair<int, bool> tools[] = {{5, false}, {7, true}, {measuring, true}};
  for (const auto &[tool, hasArea] : tools) {
    Use(tool);
    input.Click(corners[0]);
    input.Click(corners[1]);
    input.MoveTo(corners[2], Qt::NoButton);
    EXPECT_EQ(sizes.text(), sizeOf(corners[0], corners[1], corners[2], hasArea)) << tool;
    input.Key(Qt::Key_Escape);
    EXPECT_EQ(sizes.text(), QString());
  }
  input.Click(corners[0]);
  input.DoubleClick(corners[1]);
  EXPECT_FALSE(sizes.text().isEmpty()) << "what was measured stays";
  Use(6);
  input.Drag({50, 150}, {150, 220});
  map.GetLayers()->Last()->Last()->Select();
  QApplication::processEvents();
  const TObjectSize size = MeasureObject(*map.GetLayers()->Last()->Last(), plain);
  EXPECT_EQ(sizes.text(), plain.LengthText(size.length) + QStringLiteral(", ") + plain.AreaText(size.area));
  TMapMeasure metres;
  metres.Unit = TMapMeasure::muMetre;
  window.GetUnits().SetMeasure(metres);
  EXPECT_TRUE(sizes.text().endsWith(u" m²"));
  map.GetSelection()->Clear();
  QApplication::processEvents();
  EXPECT_EQ(sizes.text(), QString());
}

TEST_F(EditorEditingTest, DrawsOneOfEachKindSavesAndOpensThemAgain) {
  for (int tool : {4, 10}) EXPECT_FALSE(window.GetTools().GetActions().at(tool)->isEnabled()) << "nothing to draw into";
  TMapLayer *layer = AddLayer();
  QApplication::processEvents();
  EXPECT_EQ(window.GetStatusPanel().GetEditing(), QStringLiteral("Editing drawn"));
  DrawOneOfEachKind();
  ASSERT_EQ(layer->GetObjectCount(), 7);
  EXPECT_TRUE(window.GetFiles().GetUnsaved().Has(*layer));
  ActionNamed("&Save layer")->trigger();
  QApplication::processEvents();
  EXPECT_TRUE(messages.GetText().contains(QStringLiteral("drawn.mif: lost: "))) << messages.GetText().toStdString();
  EXPECT_FALSE(window.GetFiles().GetUnsaved().Has(*layer));

  ActionNamed("&Close layer")->trigger();
  EXPECT_EQ(map.GetLayers()->GetCount(), 0);
  map.ShowBounds({0, 0, 40, 30});
  Open({whereToSave});
  ASSERT_EQ(map.GetLayers()->GetCount(), 1);
  const TMapLayer &opened = *map.GetLayers()->First();
  ASSERT_EQ(opened.GetObjectCount(), 7);
  const auto *text = dynamic_cast<const TText *>(opened.Last());
  ASSERT_NE(text, nullptr);
  EXPECT_EQ(text->GetText(), QStringLiteral("Река 1"));
  EXPECT_EQ(opened.GetFields().GetFields(0).GetName(), QStringLiteral("Name"));
  EXPECT_EQ(asked, QStringList());
  EXPECT_EQ(window.findChild<RecentFiles *>()->GetFiles(), QStringList{whereToSave});
}

TEST_F(EditorEditingTest, DeletesTheSelectedObjectsOfTheEditableLayerOnly) {
  Open({MapFileNamed("squares.mif")});
  EXPECT_EQ(window.GetCurrentLayer(), map.GetLayers()->First());
  TMapLayer *squares = map.GetLayers()->First();
  const int before = squares->GetObjectCount();
  TMapLayer *layer = AddLayer();
  DrawOneOfEachKind();
  map.GetSelection()->Add(layer->First(), true);
  map.GetSelection()->Add(squares->First(), false);
  QApplication::processEvents();
  EXPECT_EQ(window.GetStatusPanel().GetSelection(), QStringLiteral("Selected: 2"));
  EXPECT_EQ(window.GetCurrentLayer(), layer) << "the one that came last";
  input.Key(Qt::Key_Delete);
  QApplication::processEvents();
  EXPECT_EQ(layer->GetObjectCount(), 6);
  EXPECT_EQ(squares->GetObjectCount(), before);
  EXPECT_TRUE(messages.GetText().contains(QStringLiteral("not editable")));
  Use(10);
  input.Click({60, 300});
  input.Type(QStringLiteral("ab"));
  input.Key(Qt::Key_Home);
  map.GetSelection()->Add(layer->First(), true);
  input.Key(Qt::Key_Delete);
  EXPECT_EQ(layer->GetObjectCount(), 6) << "the key is the text's";
}

TEST_F(EditorEditingTest, UndoesAndKnowsWhatIsSaved) {
  TMapLayer *layer = AddLayer();
  DrawOneOfEachKind();
  whereToSave = PathOf("undone.mif");
  EXPECT_TRUE(window.GetFiles().Save(*layer));
  EXPECT_FALSE(window.isWindowModified());
  map.GetSelection()->Add(layer->First(), true);
  window.DeleteSelected();
  EXPECT_TRUE(window.isWindowModified());
  ActionNamed("&Undo delete objects (1)")->trigger();
  EXPECT_EQ(layer->GetObjectCount(), 7);
  EXPECT_EQ(map.GetSelection()->Items().size(), 1U);
  EXPECT_FALSE(window.isWindowModified()) << "as it was saved";
  ActionNamed("&Undo add object")->trigger();
  EXPECT_TRUE(window.isWindowModified());

  answer = Unsaved::Discard;
  EXPECT_TRUE(window.GetFiles().Close(*layer));
  EXPECT_FALSE(window.isWindowModified());
  window.GetUndoStack().undo();
  EXPECT_EQ(window.GetCurrentLayer(), layer);
  EXPECT_TRUE(window.isWindowModified()) << "it came back with its changes";
  while (window.GetUndoStack().canUndo()) window.GetUndoStack().undo();
  EXPECT_EQ(map.GetLayers()->GetCount(), 0);
}

TEST_F(EditorEditingTest, CutsCopiesPastesAndReordersTheSelectedObjects) {
  TMapLayer *layer = AddLayer();
  DrawOneOfEachKind();
  TCustomMapObject *first = layer->First();
  const auto trigger = [&](const char *action) {
    ActionNamed(action)->trigger();
    return layer->GetObjectCount();
  };
  EXPECT_EQ(trigger("Cu&t objects"), 7) << "nothing is selected";
  first->Select();
  EXPECT_EQ(trigger("&Copy objects"), 7);
  EXPECT_EQ(trigger("&Paste objects"), 8);
  EXPECT_EQ(layer->Last()->GetBounds(), first->GetBounds());
  EXPECT_TRUE(layer->Last()->GetSelected());
  EXPECT_EQ(trigger("Dup&licate objects"), 9);
  EXPECT_GT(layer->Last()->GetBounds().MinX, first->GetBounds().MinX);
  EXPECT_EQ(trigger("Cu&t objects"), 8);
  first->Select();
  trigger("Bring to &front");
  EXPECT_EQ(layer->Last(), first);
  trigger("Send to &back");
  EXPECT_EQ(layer->First(), first);
  layer->SetEditable(false);
  EXPECT_EQ(trigger("Cu&t objects"), 8);
  EXPECT_EQ(trigger("&Paste objects"), 8);
  QApplication::processEvents();
  messages.Dismiss();
  EXPECT_TRUE(messages.GetText().contains(QStringLiteral("no editable layer"))) << messages.GetText().toStdString();
  EXPECT_EQ(window.GetUndoStack().undoText(), QStringLiteral("send objects to the back (1)"));
}

TEST_F(EditorEditingTest, SplitsALineAtTheVertexThatWasTouchedAndJoinsItAgain) {
  constexpr int PolylineTool = 5;
  constexpr int VertexTool = 16;
  TMapLayer *layer = AddLayer();
  Use(PolylineTool);
  input.Click({200, 60});
  input.Click({250, 90});
  input.DoubleClick({300, 60});
  layer->First()->Select();
  Use(VertexTool);
  ActionNamed("&Split line at vertex")->trigger();
  QApplication::processEvents();
  EXPECT_EQ(layer->GetObjectCount(), 1);
  EXPECT_TRUE(messages.GetText().contains(QStringLiteral("vertex tool")));
  input.Click({250, 90});
  ActionNamed("&Split line at vertex")->trigger();
  ASSERT_EQ(layer->GetObjectCount(), 2);
  map.GetSelection()->Add(layer->First(), true);
  map.GetSelection()->Add(layer->Last(), false);
  ActionNamed("&Join lines")->trigger();
  EXPECT_EQ(layer->GetObjectCount(), 1);
  EXPECT_EQ(layer->First()->GetParts().GetFirst().GetPoints().GetCount(), 3);
}

TEST_F(EditorEditingTest, ChoosesTheEditableLayerAndShowsTheAttributesOfTheChosenOne) {
  Open({MapFileNamed("squares.mif"), MapFileNamed("cover.mif")});
  auto *choice = window.findChild<TLayersComboBox *>();
  auto *list = window.findChild<TLayerControl *>();
  auto *browser = window.findChild<TDataBrowser *>();
  EXPECT_EQ(choice->currentIndex(), -1);
  EXPECT_EQ(browser->GetLayer(), map.GetLayers()->Last());
  map.GetLayers()->Move(0, 1);
  QApplication::processEvents();
  choice->setCurrentIndex(0);
  Q_EMIT choice->activated(0);
  EXPECT_EQ(map.GetLayers()->GetEditableLayer()->GetName(), QStringLiteral("squares")) << "as the choice says";
  map.GetLayers()->First()->SetEditable(true);
  QApplication::processEvents();
  EXPECT_EQ(choice->currentText(), QStringLiteral("cover"));
  list->SetItemIndex(1);
  EXPECT_EQ(window.GetCurrentLayer()->GetName(), QStringLiteral("squares"));
  EXPECT_EQ(browser->GetLayer(), window.GetCurrentLayer());
}

TEST_F(EditorEditingTest, TakesTheDeleteKeyAsWhatHasTheFocusMeansIt) {
  Open({MapFileNamed("cover.mif")});
  TMapLayer &layer = *AddLayer();
  Use(4);
  input.Drag({50, 50}, {150, 90});
  auto *list = window.findChild<TLayerControl *>();
  list->SetItemIndex(1);
  TCustomMapObject &line = *layer.First();
  line.GetFields().GetFields(0).SetAsString(QStringLiteral("Oak Street"));
  line.Select();
  QApplication::processEvents();
  window.GetDocks().GetActions().at(1)->trigger();
  QTableView &grid = *window.findChild<TDataBrowser *>()->GetView();
  ASSERT_TRUE(grid.isVisible());
  const auto press = [](QWidget &panel) {
    panel.setFocus();
    QTest::keyClick(&panel, Qt::Key_Delete);
    QApplication::processEvents();
  };
  grid.setCurrentIndex(grid.model()->index(0, grid.model()->columnCount() - 1));
  press(grid);
  EXPECT_EQ(line.GetFields().GetFields(0).GetAsString(), QString());
  list->SetItemIndex(0);
  press(*list);
  ASSERT_EQ(map.GetLayers()->GetCount(), 1);
  EXPECT_EQ(map.GetLayers()->First(), &layer);
  EXPECT_EQ(layer.GetObjectCount(), 1);
  press(map);
  EXPECT_EQ(layer.GetObjectCount(), 0);
}

TEST_F(EditorEditingTest, AsksBeforeUnsavedChangesAreLost) {
  TMapLayer *layer = AddLayer();
  DrawOneOfEachKind();
  EXPECT_FALSE(window.close());
  ActionNamed("&Close layer")->trigger();
  EXPECT_EQ(asked, (QStringList{QStringLiteral("drawn"), QStringLiteral("drawn")}));
  EXPECT_EQ(map.GetLayers()->GetCount(), 1);
  answer = Unsaved::Save;
  whereToSave.clear();
  EXPECT_FALSE(window.close()) << "it was not said where to";
  whereToSave = PathOf("drawn.mif");
  EXPECT_TRUE(window.close());
  EXPECT_TRUE(QFile::exists(whereToSave));
  asked.clear();
  window.show();
  EXPECT_TRUE(window.close()) << "everything is saved";
  layer->First()->SetPen(TPen());
  answer = Unsaved::Discard;
  window.show();
  EXPECT_TRUE(window.close());
  EXPECT_EQ(asked, QStringList{QStringLiteral("drawn")}) << "a new pen is a change";
}

TEST_F(EditorEditingTest, TakesOverWhatTheDialogsSay) {
  NewLayerDialog dialog;
  auto *table = dialog.findChild<QTableWidget *>();
  dialog.AddRow();
  dialog.AddRow();
  table->item(1, 0)->setText(QStringLiteral("Built"));
  auto *type = qobject_cast<QComboBox *>(table->cellWidget(1, 1));
  type->setCurrentIndex(type->findText(QStringLiteral("Date")));
  TDataFields fields;
  dialog.AddFieldsTo(fields);
  ASSERT_EQ(fields.GetCount(), 2) << "a row without a name is none";
  EXPECT_EQ(fields.GetFields(1).GetDataType(), TDataType::dtDate);

  OptionsDialog options(*map.GetOptions());
  for (QSpinBox *box : options.findChildren<QSpinBox *>()) {
    if (box->suffix() == QStringLiteral(" px")) box->setValue(7);
  }
  options.accept();
  EXPECT_EQ(map.GetOptions()->GetDefaultPen().GetWidth(), 7);
  EXPECT_EQ(map.GetOptions()->GetDefaultSymbolShape(), 58);
  EXPECT_EQ(map.GetOptions()->GetDefaultTextFont(), TTesseraOptions().GetDefaultTextFont());
}

TEST_F(EditorEditingTest, HasAnIconAndATipForEachEntryThatWorksOnObjectsOrSnaps) {
  std::vector<QImage> seen{QImage(24, 24, QImage::Format_ARGB32_Premultiplied)};
  seen[0].fill(Qt::transparent);
  for (const QMenu *menu : window.findChildren<QMenu *>()) {
    if (menu->title() != QStringLiteral("&Object") && menu->title() != QStringLiteral("Snap to")) continue;
    for (const QAction *action : menu->actions()) {
      if (action->isSeparator()) continue;
      EXPECT_FALSE(action->statusTip().isEmpty()) << action->text().toStdString();
      const QImage icon = action->icon().pixmap(24).toImage().convertToFormat(seen[0].format());
      EXPECT_EQ(std::ranges::count(seen, icon), 0) << action->text().toStdString();
      seen.push_back(icon);
    }
  }
  EXPECT_EQ(seen.size(), 1 + 9 + 4);
}

TEST(ThemedIconTest, TakesTheTextColourOfTheTheme) {
  const QPalette before = QGuiApplication::palette();
  const QIcon icon = ThemedIcon(QStringLiteral("select"));
  for (const QColor &color : {QColor(Qt::white), QColor(Qt::darkRed)}) {
    QPalette theme = before;
    theme.setColor(QPalette::WindowText, color);
    QGuiApplication::setPalette(theme);
    EXPECT_EQ(icon.pixmap(96).toImage().pixelColor(33, 36), color) << "inside the arrow";
  }
  QGuiApplication::setPalette(before);
}

TEST_F(EditorEditingTest, ExportsADrawingThatLooksLikeThePicture) {
  AddLayer();
  map.GetOptions()->SetDefaultBrush(TBrush::FromQBrush(Qt::green));
  DrawOneOfEachKind();
  EXPECT_TRUE(window.ExportPicture(PathOf("map.png")));
  EXPECT_TRUE(window.ExportPicture(PathOf("map.svg")));
  const QImage picture = QImage(PathOf("map.png")).convertToFormat(QImage::Format_RGB32);
  QImage drawing(picture.size(), QImage::Format_RGB32);
  drawing.fill(Qt::white);
  QPainter painter(&drawing);
  QSvgRenderer(PathOf("map.svg")).render(&painter);
  for (const QPoint &at : {QPoint(100, 180), QPoint(245, 170), QPoint(20, 20)}) {
    EXPECT_EQ(drawing.pixel(at), picture.pixel(at)) << at.x();
  }
  const auto inkIn = [](const QImage &image, const QRect &rect) {
    int ink = 0;
    for (int y = rect.top(); y <= rect.bottom(); ++y) {
      for (int x = rect.left(); x <= rect.right(); ++x) ink += image.pixel(x, y) != qRgb(255, 255, 255);
    }
    return ink;
  };
  // A line, a symbol, a text.
  for (const QRect &rect : {QRect(60, 40, 80, 60), QRect(335, 45, 30, 30), QRect(60, 280, 90, 20)}) {
    EXPECT_GT(inkIn(drawing, rect), inkIn(picture, rect) / 2);
    EXPECT_LT(inkIn(drawing, rect), inkIn(picture, rect) * 3) << "softened edges are broader";
  }
  window.CopyPicture();
  EXPECT_EQ(QApplication::clipboard()->image().size(), picture.size());
}

}  // namespace
}  // namespace tessera::apps
