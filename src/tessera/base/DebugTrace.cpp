// SPDX-License-Identifier: MIT
#include <tessera/base/DebugTrace.h>
#include <tessera/base/detail/AsideRun.h>

#include <utility>

namespace tessera {
namespace {

TTraceSink &Sink() {
  static TTraceSink sink;
  return sink;
}

}  // namespace

TTraceSink SetDebugTraceSink(TTraceSink sink) {
  return std::exchange(Sink(), std::move(sink));
}

bool IsDebugTraced() {
  return Sink() != nullptr;
}

void DebugTrace(const QString &format, std::initializer_list<QString> arguments) {
  if (detail::AsideRun *run = detail::AsideRun::Current()) {
    run->NoteNotice(FormatMessage(format, arguments));
  } else if (Sink()) {
    Sink()(format, arguments);
  }
}

QString FormatMessage(const QString &format, std::initializer_list<QString> arguments) {
  QString text;
  const QString *argument = arguments.begin();
  for (qsizetype i = 0; i < format.size(); ++i) {
    const bool isPlace = format[i] == u'%' && i + 1 < format.size() && QStringView(u"sSdD").contains(format[i + 1]);
    if (isPlace && argument != arguments.end()) {
      text += *argument++;
      ++i;
    } else {
      text += format[i];
    }
  }
  return text;
}

}  // namespace tessera
