// SPDX-License-Identifier: MIT
#include <apps/editor/EditRecovery.h>
#include <tessera/base/GuardedCall.h>
#include <tessera/editing/TLeftJournal.h>

#include <QDir>
#include <QFileInfo>
#include <QSettings>

#include <chrono>

namespace tessera::apps {
namespace {

constexpr std::chrono::seconds Interval(5);

}  // namespace

EditRecovery::EditRecovery(TTessera &map, LayerFiles &files) : QObject(&files), m_map(map), m_files(files) {
  connect(&files, &LayerFiles::Saving, this,
          [this](TMapLayer &layer) { Try([&layer](TEditJournal &journal) { journal.NoteSaving(layer); }); });
  connect(&files, &LayerFiles::Saved, this, [this](TMapLayer &layer, const QString &fileName) {
    Try([&](TEditJournal &journal) { journal.NoteSaved(layer, fileName); });
  });
  connect(&m_timer, &QTimer::timeout, this, &EditRecovery::Write);
  m_timer.start(Interval);
  Try([](TEditJournal &) {});
  m_lastFailure.clear();  // nobody has heard of it yet
}

QString EditRecovery::Folder() {
  return QFileInfo(QSettings().fileName()).absoluteDir().filePath(QStringLiteral("tessera-editor-journals"));
}

void EditRecovery::Write() {
  Try([](TEditJournal &journal) { journal.Write(); });
}

void EditRecovery::Try(const std::function<void(TEditJournal &journal)> &work) {
  QString failure;
  try {
    if (!m_journal) {
      m_journal = std::make_unique<TEditJournal>(m_map, Folder());
      m_journal->SetMap(&m_map);
    }
    work(*m_journal);
  } catch (const std::exception &error) {
    failure = tr("Edits are not kept safe: %1").arg(QString::fromUtf8(error.what()));
  }
  if (std::exchange(m_lastFailure, failure) != failure && !failure.isEmpty()) Q_EMIT Failed(failure);
}

void EditRecovery::Offer() {
  // What cannot be brought back stays on the disk, whatever was thrown.
  GuardedCall([this] {
    for (TLeftJournal &left : TLeftJournal::FindIn(Folder())) GuardedCall([&] { Offer(left); });
  });
}

void EditRecovery::Offer(TLeftJournal &left) {
  const FileQuestions::Left answer = m_files.Questions().aboutLeft(left.GetLayerNames());
  if (answer == FileQuestions::Left::Keep) return;
  if (answer == FileQuestions::Left::Restore) {
    for (const QString &problem : left.RestoreInto(*m_map.GetLayers())) Q_EMIT Failed(problem);
    m_map.ShowAll();
    // As soon as it is in this run's journal, the other can go.
    Write();
    if (!m_lastFailure.isEmpty()) return;
  }
  left.Discard();
}

}  // namespace tessera::apps
