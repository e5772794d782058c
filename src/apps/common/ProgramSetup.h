// SPDX-License-Identifier: MIT
#pragma once

#include <apps/common/TMapInfoFiles.h>

namespace tessera::apps {

/// Reads and writes numbers with a decimal point whatever the system's locale is, as the files that people exchange
/// have them. To be called once the application object exists, which puts the system's locale in force.
void UseDecimalPoint();

/// The formats that the programs know, available as long as this lives.
struct TStandardProviders {
  TMapInfoFiles mapInfo;
};

}  // namespace tessera::apps
