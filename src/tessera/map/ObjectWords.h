// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>
#include <tessera/objects/TCustomMapObject.h>

namespace tessera {

// What people are told of objects, in the language of the program.

/// "Region", "Symbol", and so on.
[[nodiscard]] TESSERA_WIDGETS_EXPORT QString KindName(const TCustomMapObject &object);
/// The text of a value in the format of a locale; that of a date or time which is none is shown as it is.
[[nodiscard]] TESSERA_WIDGETS_EXPORT QString ShownText(const TDataFieldView &field, const QLocale &locale = QLocale());

}  // namespace tessera
