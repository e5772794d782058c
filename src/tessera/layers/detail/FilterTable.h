// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/layers/TMapLayer.h>

struct sqlite3;

namespace tessera::detail {

inline constexpr char FilterTableName[] = "layer";

/// Makes the objects of a layer the rows of a table of that name in a database, one that only reads: the id is the
/// rowid, and the columns are those that the layer has now. The answer is SQLite's.
[[nodiscard]] int AddFilterTable(sqlite3 &database, TMapLayer &layer);

}  // namespace tessera::detail
