// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/formats/detail/MitabWriter.h>

namespace tessera::detail {

/// What a layer is to be written with, to the file `writtenName`: projection and character set of the file that it was
/// read from, else of the file `fileName`, which is to be replaced, else the usual ones. A character set that cannot be
/// written is replaced by the usual one, which the report tells.
[[nodiscard]] MitabTarget TargetFor(const TMapLayer &layer, const QString &fileName, const QString &writtenName,
                                    TFormatReport &report);

}  // namespace tessera::detail
