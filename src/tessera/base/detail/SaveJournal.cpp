// SPDX-License-Identifier: MIT
#include <tessera/base/detail/SaveJournal.h>
#include <tessera/base/detail/StagedFile.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>

namespace tessera::detail {
namespace {

constexpr char Heading[] = "Files to be renamed for a save to be complete";
constexpr char Ending[] = "end";
constexpr FileMark NoFile{-1, 0};

QByteArray TextOf(const FileMark &mark) {
  return QByteArray::number(mark.size) + ' ' + QByteArray::number(mark.changed) + ' ';
}

}  // namespace

SaveJournal::SaveJournal(const QString &first, const QString &id)
    : m_name(first + u'.' + id + QStringLiteral(".journal")), m_id(id) {}

QByteArray SaveJournal::TextFor(const QStringList &targets) const {
  const QDir folder = QFileInfo(m_name).dir();
  QByteArray text = QByteArray(Heading) + '\n';
  for (const QString &target : targets) {
    const QByteArray name = QFile::encodeName(folder.relativeFilePath(QFileInfo(target).absoluteFilePath()));
    const FileMark fresh = MarkOf(StagedFile::NameFor(target, m_id)).value_or(NoFile);
    text += TextOf(fresh) + TextOf(MarkOf(target).value_or(NoFile)) + name.toPercentEncoding() + '\n';
  }
  return text + Ending + '\n';
}

std::optional<SaveJournal::Member> SaveJournal::Parse(const QByteArray &line) const {
  const QList<QByteArray> items = line.split(' ');
  constexpr qsizetype ItemCount = 5;
  if (items.size() != ItemCount) return std::nullopt;
  const FileMark old{items[2].toLongLong(), items[3].toLongLong()};
  const QString name = QFile::decodeName(QByteArray::fromPercentEncoding(items[4]));
  return Member{.target = QDir::cleanPath(QFileInfo(m_name).dir().filePath(name)),
                .fresh = {items[0].toLongLong(), items[1].toLongLong()},
                .old = old.size < 0 ? std::nullopt : std::optional(old)};
}

SaveJournal::State SaveJournal::StateOf(const Member &member) const {
  const auto staged = MarkOf(StagedFile::NameFor(member.target, m_id));
  const auto target = MarkOf(member.target);
  if (!staged) return target && target->IsLike(member.fresh) ? State::Done : State::Foreign;
  const bool isOld = target ? member.old && target->IsLike(*member.old) : !member.old;
  return isOld && staged->IsLike(member.fresh) ? State::Pending : State::Foreign;
}

std::optional<QStringList> SaveJournal::PendingOf(const QByteArray &text) const {
  QList<QByteArray> lines = text.split('\n');
  if (lines.size() < 3 || lines.first() != Heading || lines.takeLast() != "" || lines.takeLast() != Ending) {
    return std::nullopt;
  }
  lines.removeFirst();
  QStringList pending;
  for (const QByteArray &line : lines) {
    const auto member = Parse(line);
    const State state = member ? StateOf(*member) : State::Foreign;
    if (state == State::Foreign) return std::nullopt;
    if (state == State::Pending) pending.append(member->target);
  }
  return pending;
}

}  // namespace tessera::detail
