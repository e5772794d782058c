// SPDX-License-Identifier: MIT
#include <tessera/base/Progresser.h>

namespace tessera::Progresser {

std::function<void(QObject *, int, int, const QString &)> StartProgress;
std::function<void(QObject *, int)> ShowProgress;
std::function<void(QObject *)> StopProgress;

}  // namespace tessera::Progresser
