// SPDX-License-Identifier: MIT
#include <apps/common/FileFilters.h>
#include <apps/common/MapOpening.h>
#include <apps/editor/LayerFiles.h>
#include <tessera/base/THandle.h>
#include <tessera/editing/TMapEdits.h>
#include <tessera/layers/MapFiles.h>
#include <tessera/providers/CustomFormatProvider.h>

#include <QDir>
#include <QFileDialog>
#include <QGuiApplication>
#include <QMessageBox>
#include <QPushButton>

#include <algorithm>

namespace tessera::apps {
namespace {

const QString BetweenFilters = QStringLiteral(";;");

QStringList MapFilters() {
  return ToNameFilters(FormatProviders == nullptr ? QString() : FormatProviders->GetFilter());
}

/// Asks in a dialog whose answer is no unless the person says otherwise.
bool AskAboutLosses(QWidget *parent, const QString &question, const QStringList &losses) {
  QMessageBox dialog(QMessageBox::Warning, LayerFiles::tr("Save layer"), question, QMessageBox::Cancel, parent);
  const QPushButton *replace = dialog.addButton(LayerFiles::tr("&Replace"), QMessageBox::DestructiveRole);
  dialog.setDefaultButton(QMessageBox::Cancel);
  dialog.setInformativeText(losses.join(u'\n'));
  dialog.exec();
  return dialog.clickedButton() == replace;
}

FileQuestions::Unsaved AskAboutUnsaved(QWidget *parent, const TMapLayer &layer) {
  const auto answer = QMessageBox::question(
      parent, LayerFiles::tr("Unsaved changes"),
      LayerFiles::tr("The layer %1 has changes that are not saved. Save them?").arg(layer.GetName()),
      QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, QMessageBox::Save);
  if (answer == QMessageBox::Save) return FileQuestions::Unsaved::Save;
  return answer == QMessageBox::Discard ? FileQuestions::Unsaved::Discard : FileQuestions::Unsaved::Cancel;
}

FileQuestions::Left AskAboutLeft(QWidget *parent, const QStringList &layers) {
  QMessageBox dialog(QMessageBox::Question, LayerFiles::tr("Unsaved changes"),
                     LayerFiles::tr("The editor came to a sudden end before these layers were saved. Restore them?"),
                     QMessageBox::NoButton, parent);
  dialog.setInformativeText(layers.join(u'\n'));
  const QPushButton *restore = dialog.addButton(LayerFiles::tr("&Restore"), QMessageBox::AcceptRole);
  const QPushButton *discard = dialog.addButton(LayerFiles::tr("&Discard"), QMessageBox::DestructiveRole);
  dialog.addButton(LayerFiles::tr("Ask &later"), QMessageBox::RejectRole);
  dialog.exec();
  if (dialog.clickedButton() == restore) return FileQuestions::Left::Restore;
  return dialog.clickedButton() == discard ? FileQuestions::Left::Discard : FileQuestions::Left::Keep;
}

}  // namespace

WaitCursor::WaitCursor() {
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
}
WaitCursor::~WaitCursor() {
  QGuiApplication::restoreOverrideCursor();
}

QString AskForFileToWrite(QWidget *parent, const QString &title, const QString &proposal, const QStringList &filters) {
  QFileDialog dialog(parent, title);
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setNameFilters(filters);
  dialog.setDefaultSuffix(DefaultEnding(filters.value(0)));
  dialog.selectFile(proposal);
  return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

LayerFiles::LayerFiles(QWidget &window, TTessera &map)
    : QObject(&window), m_window(window), m_map(map), m_unsaved(map), m_loading(*map.GetLayers()) {
  m_questions.goOnLosing = [this](const QString &question, const QStringList &losses) {
    return AskAboutLosses(&m_window, question, losses);
  };
  m_questions.aboutUnsaved = [this](const TMapLayer &layer) { return AskAboutUnsaved(&m_window, layer); };
  m_questions.whereToSave = [this](const TMapLayer &layer) {
    return AskForFileToWrite(&m_window, tr("Save layer as"), ProposeFileFor(layer), MapFilters());
  };
  m_questions.aboutLeft = [this](const QStringList &layers) { return AskAboutLeft(&m_window, layers); };
  // However a layer comes to be deleted.
  connect(&map, &TTessera::OnBeforeDelLayer, this,
          [this](TTessera *, TMapLayer *layer, bool confirmDelete, bool &allowDelete) {
            if (confirmDelete && !Settle(*layer)) allowDelete = false;
          });
  for (const auto end : {&TLayerLoading::OnLoaded, &TLayerLoading::OnFailed}) {
    connect(&m_loading, end, this, [this](const TLoadedFile &loaded) { TellOf({loaded}); });
  }
  connect(&m_loading, &TLayerLoading::OnCancelled, this, &LayerFiles::OpenNext);
  connect(&m_loading, &TLayerLoading::OnProgress, this,
          [this](int percent) { Q_EMIT Opening(m_waiting.value(0), percent); });
}

void LayerFiles::Open(const QStringList &fileNames) {
  m_waiting += fileNames;
  if (m_isOpening || m_waiting.isEmpty()) return;
  m_isOpening = true;
  if (m_map.GetLayers()->GetCount() == 0) m_shown = m_map.GetViewport();
  OpenNext();
}

void LayerFiles::OpenNext() {
  // Workspaces are told of at once, and so take the next one.
  if (m_waiting.isEmpty()) {
    m_isOpening = false;
    m_shown.reset();
    Q_EMIT Opened();
  } else if (IsWorkspaceName(m_waiting[0])) {
    const WaitCursor cursor;
    TellOf(OpenMapFile(m_map, m_waiting[0]));
  } else {
    Q_EMIT Opening(m_waiting[0], 0);
    m_loading.Start(m_waiting[0]);
  }
}

void LayerFiles::CancelOpening() {
  m_waiting.clear();
  m_loading.Cancel();
}

void LayerFiles::TellOf(const std::vector<TLoadedFile> &loaded) {
  bool isUsed = false;
  for (const TLoadedFile &file : loaded) {
    if (!file.error.isEmpty()) Q_EMIT Failed(file.error);
    for (const QString &warning : file.warnings) Q_EMIT Failed(warning);
    if (file.layer == nullptr) continue;
    isUsed = true;
    Q_EMIT Done(QFileInfo(file.fileName).fileName() + QStringLiteral(": ") + file.report.Summary());
  }
  const QString name = m_waiting.isEmpty() ? QString() : m_waiting.takeFirst();
  if (isUsed && !name.isEmpty()) Q_EMIT Used(name);
  if (isUsed) ShowAllAtFirst();
  OpenNext();
}

void LayerFiles::ShowAllAtFirst() {
  if (!m_shown) return;
  // The window may have got another size.
  TViewport present = m_map.GetViewport();
  present.ClientWidth = m_shown->ClientWidth;
  present.ClientHeight = m_shown->ClientHeight;
  if (!(present == *m_shown)) return m_shown.reset();
  m_map.ShowAll();
  m_shown = m_map.GetViewport();
}

bool LayerFiles::SaveTo(TMapLayer &layer, const QString &fileName) {
  const QStringList losses = LossesOfSaving(layer, fileName);
  const QString name = QFileInfo(fileName).fileName();
  if (!losses.isEmpty() && !m_questions.goOnLosing(tr("Replacing %1 by this layer loses:").arg(name), losses)) {
    return false;
  }
  const WaitCursor cursor;
  Q_EMIT Saving(layer);
  const TSavedFile saved = SaveMapFile(layer, fileName);
  for (const QString &warning : saved.warnings) Q_EMIT Failed(warning);
  if (!saved.error.isEmpty()) {
    Q_EMIT Failed(saved.error);
    return false;
  }
  m_unsaved.NoteSaved(layer);
  Q_EMIT Saved(layer, fileName);
  Q_EMIT Done(tr("%1 is written").arg(name));
  Q_EMIT Used(fileName);
  return true;
}

bool LayerFiles::Save(TMapLayer &layer) {
  const QString own = layer.GetFileName();
  return own.isEmpty() || !LossesOfSaving(layer, own).isEmpty() ? SaveAs(layer) : SaveTo(layer, own);
}

bool LayerFiles::SaveAs(TMapLayer &layer) {
  const QString file = m_questions.whereToSave(layer);
  return !file.isEmpty() && SaveTo(layer, file);
}

bool LayerFiles::Settle(TMapLayer &layer) {
  if (!m_unsaved.Has(layer)) return true;
  // A dialog lets everything else go on meanwhile.
  const THandle<TMapLayer> handle(&layer);
  switch (m_questions.aboutUnsaved(layer)) {
    case FileQuestions::Unsaved::Save:
      return handle && Save(layer);
    case FileQuestions::Unsaved::Discard:
      return true;
    default:
      return false;
  }
}

bool LayerFiles::SettleAll() {
  const std::vector<TMapLayer *> layers = m_unsaved.GetLayers();
  return std::all_of(layers.begin(), layers.end(),
                     [this](TMapLayer *layer) { return m_map.GetLayers()->IndexOf(layer) < 0 || Settle(*layer); });
}

bool LayerFiles::Close(const TMapLayer &layer) {
  const int index = m_map.GetLayers()->IndexOf(&layer);
  return index >= 0 && TMapEdits(&m_map).DeleteLayer(index);
}

QString LayerFiles::ProposeFileFor(const TMapLayer &layer) {
  const QString &own = layer.GetFileName();
  if (own.isEmpty()) return layer.GetName();
  if (LossesOfSaving(layer, own).isEmpty()) return own;
  const QFileInfo file(own);
  const QString ending = file.suffix();
  for (int i = 1;; ++i) {
    QString copy = file.dir().filePath(QStringLiteral("%1-%2.%3").arg(file.completeBaseName()).arg(i).arg(ending));
    if (!QFileInfo::exists(copy)) return copy;
  }
}

void LayerFiles::AskForFilesToOpen() {
  QStringList filters = MapFilters();
  filters.append(WorkspaceNameFilter());
  filters.prepend(ToCommonNameFilter(filters));
  const QStringList files =
      QFileDialog::getOpenFileNames(&m_window, tr("Open map files"), QString(), filters.join(BetweenFilters));
  if (!files.isEmpty()) Open(files);
}

}  // namespace tessera::apps
