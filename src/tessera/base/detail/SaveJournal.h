// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/detail/FileSystem.h>

namespace tessera::detail {

/// The note beside a set of files that names what is to be renamed for a save to be complete.
///
/// It is a text of a line for each file: the marks of its new and its old contents, and its name, relative to the
/// journal's folder. It is staged itself, so whenever there is one it is whole. A journal whose marks do not fit what
/// is found counts no more: another program has written a file since.
class SaveJournal {
 public:
  /// The journal of the save `id` of a set whose first file is `first`.
  SaveJournal(const QString &first, const QString &id);

  [[nodiscard]] const QString &GetName() const { return m_name; }
  [[nodiscard]] const QString &GetId() const { return m_id; }
  /// The text for files that are all staged and closed.
  [[nodiscard]] QByteArray TextFor(const QStringList &targets) const;
  /// The files that do not have their new contents yet of those that `text` names; none when the journal does not
  /// count.
  [[nodiscard]] std::optional<QStringList> PendingOf(const QByteArray &text) const;

 private:
  struct Member {
    QString target;
    FileMark fresh;
    std::optional<FileMark> old;  ///< None where no file is replaced.
  };
  enum class State : std::uint8_t { Pending, Done, Foreign };

  [[nodiscard]] State StateOf(const Member &member) const;
  [[nodiscard]] std::optional<Member> Parse(const QByteArray &line) const;

  QString m_name;
  QString m_id;
};

}  // namespace tessera::detail
