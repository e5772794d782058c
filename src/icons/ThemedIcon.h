// SPDX-License-Identifier: MIT
#pragma once

#include <QIcon>

namespace tessera {

/// One of the icons in this folder (NAME.svg), which are black drawings: shown in the text colour of the palette that
/// is in force, so that they suit light and dark themes, and sharp at any size.
[[nodiscard]] QIcon ThemedIcon(const QString &name);

}  // namespace tessera
