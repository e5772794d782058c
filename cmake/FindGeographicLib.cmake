# SPDX-License-Identifier: MIT
# GeographicLib::GeographicLib. Versions that are packaged have no configuration for CMake that would stand where CMake
# looks for it.
find_path(GeographicLib_INCLUDE_DIR GeographicLib/Geodesic.hpp)
find_library(GeographicLib_LIBRARY NAMES GeographicLib Geographic)
mark_as_advanced(GeographicLib_INCLUDE_DIR GeographicLib_LIBRARY)

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(GeographicLib REQUIRED_VARS GeographicLib_LIBRARY GeographicLib_INCLUDE_DIR)

if(GeographicLib_FOUND AND NOT TARGET GeographicLib::GeographicLib)
  add_library(GeographicLib::GeographicLib UNKNOWN IMPORTED)
  set_target_properties(
    GeographicLib::GeographicLib PROPERTIES IMPORTED_LOCATION "${GeographicLib_LIBRARY}"
                                            INTERFACE_INCLUDE_DIRECTORIES "${GeographicLib_INCLUDE_DIR}")
endif()
