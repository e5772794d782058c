// SPDX-License-Identifier: MIT
#include <apps/common/PictureFile.h>
#include <apps/editor/EditRecovery.h>
#include <apps/editor/EditorTools.h>
#include <apps/editor/FindBar.h>
#include <apps/editor/LayerDocks.h>
#include <apps/editor/LayerFiles.h>
#include <apps/editor/LoadingPanel.h>
#include <apps/editor/MapDecorations.h>
#include <apps/editor/MeasureLabel.h>
#include <apps/editor/MessageBar.h>
#include <apps/editor/NewLayerDialog.h>
#include <apps/editor/OptionsDialog.h>
#include <apps/editor/RecentFiles.h>
#include <apps/editor/StatusPanel.h>
#include <apps/editor/TEditorWindow.h>
#include <apps/editor/UnitsMenu.h>
#include <tessera/base/Exceptions.h>
#include <tessera/editing/TEditScope.h>
#include <tessera/editing/TMapEdits.h>
#include <tessera/editing/TObjectClipboard.h>
#include <tessera/tools/TIdentifyTool.h>
#include <tessera/tools/TVertexTool.h>

#include <QClipboard>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QGridLayout>
#include <QGuiApplication>
#include <QInputDialog>
#include <QMimeData>
#include <QSettings>
#include <QStatusBar>
#include <QUndoStack>

namespace tessera::apps {
namespace {

/// The wheel's limits: from the data as a thumbnail to a millionth of it.
constexpr double MinZoom = 1.0 / 64;
constexpr double MaxZoom = 1 << 20;
constexpr int PickTolerancePx = 4;

constexpr QSize InitialSize(1000, 700);
/// Panels leave the map at least this, however small the window is.
constexpr QSize LeastMapSize(200, 150);

QString GeometryKey() {
  return QStringLiteral("window/geometry");
}
QString StateKey() {
  return QStringLiteral("window/state");
}

QStringList LocalFilesOf(const QMimeData &data) {
  QStringList files;
  for (const QUrl &url : data.urls()) {
    if (url.isLocalFile()) files.append(url.toLocalFile());
  }
  return files;
}

}  // namespace

TEditorWindow::TEditorWindow(QWidget *parent)
    : QMainWindow(parent),
      m_map(new TTessera),
      m_undoStack(new QUndoStack(this)),
      m_messageBar(new MessageBar),
      m_files(new LayerFiles(*this, *m_map)),
      m_recovery(new EditRecovery(*m_map, *m_files)),
      m_tools(new EditorTools(*m_map, this)),
      m_docks(new LayerDocks(*this, *m_map)),
      m_statusPanel(new StatusPanel(*m_map)),
      m_findBar(new FindBar(*m_map, [this] { return GetCurrentLayer(); })),
      m_recent(new RecentFiles(tr("Open &recent"), this)),
      m_units(new UnitsMenu(tr("&Units"), this)) {
  setWindowTitle(tr("Tessera editor[*]"));
  setAcceptDrops(true);
  setCentralWidget(MakeCentralWidget());
  statusBar()->addWidget(m_statusPanel, 1);
  statusBar()->addPermanentWidget(new LoadingPanel(*m_files));
  SetUpMap();
  MakeMenus();
  connect(m_files, &LayerFiles::Done, m_statusPanel, &StatusPanel::SetSummary);
  connect(m_files, &LayerFiles::Failed, m_messageBar, &MessageBar::Post);
  connect(m_recovery, &EditRecovery::Failed, m_messageBar, &MessageBar::Post);
  FollowUnsaved();
  FollowUnits();
  m_docks->Follow(*m_tools->Find<TIdentifyTool>());
  connect(m_files, &LayerFiles::Used, m_recent, &RecentFiles::Add);
  connect(m_recent, &RecentFiles::Chosen, m_files, [this](const QString &file) { m_files->Open({file}); });
  m_sinkBefore = SetMessageSink([bar = m_messageBar](const QString &text) { bar->Post(text); });
  resize(InitialSize);
  const QSettings settings;
  restoreGeometry(settings.value(GeometryKey()).toByteArray());
  restoreState(settings.value(StateKey()).toByteArray());
}

TEditorWindow::~TEditorWindow() {
  m_undoStack->blockSignals(true);  // it empties itself in the end
  SetMessageSink(m_sinkBefore);
}

void TEditorWindow::FollowUnsaved() {
  UnsavedChanges &unsaved = m_files->GetUnsaved();
  connect(&unsaved, &UnsavedChanges::Changed, this,
          [this, &unsaved] { setWindowModified(!unsaved.GetLayers().empty()); });
  connect(&unsaved, &UnsavedChanges::Saved, this, [this, &unsaved] {
    // With some saved now and some before there is no step to come back to.
    unsaved.GetLayers().empty() ? m_undoStack->setClean() : m_undoStack->resetClean();
  });
  // When undoing comes back to where all was saved.
  connect(m_undoStack, &QUndoStack::cleanChanged, &unsaved, [this, &unsaved](bool isClean) {
    if (isClean && m_undoStack->count() > 0) return unsaved.NoteAllSaved();
    // A stack that was emptied calls itself clean.
    if (isClean && !unsaved.GetLayers().empty()) m_undoStack->resetClean();
  });
}

void TEditorWindow::FollowUnits() {
  MeasureLabel &sizes = m_statusPanel->GetMeasureLabel();
  m_tools->ShowSizesIn(sizes);
  const auto follow = [this, &sizes](const TMapMeasure &measure) {
    m_tools->SetMeasure(measure);
    sizes.SetMeasure(measure);
  };
  connect(m_units, &UnitsMenu::Changed, &sizes, follow);
  follow(m_units->GetMeasure());
}

QWidget *TEditorWindow::MakeCentralWidget() {
  auto *pane = new QWidget;
  pane->setMinimumSize(LeastMapSize);
  auto *grid = new QGridLayout(pane);
  grid->setContentsMargins(0, 0, 0, 0);
  // The bar lies over the map, which keeps its size and with it its picture when messages come and go.
  grid->addWidget(m_map, 0, 0);
  m_decorations = new MapDecorations(*m_map, *m_units, *grid, this);
  grid->addWidget(m_messageBar, 0, 0, Qt::AlignTop);
  m_messageBar->raise();
  return pane;
}

void TEditorWindow::SetUpMap() {
  m_map->SetUndoStack(m_undoStack);
  m_map->SetMinZoom(MinZoom);
  m_map->SetMaxZoom(MaxZoom);
  m_map->SetPickTolerancePx(PickTolerancePx);
  m_map->GetNavigation()->SetWheelKeepsPlace(true);
  m_map->GetNavigation()->SetWheelAddsUp(true);
  m_map->GetSnapping()->SetShiftConstrains(true);
  m_map->GetPainting()->SetShowSmallObjects(true);
  m_map->GetPainting()->SetShowCutObjects(true);
  m_map->GetPainting()->SetPaintInSteps(true);
  m_map->setFocus();
  // Plain keys belong to the map, also those that are shortcuts elsewhere in the window.
  connect(m_map, &TTessera::OnKeyDown, this, [this](TTessera *, int &key) {
    if (key == Qt::Key_Delete && !m_tools->AreKeysInUse()) DeleteSelected();
  });
}

TMapLayer *TEditorWindow::GetCurrentLayer() const {
  return m_docks->GetCurrentLayer();
}

void TEditorWindow::WithLayer(const std::function<void(TMapLayer &layer)> &command) {
  if (TMapLayer *layer = GetCurrentLayer()) {
    command(*layer);
  } else {
    m_messageBar->Post(tr("There is no layer."));
  }
}

TMapLayer *TEditorWindow::AddLayer(const QString &name, const TDataFields &fields) {
  const TEditScope oneStep(m_map, tr("new layer"));
  TMapEdits edits(m_map);
  TMapLayer *layer = edits.AddLayer(QString(), name);
  if (layer == nullptr) return nullptr;
  layer->GetFields().Assign(fields);
  edits.ChangeLayers(QString(), [layer] { layer->SetEditable(true); });
  m_files->GetUnsaved().Note(*layer);
  return layer;
}

std::vector<TCustomMapObject *> TEditorWindow::TakeEditableSelection() {
  const TMapLayer *editable = m_map->GetLayers()->GetEditableLayer();
  std::vector<TCustomMapObject *> objects;
  for (TCustomMapObject *object : m_map->GetSelection()->Items()) {
    if (editable != nullptr && object->GetLayer() == editable) objects.push_back(object);
  }
  const auto left = int(m_map->GetSelection()->Items().size() - objects.size());
  if (left > 0)
    m_messageBar->Post(tr("Selected objects that stay, for their layer is not editable: %n", nullptr, left));
  return objects;
}

void TEditorWindow::DeleteSelected() {
  TMapEdits(m_map).DeleteObjects(TakeEditableSelection());
}

void TEditorWindow::SplitAtVertex() {
  const auto *tool = m_tools->Find<TVertexTool>();
  const auto vertex = tool->GetActiveVertex();
  if (!vertex || TMapEdits(m_map).SplitLine(*tool->GetEdited(), *vertex) == nullptr) {
    m_messageBar->Post(
        tr("A line is split at the vertex that was touched last with the vertex tool, not at its ends."));
  }
}

void TEditorWindow::Copy() {
  const auto selected = m_map->GetSelection()->Items();
  if (!selected.empty()) QGuiApplication::clipboard()->setMimeData(ObjectsToMimeData(selected).release());
}

void TEditorWindow::Paste() {
  const QMimeData *copied = QGuiApplication::clipboard()->mimeData();
  if (copied == nullptr || !HoldsObjects(*copied)) return;
  TMapLayer *layer = m_map->GetLayers()->GetEditableLayer();
  if (layer == nullptr) return m_messageBar->Post(tr("There is no editable layer to paste into."));
  try {
    TMapEdits(m_map).PasteObjects(*layer, ObjectsFromMimeData(*copied));
  } catch (const std::exception &failure) {
    m_messageBar->Post(MessageOf(failure));
  }
}

bool TEditorWindow::ExportPicture(const QString &fileName) {
  const WaitCursor cursor;
  QString error;
  try {
    m_map->PaintMapToBitmap();
    error = SaveMapPicture(*m_map, fileName);
  } catch (const std::exception &failure) {
    error = MessageOf(failure);
  }
  if (error.isEmpty()) {
    m_statusPanel->SetSummary(tr("%1 is written").arg(QFileInfo(fileName).fileName()));
  } else {
    m_messageBar->Post(error);
  }
  return error.isEmpty();
}

void TEditorWindow::CopyPicture() {
  m_map->PaintMapToBitmap();
  QGuiApplication::clipboard()->setImage(DecoratedPicture(*m_map));
}

void TEditorWindow::ChangeLayer(const QString &text, const std::function<void(TMapLayer &layer)> &change) {
  WithLayer([&](TMapLayer &layer) { TMapEdits(m_map).ChangeLayers(text, [&] { change(layer); }); });
}

void TEditorWindow::MoveLayer(int by) {
  WithLayer([this, by](const TMapLayer &layer) {
    const int from = m_map->GetLayers()->IndexOf(&layer);
    const int to = from + by;
    if (to >= 0 && to < m_map->GetLayers()->GetCount()) TMapEdits(m_map).MoveLayer(from, to);
  });
}

void TEditorWindow::AskForNewLayer() {
  NewLayerDialog dialog(this);
  if (dialog.exec() != QDialog::Accepted) return;
  TDataFields fields;
  dialog.AddFieldsTo(fields);
  AddLayer(dialog.GetLayerName(), fields);
}

void TEditorWindow::AskWhereToExportPicture() {
  const QString file = AskForFileToWrite(this, tr("Export picture"), QStringLiteral("map.png"), {PictureNameFilter()});
  if (!file.isEmpty()) ExportPicture(file);
}

std::optional<double> TEditorWindow::AskForNumber(const QString &title, const QString &label, double value,
                                                  const NumberRange &range) {
  QInputDialog dialog(this);
  dialog.setAttribute(Qt::WA_WindowPropagation);  // the number format of the window
  dialog.setInputMode(QInputDialog::DoubleInput);
  dialog.setWindowTitle(title);
  dialog.setLabelText(label);
  dialog.setDoubleRange(range.low, range.high);
  dialog.setDoubleDecimals(range.decimals);
  dialog.setDoubleValue(value);
  return dialog.exec() == QDialog::Accepted ? std::optional(dialog.doubleValue()) : std::nullopt;
}

void TEditorWindow::AskForRotation() {
  constexpr double FullTurnDeg = 360;
  const auto angleDeg = AskForNumber(tr("Rotate map"), tr("Angle, clockwise, in degrees:"), m_map->GetRotationAngle(),
                                     {-FullTurnDeg, FullTurnDeg, 2});
  if (angleDeg) m_map->RotateMap(m_map->GetCenterX(), m_map->GetCenterY(), *angleDeg);
}

void TEditorWindow::AskForGrid() {
  constexpr double Widest = 1e9;
  constexpr int Decimals = 6;
  const auto step = AskForNumber(tr("Grid"), tr("Distance of the grid's points, in map units; 0 for none:"),
                                 m_map->GetSnapping()->GetGridStep(), {0, Widest, Decimals});
  if (step) m_map->GetSnapping()->SetGridStep(*step);
}

void TEditorWindow::AskForOptions() {
  OptionsDialog(*m_map->GetOptions(), this).exec();
}

void TEditorWindow::closeEvent(QCloseEvent *event) {
  event->setAccepted(m_files->SettleAll());
  if (!event->isAccepted()) return;
  m_files->CancelOpening();
  QSettings settings;
  settings.setValue(GeometryKey(), saveGeometry());
  settings.setValue(StateKey(), saveState());
}

void TEditorWindow::dragEnterEvent(QDragEnterEvent *event) {
  if (!LocalFilesOf(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void TEditorWindow::dropEvent(QDropEvent *event) {
  event->acceptProposedAction();
  // The program that the files come from waits for the end of this event, but need not wait for the loading.
  QMetaObject::invokeMethod(
      m_files, [this, files = LocalFilesOf(*event->mimeData())] { m_files->Open(files); }, Qt::QueuedConnection);
}

}  // namespace tessera::apps
