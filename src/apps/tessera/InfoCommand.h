// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

namespace tessera::apps {

/// `tessera info`: tells what map files hold. Returns the exit status. @throws EUsageError
[[nodiscard]] int RunInfo(const QStringList &arguments);

}  // namespace tessera::apps
