// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <QString>

#include <functional>

class QObject;

/// Progress callbacks of the process, for code that has no map at hand. All three are empty until a program sets them.
namespace tessera::Progresser {

TESSERA_CORE_EXPORT extern std::function<void(QObject *sender, int min, int max, const QString &caption)> StartProgress;
TESSERA_CORE_EXPORT extern std::function<void(QObject *sender, int position)> ShowProgress;
TESSERA_CORE_EXPORT extern std::function<void(QObject *sender)> StopProgress;

}  // namespace tessera::Progresser
