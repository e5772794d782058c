// SPDX-License-Identifier: MIT
#pragma once

#include <QStringList>

namespace tessera::apps {

/// The files of the map of the world that is installed beside the editor, the bottom layer first; none where it is
/// missing.
[[nodiscard]] QStringList SampleMapFiles();

/// Whether the editor runs for the first time with these settings, which is so once.
[[nodiscard]] bool TakeFirstRun();

}  // namespace tessera::apps
