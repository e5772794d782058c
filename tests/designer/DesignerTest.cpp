// SPDX-License-Identifier: MIT
// Forms in the making, in the designer itself.
#include "DesignerFixture.h"

#include <tessera/base/MessageSink.h>
#include <tessera/form/TFormProviders.h>
#include <tessera/form/TFormTools.h>

#include <QAccessible>
#include <QCompleter>
#include <QDesignerMemberSheetExtension>
#include <QFile>
#include <QLineEdit>
#include <QTreeWidget>

namespace tessera::test {
namespace {

using DesignerTest = DesignerFixture;

QString operator""_s(const char16_t *text, std::size_t length) {
  return QString::fromUtf16(text, qsizetype(length));
}

TEST_F(DesignerTest, ShowsThePublishedPropertiesInTheirOrder) {
  const std::pair<QString, QString> cases[] = {
      {u"TTessera"_s,
       u"Options.DefaultTextFont Options.DefaultSymbolFont Options.DefaultSymbolShape Options.DefaultPenColor "
       "Options.DefaultPenStyle Options.DefaultPenWidth Options.DefaultBrush Options.DefaultBGColor Options.UseBGColor "
       "Color Zoom WheelMouse ZoomType CenterX CenterY MinZoom MaxZoom ShowSelection FastSelection Navigation.Keys "
       "Navigation.MiddleButton Navigation.Touch Navigation.WheelKeepsPlace Navigation.WheelAddsUp "
       "Painting.ShowSmallObjects Painting.ShowCutObjects Painting.PaintInSteps Painting.StepMs Snapping.ToVertices "
       "Snapping.ToIntersections Snapping.ToEdges Snapping.GridStep Snapping.ShiftConstrains Snapping.TolerancePx "
       "PickTolerancePx"_s},
      {u"TLayerControl"_s, u"Map Glyphs DrawVertLines DrawHorzLines"_s},
      {u"TLayersComboBox"_s, u"Map"_s},
      {u"TDataBrowser"_s, u"Map Layer ReadOnly"_s},
      {u"TObjectProperties"_s, u"Map ReadOnly"_s},
      {u"TScaleBar"_s, u"Map Transparent InPictures Corner Unit Geodetic MetresPerUnit MaxLengthPx"_s},
      {u"TMapLegend"_s, u"Map Transparent InPictures Corner MaxStyles"_s},
      {u"form::TCircleSelectionTool"_s, u"objectName Active DisplayName Cursor Tessera Within"_s},
      {u"form::TPolygonSelectionTool"_s, u"objectName Active DisplayName Cursor Tessera Within"_s},
      {u"form::TTextTool"_s, u"objectName Active DisplayName Cursor Tessera"_s},
      {u"form::TMeasureTool"_s, u"objectName Active DisplayName Cursor Tessera Unit Geodetic MetresPerUnit"_s},
      {u"form::TSimpleMIFFormatProvider"_s, u"objectName Default Enabled"_s},
      {u"form::TMapInfoFormatProvider"_s, u"objectName Default Enabled Charset"_s},
  };
  for (const auto &[className, expected] : cases) {
    Drop(className, u"one"_s);
    QDesignerPropertySheetExtension *sheet = SheetOf(Find(u"one"_s));
    QStringList shown;
    for (int i = 0; i < sheet->count(); ++i) {
      const QString group = sheet->propertyGroup(i);
      // A widget has all of its base class of Qt as well.
      const bool isOwn = className.startsWith(u"form::"_s) || group.startsWith(u"tessera::"_s) ||
                         sheet->propertyName(i).contains(u'.');
      if (isOwn && sheet->isVisible(i)) shown << sheet->propertyName(i);
      EXPECT_EQ(sheet->indexOf(sheet->propertyName(i)), i);
      EXPECT_EQ(group == u"Options"_s, sheet->propertyName(i).startsWith(u"Options."_s));
    }
    EXPECT_EQ(shown.join(u' ').toStdString(), expected.toStdString()) << className.toStdString();
    Select(u"one"_s);
    Run(Manager::DeleteAction);
  }
}

TEST_F(DesignerTest, OffersTheEventsInTheirOrder) {
  const std::pair<QString, std::string> cases[] = {
      {u"form::TPanTool"_s, "OnComplete OnCancel OnToolStateChanged SetActive"},
      {u"TTessera"_s,
       "OnAddLayer OnBeforeDelLayer OnMapToolChanged OnAfterDelLayer OnAddObject OnBeforeRemoveObject "
       "OnAfterRemoveObject OnAddSelection OnDelSelection OnDeleteObject OnStartProgress OnShowProgress OnStopProgress "
       "OnUpdate OnKeyDown OnKeyUp OnKeyPress OnMouseDown OnMouseUp OnMouseMove OnDblClick OnPaint OnScreenRepainted "
       "OnZoom"}};
  for (const auto &[className, expected] : cases) {
    Drop(className, u"one"_s);
    auto *members = qt_extension<QDesignerMemberSheetExtension *>(core->extensionManager(), Find(u"one"_s));
    ASSERT_NE(members, nullptr);
    QStringList offered;
    for (int i = 0; i < members->count(); ++i) {
      const bool isOwn = members->declaredInClass(i).startsWith(u"tessera::"_s);
      if (isOwn && members->isVisible(i)) offered << members->signature(i).section(u'(', 0, 0);
    }
    EXPECT_EQ(offered.join(u' ').toStdString(), expected);
    Select(u"one"_s);
    Run(Manager::DeleteAction);
  }
}

TEST_F(DesignerTest, SavesAFormAsItWas) {
  QFile file(QStringLiteral(TESSERA_FORM));
  ASSERT_TRUE(file.open(QIODevice::ReadOnly));
  const QString contents = QString::fromUtf8(file.readAll());
  form = OpenForm(contents);
  // Connections are the matter of another part of the designer.
  const auto withoutConnections = [](const QString &ui) { return ui.section(u"<resources/>"_s, 0, 0).toStdString(); };
  EXPECT_EQ(withoutConnections(form->contents()), withoutConnections(contents));
}

TEST_F(DesignerTest, LinksToTheOnlyMap) {
  Drop(u"form::TPanTool"_s, u"pan"_s);
  Drop(u"TLayerControl"_s, u"layers"_s);
  EXPECT_EQ(Links(), "layers: pan:");
  Drop(u"TTessera"_s, u"map"_s);
  EXPECT_EQ(Links(), "layers:map pan:map");
  Drop(u"TDataBrowser"_s, u"browser"_s);
  EXPECT_EQ(Links(), "browser:map layers:map pan:map");
  EXPECT_TRUE(form->contents().contains(u"<cstring>map</cstring>"_s));
  Drop(u"TTessera"_s, u"second"_s);
  Drop(u"form::TLineTool"_s, u"line"_s);
  EXPECT_EQ(Links(), "browser:map layers:map line: pan:map") << "none is set where there is a choice";
  const QString saved = form->contents();
  form = OpenForm(saved);
  EXPECT_EQ(Links(), "browser:map layers:map line: pan:map");
  EXPECT_EQ(form->contents().toStdString(), saved.toStdString());
  EXPECT_FALSE(form->isDirty());
}

TEST_F(DesignerTest, FollowsTheNameOfItsMap) {
  Drop(u"TTessera"_s, u"map"_s);
  Drop(u"form::TPanTool"_s, u"pan"_s);
  Set(u"map"_s, u"objectName"_s, u"world"_s);
  EXPECT_EQ(Links(), "pan:world");
  Run(Manager::UndoAction);
  EXPECT_EQ(Links(), "pan:map");
  Set(u"pan"_s, u"Tessera"_s, QByteArray());
  EXPECT_EQ(Links(), "pan:");
  const QString unlinked = form->contents();
  Run(Manager::UndoAction);
  EXPECT_EQ(Links(), "pan:map");
  form = OpenForm(unlinked);
  EXPECT_EQ(Links(), "pan:") << "a form stays as it was saved";
}

TEST_F(DesignerTest, TakesAnotherMapWhenItsMapIsDeleted) {
  Drop(u"TTessera"_s, u"map"_s);
  Drop(u"form::TPanTool"_s, u"pan"_s);
  Select(u"map"_s);
  Run(Manager::DeleteAction);
  EXPECT_EQ(Links(), "pan:map");
  Run(Manager::UndoAction);
  EXPECT_EQ(Links(), "pan:map");
  Run(Manager::RedoAction);
  Drop(u"TTessera"_s, u"other"_s);
  EXPECT_EQ(Links(), "pan:other");
  Run(Manager::UndoAction);
  Run(Manager::UndoAction);
  EXPECT_EQ(Links(), "pan:map");

  // One that comes under the name of a deleted or undone one takes its place, and its name is followed.
  Select(u"map"_s);
  Run(Manager::DeleteAction);
  Drop(u"TTessera"_s, u"map"_s);
  Set(u"map"_s, u"objectName"_s, u"renamed"_s);
  EXPECT_EQ(Links(), "pan:renamed");
  Run(Manager::UndoAction);
  Run(Manager::UndoAction);
  Drop(u"TTessera"_s, u"map"_s);
  Set(u"map"_s, u"objectName"_s, u"renamed"_s);
  EXPECT_EQ(Links(), "pan:renamed");
}

TEST_F(DesignerTest, CopiesATool) {
  Drop(u"TTessera"_s, u"map"_s);
  Drop(u"form::TSymbolTool"_s, u"symbol"_s);
  SheetOf(Find(u"symbol"_s))->setProperty(SheetOf(Find(u"symbol"_s))->indexOf(u"Active"_s), true);
  SheetOf(Find(u"symbol"_s))->setChanged(SheetOf(Find(u"symbol"_s))->indexOf(u"Active"_s), true);
  Select(u"symbol"_s);
  Run(Manager::CopyAction);
  Run(Manager::PasteAction);
  EXPECT_EQ(Links(), "symbol:map symbol_2:map");
  Run(Manager::UndoAction);
  EXPECT_EQ(Links(), "symbol:map");
}

TEST_F(DesignerTest, SavesTheOptionsOfAMap) {
  Drop(u"TTessera"_s, u"map"_s);
  const std::pair<QString, QVariant> values[] = {{u"Options.DefaultTextFont"_s, QFont(u"Serif"_s, 7)},
                                                 {u"Options.DefaultSymbolShape"_s, 35},
                                                 {u"Options.DefaultPenColor"_s, QColor(Qt::red)},
                                                 {u"Options.DefaultPenStyle"_s, QByteArray("DashLine")},
                                                 {u"Options.DefaultPenWidth"_s, 3},
                                                 {u"Options.DefaultBrush"_s, QBrush(Qt::green, Qt::CrossPattern)},
                                                 {u"Options.UseBGColor"_s, true},
                                                 {u"Navigation.Keys"_s, false}};
  for (const auto &[name, value] : values) Set(u"map"_s, name, value);
  Set(u"map"_s, u"Options.DefaultSymbolShape"_s, 36);
  Run(Manager::UndoAction);
  const QString saved = form->contents();
  EXPECT_EQ(saved.count(u"stdset=\"0\""_s), qsizetype(std::size(values))) << "else uic looks for setters";
  form = OpenForm(saved);
  auto *map = static_cast<TTessera *>(Find(u"map"_s));
  for (const auto &[name, value] : values) {
    const int index = SheetOf(map)->indexOf(name);
    EXPECT_EQ(SheetOf(map)->property(index), value) << name.toStdString();
    EXPECT_TRUE(SheetOf(map)->isChanged(index)) << name.toStdString();
  }
  EXPECT_EQ(map->GetOptions()->GetDefaultQPen(), QPen(Qt::red, 3, Qt::DashLine));
  EXPECT_EQ(form->contents().toStdString(), saved.toStdString());
  const int brush = SheetOf(map)->indexOf(u"Options.DefaultBrush"_s);
  EXPECT_TRUE(SheetOf(map)->reset(brush));
  EXPECT_EQ(map->GetOptions()->GetDefaultBrush(), TTesseraOptions().GetDefaultBrush());
  EXPECT_FALSE(SheetOf(map)->isChanged(brush));
  EXPECT_FALSE(form->contents().contains(u"DefaultBrush"_s));
}

TEST_F(DesignerTest, ShowsIconsOnTheFormButNotInAPreview) {
  Drop(u"TTessera"_s, u"map"_s);
  Drop(u"form::TPanTool"_s, u"pan"_s);
  Drop(u"form::TMapInfoFormatProvider"_s, u"provider"_s);
  Set(u"provider"_s, u"Default"_s, true);
  window->show();
  form->show();
  const QWidget *icon = Find(u"pan"_s);
  EXPECT_TRUE(icon->isVisible());
  EXPECT_FALSE(icon->size().isEmpty());
  core->formWindowManager()->showPreview();
  int seen = 0;
  for (QWidget *top : QApplication::topLevelWidgets()) {
    auto *pan = top == window.get() ? nullptr : top->findChild<form::TPanTool *>();
    if (pan == nullptr) continue;
    ++seen;
    EXPECT_TRUE(pan->isHidden());
    EXPECT_TRUE(pan->size().isEmpty());
    EXPECT_EQ(pan->Get()->GetTessera(), top->findChild<TTessera *>());
  }
  EXPECT_EQ(seen, 1);
  EXPECT_TRUE(static_cast<form::TFormProvider *>(Find(u"provider"_s))->GetDefault()) << "the preview has one too";
  core->formWindowManager()->closeAllPreviews();
}

TEST_F(DesignerTest, OffersTheMapsOfTheFormWhereALinkIsEdited) {
  Drop(u"TTessera"_s, u"first"_s);
  Drop(u"TTessera"_s, u"second"_s);
  Drop(u"form::TPanTool"_s, u"pan"_s);
  QDesignerPropertyEditorInterface *editor = core->propertyEditor();
  window->setCentralWidget(editor);
  window->show();
  QApplication::setActiveWindow(window.get());
  editor->setObject(Find(u"pan"_s));
  auto *tree = editor->findChild<QTreeWidget *>();
  ASSERT_NE(tree, nullptr);
  const QList<QTreeWidgetItem *> found = tree->findItems(u"Tessera"_s, Qt::MatchExactly | Qt::MatchRecursive);
  ASSERT_EQ(found.size(), 1);
  tree->setCurrentItem(found.first());
  tree->editItem(found.first(), 1);
  Settle();
  auto *field = qobject_cast<QLineEdit *>(QApplication::focusWidget());
  ASSERT_NE(field, nullptr);
  ASSERT_NE(field->completer(), nullptr);
  QStringList choices;
  for (int i = 0; i < field->completer()->model()->rowCount(); ++i) {
    choices << field->completer()->model()->index(i, 0).data().toString();
  }
  EXPECT_EQ(choices.join(u' ').toStdString(), "first second");
}

TEST_F(DesignerTest, LeavesTheProcessAsItIs) {
  QStringList messages;
  const TMessageSink before = SetDefaultMessageSink([&](const QString &text) { messages << text; });
  const int providers = FormatProviders->GetCount();
  Drop(u"TTessera"_s, u"map"_s);
  Drop(u"form::TSimpleMIFFormatProvider"_s, u"provider"_s);
  EXPECT_EQ(FormatProviders->GetCount(), providers);
  ShowMessage(u"one"_s);
  SetDefaultMessageSink(before);
  EXPECT_EQ(messages.join(u' '), u"one"_s);
  EXPECT_NE(QAccessible::queryAccessibleInterface(Find(u"map"_s))->role(), QAccessible::Canvas);
}

}  // namespace
}  // namespace tessera::test
