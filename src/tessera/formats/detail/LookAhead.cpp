// SPDX-License-Identifier: MIT
#include <tessera/formats/detail/LookAhead.h>

#include <QThread>

namespace tessera::detail {

LookAheadLimits LookAheadLimits::OfMachine() {
  return QThread::idealThreadCount() > 1 ? LookAheadLimits() : Nothing();
}

}  // namespace tessera::detail
