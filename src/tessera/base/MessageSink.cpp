// SPDX-License-Identifier: MIT
#include <tessera/base/MessageSink.h>
#include <tessera/base/detail/AsideRun.h>

#include <cstdio>
#include <utility>

namespace tessera {
namespace {

void WriteToStandardError(const QString &text) {
  std::fprintf(stderr, "%s\n", qPrintable(text));
}

TMessageSink &Sink() {
  static TMessageSink sink;
  return sink;
}

TMessageSink &DefaultSink() {
  static TMessageSink sink = WriteToStandardError;
  return sink;
}

}  // namespace

TMessageSink SetMessageSink(TMessageSink sink) {
  return std::exchange(Sink(), std::move(sink));
}

TMessageSink SetDefaultMessageSink(TMessageSink sink) {
  return std::exchange(DefaultSink(), std::move(sink));
}

void ShowMessage(const QString &text) {
  if (detail::AsideRun *run = detail::AsideRun::Current()) return run->NoteMessage(text);
  const TMessageSink &sink = Sink() ? Sink() : DefaultSink();
  sink(text);
}

}  // namespace tessera
