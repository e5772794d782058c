// SPDX-License-Identifier: MIT
// Projection records, which OGR does not hand out: there are none, and none is taken.
#include "Constants.h"

namespace tessera::mitab {

MITAB_API void *mitab_c_get_projinfo(void * /*handle*/) {
  return nullptr;
}

MITAB_API int mitab_c_set_projinfo(void * /*handle*/, void * /*info*/) {
  return -1;
}

MITAB_API void mitab_c_get_projection_info(void * /*info*/, int * /*projectionId*/, int * /*ellipsoidId*/,
                                           int * /*unitsId*/, double * /*parameters*/) {}

MITAB_API void mitab_c_set_projection_info(void * /*info*/, int /*projectionId*/, int /*ellipsoidId*/, int /*unitsId*/,
                                           double * /*parameters*/) {}

MITAB_API void mitab_c_get_datum_info(void * /*info*/, double * /*shiftX*/, double * /*shiftY*/, double * /*shiftZ*/,
                                      double * /*parameters*/) {}

MITAB_API void mitab_c_set_datum_info(void * /*info*/, double /*shiftX*/, double /*shiftY*/, double /*shiftZ*/,
                                      double * /*parameters*/) {}

MITAB_API int mitab_c_get_affine_params(void * /*info*/, int * /*units*/, double * /*parameters*/) {
  return 0;
}

MITAB_API void mitab_c_set_affine_params(void * /*info*/, int /*units*/, double * /*parameters*/) {}

}  // namespace tessera::mitab
