// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <QString>

#include <functional>

namespace tessera {

/// Receives every message meant for the person in front of the program.
using TMessageSink = std::function<void(const QString &text)>;

/// Replaces the sink; an empty function restores the default. Returns the sink that was in force.
/// The default writes a line to standard error; once a map control exists, it is a message box instead.
TESSERA_CORE_EXPORT TMessageSink SetMessageSink(TMessageSink sink);
/// Replaces what an empty sink falls back to and returns what it was. For the library that has windows.
TESSERA_CORE_EXPORT TMessageSink SetDefaultMessageSink(TMessageSink sink);

/// Hands `text` to the sink.
TESSERA_CORE_EXPORT void ShowMessage(const QString &text);

}  // namespace tessera
