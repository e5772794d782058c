// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/base/Export.h>

#include <QByteArray>
#include <QString>

#include <span>

namespace tessera::detail {

/// An entry point of the MITAB library and the variable that it is bound to.
struct TESSERA_CORE_EXPORT MitabEntry {
  const char *name;
  int argumentBytes;  ///< On the stack of the 32-bit standard call.
  void (*set)(QFunctionPointer found);

  /// Under which 32-bit Windows libraries export it.
  [[nodiscard]] QByteArray DecoratedName() const;
};

/// All that are bound, in that order; the one that tells the version is the first.
[[nodiscard]] TESSERA_CORE_EXPORT std::span<const MitabEntry> MitabEntries();

/// What LibPath is at first.
[[nodiscard]] QString UsualMitabPath();

/// An entry point beyond these, which only some builds of the library have; null without one, and without a library.
[[nodiscard]] TESSERA_CORE_EXPORT QFunctionPointer FindMitabEntry(const char *name);

}  // namespace tessera::detail
