// SPDX-License-Identifier: MIT
#pragma once

#include <apps/editor/LayerFiles.h>
#include <tessera/editing/TEditJournal.h>

#include <QTimer>

namespace tessera {
class TLeftJournal;
}

namespace tessera::apps {

/// Keeps what is edited in the editor's map safe from a sudden end: a journal is written every few seconds, and what
/// one of an earlier run holds is offered.
class EditRecovery : public QObject {
  Q_OBJECT

 public:
  EditRecovery(TTessera &map, LayerFiles &files);

  /// Asks what is to become of the edits that earlier runs have left, if any.
  void Offer();
  /// Writes the journal now.
  void Write();
  /// Where the journals are: beside the settings.
  [[nodiscard]] static QString Folder();

 Q_SIGNALS:
  /// One line about what cannot be kept or brought back.
  void Failed(const QString &message);

 private:
  void Offer(TLeftJournal &left);
  /// Runs something that may fail on the disk; the same failure is told once.
  void Try(const std::function<void(TEditJournal &journal)> &work);

  TTessera &m_map;
  LayerFiles &m_files;
  std::unique_ptr<TEditJournal> m_journal;  // made when it is first needed
  QTimer m_timer;
  QString m_lastFailure;
};

}  // namespace tessera::apps
