// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/DebugTrace.h>

#include <QStringList>

namespace tessera::test {

/// Hands over what is traced in its scope.
class TTraceRecorder {
 public:
  TTraceRecorder()
      : m_before(SetDebugTraceSink([this](const QString &format, std::initializer_list<QString> arguments) {
          texts += FormatMessage(format, arguments);
        })) {}
  ~TTraceRecorder() { SetDebugTraceSink(m_before); }
  TTraceRecorder(const TTraceRecorder &) = delete;
  TTraceRecorder &operator=(const TTraceRecorder &) = delete;

  QStringList texts;

 private:
  TTraceSink m_before;
};

}  // namespace tessera::test
