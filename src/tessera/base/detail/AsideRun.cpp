// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/base/detail/AsideRun.h>

namespace tessera::detail {
namespace {

AsideRun *&RunOfThisThread() {
  thread_local AsideRun *run = nullptr;
  return run;
}

}  // namespace

AsideRun *AsideRun::Current() {
  return RunOfThisThread();
}

void AsideRun::NoteMessage(const QString &text) {
  if (!m_messages.contains(text)) m_messages.append(text);
}

void AsideRun::ThrowCancelled() {
  throw EInOutError(QStringLiteral("the work was cancelled"));
}

AsideScope::AsideScope(AsideRun &run) {
  RunOfThisThread() = &run;
}

AsideScope::~AsideScope() {
  RunOfThisThread() = nullptr;
}

}  // namespace tessera::detail
