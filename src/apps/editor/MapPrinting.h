// SPDX-License-Identifier: MIT
#pragma once

#include <tessera/map/TTessera.h>

class QPrinter;

namespace tessera::apps {

/// Prints what a map shows, as large as it fits on the page.
void PrintMap(TTessera &map, QPrinter &printer);
/// Shows how that will look, and prints from there.
void PreviewPrint(TTessera &map, QWidget *parent);
/// Asks for the printer, and prints.
void AskAndPrint(TTessera &map, QWidget *parent);

}  // namespace tessera::apps
