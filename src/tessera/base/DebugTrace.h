// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <QString>

#include <functional>
#include <initializer_list>

namespace tessera {

/// Receives the diagnostic notices of the library: timings, regions that came out empty, files that are missing.
using TTraceSink = std::function<void(const QString &format, std::initializer_list<QString> arguments)>;

/// Replaces the sink and returns the previous one. There is none at first: notices are dropped.
TESSERA_CORE_EXPORT TTraceSink SetDebugTraceSink(TTraceSink sink);

/// Whether there is a sink.
[[nodiscard]] TESSERA_CORE_EXPORT bool IsDebugTraced();

/// Drops the notice, or hands it to the sink. `format` is the notice with %s and %S for the arguments, which are not
/// put in unless somebody listens. Never shows anything and never throws on its own.
TESSERA_CORE_EXPORT void DebugTrace(const QString &format, std::initializer_list<QString> arguments = {});

/// `format` with each %s, %S, %d and %D replaced by the next argument.
[[nodiscard]] TESSERA_CORE_EXPORT QString FormatMessage(const QString &format,
                                                        std::initializer_list<QString> arguments);

}  // namespace tessera
