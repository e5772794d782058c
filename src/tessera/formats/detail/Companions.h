// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <QString>

namespace tessera::detail {

/// The file that belongs to `fileName` and has another ending, given in small letters without its dot: the one with
/// that ending, or one that only differs in the case of these letters when just that is there.
[[nodiscard]] TESSERA_CORE_EXPORT QString CompanionOf(const QString &fileName, const QString &ending);

}  // namespace tessera::detail
