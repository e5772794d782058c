// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <exception>
#include <utility>

namespace tessera {

/// Hands the exception that is being handled to the message sink, whatever its type. What the sink itself throws is
/// lost.
TESSERA_CORE_EXPORT void ShowCaughtException() noexcept;

/// Runs `body` where no exception may pass, as in a destructor or an event handler of Qt: one that comes out of it ends
/// in the message sink.
template <typename Body>
void GuardedCall(Body &&body) noexcept {
  try {
    std::forward<Body>(body)();
  } catch (...) {
    ShowCaughtException();
  }
}

/// Runs several steps of which each must be tried whatever the others throw, as when several are told of one event, and
/// then throws what the first that failed has thrown.
class TESSERA_CORE_EXPORT AllSteps {
 public:
  template <typename Step>
  void Try(Step &&step) {
    try {
      std::forward<Step>(step)();
    } catch (...) {
      if (!m_first) m_first = std::current_exception();
    }
  }
  /// To be called at the end.
  void Rethrow() const {
    if (m_first) std::rethrow_exception(m_first);
  }

 private:
  std::exception_ptr m_first;
};

}  // namespace tessera
