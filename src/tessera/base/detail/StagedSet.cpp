// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/base/detail/SaveJournal.h>
#include <tessera/base/detail/StagedSet.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QRegularExpression>

#include <chrono>
#include <thread>

namespace tessera::detail {
namespace {

constexpr int IdDigits = 16;

QString NewId() {
  constexpr int Hexadecimal = 16;
  return QStringLiteral("%1").arg(QRandomGenerator::system()->generate64(), IdDigits, Hexadecimal, QLatin1Char('0'));
}

/// The files that are written when these are, with their whole paths: the ends of chains of links.
QStringList Resolved(const QStringList &fileNames) {
  QStringList resolved;
  for (const QString &name : fileNames) {
    if (name.isEmpty()) ThrowCannotCreate(name, QStringLiteral("It has no name."));
    const QFileInfo info(name);
    const bool isLink = info.isSymLink();
    resolved.append(!isLink         ? info.absoluteFilePath()
                    : info.exists() ? info.canonicalFilePath()
                                    : info.symLinkTarget());
  }
  return resolved;
}

void SyncFoldersOf(const QStringList &fileNames) {
  QStringList done;
  for (const QString &name : fileNames) {
    const QString folder = QFileInfo(name).path();
    if (!done.contains(folder)) SyncFolderOf(name);
    done.append(folder);
  }
}

/// Waits until nobody is at work on an open journal; whoever is does nothing but rename. False when it has no name any
/// more then. @throws EInOutError when that takes too long.
bool LockJournal(const FileHandle &journal, const QString &name) {
  constexpr std::chrono::milliseconds Pause(10);
  constexpr int MostPauses = 300;
  for (int i = 0; TryLock(journal) == FileLock::Others; ++i) {
    if (i == MostPauses) {
      throw EInOutError(QStringLiteral("Another program is replacing files and does not end: \"%1\"").arg(name));
    }
    std::this_thread::sleep_for(Pause);
  }
  return HasName(journal);
}

QByteArray ContentsOf(const FileHandle &file) {
  QFile reader;
  return reader.open(file.Get(), QIODevice::ReadOnly) ? reader.readAll() : QByteArray();
}

/// Completes the save of a journal if it counts, and removes the journal. Where names cannot be changed, `readUnder`
/// gets the names to read the files under instead.
void Complete(const SaveJournal &journal, QStringList &readUnder) {
  const FileHandle file = OpenForReading(journal.GetName());
  if (!file.IsOpen() || !LockJournal(file, journal.GetName())) return;
  const auto pending = journal.PendingOf(ContentsOf(file));
  bool isComplete = true;
  QStringList renamed{journal.GetName()};
  for (const QString &target : pending.value_or(QStringList())) {
    const QString staged = StagedFile::NameFor(target, journal.GetId());
    renamed.append(target);
    if (Rename(staged, target)) continue;
    isComplete = false;
    readUnder.replaceInStrings(
        QRegularExpression(QRegularExpression::anchoredPattern(QRegularExpression::escape(target))), staged);
  }
  if (!isComplete) return;
  SyncFoldersOf(renamed);
  Remove(journal.GetName());
}

/// Removes a file that a save has staged and that neither a running process nor a journal needs.
void ClearLeftover(const QString &name, const SaveJournal &journal) {
  const FileHandle file = OpenForReading(name);
  // A journal is only written by who holds the locks, so once a lock is ours there will be none.
  if (!file.IsOpen() || TryLock(file) != FileLock::Ours || QFileInfo::exists(journal.GetName())) return;
  Remove(name);
}

}  // namespace

StagedSet::StagedSet(const QStringList &targets) : m_id(NewId()) {
  static_cast<void>(Recover(targets));
  for (const QString &target : Resolved(targets)) m_files.push_back(std::make_unique<StagedFile>(target, m_id));
}

void StagedSet::Commit() {
  for (const auto &file : m_files) file->Close();
  for (const auto &file : m_files) StagedFile::CheckIsFile(file->GetTarget());
  QStringList targets;
  for (const auto &file : m_files) targets.append(file->GetTarget());
  if (m_files.size() == 1) {
    RenameAll();
    return SyncFoldersOf(targets);
  }
  const SaveJournal journal(targets.first(), m_id);
  StagedFile staged(journal.GetName(), m_id);
  staged.Append(journal.TextFor(targets).toStdString());
  staged.Close();
  if (!staged.Rename()) ThrowCannotCreate(journal.GetName(), SystemWords());
  SyncFoldersOf(targets);
  RenameAll();
  SyncFoldersOf(targets);
  Remove(journal.GetName());
}

void StagedSet::RenameAll() {
  for (const auto &file : m_files) {
    if (file->Rename()) continue;
    const QString reason = SystemWords();
    const QString &target = file->GetTarget();
    const QString &first = m_files.front()->GetTarget();
    if (target == first) {
      Remove(SaveJournal(first, m_id).GetName());
      SyncFolderOf(first);
      ThrowCannotCreate(target, reason);
    }
    for (const auto &each : m_files) each->Keep();
    ThrowCannotCreate(target, reason + QStringLiteral(". Other files of the save are in their places already; it will "
                                                      "be completed when the files are loaded or saved next."));
  }
}

QStringList StagedSet::Recover(const QStringList &targets) {
  static const QRegularExpression leftover(
      QStringLiteral("^\\.([0-9a-f]{%1})(\\.journal(\\.\\1\\.new)?|\\.new)$").arg(IdDigits));
  const QStringList resolved = Resolved(targets);
  QStringList readUnder = resolved;
  const auto visit = [](const QString &target, const auto &visitor) {
    const QFileInfo info(target);
    for (const QString &name : NamesBehind(target)) {
      const auto match = leftover.match(name.sliced(info.fileName().size()));
      if (match.hasMatch()) visitor(info.dir().filePath(name), match.captured(1), match.captured(2));
    }
  };
  visit(resolved.first(), [&](const QString & /*name*/, const QString &id, const QString &kind) {
    if (kind == QStringLiteral(".journal")) Complete(SaveJournal(resolved.first(), id), readUnder);
  });
  for (const QString &target : resolved) {
    visit(target, [&](const QString &name, const QString &id, const QString &kind) {
      if (kind != QStringLiteral(".journal")) ClearLeftover(name, SaveJournal(resolved.first(), id));
    });
  }
  return readUnder;
}

}  // namespace tessera::detail
