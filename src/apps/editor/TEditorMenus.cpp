// SPDX-License-Identifier: MIT
// The menus and tool bars of the editor's window.
#include <apps/editor/EditorTools.h>
#include <apps/editor/FindBar.h>
#include <apps/editor/HelpWindow.h>
#include <apps/editor/Language.h>
#include <apps/editor/LayerDocks.h>
#include <apps/editor/LayerFiles.h>
#include <apps/editor/MapDecorations.h>
#include <apps/editor/MapPrinting.h>
#include <apps/editor/MessageBar.h>
#include <apps/editor/RecentFiles.h>
#include <apps/editor/SampleMap.h>
#include <apps/editor/StatusPanel.h>
#include <apps/editor/TEditorWindow.h>
#include <apps/editor/UnitsMenu.h>
#include <icons/ThemedIcon.h>
#include <tessera/base/GuardedCall.h>
#include <tessera/editing/TMapEdits.h>
#include <tessera/editing/TObjectClipboard.h>

#include <QActionGroup>
#include <QClipboard>
#include <QGuiApplication>
#include <QMenuBar>
#include <QMessageBox>
#include <QToolBar>
#include <QUndoStack>

namespace tessera::apps {
namespace {

QIcon Icon(const char *name) {
  return ThemedIcon(QString::fromLatin1(name));
}

QKeySequence WithCtrl(Qt::Key key) {
  return QKeyCombination(Qt::CTRL, key);
}
QKeySequence WithCtrlShift(Qt::Key key) {
  return QKeyCombination(Qt::CTRL | Qt::SHIFT, key);
}

/// In one window, however often it is asked for.
void ShowHelp(QWidget &editor) {
  auto *help = editor.findChild<HelpWindow *>();
  if (help == nullptr) help = new HelpWindow(editor.locale(), &editor);
  help->show();
  help->raise();
  help->activateWindow();
}

struct WheelMode {
  const char *text;
  bool keepsPlace;
  TTessera::TWheelMouseZoomType type;
};
constexpr int DuplicateShiftPx = 10;

struct SnapRow {
  const char *icon;
  const char *text;
  const char *tip;
  void (TMapSnapping::*set)(bool isOn);
};
constexpr SnapRow SnapRows[] = {
    {"snap-vertices", QT_TRANSLATE_NOOP("tessera::apps::TEditorWindow", "&Vertices"),
     QT_TRANSLATE_NOOP("tessera::apps::TEditorWindow",
                       "What is drawn, moved and reshaped goes to vertices near the mouse"),
     &TMapSnapping::SetToVertices},
    {"snap-intersections", QT_TRANSLATE_NOOP("tessera::apps::TEditorWindow", "&Intersections"),
     QT_TRANSLATE_NOOP("tessera::apps::TEditorWindow",
                       "What is drawn, moved and reshaped goes to where edges near the mouse cross"),
     &TMapSnapping::SetToIntersections},
    {"snap-edges", QT_TRANSLATE_NOOP("tessera::apps::TEditorWindow", "&Edges"),
     QT_TRANSLATE_NOOP("tessera::apps::TEditorWindow",
                       "What is drawn, moved and reshaped goes to edges near the mouse"),
     &TMapSnapping::SetToEdges},
};

struct AlignmentRow {
  const char *icon;
  const char *text;
  const char *tip;
  TMapAlignment alignment;
};

constexpr WheelMode WheelModes[] = {
    {QT_TRANSLATE_NOOP("tessera::apps::TEditorWindow", "The place under the &pointer"), true, TTessera::wmCenter},
    {QT_TRANSLATE_NOOP("tessera::apps::TEditorWindow", "The &middle of the view"), false, TTessera::wmCenter},
    {QT_TRANSLATE_NOOP("tessera::apps::TEditorWindow", "The first &selected object"), false, TTessera::wmSelected},
};
constexpr AlignmentRow Alignments[] = {
    {"align-left", QT_TRANSLATE_NOOP("tessera::apps::TEditorWindow", "Align &left"),
     QT_TRANSLATE_NOOP("tessera::apps::TEditorWindow",
                       "Moves the selected objects to the left of what they take up together"),
     TMapAlignment::Left},
    {"align-right", QT_TRANSLATE_NOOP("tessera::apps::TEditorWindow", "Align &right"),
     QT_TRANSLATE_NOOP("tessera::apps::TEditorWindow",
                       "Moves the selected objects to the right of what they take up together"),
     TMapAlignment::Right},
    {"align-top", QT_TRANSLATE_NOOP("tessera::apps::TEditorWindow", "Align &top"),
     QT_TRANSLATE_NOOP("tessera::apps::TEditorWindow",
                       "Moves the selected objects to the top of what they take up together"),
     TMapAlignment::Top},
    {"align-bottom", QT_TRANSLATE_NOOP("tessera::apps::TEditorWindow", "Align &bottom"),
     QT_TRANSLATE_NOOP("tessera::apps::TEditorWindow",
                       "Moves the selected objects to the bottom of what they take up together"),
     TMapAlignment::Bottom},
    {"center-horizontally", QT_TRANSLATE_NOOP("tessera::apps::TEditorWindow", "Center &horizontally"),
     QT_TRANSLATE_NOOP("tessera::apps::TEditorWindow",
                       "Moves the selected objects left and right, until their middles lie one above the other"),
     TMapAlignment::CentersX},
    {"center-vertically", QT_TRANSLATE_NOOP("tessera::apps::TEditorWindow", "Center &vertically"),
     QT_TRANSLATE_NOOP("tessera::apps::TEditorWindow",
                       "Moves the selected objects up and down, until their middles lie side by side"),
     TMapAlignment::CentersY},
};

void Describe(QAction &action, const char *icon, const QString &tip) {
  action.setIcon(Icon(icon));
  action.setStatusTip(tip);
}

}  // namespace

void TEditorWindow::MakeMenus() {
  // Shortcuts have a modifier: plain keys belong to the map.
  MakeFileMenu();
  MakeEditMenu();
  MakeObjectMenu();
  MakeViewMenu();
  MakeLayerMenu();
  MakeToolMenu();
  MakeHelpMenu();
}

void TEditorWindow::MakeFileMenu() {
  QMenu *menu = menuBar()->addMenu(tr("&File"));
  QToolBar *bar = addToolBar(tr("Files"));
  bar->setObjectName(QStringLiteral("files"));
  bar->addAction(
      menu->addAction(Icon("new-layer"), tr("&New layer…"), QKeySequence::New, this, &TEditorWindow::AskForNewLayer));
  bar->addAction(
      menu->addAction(Icon("open"), tr("&Open…"), QKeySequence::Open, m_files, &LayerFiles::AskForFilesToOpen));
  menu->addMenu(m_recent);
  menu->addSeparator();
  bar->addAction(menu->addAction(Icon("save"), tr("&Save layer"), QKeySequence::Save, this,
                                 [this] { WithLayer([this](TMapLayer &layer) { m_files->Save(layer); }); }));
  menu->addAction(tr("Save layer &as…"), WithCtrlShift(Qt::Key_S), this,
                  [this] { WithLayer([this](TMapLayer &layer) { m_files->SaveAs(layer); }); });
  menu->addAction(tr("&Close layer"), QKeySequence::Close, this,
                  [this] { WithLayer([this](TMapLayer &layer) { m_files->Close(layer); }); });
  menu->addSeparator();
  menu->addAction(tr("&Export picture…"), WithCtrl(Qt::Key_E), this, &TEditorWindow::AskWhereToExportPicture);
  menu->addAction(tr("Print pre&view…"), this, [this] { PreviewPrint(*m_map, this); });
  menu->addAction(tr("&Print…"), QKeySequence::Print, this, [this] { AskAndPrint(*m_map, this); });
  menu->addSeparator();
  menu->addAction(tr("&Quit"), WithCtrl(Qt::Key_Q), this, &QWidget::close);
}

void TEditorWindow::MakeEditMenu() {
  QMenu *menu = menuBar()->addMenu(tr("&Edit"));
  QAction *undo = m_undoStack->createUndoAction(this, tr("&Undo"));
  QAction *redo = m_undoStack->createRedoAction(this, tr("&Redo"));
  undo->setShortcuts(QKeySequence::Undo);
  redo->setShortcuts(QKeySequence::Redo);
  menu->addActions({undo, redo});
  menu->addSeparator();
  AddObjectAction(*menu, tr("Cu&t objects"), QKeySequence::Cut, [this] {
    const auto cut = TakeEditableSelection();
    if (cut.empty()) return;
    QGuiApplication::clipboard()->setMimeData(ObjectsToMimeData(cut).release());
    TMapEdits(m_map).DeleteObjects(cut);
  });
  AddObjectAction(*menu, tr("&Copy objects"), QKeySequence::Copy, [this] { Copy(); });
  AddObjectAction(*menu, tr("&Paste objects"), QKeySequence::Paste, [this] { Paste(); });
  AddObjectAction(*menu, tr("Dup&licate objects"), WithCtrlShift(Qt::Key_D), [this] {
    const TMapPoint from{m_map->GetCenterX(), m_map->GetCenterY()};
    const TMapPoint to = m_map->GetViewport().MovedByPixels(from, DuplicateShiftPx, DuplicateShiftPx);
    TMapEdits(m_map).DuplicateObjects(TakeEditableSelection(), to.X - from.X, to.Y - from.Y);
  });
  menu->addSeparator();
  AddObjectAction(*menu, tr("Bring to &front"), WithCtrlShift(Qt::Key_PageUp),
                  [this] { TMapEdits(m_map).BringToFront(TakeEditableSelection()); });
  AddObjectAction(*menu, tr("Send to &back"), WithCtrlShift(Qt::Key_PageDown),
                  [this] { TMapEdits(m_map).SendToBack(TakeEditableSelection()); });
  menu->addSeparator();
  AddObjectAction(*menu, tr("&Delete selected objects"), QKeySequence::Delete, [this] {
    DeleteSelected();
  }).setIcon(Icon("delete"));
  menu->addAction(tr("Select &nothing"), WithCtrlShift(Qt::Key_A), this, [this] { m_map->GetSelection()->Clear(); });
  menu->addAction(tr("Copy p&icture"), WithCtrlShift(Qt::Key_C), this, &TEditorWindow::CopyPicture);
  menu->addSeparator();
  menu->addAction(tr("Fi&nd…"), QKeySequence::Find, m_findBar, &FindBar::Open);
  menu->addSeparator();
  menu->addAction(tr("New &objects…"), this, &TEditorWindow::AskForOptions);
}

void TEditorWindow::MakeObjectMenu() {
  QMenu *menu = menuBar()->addMenu(tr("&Object"));
  Describe(AddObjectAction(*menu, tr("&Split line at vertex"), WithCtrlShift(Qt::Key_X), [this] { SplitAtVertex(); }),
           "split-line", tr("Splits the line at the vertex that the vertex tool has touched last"));
  QAction &join = AddObjectAction(*menu, tr("&Join lines"), WithCtrlShift(Qt::Key_J), [this] {
    const auto lines = TakeEditableSelection();
    if (TMapEdits(m_map).JoinLines(lines) == 0) m_messageBar->Post(tr("No ends of selected lines meet."));
  });
  Describe(join, "join-lines", tr("Joins the selected lines whose ends meet"));
  Describe(AddObjectAction(*menu, tr("Re&verse lines"), {},
                           [this] { TMapEdits(m_map).ReverseLines(TakeEditableSelection()); }),
           "reverse-lines", tr("Reverses the direction of the selected lines"));
  menu->addSeparator();
  for (const AlignmentRow &row : Alignments) {
    QAction &align = AddObjectAction(*menu, tr(row.text), {}, [this, alignment = row.alignment] {
      TMapEdits(m_map).AlignObjects(TakeEditableSelection(), alignment);
    });
    Describe(align, row.icon, tr(row.tip));
  }
}

QAction &TEditorWindow::AddObjectAction(QMenu &menu, const QString &text, const QKeySequence &key,
                                        const std::function<void()> &run) {
  QAction *action = menu.addAction(text);
  action->setShortcut(key);
  // In the panels the keys mean their text, cells and rows.
  action->setShortcutContext(Qt::WidgetWithChildrenShortcut);
  m_map->addAction(action);
  connect(action, &QAction::triggered, m_map, [run] { GuardedCall(run); });
  return *action;
}

void TEditorWindow::MakeViewMenu() {
  QMenu *menu = menuBar()->addMenu(tr("&View"));
  menu->addAction(Icon("fit-all"), tr("Fit &all"), WithCtrl(Qt::Key_0), this, [this] { m_map->ShowAll(); });
  menu->addAction(tr("Fit &layer"), WithCtrl(Qt::Key_L), this,
                  [this] { WithLayer([this](const TMapLayer &layer) { m_map->ShowLayer(layer); }); });
  menu->addAction(tr("Fit &selection"), WithCtrl(Qt::Key_J), this, [this] { m_map->GetSelection()->Zoom(); });
  menu->addSeparator();
  menu->addAction(tr("&Rotate…"), WithCtrl(Qt::Key_R), this, &TEditorWindow::AskForRotation);
  menu->addAction(tr("Rotate &back"), WithCtrlShift(Qt::Key_R), this, [this] {
    m_map->UnRotate();
    m_map->DoUpdate(true);
  });
  menu->addSeparator();
  MakeWheelMenu(*menu);
  menu->addMenu(m_units);
  menu->addActions(m_decorations->GetActions());
  menu->addActions(m_docks->GetActions());
}

void TEditorWindow::MakeWheelMenu(QMenu &view) {
  QMenu *menu = view.addMenu(tr("The &wheel keeps"));
  auto *group = new QActionGroup(menu);
  for (const WheelMode &mode : WheelModes) {
    QAction *action = group->addAction(menu->addAction(tr(mode.text)));
    action->setCheckable(true);
    connect(action, &QAction::triggered, m_map, [this, &mode] {
      m_map->GetNavigation()->SetWheelKeepsPlace(mode.keepsPlace);
      m_map->SetZoomType(mode.type);
    });
  }
  group->actions().first()->setChecked(true);
}

void TEditorWindow::MakeLayerMenu() {
  QMenu *menu = menuBar()->addMenu(tr("&Layer"));
  menu->addAction(tr("Edit or &stop editing"), WithCtrl(Qt::Key_D), this, [this] {
    ChangeLayer(tr("edit layer"), [](TMapLayer &layer) { layer.SetEditable(!layer.GetEditable()); });
  });
  menu->addAction(tr("&Label or stop labelling"), this, [this] {
    ChangeLayer(tr("label layer"), [](TMapLayer &layer) { layer.SetAutoLabel(!layer.GetAutoLabel()); });
  });
  menu->addSeparator();
  menu->addAction(tr("Move &up"), WithCtrl(Qt::Key_PageUp), this, [this] { MoveLayer(1); });
  menu->addAction(tr("Move &down"), WithCtrl(Qt::Key_PageDown), this, [this] { MoveLayer(-1); });
}

void TEditorWindow::MakeSnapMenu(QMenu &tools) {
  QMenu *menu = tools.addMenu(tr("Snap to"));
  for (const SnapRow &row : SnapRows) {
    QAction *action = menu->addAction(tr(row.text));
    action->setCheckable(true);
    Describe(*action, row.icon, tr(row.tip));
    connect(action, &QAction::toggled, m_map, [this, &row](bool isOn) { (m_map->GetSnapping()->*row.set)(isOn); });
  }
  Describe(*menu->addAction(tr("&Grid…"), this, &TEditorWindow::AskForGrid), "grid",
           tr("What is drawn, moved and reshaped goes to the points of a grid"));
}

void TEditorWindow::MakeHelpMenu() {
  QMenu *menu = menuBar()->addMenu(tr("&Help"));
  menu->addAction(tr("&How to work with the editor"), QKeySequence::HelpContents, this, [this] { ShowHelp(*this); });
  const QStringList sample = SampleMapFiles();
  QAction *open = menu->addAction(tr("Open the &sample map"), m_files, [this, sample] { m_files->Open(sample); });
  open->setEnabled(!sample.isEmpty());
  menu->addSeparator();
  auto *language = new LanguageMenu(tr("&Language"), menu);
  connect(language, &LanguageMenu::Told, m_statusPanel, &StatusPanel::SetSummary);
  menu->addMenu(language);
  menu->addAction(tr("&About"), this, [this] {
    QMessageBox::about(
        this, tr("About"),
        tr("Tessera editor %1\nShows and edits vector maps.").arg(QCoreApplication::applicationVersion()));
  });
}

void TEditorWindow::MakeToolMenu() {
  QMenu *menu = menuBar()->addMenu(tr("&Tools"));
  QToolBar *bar = addToolBar(tr("Tools"));
  bar->setObjectName(QStringLiteral("tools"));
  menu->addActions(m_tools->GetActions());
  menu->addSeparator();
  MakeSnapMenu(*menu);
  bar->addActions(m_tools->GetActions());
  bar->addSeparator();
  bar->addWidget(m_docks->MakeEditableLayerChoice());
  addToolBarBreak();
  addToolBar(m_findBar);
}

}  // namespace tessera::apps
