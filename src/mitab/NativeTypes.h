// SPDX-License-Identifier: MIT
#pragma once

#include "Columns.h"

#include <string>

namespace tessera::mitab {

/// Gives the columns of a file that OGR has completed the types that it cannot write, small integers and logical
/// values: it has written them as integers and as texts of one letter. Does nothing when there are none. False, with an
/// error posted, when the files cannot be rewritten; then they are as they were or, in the worst case, of no use.
[[nodiscard]] bool GiveNativeTypes(const std::string &fileName, FileKind kind, const Columns &columns);

}  // namespace tessera::mitab
