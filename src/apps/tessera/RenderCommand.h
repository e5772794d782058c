// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

namespace tessera::apps {

/// `tessera render`: draws map files to a picture. Returns the exit status. @throws EUsageError
[[nodiscard]] int RunRender(const QStringList &arguments);

}  // namespace tessera::apps
