// SPDX-License-Identifier: MIT
#include <tessera/base/Exceptions.h>
#include <tessera/base/GuardedCall.h>
#include <tessera/base/MessageSink.h>

namespace tessera {
namespace {

QString MessageOfCaught() {
  try {
    throw;
  } catch (const std::exception &error) {
    return MessageOf(error);
  } catch (...) {
    return QStringLiteral("An error of an unknown kind");
  }
}

}  // namespace

void ShowCaughtException() noexcept {
  try {
    ShowMessage(MessageOfCaught());
  } catch (...) {  // NOLINT(bugprone-empty-catch): there is nobody left to tell
  }
}

}  // namespace tessera
