// SPDX-License-Identifier: MIT
// A library that has as much of the MITAB library as its build says, and does nothing.

#define STAND_IN extern "C" __attribute__((visibility("default")))

#ifdef STAND_IN_VERSION
STAND_IN int mitab_c_getlibversion() {
  return STAND_IN_VERSION;
}
#endif

STAND_IN int mitab_c_getlasterrorno() {
  return 77;
}

STAND_IN int mitab_c_set_quick_spatial_index_mode(void * /*handle*/) {
  return 78;
}

STAND_IN int mitab_c_of_some_builds() {
  return 79;
}
