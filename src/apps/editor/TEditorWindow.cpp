// SPDX-License-Identifier: MIT
#include <apps/common/FileFilters.h>
#include <apps/common/PictureFile.h>
#include <apps/editor/MessageBar.h>
#include <apps/editor/StatusPanel.h>
#include <apps/editor/TEditorWindow.h>
#include <tessera/base/Exceptions.h>
#include <tessera/layers/MapFiles.h>
#include <tessera/providers/CustomFormatProvider.h>

#include <QDir>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QGridLayout>
#include <QGuiApplication>
#include <QInputDialog>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QStatusBar>

#include <utility>

namespace tessera::apps {
namespace {

/// The wheel's limits: from the data as a thumbnail to a millionth of it.
constexpr double MinZoom = 1.0 / 64;
constexpr double MaxZoom = 1 << 20;

constexpr QSize InitialSize(1000, 700);

const QString BetweenFilters = QStringLiteral(";;");

QStringList LocalFilesOf(const QMimeData &data) {
  QStringList files;
  for (const QUrl &url : data.urls()) {
    if (url.isLocalFile()) files.append(url.toLocalFile());
  }
  return files;
}

QStringList MapFilters() {
  return ToNameFilters(FormatProviders == nullptr ? QString() : FormatProviders->GetFilter());
}

/// Asks for the name of a file to write, which gets the ending of the first filter when it has none; empty when the
/// person thinks better of it.
QString AskForFileToWrite(QWidget *parent, const QString &title, const QString &proposal, const QStringList &filters) {
  QFileDialog dialog(parent, title);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setNameFilters(filters);
  dialog.setDefaultSuffix(DefaultEnding(filters.value(0)));
  dialog.selectFile(proposal);
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

/// Asks in a dialog whose answer is no unless the person says otherwise.
bool AskInDialog(QWidget *parent, const QString &question, const QStringList &losses) {
  QMessageBox dialog(QMessageBox::Warning, TEditorWindow::tr("Save layer"), question, QMessageBox::Cancel, parent);
  const QPushButton *replace = dialog.addButton(TEditorWindow::tr("&Replace"), QMessageBox::DestructiveRole);
  dialog.setDefaultButton(QMessageBox::Cancel);
  dialog.setInformativeText(losses.join(u'\n'));
  dialog.exec();
  return dialog.clickedButton() == replace;
}

/// Shows the busy cursor as long as it lives.
class WaitCursor {
 public:
  WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
  WaitCursor(const WaitCursor &) = delete;
  WaitCursor &operator=(const WaitCursor &) = delete;
};

}  // namespace

TEditorWindow::TEditorWindow(QWidget *parent)
    : QMainWindow(parent), m_map(new TTessera), m_messageBar(new MessageBar), m_statusPanel(new StatusPanel(*m_map)) {
  setWindowTitle(tr("Tessera editor"));
  setAcceptDrops(true);
  setCentralWidget(MakeCentralWidget());
  statusBar()->addWidget(m_statusPanel, 1);
  MakeMenus();
  m_map->SetMinZoom(MinZoom);
  m_map->SetMaxZoom(MaxZoom);
  m_map->setMouseTracking(true);
  m_map->setFocus();
  m_sinkBefore = SetMessageSink([bar = m_messageBar](const QString &text) { bar->Post(text); });
  m_askAboutLosses = [this](const QString &question, const QStringList &losses) {
    return AskInDialog(this, question, losses);
  };
  resize(InitialSize);
}

TEditorWindow::~TEditorWindow() {
  SetMessageSink(m_sinkBefore);
}

QWidget *TEditorWindow::MakeCentralWidget() {
  auto *pane = new QWidget;
  auto *grid = new QGridLayout(pane);
  grid->setContentsMargins(0, 0, 0, 0);
  // The bar lies over the map, which keeps its size and with it its picture when messages come and go.
  grid->addWidget(m_map, 0, 0);
  grid->addWidget(m_messageBar, 0, 0, Qt::AlignTop);
  m_messageBar->raise();
  return pane;
}

void TEditorWindow::MakeMenus() {
  // Shortcuts have a modifier: plain keys belong to the map.
  QMenu *file = menuBar()->addMenu(tr("&File"));
  file->addAction(tr("&Open…"), QKeySequence::Open, this, &TEditorWindow::AskForFilesToOpen);
  file->addSeparator();
  file->addAction(tr("&Save layer as…"), QKeySequence::Save, this, &TEditorWindow::AskWhereToSaveLayer);
  file->addAction(tr("&Export picture…"), QKeySequence(Qt::CTRL | Qt::Key_E), this,
                  &TEditorWindow::AskWhereToExportPicture);
  file->addSeparator();
  file->addAction(tr("&Quit"), QKeySequence(Qt::CTRL | Qt::Key_Q), this, &QWidget::close);
  QMenu *view = menuBar()->addMenu(tr("&View"));
  view->addAction(tr("Fit &all"), QKeySequence(Qt::CTRL | Qt::Key_0), this, &TEditorWindow::FitAll);
}

void TEditorWindow::OpenFiles(const QStringList &fileNames) {
  const WaitCursor cursor;
  const bool wasEmpty = m_map->GetLayers()->GetCount() == 0;
  for (const QString &fileName : fileNames) {
    const TLoadedFile loaded = LoadMapFile(*m_map->GetLayers(), fileName);
    if (!loaded.error.isEmpty()) m_messageBar->Post(loaded.error);
    for (const QString &warning : loaded.warnings) m_messageBar->Post(warning);
    if (loaded.layer != nullptr) {
      m_statusPanel->SetSummary(QFileInfo(fileName).fileName() + QStringLiteral(": ") + loaded.report.Summary());
    }
  }
  if (wasEmpty) FitAll();
}

bool TEditorWindow::SaveLayer(TMapLayer &layer, const QString &fileName) {
  const QStringList losses = LossesOfSaving(layer, fileName);
  const QString name = QFileInfo(fileName).fileName();
  if (!losses.isEmpty() && !m_askAboutLosses(tr("Replacing %1 by this layer loses:").arg(name), losses)) return false;
  const WaitCursor cursor;
  const TSavedFile saved = SaveMapFile(layer, fileName);
  for (const QString &warning : saved.warnings) m_messageBar->Post(warning);
  return ReportWriting(fileName, saved.error);
}

QString TEditorWindow::ProposeFileFor(const TMapLayer &layer) {
  const QString own = layer.GetFileName();
  if (LossesOfSaving(layer, own).isEmpty()) return own;
  const QFileInfo file(own);
  const QString ending = file.suffix();
  for (int i = 1;; ++i) {
    const QString copy =
        file.dir().filePath(QStringLiteral("%1-%2.%3").arg(file.completeBaseName()).arg(i).arg(ending));
    if (!QFileInfo::exists(copy)) return copy;
  }
}

bool TEditorWindow::ExportPicture(const QString &fileName) {
  const WaitCursor cursor;
  try {
    m_map->PaintMapToBitmap();
  } catch (const std::exception &error) {
    return ReportWriting(fileName, MessageOf(error));
  }
  TBitmap picture;
  m_map->AssignToBitmap(picture);
  return ReportWriting(fileName, SavePicture(picture.GetImage(), fileName));
}

bool TEditorWindow::ReportWriting(const QString &fileName, const QString &error) {
  if (!error.isEmpty()) {
    m_messageBar->Post(error);
    return false;
  }
  m_statusPanel->SetSummary(tr("%1 is written").arg(QFileInfo(fileName).fileName()));
  return true;
}

void TEditorWindow::FitAll() {
  m_map->ShowAll();
}

void TEditorWindow::AskForFilesToOpen() {
  QStringList filters = MapFilters();
  filters.prepend(ToCommonNameFilter(filters));
  const QStringList files =
      QFileDialog::getOpenFileNames(this, tr("Open map files"), QString(), filters.join(BetweenFilters));
  if (!files.isEmpty()) OpenFiles(files);
}

TMapLayer *TEditorWindow::AskForLayer() {
  const TMapLayers &layers = *m_map->GetLayers();
  if (layers.GetCount() <= 1) return layers.GetCount() == 1 ? layers.First() : nullptr;
  QStringList names;
  for (int i = layers.GetCount() - 1; i >= 0; --i) {
    names.append(QStringLiteral("%1. %2").arg(i + 1).arg(layers.GetLayer(i)->GetName()));
  }
  bool isChosen = false;
  const QString chosen =
      QInputDialog::getItem(this, tr("Save layer"), tr("Layer, the top one first:"), names, 0, false, &isChosen);
  return isChosen ? layers.GetLayer(layers.GetCount() - 1 - int(names.indexOf(chosen))) : nullptr;
}

void TEditorWindow::AskWhereToSaveLayer() {
  if (m_map->GetLayers()->GetCount() == 0) m_messageBar->Post(tr("There is no layer to save."));
  TMapLayer *layer = AskForLayer();
  if (layer == nullptr) return;
  const QString file = AskForFileToWrite(this, tr("Save layer as"), ProposeFileFor(*layer), MapFilters());
  if (!file.isEmpty()) SaveLayer(*layer, file);
}

void TEditorWindow::AskWhereToExportPicture() {
  const QString file = AskForFileToWrite(this, tr("Export picture"), QStringLiteral("map.png"), {PictureNameFilter()});
  if (!file.isEmpty()) ExportPicture(file);
}

void TEditorWindow::dragEnterEvent(QDragEnterEvent *event) {
  if (!LocalFilesOf(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void TEditorWindow::dropEvent(QDropEvent *event) {
  event->acceptProposedAction();
  // The program that the files come from waits for the end of this event, but need not wait for the loading.
  QMetaObject::invokeMethod(
      this, [this, files = LocalFilesOf(*event->mimeData())] { OpenFiles(files); }, Qt::QueuedConnection);
}

}  // namespace tessera::apps
