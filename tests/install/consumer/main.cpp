// SPDX-License-Identifier: MIT
#include <tessera/base/TCardinalArray.h>

#include <cstdlib>

int main() {
  tessera::TCardinalArray ids;
  ids.Add(7);
  return ids.GetCount() == 1 && ids.GetItem(0) == 7 ? EXIT_SUCCESS : EXIT_FAILURE;
}
