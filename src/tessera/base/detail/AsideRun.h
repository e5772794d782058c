// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <QStringList>

#include <atomic>

namespace tessera::detail {

/// Work that a thread of its own does for the user interface: what it has to say is kept until the work is over, and it
/// can be told to end.
///
/// Where the run is entered, messages and diagnostic notices go to it instead of the sinks of the process, which belong
/// to the thread of the user interface.
class TESSERA_CORE_EXPORT AsideRun {
 public:
  /// From any thread. The run ends at the next CheckGoingOn.
  void Cancel() { m_isCancelled.store(true, std::memory_order_relaxed); }
  [[nodiscard]] bool IsCancelled() const { return m_isCancelled.load(std::memory_order_relaxed); }
  /// @throws EInOutError when the run is to end
  void CheckGoingOn() const {
    if (IsCancelled()) ThrowCancelled();
  }

  /// Keeps a message, each text once, or a notice.
  void NoteMessage(const QString &text);
  void NoteNotice(const QString &text) { m_notices.append(text); }
  // What has been kept, when the work is over.
  [[nodiscard]] const QStringList &GetMessages() const { return m_messages; }
  [[nodiscard]] const QStringList &GetNotices() const { return m_notices; }

  /// The run that this thread is in; none in the thread of the user interface.
  [[nodiscard]] static AsideRun *Current();

 private:
  friend class AsideScope;
  [[noreturn]] static void ThrowCancelled();

  std::atomic<bool> m_isCancelled = false;
  QStringList m_messages;
  QStringList m_notices;
};

/// Enters a run, in the thread that does its work. It must outlive the scope.
class TESSERA_CORE_EXPORT AsideScope {
 public:
  explicit AsideScope(AsideRun &run);
  ~AsideScope();
  AsideScope(const AsideScope &) = delete;
  AsideScope &operator=(const AsideScope &) = delete;
};

}  // namespace tessera::detail
