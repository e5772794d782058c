// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

namespace tessera::apps {

/// `tessera convert IN OUT [--charset NAME] [--allow-loss]`: writes a map file in another format and tells on standard
/// error what the target does not hold. @throws EUsageError
[[nodiscard]] int RunConvert(const QStringList &arguments);

}  // namespace tessera::apps
