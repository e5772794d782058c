// SPDX-License-Identifier: MIT
#include <tessera/map/TTessera.h>

// Here, where the types of the signals' parameters are complete.
#include "moc_TTesseraEvents.cpp"
